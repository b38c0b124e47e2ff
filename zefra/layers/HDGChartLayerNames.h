#pragma once
#include "zefra/ZefraExport.h"
// The layers of the drawn enthalpy-humidity chart, as the current layer
// standard resolves them: one name for each of the chart's groups.

#include "zefra/chart/HDGChartScene.h"

ZEFRA_API_BEGIN

namespace HVAC {

// Each name is that of the layer GetPropHDG_..._Layer gives in the working
// drawing (made there when missing, as for any drawn thing).
SHDGChartLayerNames GetHDGChartLayerNames();

}  // namespace HVAC

ZEFRA_API_END
