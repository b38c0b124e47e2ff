#pragma once
// A calculated return-air scheme as a process to draw over the chart: the
// points of GetAllPoint() under their names, and the lines the air follows
// through them.
//
// Lines, in the order the air passes:
// - return duct N to N' (when N' is listed);
// - outdoor air preheated W to W' (winter, when the mix uses W');
// - the mix: outdoor and return air each to C;
// - the unit's treatment from C on, through L (and K, where listed) to O,
//   in the secondary scheme with the second mix L and N' to M before the
//   reheat or humidifying to K, and the supply duct to O;
// - the room: O to N, on the heat-humidity-ratio line, which is drawn
//   through N towards O as far as the chart goes.
// Points are found by their names; a line whose end isn't listed joins the
// next listed point instead.

#include "zefra/air/ZefraHDGPrimaryReturnAir.h"
#include "zefra/air/ZefraHDGSecondaryReturnAir.h"
#include "zefra/chart/SHDGChartOverlay.h"

SHDGChartOverlay HDGChartOverlayOf(const ZefraHDGPrimaryReturnAir& scheme);
SHDGChartOverlay HDGChartOverlayOf(const ZefraHDGSecondaryReturnAir& scheme);
