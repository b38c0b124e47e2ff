#pragma once
#include "zefra/ZefraExport.h"
// Lays out the enthalpy-humidity chart as a scene: the four line families
// and the saturation curve, the frame with the temperature, moisture and
// vapour-pressure scales, the title block, the heat-humidity-ratio dial, and
// a process drawn over it.
//
// Texts are placed so that they keep clear of each other and of the process:
// the process's point names first, then its line labels, then the labels of
// the line families, then the title block and the dial, each where nothing
// is drawn yet (inside the frame below the saturation curve if there is
// room, else outside the frame).

#include "zefra/chart/HDGChartScene.h"
#include "zefra/chart/SHDGChartOverlay.h"
#include "zefra/chart/SHvacHDGDrawSet.h"

#include <string>

ZEFRA_API_BEGIN

namespace HDGChartBuilder {

// The chart of `drawSet` at `pressure` (Pa), with `overlay` drawn over it
// when not null. False, with the reason in `error`, for settings that give
// no chart (HDGChartAxes::Check). Points of the overlay outside the frame
// aren't drawn and get a note; process lines are cut at the frame.
bool Build(const SHvacHDGDrawSet& drawSet, double pressure, const SHDGChartLayerNames& layers,
           const SHDGChartOverlay* overlay, HDGChartScene& scene, std::string& error);

}  // namespace HDGChartBuilder

ZEFRA_API_END
