#include "zefra/chart/HDGChartBuilder.h"

#include "zefra/chart/HDGChartLayout.h"
#include "zefra/chart/HDGChartLines.h"
#include "zefra/platform/airlib/Air.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <initializer_list>

namespace HDGChartBuilder {
namespace {

using HDGChartLayout::Obstacles;
using HDGChartLayout::SOutline;
using HDGChartLayout::TextOutline;
using HDGChartLayout::TextWidth;

constexpr double kPi = 3.14159265358979323846;
const char* const kMinus = "\xE2\x88\x92";  // U+2212

// Colours: a printed chart's, one per family, the process in red.
constexpr std::uint32_t kMoistureColour = 0x2F5BB7;
constexpr std::uint32_t kIsothermColour = 0xA67C00;
constexpr std::uint32_t kEnthalpyColour = 0x00838F;
constexpr std::uint32_t kHumidityColour = 0x2E7D32;
constexpr std::uint32_t kSaturationColour = 0x1B5E20;
constexpr std::uint32_t kChartColour = 0x000000;
constexpr std::uint32_t kRatioColour = 0x8E24AA;
constexpr std::uint32_t kProcessColour = 0xD32F2F;
constexpr std::uint32_t kProcessLabelColour = 0xB71C1C;
constexpr std::uint32_t kPointLabelColour = 0x000000;

// Line widths in millimetres.
constexpr double kMinorWidth = 0.12;
constexpr double kMajorWidth = 0.3;
constexpr double kSaturationWidth = 0.6;
constexpr double kFrameWidth = 0.45;
constexpr double kTickWidth = 0.25;
constexpr double kProcessWidth = 0.55;
constexpr double kRatioLineWidth = 0.35;
constexpr double kMinorWhite = 0.55;

// A number as the chart writes it: fixed decimals, a true minus sign, no "-0".
std::string Number(double value, int decimals) {
    char text[64];
    std::snprintf(text, sizeof text, "%.*f", decimals, std::fabs(value));
    const bool zero = std::string(text).find_first_not_of("0.") == std::string::npos;
    return (value < 0.0 && !zero) ? kMinus + std::string(text) : std::string(text);
}

// The smallest of interval × {1, 2, 5} × 10^n that is at least `least`.
double NiceStep(double interval, double least) {
    for (double decade = 1.0; decade < 1e9; decade *= 10.0)
        for (double factor : {1.0, 2.0, 5.0})
            if (interval * factor * decade >= least) return interval * factor * decade;
    return interval * 1e9;
}

// The colour mixed with white: minor lines recede behind the labelled ones.
std::uint32_t Lighter(std::uint32_t rgb, double white) {
    std::uint32_t out = 0;
    for (int shift = 16; shift >= 0; shift -= 8) {
        const double channel = (rgb >> shift) & 0xFFu;
        out |= static_cast<std::uint32_t>(std::lround(channel + (255.0 - channel) * white)) << shift;
    }
    return out;
}

bool IsMultiple(double value, double step) { return std::fabs(std::remainder(value, step)) < 1e-6 * step; }

int DecimalsOf(double step) {
    int decimals = 0;
    while (decimals < 4 && !IsMultiple(step, std::pow(10.0, -decimals))) ++decimals;
    return decimals;
}

double Length(const SHDGChartXY& a, const SHDGChartXY& b) { return std::hypot(b.x - a.x, b.y - a.y); }

// The reading angle of a direction, turned so that text never stands on its head.
double ReadingAngle(double dx, double dy) {
    double angle = std::atan2(dy, dx) * 180.0 / kPi;
    if (angle > 90.0) angle -= 180.0;
    if (angle <= -90.0) angle += 180.0;
    return angle;
}

// Cuts the segment a-b to the box; false when nothing of it is inside.
bool ClipToBox(const SHDGChartBox& box, SHDGChartXY& a, SHDGChartXY& b) {
    double t0 = 0.0, t1 = 1.0;
    const double dx = b.x - a.x, dy = b.y - a.y;
    const double p[4] = {-dx, dx, -dy, dy};
    const double q[4] = {a.x - box.minX, box.maxX - a.x, a.y - box.minY, box.maxY - a.y};
    for (int i = 0; i < 4; ++i) {
        if (p[i] == 0.0) {
            if (q[i] < 0.0) return false;
            continue;
        }
        const double r = q[i] / p[i];
        if (p[i] < 0.0)
            t0 = std::max(t0, r);
        else
            t1 = std::min(t1, r);
        if (t0 > t1) return false;
    }
    const SHDGChartXY start{a.x + t0 * dx, a.y + t0 * dy};
    const SHDGChartXY end{a.x + t1 * dx, a.y + t1 * dy};
    a = start;
    b = end;
    return true;
}

void Grow(SHDGChartBox& box, const SHDGChartBox& other) {
    box.minX = std::min(box.minX, other.minX);
    box.minY = std::min(box.minY, other.minY);
    box.maxX = std::max(box.maxX, other.maxX);
    box.maxY = std::max(box.maxY, other.maxY);
}

void GrowByContent(SHDGChartBox& box, const std::vector<SHDGChartShape>& shapes,
                   const std::vector<SHDGChartText>& texts) {
    for (const SHDGChartShape& s : shapes)
        for (const SHDGChartXY& p : s.points) {
            const double r = s.kind == EHDGChartShape::Circle ? s.radius : 0.5 * s.width;
            Grow(box, {p.x - r, p.y - r, p.x + r, p.y + r});
        }
    for (const SHDGChartText& t : texts) Grow(box, TextOutline(t).bounds);
}

// Shapes and texts put together around the origin, then moved into place.
struct SAssembly {
    std::vector<SHDGChartShape> shapes;
    std::vector<SHDGChartText> texts;

