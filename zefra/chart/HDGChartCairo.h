#pragma once
// The chart scene drawn by cairo, as PNG or PDF bytes. Groups are drawn in
// order; texts use the "WenQuanYi Micro Hei" face through fontconfig, which
// has the Chinese glyphs. One drawing unit is one millimetre: a PDF page is
// the scene's page at full size, a PNG has `pixelsPerMm` pixels a unit.

#include "zefra/chart/HDGChartScene.h"

#include <string>

namespace HDGChartCairo {

// About 81 dpi: the chart's text of 3 mm is some 10 pixels high, and the
// default chart's picture stays near 250 KB.
constexpr double kDefaultPixelsPerMm = 3.2;

// False, with the reason in `error`, when cairo can't draw or encode.
bool RenderPng(const HDGChartScene& scene, double pixelsPerMm, std::string& png, std::string& error);
bool RenderPdf(const HDGChartScene& scene, std::string& pdf, std::string& error);

}  // namespace HDGChartCairo
