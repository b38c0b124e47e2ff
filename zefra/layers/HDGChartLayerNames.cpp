#include "zefra/layers/HDGChartLayerNames.h"

#include "zefra/layers/HvacLayerResolution.h"
#include "zefra/platform/host/AcDbDatabase.h"

namespace HVAC {
namespace {

std::string NameOf(const QoHvacEntProperty& property) {
    AcDbLayerTableRecord layer;
    AcDbDatabase* drawing = acdbHostApplicationServices()->workingDatabase();
    if (drawing && drawing->layerTable().getAt(property.layerId, layer)) return layer.name().ToUtf8();
    return "0";  // the layer every drawing has
}

}  // namespace

SHDGChartLayerNames GetHDGChartLayerNames() {
    SHDGChartLayerNames names;
    names.point = NameOf(GetPropHDG_Point_Layer());
    names.pointLabel = NameOf(GetPropHDG_Point_Label_Layer());
    names.line = NameOf(GetPropHDG_Line_Layer());
    names.lineLabel = NameOf(GetPropHDG_Line_Label_Layer());
    names.hhr = NameOf(GetPropHDG_Hhr_Layer());
    names.rh = NameOf(GetPropHDG_rh_Layer());
    names.h = NameOf(GetPropHDG_h_Layer());
    names.d = NameOf(GetPropHDG_d_Layer());
    names.t = NameOf(GetPropHDG_t_Layer());
    names.hst = NameOf(GetPropHDG_Hst_Layer());
    return names;
}

}  // namespace HVAC