    SHDGChartBox Bounds() const {
        SHDGChartBox box{HUGE_VAL, HUGE_VAL, -HUGE_VAL, -HUGE_VAL};
        GrowByContent(box, shapes, texts);
        return box;
    }
    void Move(double dx, double dy) {
        for (SHDGChartShape& s : shapes)
            for (SHDGChartXY& p : s.points) p = {p.x + dx, p.y + dy};
        for (SHDGChartText& t : texts) t.at = {t.at.x + dx, t.at.y + dy};
    }
};

class Builder {
public:
    Builder(const SHvacHDGDrawSet& s, double pressure, const SHDGChartLayerNames& layers, HDGChartScene& scene)
        : m_set(s),
          m_axes(s, pressure),
          m_scene(scene),
          m_h(s.dWesternTextHeight),
          m_hc(s.dChineseTextHeight),
          m_frame(m_axes.Frame()) {
        m_scene = HDGChartScene();
        m_scene.frame = m_frame;
        m_scene.groups.resize(kHDGChartGroupCount);
        for (int i = 0; i < kHDGChartGroupCount; ++i) {
            const EHDGChartGroup kind = static_cast<EHDGChartGroup>(i);
            m_scene.groups[i].kind = kind;
            m_scene.groups[i].id = HDGChartGroupId(kind);
            m_scene.groups[i].layer = layers.Of(kind);
        }
        m_lines = HDGChartLines::Build(m_axes, s);
    }

    void Run(const SHDGChartOverlay* overlay) {
        ChooseSteps();
        DrawFamilies();
        DrawScales();
        BuildLowerBoundary();
        if (overlay) DrawProcess(*overlay);
        LabelEnthalpyLines();
        LabelHumidityCurves();
        if (m_set.bDrawTitle) PlaceTitleBlock(overlay ? overlay->title : std::string());
        if (m_set.bDrawHeatHumRatioDial) PlaceDial();
        m_scene.title = overlay && !overlay->title.empty() ? overlay->title + " · 焓湿图" : "焓湿图";
        m_scene.page = DrawnBounds();
        const double margin = 2.0 * std::max(m_h, m_hc);
        m_scene.page = {m_scene.page.minX - margin, m_scene.page.minY - margin, m_scene.page.maxX + margin,
                        m_scene.page.maxY + margin};
    }

private:
    SHDGChartGroup& G(EHDGChartGroup kind) { return m_scene.Group(kind); }
    double Gap() const { return 0.5 * m_h; }
    double MinorTick() const { return 0.6 * m_h; }
    double MajorTick() const { return 1.2 * m_h; }

    static SHDGChartShape Line(std::vector<SHDGChartXY> points, double width, std::uint32_t colour,
                               bool dashed = false) {
        SHDGChartShape shape;
        shape.points = std::move(points);
        shape.width = width;
        shape.colour = colour;
        shape.dashed = dashed;
        return shape;
    }

    static SHDGChartText Text(std::string text, SHDGChartXY at, double height, std::uint32_t colour,
                              EHDGChartAlign align, EHDGChartBaseline baseline, double angle = 0.0) {
        SHDGChartText t;
        t.text = std::move(text);
        t.at = at;
        t.height = height;
        t.colour = colour;
        t.align = align;
        t.baseline = baseline;
        t.angle = angle;
        return t;
    }

    // A text that nothing else may overlap from now on.
    void Put(EHDGChartGroup kind, const SHDGChartText& text) {
        G(kind).texts.push_back(text);
        m_taken.Add(TextOutline(text, 0.15 * text.height));
    }

    bool InsideFrame(const SOutline& outline) const {
        return outline.bounds.minX >= m_frame.minX && outline.bounds.maxX <= m_frame.maxX &&
               outline.bounds.minY >= m_frame.minY && outline.bounds.maxY <= m_frame.maxY;
    }

    // ---- Line families ---------------------------------------------------

    void ChooseSteps() {
        const double tSpacing = m_set.nTdbLength / static_cast<double>(m_set.nMaxTdb - m_set.nMinTdb);
        m_tStep = NiceStep(m_set.nTdbInterval, 2.6 * m_h / tSpacing);
        const double dLabel = TextWidth(Number(m_set.nMaxD, 0), m_h) + 1.2 * m_h;
        m_dStep = NiceStep(m_set.nDInterval, dLabel / m_axes.MoistureScale());
        const double k = m_axes.EnthalpyScale();
        const double slope = HDGChartAxes::kShear * k / m_axes.MoistureScale();
        m_hStep = NiceStep(m_set.nHInterval, 2.6 * m_h * std::sqrt(1.0 + slope * slope) / k);
        m_rhStep = NiceStep(m_set.nRHInterval, 10.0);
    }

