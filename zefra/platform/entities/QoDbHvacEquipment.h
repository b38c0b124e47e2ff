#pragma once
// Air-side equipment: fans, air handlers, fan-coil units.

#include "zefra/platform/host/AcDbEntity.h"

class QoDbHvacEquipment : public AcDbEntity {
public:
    QoDbHvacEquipment();
};
