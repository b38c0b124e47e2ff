#pragma once
#include "zefra/ZefraExport.h"
// The layer and line properties that one part of an HVAC entity takes: the
// layer, the line-type scale and the line weight of the layer's definition.

#include "zefra/platform/host/AcDbObjectId.h"

class AcDbDatabase;
class AcDbEntity;

class ZEFRA_API QoHvacEntProperty {
public:
    // No layer, scale 1 and the host's default weight (0).
    QoHvacEntProperty() = default;

    // Puts the three values on the entity. The line-type scale is multiplied
    // by scaleFactor; the database is where the layer lives (unused here, as
    // the id alone names the layer).
    void SetTo(AcDbEntity* entity, double scaleFactor, AcDbDatabase* database) const;

    AcDbObjectId layerId;
    double lineScale = 1.0;
    double lineWeight = 0.0;
};