    void DrawFamily(EHDGChartGroup kind, const std::vector<SHDGChartLine>& lines, double step,
                    std::uint32_t colour, bool straight) {
        for (const SHDGChartLine& line : lines) {
            const bool major = IsMultiple(line.value, step);
            G(kind).shapes.push_back(
                Line(line.points, major ? kMajorWidth : kMinorWidth, major ? colour : Lighter(colour, kMinorWhite)));
            G(kind).shapes.back().crisp = straight;
        }
    }

    void DrawFamilies() {
        DrawFamily(EHDGChartGroup::MoistureLines, m_lines.moistureLines, m_dStep, kMoistureColour, true);
        DrawFamily(EHDGChartGroup::Isotherms, m_lines.isotherms, m_tStep, kIsothermColour, true);
        DrawFamily(EHDGChartGroup::EnthalpyLines, m_lines.enthalpyLines, m_hStep, kEnthalpyColour, true);
        DrawFamily(EHDGChartGroup::HumidityCurves, m_lines.humidityCurves, m_rhStep, kHumidityColour, false);
        if (m_lines.saturation.points.size() >= 2) {
            G(EHDGChartGroup::HumidityCurves)
                .shapes.push_back(Line(m_lines.saturation.points, kSaturationWidth, kSaturationColour));
            m_saturationLine.AddPolyline(m_lines.saturation.points);
        }
    }

    // ---- Frame and scales ------------------------------------------------

    template <typename Visit>
    static void ForMultiples(double low, double high, double step, Visit visit) {
        const long long first = static_cast<long long>(std::ceil(low / step - 1e-9));
        const long long last = static_cast<long long>(std::floor(high / step + 1e-9));
        for (long long n = first; n <= last; ++n) visit(static_cast<double>(n) * step);
    }

    void DrawScales() {
        const SHDGChartBox& f = m_frame;
        SHDGChartGroup& chart = G(EHDGChartGroup::Chart);
        if (m_set.bDrawFrame)
            chart.shapes.push_back(Line({{f.minX, f.minY}, {f.maxX, f.minY}, {f.maxX, f.maxY}, {f.minX, f.maxY},
                                         {f.minX, f.minY}},
                                        kFrameWidth, kChartColour));

        // Temperatures along the left edge, where the isotherms start.
        double widest = 0.0;
        ForMultiples(m_set.nMinTdb, m_set.nMaxTdb, m_set.nTdbInterval, [&](double t) {
            const double y = m_axes.ToChart(t, m_axes.MinD()).y;
            const bool major = IsMultiple(t, m_tStep);
            const double tick = major ? MajorTick() : MinorTick();
            G(EHDGChartGroup::Isotherms).shapes.push_back(Line({{f.minX, y}, {f.minX - tick, y}}, kTickWidth, kIsothermColour));
            if (!major) return;
            const std::string text = Number(t, 0);
            widest = std::max(widest, TextWidth(text, m_h));
            Put(EHDGChartGroup::Isotherms, Text(text, {f.minX - tick - Gap(), y}, m_h, kIsothermColour,
                                                EHDGChartAlign::End, EHDGChartBaseline::Middle));
        });
        const double tMiddle = 0.5 * (m_axes.ToChart(m_axes.MinTdb(), m_axes.MinD()).y +
                                      m_axes.ToChart(m_axes.MaxTdb(), m_axes.MinD()).y);
        Put(EHDGChartGroup::Chart, Text("干球温度 t (°C)", {f.minX - MajorTick() - 2.0 * Gap() - widest, tMiddle}, m_hc,
                                        kChartColour, EHDGChartAlign::Middle, EHDGChartBaseline::Bottom, 90.0));

        // Moisture contents along the bottom edge.
        ForMultiples(m_set.nMinD, m_set.nMaxD, m_set.nDInterval, [&](double d) {
            const double x = m_axes.XOfD(d);
            const bool major = IsMultiple(d, m_dStep);
            const double tick = major ? MajorTick() : MinorTick();
            G(EHDGChartGroup::MoistureLines).shapes.push_back(Line({{x, f.minY}, {x, f.minY - tick}}, kTickWidth, kMoistureColour));
            if (major)
                Put(EHDGChartGroup::MoistureLines,
                    Text(Number(d, 0), {x, f.minY - tick - Gap()}, m_h, kMoistureColour, EHDGChartAlign::Middle,
                         EHDGChartBaseline::Top));
        });
        Put(EHDGChartGroup::Chart,
            Text("含湿量 d (g/kg干空气)", {0.5 * (f.minX + f.maxX), f.minY - MajorTick() - 3.0 * Gap() - m_h}, m_hc,
                 kChartColour, EHDGChartAlign::Middle, EHDGChartBaseline::Top));

        if (m_set.bDrawPvScale) DrawVapourPressureScale();
    }

