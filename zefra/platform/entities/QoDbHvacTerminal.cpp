#include "zefra/platform/entities/QoDbHvacTerminal.h"

QoDbHvacTerminal::QoDbHvacTerminal() = default;
