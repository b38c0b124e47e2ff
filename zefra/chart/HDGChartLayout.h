#pragma once
#include "zefra/ZefraExport.h"
// What the chart's layout needs to keep texts apart: the size a text takes,
// the outline it covers, and a set of outlines already taken.
//
// Widths are estimated from the kind of each character, for a sans-serif
// face whose capitals are 0.72 em high (the CJK face the renderers use);
// the estimate errs on the wide side.

#include "zefra/chart/HDGChartScene.h"

#include <array>
#include <string>
#include <vector>

ZEFRA_API_BEGIN

namespace HDGChartLayout {

// Font size (em) of a text whose capitals are `height` high.
double FontSize(double height);
// Advance width of a UTF-8 text with capitals `height` high.
double TextWidth(const std::string& text, double height);

// A convex outline of up to four corners; two corners make a segment.
struct SOutline {
    std::array<SHDGChartXY, 4> corners{};
    int count = 0;
    SHDGChartBox bounds;
};

SOutline Segment(const SHDGChartXY& a, const SHDGChartXY& b);
SOutline Box(const SHDGChartBox& box);
// The outline a text covers, from below its descenders to above its
// capitals, widened by `pad` on every side.
SOutline TextOutline(const SHDGChartText& text, double pad = 0.0);
// Where the text's baseline starts (for Start alignment) or its anchor lies
// on the baseline (Middle, End), after the vertical placement.
SHDGChartXY BaselinePoint(const SHDGChartText& text);

bool Overlap(const SOutline& a, const SOutline& b);

// Outlines already taken on the drawing.
class Obstacles {
public:
    void Add(const SOutline& outline) { m_outlines.push_back(outline); }
    void AddPolyline(const std::vector<SHDGChartXY>& points);
    // How many outlines `outline` overlaps.
    int Hits(const SOutline& outline) const;
    bool Free(const SOutline& outline) const;

private:
    std::vector<SOutline> m_outlines;
};

}  // namespace HDGChartLayout

ZEFRA_API_END