    // Vapour pressure depends on the moisture content alone, so its scale
    // runs along the top edge.
    void DrawVapourPressureScale() {
        const SHDGChartBox& f = m_frame;
        const double B = m_axes.Pressure();
        const double low = AIR::GetPv(m_axes.MinD(), B) / 1000.0;
        const double high = AIR::GetPv(m_axes.MaxD(), B) / 1000.0;
        auto xOf = [&](double pvKPa) { return m_axes.XOfD(AIR::GetDByPv(pvKPa * 1000.0, B)); };
        // Spacing grows with Pv: the first step is the narrowest.
        double step = 0.01;
        for (double candidate : {0.01, 0.02, 0.05, 0.1, 0.2, 0.5, 1.0, 2.0, 5.0, 10.0, 20.0, 50.0, 100.0}) {
            step = candidate;
            const double need = TextWidth(Number(high, DecimalsOf(candidate)), m_h) + 1.5 * m_h;
            if (xOf(low + candidate) - xOf(low) >= need) break;
        }
        const int decimals = DecimalsOf(step);
        const double lead = step / std::pow(10.0, std::floor(std::log10(step) + 1e-9));
        double minor = step / (std::fabs(lead - 2.0) < 1e-9 ? 4.0 : 5.0);
        if (xOf(low + minor) - xOf(low) < 0.8) minor = step;

        SHDGChartGroup& chart = G(EHDGChartGroup::Chart);
        if (!m_set.bDrawFrame) chart.shapes.push_back(Line({{f.minX, f.maxY}, {f.maxX, f.maxY}}, kTickWidth, kChartColour));
        ForMultiples(low, high, minor, [&](double pv) {
            const double x = xOf(pv);
            const bool major = IsMultiple(pv, step);
            const double tick = major ? MajorTick() : MinorTick();
            chart.shapes.push_back(Line({{x, f.maxY}, {x, f.maxY + tick}}, kTickWidth, kChartColour));
            if (major)
                Put(EHDGChartGroup::Chart, Text(Number(pv, decimals), {x, f.maxY + tick + Gap()}, m_h, kChartColour,
                                                EHDGChartAlign::Middle, EHDGChartBaseline::Bottom));
        });
        Put(EHDGChartGroup::Chart, Text("水蒸气分压力 Pv (kPa)", {0.5 * (f.minX + f.maxX), f.maxY + MajorTick() + 3.0 * Gap() + m_h},
                                        m_hc, kChartColour, EHDGChartAlign::Middle, EHDGChartBaseline::Bottom));
    }

    // ---- The process -----------------------------------------------------

    bool InRegion(const SHDGChartXY& p) const {
        double t = 0.0, d = 0.0;
        m_axes.FromChart(p, t, d);
        return m_frame.Contains(p) && m_axes.IsInRegion(t, d);
    }

    // The last place from `start` along `direction` before the air leaves
    // the chart's region.
    SHDGChartXY ExitAlong(const SHDGChartXY& start, SHDGChartXY direction) const {
        const double length = std::hypot(direction.x, direction.y);
        direction = {direction.x / length, direction.y / length};
        const double reach = std::hypot(m_frame.Width(), m_frame.Height());
        const double step = reach / 1000.0;
        double inside = 0.0, outside = -1.0;
        for (double s = step; s <= reach + step; s += step) {
            if (!InRegion({start.x + s * direction.x, start.y + s * direction.y})) {
                outside = s;
                break;
            }
            inside = s;
        }
        if (outside < 0.0) outside = inside;
        for (int i = 0; i < 40; ++i) {
            const double mid = 0.5 * (inside + outside);
            (InRegion({start.x + mid * direction.x, start.y + mid * direction.y}) ? inside : outside) = mid;
        }
        return {start.x + inside * direction.x, start.y + inside * direction.y};
    }

