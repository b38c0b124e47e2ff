#pragma once
#include "zefra/ZefraExport.h"
// Base of everything drawn: the layer it lies on and its own line-type scale
// and line weight.

#include "zefra/platform/host/AcDbObjectId.h"

class ZEFRA_API AcDbEntity {
public:
    AcDbEntity() = default;
    AcDbEntity(const AcDbEntity&) = default;
    AcDbEntity& operator=(const AcDbEntity&) = default;
    virtual ~AcDbEntity();

    AcDbObjectId layerId() const { return m_layerId; }
    void setLayer(const AcDbObjectId& layerId) { m_layerId = layerId; }

    double linetypeScale() const { return m_linetypeScale; }
    void setLinetypeScale(double scale) { m_linetypeScale = scale; }

    // In millimetres; 0 is the host's default weight.
    double lineWeight() const { return m_lineWeight; }
    void setLineWeight(double weight) { m_lineWeight = weight; }

private:
    AcDbObjectId m_layerId;
    double m_linetypeScale = 1.0;
    double m_lineWeight = 0.0;
};
