#pragma once
// The coil of a floor-heating loop: the supply run lies on the entity's own
// layer, the return run takes the back-pipe property.

#include "zefra/platform/entities/QoHvacEntProperty.h"
#include "zefra/platform/host/AcDbEntity.h"

class QoDbHvacCoilPipe : public AcDbEntity {
public:
    double GetSideLineWidth() const { return m_sideLineWidth; }
    void SetSideLineWidth(double width);

    const QoHvacEntProperty& GetPropBackPipe() const { return m_propBackPipe; }
    void SetPropBackPipe(const QoHvacEntProperty& prop) { m_propBackPipe = prop; }

private:
    double m_sideLineWidth = 0.0;
    QoHvacEntProperty m_propBackPipe;
};