    void DrawProcess(const SHDGChartOverlay& overlay) {
        const int count = static_cast<int>(overlay.points.size());
        std::vector<SHDGChartXY> at(count);
        std::vector<bool> finite(count), drawn(count);
        const double markerRadius = 0.45 * m_h;
        for (int i = 0; i < count; ++i) {
            const SHDGChartOverlay::SPoint& p = overlay.points[i];
            finite[i] = std::isfinite(p.Tdb) && std::isfinite(p.D);
            if (finite[i]) at[i] = m_axes.ToChart(p.Tdb, p.D);
            drawn[i] = finite[i] && m_frame.Contains(at[i], 1e-9);
            if (!drawn[i]) {
                m_scene.notes.push_back("point " + p.name + " (t = " + Number(p.Tdb, 2) + " °C, d = " + Number(p.D, 2) +
                                        " g/kg) lies outside the chart; it is not drawn");
                continue;
            }
            SHDGChartShape marker;
            marker.kind = EHDGChartShape::Circle;
            marker.points = {at[i]};
            marker.radius = markerRadius;
            marker.filled = true;
            marker.colour = kProcessColour;
            G(EHDGChartGroup::Points).shapes.push_back(marker);
            m_taken.Add(HDGChartLayout::Box({at[i].x - markerRadius, at[i].y - markerRadius,
                                             at[i].x + markerRadius, at[i].y + markerRadius}));
        }

        struct SDrawnSegment {
            SHDGChartXY a, b;
            std::string label;
        };
        std::vector<SDrawnSegment> segments;
        for (const SHDGChartOverlay::SSegment& s : overlay.segments) {
            if (s.from < 0 || s.to < 0 || s.from >= count || s.to >= count || !finite[s.from] || !finite[s.to])
                continue;
            SHDGChartXY a = at[s.from], b = at[s.to];
            if (Length(a, b) < 1e-9 || !ClipToBox(m_frame, a, b)) continue;
            G(EHDGChartGroup::ProcessLines).shapes.push_back(Line({a, b}, kProcessWidth, kProcessColour));
            AddArrow(a, b);
            m_processLines.Add(HDGChartLayout::Segment(a, b));
            segments.push_back({a, b, s.label});
        }

        const SHDGChartOverlay::SRatioLine& ratio = overlay.ratioLine;
        SHDGChartXY ratioFrom{}, ratioTo{};
        bool ratioDrawn = false;
        if (ratio.present && ratio.through >= 0 && ratio.toward >= 0 && ratio.through < count &&
            ratio.toward < count && drawn[ratio.through] && finite[ratio.toward] &&
            Length(at[ratio.through], at[ratio.toward]) > 1e-9 && InRegion(at[ratio.through])) {
            ratioFrom = at[ratio.through];
            SHDGChartXY direction{at[ratio.toward].x - ratioFrom.x, at[ratio.toward].y - ratioFrom.y};
            if (std::isfinite(ratio.epsilon)) {
                // Along ε: per g/kg of moisture the enthalpy changes by ε / 1000.
                const SHDGChartXY slope{m_axes.MoistureScale(),
                                        m_axes.EnthalpyScale() * (ratio.epsilon / 1000.0 - HDGChartAxes::kShear)};
                const double side = slope.x * direction.x + slope.y * direction.y < 0.0 ? -1.0 : 1.0;
                direction = {side * slope.x, side * slope.y};
            }
            ratioTo = ExitAlong(ratioFrom, direction);
            if (Length(ratioFrom, ratioTo) > 1e-6) {
                G(EHDGChartGroup::HeatHumRatio).shapes.push_back(Line({ratioFrom, ratioTo}, kRatioLineWidth, kRatioColour, true));
                m_processLines.Add(HDGChartLayout::Segment(ratioFrom, ratioTo));
                ratioDrawn = true;
            }
        }

        // Points at one place (a duct without a rise, say) share one label.
        std::vector<std::string> names(count);
        std::vector<int> sharedWith(count, -1);
        for (int i = 0; i < count; ++i) {
            if (!drawn[i]) continue;
            for (int j = 0; j < i && sharedWith[i] < 0; ++j)
                if (drawn[j] && sharedWith[j] < 0 && Length(at[i], at[j]) < 0.05 * m_h) sharedWith[i] = j;
            const int owner = sharedWith[i] < 0 ? i : sharedWith[i];
            names[owner] += (names[owner].empty() ? "" : ",") + overlay.points[i].name;
        }
        for (int i = 0; i < count; ++i)
            if (drawn[i] && sharedWith[i] < 0) LabelPoint(names[i], at[i], markerRadius);
        for (const SDrawnSegment& s : segments)
            if (!s.label.empty()) LabelAlong(s.label, s.a, s.b, {0.5, 0.35, 0.65}, m_hc);
        if (ratioDrawn) {
            const int decimals = std::fabs(ratio.epsilon) >= 100.0 ? 0 : 1;
            LabelAlong("ε=" + Number(ratio.epsilon, decimals), ratioFrom, ratioTo, {0.6, 0.4, 0.8, 0.25, 0.9}, m_h);
        }
    }

    void AddArrow(const SHDGChartXY& a, const SHDGChartXY& b) {
        const double length = Length(a, b);
        const double arrow = 1.6 * m_h;
        if (length < 3.0 * arrow) return;
        const SHDGChartXY u{(b.x - a.x) / length, (b.y - a.y) / length};
        const SHDGChartXY tip{0.5 * (a.x + b.x) + 0.5 * arrow * u.x, 0.5 * (a.y + b.y) + 0.5 * arrow * u.y};
        const double half = 0.45 * m_h;
        SHDGChartShape head;
        head.kind = EHDGChartShape::Polygon;
        head.filled = true;
        head.colour = kProcessColour;
        head.points = {tip,
                       {tip.x - arrow * u.x - half * u.y, tip.y - arrow * u.y + half * u.x},
                       {tip.x - arrow * u.x + half * u.y, tip.y - arrow * u.y - half * u.x}};
        G(EHDGChartGroup::ProcessLines).shapes.push_back(head);
    }

    // Cost of a label's place: what it covers, weighted by how much it matters.
    double Cost(const SOutline& outline) const {
        return 1000.0 * m_taken.Hits(outline) + 20.0 * m_processLines.Hits(outline) +
               (InsideFrame(outline) ? 0.0 : 200.0);
    }

    // A point's name goes to the first free place around it.
    void LabelPoint(const std::string& name, const SHDGChartXY& p, double markerRadius) {
        const double height = 1.25 * m_h;
        const double r = markerRadius + 0.35 * m_h;
        const double c = 0.72 * r;
        struct SPlace {
            double dx, dy;
            EHDGChartAlign align;
            EHDGChartBaseline baseline;
        };
        const SPlace places[] = {
            {c, c, EHDGChartAlign::Start, EHDGChartBaseline::Bottom},  {-c, c, EHDGChartAlign::End, EHDGChartBaseline::Bottom},
            {c, -c, EHDGChartAlign::Start, EHDGChartBaseline::Top},    {-c, -c, EHDGChartAlign::End, EHDGChartBaseline::Top},
            {r, 0, EHDGChartAlign::Start, EHDGChartBaseline::Middle},  {-r, 0, EHDGChartAlign::End, EHDGChartBaseline::Middle},
            {0, r, EHDGChartAlign::Middle, EHDGChartBaseline::Bottom}, {0, -r, EHDGChartAlign::Middle, EHDGChartBaseline::Top},
        };
        SHDGChartText best;
        double bestCost = HUGE_VAL;
        int rank = 0;
        // Close to the point first; where a crowd of points leaves no room
        // there, one ring further out.
        for (const double ring : {1.0, 2.6})
            for (const SPlace& place : places) {
                SHDGChartText text = Text(name, {p.x + ring * place.dx, p.y + ring * place.dy}, height,
                                          kPointLabelColour, place.align, place.baseline);
                text.bold = true;
                text.halo = true;
                const double cost = Cost(TextOutline(text, 0.1 * height)) + rank++;
                if (cost < bestCost) {
                    bestCost = cost;
                    best = text;
                }
            }
        Put(EHDGChartGroup::PointLabels, best);
    }

