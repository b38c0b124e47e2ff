#include "zefra/chart/HDGChartLines.h"

#include "zefra/platform/airlib/Air.h"

#include <algorithm>
#include <cmath>

namespace HDGChartLines {
namespace {

// A stretch shorter than this (in g/kg or °C) counts as no stretch.
constexpr double kShortest = 1e-9;
constexpr int kFirstPieces = 16;
constexpr int kDeepestSplit = 12;

// The multiples of `interval` from the first at or above `low` to the last
// at or below `high`, as integers, so that no rounding drifts.
template <typename Visit>
void ForMultiples(double low, double high, int interval, Visit visit) {
    const long long first = static_cast<long long>(std::ceil(low / interval - 1e-9));
    const long long last = static_cast<long long>(std::floor(high / interval + 1e-9));
    for (long long n = first; n <= last; ++n) visit(static_cast<double>(n * interval));
}

double Distance(const SHDGChartXY& p, const SHDGChartXY& a, const SHDGChartXY& b) {
    const double dx = b.x - a.x, dy = b.y - a.y;
    const double length = std::hypot(dx, dy);
    if (length == 0.0) return std::hypot(p.x - a.x, p.y - a.y);
    return std::fabs((p.x - a.x) * dy - (p.y - a.y) * dx) / length;
}

// Appends the curve from t0 (whose point is already in `out`) to t1.
template <typename Curve>
void Refine(const Curve& curve, double t0, const SHDGChartXY& p0, double t1, const SHDGChartXY& p1,
            double tolerance, int depth, std::vector<SHDGChartXY>& out) {
    const double tm = 0.5 * (t0 + t1);
    const SHDGChartXY pm = curve(tm);
    if (depth < kDeepestSplit && Distance(pm, p0, p1) > tolerance) {
        Refine(curve, t0, p0, tm, pm, tolerance, depth + 1, out);
        Refine(curve, tm, pm, t1, p1, tolerance, depth + 1, out);
        return;
    }
    out.push_back(p1);
}

template <typename Curve>
std::vector<SHDGChartXY> Sample(const Curve& curve, double t0, double t1, double tolerance) {
    std::vector<SHDGChartXY> points;
    SHDGChartXY previous = curve(t0);
    points.push_back(previous);
    for (int i = 1; i <= kFirstPieces; ++i) {
        const double ta = t0 + (t1 - t0) * (i - 1) / kFirstPieces;
        const double tb = i == kFirstPieces ? t1 : t0 + (t1 - t0) * i / kFirstPieces;
        const SHDGChartXY next = curve(tb);
        Refine(curve, ta, previous, tb, next, tolerance, 0, points);
        previous = next;
    }
    return points;
}

}  // namespace

bool EnthalpyLine(const HDGChartAxes& axes, double H, SHDGChartXY& from, SHDGChartXY& to) {
    // Along the line t falls as D grows: the top end is the highest
    // temperature or the lowest moisture content, the bottom end the
    // saturation curve, the lowest temperature or the highest moisture.
    const double B = axes.Pressure();
    const double wetBulb = AIR::GetTdbByHAndRH(H, 1.0, B);
    const double saturatedD = AIR::GetD(wetBulb, 1.0, B);
    const double low = std::max(axes.MinD(), AIR::GetD(axes.MaxTdb(), H));
    const double high = std::min({axes.MaxD(), AIR::GetD(axes.MinTdb(), H), saturatedD});
    if (!(high - low > kShortest)) return false;
    from = axes.ToChart(AIR::GetTdb(H, low), low);
    to = axes.ToChart(AIR::GetTdb(H, high), high);
    return true;
}

std::vector<SHDGChartXY> HumidityCurve(const HDGChartAxes& axes, double RH, double tolerance) {
    const double B = axes.Pressure();
    double t0 = axes.MinTdb();
    double t1 = axes.MaxTdb();
    if (AIR::GetD(t0, RH, B) < axes.MinD()) t0 = AIR::GetTdbByDAndRH(axes.MinD(), RH, B);
    if (AIR::GetD(t1, RH, B) > axes.MaxD()) t1 = AIR::GetTdbByDAndRH(axes.MaxD(), RH, B);
    if (!(t1 - t0 > kShortest)) return {};
    auto curve = [&axes, RH, B](double t) { return axes.ToChart(t, AIR::GetD(t, RH, B)); };
    return Sample(curve, t0, t1, tolerance);
}

SHDGChartLines Build(const HDGChartAxes& axes, const SHvacHDGDrawSet& s, double tolerance) {
    SHDGChartLines lines;
    ForMultiples(axes.MinTdb(), axes.MaxTdb(), s.nTdbInterval, [&](double t) {
        const double end = std::min(axes.MaxD(), axes.SaturatedD(t));
        if (end - axes.MinD() > kShortest)
            lines.isotherms.push_back({t, {axes.ToChart(t, axes.MinD()), axes.ToChart(t, end)}});
    });
    ForMultiples(axes.MinD(), axes.MaxD(), s.nDInterval, [&](double d) {
        const double start = std::max(axes.MinTdb(), axes.SaturationTdb(d));
        if (axes.MaxTdb() - start > kShortest)
            lines.moistureLines.push_back({d, {axes.ToChart(start, d), axes.ToChart(axes.MaxTdb(), d)}});
    });
    const double lowestH = AIR::GetH(axes.MinTdb(), axes.MinD());
    const double highestH = AIR::GetH(axes.MaxTdb(), axes.MaxD());
    ForMultiples(lowestH, highestH, s.nHInterval, [&](double h) {
        SHDGChartXY from, to;
        if (EnthalpyLine(axes, h, from, to)) lines.enthalpyLines.push_back({h, {from, to}});
    });
    ForMultiples(s.nRHInterval, 99.0, s.nRHInterval, [&](double rh) {
        std::vector<SHDGChartXY> curve = HumidityCurve(axes, rh / 100.0, tolerance);
        if (curve.size() >= 2) lines.humidityCurves.push_back({rh, std::move(curve)});
    });
    lines.saturation.value = 100.0;
    lines.saturation.points = HumidityCurve(axes, 1.0, tolerance);
    return lines;
}

}  // namespace HDGChartLines
