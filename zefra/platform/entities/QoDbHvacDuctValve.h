#pragma once
// A damper or valve in a duct.

#include "zefra/platform/host/AcDbEntity.h"

class QoDbHvacDuctValve : public AcDbEntity {
public:
    QoDbHvacDuctValve();
};