    // A process's name beside its line, on the first side and place that is
    // free; left out where none is.
    void LabelAlong(const std::string& label, const SHDGChartXY& a, const SHDGChartXY& b,
                    std::initializer_list<double> places, double height) {
        const double length = Length(a, b);
        if (length < TextWidth(label, height) + 2.0 * height) return;
        const double angle = ReadingAngle(b.x - a.x, b.y - a.y);
        const double rad = angle * kPi / 180.0;
        const SHDGChartXY up{-std::sin(rad), std::cos(rad)};
        const double offset = 0.45 * height;
        for (double f : places)
            for (int side : {1, -1}) {
                const SHDGChartXY on{a.x + f * (b.x - a.x), a.y + f * (b.y - a.y)};
                SHDGChartText text = Text(label, {on.x + side * offset * up.x, on.y + side * offset * up.y}, height,
                                          kProcessLabelColour, EHDGChartAlign::Middle,
                                          side > 0 ? EHDGChartBaseline::Bottom : EHDGChartBaseline::Top, angle);
                text.halo = true;
                if (Cost(TextOutline(text, 0.1 * height)) == 0.0) {
                    Put(EHDGChartGroup::ProcessLineLabels, text);
                    return;
                }
            }
    }

    // ---- Labels of the line families -------------------------------------

    // Each labelled enthalpy line gets its value just past its lower end:
    // beyond the saturation curve, or outside the frame.
    void LabelEnthalpyLines() {
        for (const SHDGChartLine& line : m_lines.enthalpyLines) {
            if (!IsMultiple(line.value, m_hStep)) continue;
            const SHDGChartXY& from = line.points.front();
            const SHDGChartXY& to = line.points.back();
            const double length = Length(from, to);
            const SHDGChartXY u{(to.x - from.x) / length, (to.y - from.y) / length};
            SHDGChartText text = Text(Number(line.value, 0), {to.x + Gap() * u.x, to.y + Gap() * u.y}, m_h,
                                      kEnthalpyColour, EHDGChartAlign::Start, EHDGChartBaseline::Middle,
                                      std::atan2(u.y, u.x) * 180.0 / kPi);
            const SOutline outline = TextOutline(text, 0.1 * m_h);
            if (m_taken.Free(outline) && m_processLines.Free(outline)) Put(EHDGChartGroup::EnthalpyLines, text);
        }
    }

    // The point at a share of a polyline's length, with its direction.
    static void AtShare(const std::vector<SHDGChartXY>& points, double share, SHDGChartXY& at, SHDGChartXY& direction) {
        double total = 0.0;
        for (size_t i = 1; i < points.size(); ++i) total += Length(points[i - 1], points[i]);
        double left = share * total;
        for (size_t i = 1; i < points.size(); ++i) {
            const double piece = Length(points[i - 1], points[i]);
            if (piece <= 0.0) continue;
            if (left <= piece || i + 1 == points.size()) {
                const double f = std::min(1.0, left / piece);
                at = {points[i - 1].x + f * (points[i].x - points[i - 1].x),
                      points[i - 1].y + f * (points[i].y - points[i - 1].y)};
                direction = {points[i].x - points[i - 1].x, points[i].y - points[i - 1].y};
                return;
            }
            left -= piece;
        }
        at = points.front();
        direction = {1.0, 0.0};
    }

    // Labelled curves carry their value on the curve, at the first free place
    // from their upper end down.
    void LabelCurve(const SHDGChartLine& curve, const std::string& label, bool avoidSaturation) {
        if (curve.points.size() < 2) return;
        const double height = 0.9 * m_h;
        for (double share : {0.88, 0.78, 0.68, 0.58, 0.48, 0.38, 0.28, 0.18}) {
            SHDGChartXY at{}, direction{};
            AtShare(curve.points, share, at, direction);
            SHDGChartText text = Text(label, at, height, kHumidityColour, EHDGChartAlign::Middle,
                                      EHDGChartBaseline::Middle, ReadingAngle(direction.x, direction.y));
            text.halo = true;
            const SOutline outline = TextOutline(text, 0.1 * height);
            if (InsideFrame(outline) && m_taken.Free(outline) && m_processLines.Free(outline) &&
                (!avoidSaturation || m_saturationLine.Free(outline))) {
                Put(EHDGChartGroup::HumidityCurves, text);
                return;
            }
        }
    }

    void LabelHumidityCurves() {
        for (const SHDGChartLine& curve : m_lines.humidityCurves)
            if (IsMultiple(curve.value, m_rhStep)) LabelCurve(curve, Number(curve.value, 0) + "%", true);
        LabelCurve(m_lines.saturation, "φ=100%", false);
    }

    // ---- Title block and dial --------------------------------------------

