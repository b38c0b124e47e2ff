#include "zefra/platform/entities/QoDbHvacPipeEquipment.h"

QoDbHvacPipeEquipment::QoDbHvacPipeEquipment(EEquipType type) : m_equipType(type) {}
