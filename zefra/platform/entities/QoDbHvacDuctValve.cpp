#include "zefra/platform/entities/QoDbHvacDuctValve.h"

QoDbHvacDuctValve::QoDbHvacDuctValve() = default;