    // The region's lower edge (the lowest isotherm, then the saturation
    // curve), above which the chart's lines lie; beyond the curve's upper
    // end nothing is drawn up to the frame's top.
    void BuildLowerBoundary() {
        double lowT = 0.0, lowD = 0.0, highT = 0.0, highD = 0.0;
        const bool curve = m_axes.SaturationEnds(lowT, lowD, highT, highD);
        m_lower.clear();
        if (!curve) {
            m_lower = {m_axes.ToChart(m_axes.MinTdb(), m_axes.MinD()), m_axes.ToChart(m_axes.MinTdb(), m_axes.MaxD())};
            return;
        }
        if (lowD > m_axes.MinD()) m_lower.push_back(m_axes.ToChart(m_axes.MinTdb(), m_axes.MinD()));
        m_lower.insert(m_lower.end(), m_lines.saturation.points.begin(), m_lines.saturation.points.end());
        if (highD < m_axes.MaxD()) {
            m_lower.push_back({m_axes.XOfD(highD), m_frame.maxY});
            m_lower.push_back({m_axes.XOfD(m_axes.MaxD()), m_frame.maxY});
        }
    }

    // The lowest height of the region's lower edge between x0 and x1.
    double LowerEdgeMin(double x0, double x1) const {
        double lowest = HUGE_VAL;
        auto heightAt = [this](double x) {
            if (x <= m_lower.front().x) return m_lower.front().y;
            for (size_t i = 1; i < m_lower.size(); ++i)
                if (x <= m_lower[i].x) {
                    const double span = m_lower[i].x - m_lower[i - 1].x;
                    const double f = span > 0.0 ? (x - m_lower[i - 1].x) / span : 1.0;
                    return m_lower[i - 1].y + f * (m_lower[i].y - m_lower[i - 1].y);
                }
            return m_lower.back().y;
        };
        lowest = std::min(heightAt(x0), heightAt(x1));
        for (const SHDGChartXY& p : m_lower)
            if (p.x > x0 && p.x < x1) lowest = std::min(lowest, p.y);
        return lowest;
    }

    // A place of the given size inside the frame where nothing is drawn,
    // as far right and as low as it goes.
    bool FindFreeSpot(double width, double height, SHDGChartBox& spot) const {
        const double margin = m_h;
        // Some 300 places a side at most, however small the text.
        const double step = std::max(m_h, std::max(m_frame.Width(), m_frame.Height()) / 300.0);
        for (double right = m_frame.maxX - margin; right - width >= m_frame.minX + margin; right -= step)
            for (double bottom = m_frame.minY + margin; bottom + height <= m_frame.maxY - margin; bottom += step) {
                const SHDGChartBox box{right - width, bottom, right, bottom + height};
                // Higher up in this column only meets more of the chart.
                if (box.maxY > LowerEdgeMin(box.minX - margin, box.maxX + margin) - margin) break;
                const SOutline outline = HDGChartLayout::Box(box);
                if (m_taken.Free(outline) && m_processLines.Free(outline)) {
                    spot = box;
                    return true;
                }
            }
        return false;
    }

    // Puts the assembly into a free place inside the frame, or else beside
    // (to the right) or below the drawing.
    void Place(SAssembly& assembly, EHDGChartGroup kind, bool besideIfFull) {
        const SHDGChartBox bounds = assembly.Bounds();
        SHDGChartBox spot{};
        if (!FindFreeSpot(bounds.Width(), bounds.Height(), spot)) {
            const SHDGChartBox drawn = DrawnBounds();
            if (besideIfFull)
                spot = {drawn.maxX + 2.0 * m_h, m_frame.minY, 0.0, 0.0};
            else
                spot = {m_frame.maxX - bounds.Width(), drawn.minY - 2.0 * m_h - bounds.Height(), 0.0, 0.0};
        }
        assembly.Move(spot.minX - bounds.minX, spot.minY - bounds.minY);
        SHDGChartGroup& group = G(kind);
        for (const SHDGChartShape& s : assembly.shapes) group.shapes.push_back(s);
        for (const SHDGChartText& t : assembly.texts) Put(kind, t);
        const SHDGChartBox placed = assembly.Bounds();
        m_taken.Add(HDGChartLayout::Box(placed));
    }

    void PlaceTitleBlock(const std::string& processTitle) {
        std::vector<SHDGChartText> rows;
        SHDGChartText title = Text("焓湿图", {}, 1.6 * m_hc, kChartColour, EHDGChartAlign::Start, EHDGChartBaseline::Bottom);
        title.bold = true;
        rows.push_back(title);
        if (!processTitle.empty())
            rows.push_back(Text(processTitle, {}, m_hc, kChartColour, EHDGChartAlign::Start, EHDGChartBaseline::Bottom));
        rows.push_back(Text("大气压力 B = " + Number(m_axes.Pressure(), 0) + " Pa", {}, m_hc, kChartColour,
                            EHDGChartAlign::Start, EHDGChartBaseline::Bottom));
        rows.push_back(Text("焓 h: kJ/kg干空气   含湿量 d: g/kg干空气", {}, m_hc, kChartColour, EHDGChartAlign::Start,
                            EHDGChartBaseline::Bottom));
        const double pad = 0.9 * m_hc;
        double width = 0.0, y = pad;
        SAssembly block;
        for (auto row = rows.rbegin(); row != rows.rend(); ++row) {
            row->at = {pad, y + 0.35 * row->height};
            y += 1.75 * row->height;
            width = std::max(width, TextWidth(row->text, row->height));
            block.texts.push_back(*row);
        }
        const double right = width + 2.0 * pad, top = y + pad - 0.6 * m_hc;
        block.shapes.push_back(Line({{0, 0}, {right, 0}, {right, top}, {0, top}, {0, 0}}, kFrameWidth, kChartColour));
        Place(block, EHDGChartGroup::Chart, false);
    }

