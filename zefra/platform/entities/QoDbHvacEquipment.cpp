#include "zefra/platform/entities/QoDbHvacEquipment.h"

QoDbHvacEquipment::QoDbHvacEquipment() = default;
