#include "zefra/layers/QoDtInitLayer.h"

#include "zefra/layers/QoDtLayerCfg.h"
#include "zefra/platform/host/AcDbDatabase.h"
#include "zefra/platform/host/AcDbLayerTable.h"

AcDbObjectId QoDtInitLayer(const wchar_t* key, AcDbDatabase* database) {
    if (!database) database = acdbHostApplicationServices()->workingDatabase();
    if (!database) return AcDbObjectId::kNull;

    QoDtLayerDef def(key ? key : L"");
    const bool defined = QoDtLayerCfg().GetLayerDef(def, nullptr);
    CString name = defined ? def.layerName : def.key;
    if (name.IsEmpty()) name = def.key.IsEmpty() ? CString(L"0") : def.key;

    AcDbLayerTable& layers = database->layerTable();
    AcDbObjectId id;
    if (layers.getAt(name, id)) return id;
    const AcDbLayerTableRecord record(name, def.colorIndex, def.lineType, def.GetLineWeight());
    layers.add(record, id);
    return id;
}
