#include "zefra/platform/entities/QoDbHvacTelescopeCase.h"

QoDbHvacTelescopeCase::QoDbHvacTelescopeCase() = default;
