#pragma once
#include "zefra/ZefraExport.h"
// The chart scene as an SVG document of our own: one <g> per group, in
// drawing order, with the group's fixed id and its layer name (in
// "data-layer", and as an Inkscape layer label). One drawing unit is one
// millimetre; the page is the scene's page box.

#include "zefra/chart/HDGChartScene.h"

#include <string>

ZEFRA_API_BEGIN

namespace HDGChartSvg {

// Empty groups are left out.
std::string Write(const HDGChartScene& scene);

}  // namespace HDGChartSvg

ZEFRA_API_END