    // Rays of constant heat-humidity ratio from one centre, for reading a
    // process's ε off the chart: each ray points where air goes whose
    // moisture content grows while its enthalpy changes by ε per kg of water.
    void PlaceDial() {
        const double radius = 8.0 * m_h;
        const double sx = m_axes.MoistureScale(), k = m_axes.EnthalpyScale();
        struct SRay {
            double epsilon;
            const char* text;
        };
        // In order of importance; a ray too close to one kept already is left out.
        const SRay candidates[] = {{HUGE_VAL, "+∞"}, {-HUGE_VAL, "−∞"}, {0, nullptr},      {5000, nullptr},
                                   {2000, nullptr},  {10000, nullptr},  {-2000, nullptr},  {1000, nullptr},
                                   {3000, nullptr},  {-5000, nullptr},  {20000, nullptr},  {-1000, nullptr},
                                   {-10000, nullptr}, {4000, nullptr},  {7000, nullptr},   {-3000, nullptr},
                                   {1500, nullptr},  {2500, nullptr}};
        const double closest = 1.6 * m_h / radius;
        std::vector<std::pair<double, std::string>> rays;
        for (const SRay& ray : candidates) {
            const double angle = std::isinf(ray.epsilon) ? (ray.epsilon > 0 ? 0.5 * kPi : -0.5 * kPi)
                                                         : std::atan2(k * (ray.epsilon / 1000.0 - HDGChartAxes::kShear), sx);
            bool apart = true;
            for (const auto& kept : rays) apart = apart && std::fabs(kept.first - angle) >= closest;
            if (apart) rays.push_back({angle, ray.text ? std::string(ray.text) : Number(ray.epsilon, 0)});
        }
        SAssembly dial;
        std::vector<SHDGChartXY> arc;
        for (int i = 0; i <= 36; ++i) {
            const double a = -0.5 * kPi + kPi * i / 36.0;
            arc.push_back({radius * std::cos(a), radius * std::sin(a)});
        }
        dial.shapes.push_back(Line(arc, kTickWidth, kRatioColour));
        for (const auto& [angle, text] : rays) {
            const SHDGChartXY u{std::cos(angle), std::sin(angle)};
            dial.shapes.push_back(Line({{0, 0}, {radius * u.x, radius * u.y}}, kMinorWidth * 1.5, kRatioColour));
            const SHDGChartXY end{(radius + Gap()) * u.x, (radius + Gap()) * u.y};
            if (std::fabs(u.x) < 0.2)  // straight up or down: upright, above or below the ray
                dial.texts.push_back(Text(text, end, m_h, kRatioColour, EHDGChartAlign::Middle,
                                          u.y > 0 ? EHDGChartBaseline::Bottom : EHDGChartBaseline::Top));
            else
                dial.texts.push_back(Text(text, end, m_h, kRatioColour, EHDGChartAlign::Start,
                                          EHDGChartBaseline::Middle, angle * 180.0 / kPi));
        }
        dial.texts.push_back(Text("热湿比", {-Gap(), 0.25 * m_hc}, m_hc, kRatioColour, EHDGChartAlign::End,
                                  EHDGChartBaseline::Bottom));
        dial.texts.push_back(Text("ε (kJ/kg)", {-Gap(), -0.25 * m_hc}, m_h, kRatioColour, EHDGChartAlign::End,
                                  EHDGChartBaseline::Top));
        Place(dial, EHDGChartGroup::HeatHumRatio, true);
    }

    SHDGChartBox DrawnBounds() const {
        SHDGChartBox box = m_frame;
        for (const SHDGChartGroup& group : m_scene.groups) GrowByContent(box, group.shapes, group.texts);
        return box;
    }

    const SHvacHDGDrawSet& m_set;
    HDGChartAxes m_axes;
    HDGChartScene& m_scene;
    double m_h;   // western text, numbers
    double m_hc;  // Chinese text
    SHDGChartBox m_frame;
    SHDGChartLines m_lines;
    double m_tStep = 1.0, m_dStep = 1.0, m_hStep = 1.0, m_rhStep = 10.0;
    Obstacles m_taken;          // texts, markers, title block, dial: nothing may overlap them
    Obstacles m_processLines;   // process lines and the ε line: labels keep off them
    Obstacles m_saturationLine;
    std::vector<SHDGChartXY> m_lower;
};

}  // namespace

bool Build(const SHvacHDGDrawSet& drawSet, double pressure, const SHDGChartLayerNames& layers,
           const SHDGChartOverlay* overlay, HDGChartScene& scene, std::string& error) {
    error = HDGChartAxes::Check(drawSet, pressure);
    if (!error.empty()) return false;
    Builder builder(drawSet, pressure, layers, scene);
    builder.Run(overlay);
    return true;
}

}  // namespace HDGChartBuilder
