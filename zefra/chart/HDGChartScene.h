#pragma once
// A drawn enthalpy-humidity chart as plain shapes and texts, in drawing units
// (millimetres, y upwards), grouped by what they are. Each group carries the
// name of the layer its content belongs on. The SVG writer and the cairo
// renderer draw the groups in order.

#include "zefra/chart/HDGChartAxes.h"

#include <cstdint>
#include <string>
#include <vector>

enum class EHDGChartShape { Polyline, Polygon, Circle };

struct SHDGChartShape {
    EHDGChartShape kind = EHDGChartShape::Polyline;
    std::vector<SHDGChartXY> points;  // the centre alone for a circle
    double radius = 0.0;
    double width = 0.25;              // line width; filled shapes aren't stroked
    bool filled = false;
    bool dashed = false;
    // A grid line: a raster draws it on whole pixels, without smoothing.
    bool crisp = false;
    std::uint32_t colour = 0x000000;  // 0xRRGGBB
};

enum class EHDGChartAlign { Start, Middle, End };
// Which height of the text stands at its place: the baseline, the middle of
// the capitals, or their top.
enum class EHDGChartBaseline { Bottom, Middle, Top };

struct SHDGChartText {
    std::string text;  // UTF-8
    SHDGChartXY at;
    double height = 3.0;  // height of the capitals
    double angle = 0.0;   // degrees, anticlockwise
    EHDGChartAlign align = EHDGChartAlign::Start;
    EHDGChartBaseline baseline = EHDGChartBaseline::Bottom;
    bool bold = false;
    bool halo = false;    // a white rim keeps the text readable over lines
    std::uint32_t colour = 0x000000;
};

// What a group holds; also the order of drawing.
enum class EHDGChartGroup {
    MoistureLines,   // GetPropHDG_d_Layer
    Isotherms,       // GetPropHDG_t_Layer
    EnthalpyLines,   // GetPropHDG_h_Layer
    HumidityCurves,  // GetPropHDG_rh_Layer, with the saturation curve
    Chart,           // GetPropHDG_Hst_Layer: frame, scales, title block
    HeatHumRatio,    // GetPropHDG_Hhr_Layer: the dial and the process's ε line
    ProcessLines,    // GetPropHDG_Line_Layer
    ProcessLineLabels,
    Points,          // GetPropHDG_Point_Layer
    PointLabels,
};
constexpr int kHDGChartGroupCount = 10;

// The layer names of the groups, as the layer standard resolves them.
struct SHDGChartLayerNames {
    std::string point;
    std::string pointLabel;
    std::string line;
    std::string lineLabel;
    std::string hhr;
    std::string rh;
    std::string h;
    std::string d;
    std::string t;
    std::string hst;

    const std::string& Of(EHDGChartGroup group) const;
};

struct SHDGChartGroup {
    EHDGChartGroup kind = EHDGChartGroup::Chart;
    std::string id;     // fixed per kind: "HDG_t", "HDG_Point_Label", ...
    std::string layer;  // the resolved layer name
    std::vector<SHDGChartShape> shapes;
    std::vector<SHDGChartText> texts;

    bool Empty() const { return shapes.empty() && texts.empty(); }
};

struct HDGChartScene {
    SHDGChartBox page;                  // everything drawn lies inside
    SHDGChartBox frame;                 // the chart's frame
    std::vector<SHDGChartGroup> groups;  // one per kind, in drawing order
    std::vector<std::string> notes;     // what was left out, for the user
    std::string title;                  // the document's title

    const SHDGChartGroup& Group(EHDGChartGroup kind) const { return groups[static_cast<int>(kind)]; }
    SHDGChartGroup& Group(EHDGChartGroup kind) { return groups[static_cast<int>(kind)]; }
};

// The fixed id of a group kind.
const char* HDGChartGroupId(EHDGChartGroup kind);
