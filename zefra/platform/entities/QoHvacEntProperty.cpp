#include "zefra/platform/entities/QoHvacEntProperty.h"

#include "zefra/platform/host/AcDbEntity.h"

void QoHvacEntProperty::SetTo(AcDbEntity* entity, double scaleFactor, AcDbDatabase* database) const {
    (void)database;
    if (!entity) return;
    entity->setLayer(layerId);
    entity->setLinetypeScale(lineScale * scaleFactor);
    entity->setLineWeight(lineWeight);
}
