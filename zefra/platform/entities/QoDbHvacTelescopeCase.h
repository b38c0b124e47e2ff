#pragma once
// The sleeve that guards a floor-heating pipe where it crosses an expansion joint.

#include "zefra/platform/host/AcDbEntity.h"

class QoDbHvacTelescopeCase : public AcDbEntity {
public:
    QoDbHvacTelescopeCase();
};
