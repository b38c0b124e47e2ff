#include "zefra/chart/HDGChartAxes.h"

#include "zefra/platform/airlib/Air.h"

#include <algorithm>
#include <cmath>

namespace {

// Limits that keep a chart drawable and its file of sensible size.
constexpr double kLowestChartTdb = -100.0;
constexpr double kHighestChartTdb = 200.0;
constexpr double kHighestChartD = 1000.0;
constexpr double kLongestDrawingLength = 100000.0;
constexpr double kMostLinesPerFamily = 5000.0;

std::string Range(const char* what, double low, double high) {
    return std::string(what) + " must lie within " + std::to_string(static_cast<long long>(low)) + ".." +
           std::to_string(static_cast<long long>(high));
}

}  // namespace

std::string HDGChartAxes::Check(const SHvacHDGDrawSet& s, double pressure) {
    if (!std::isfinite(pressure) || pressure < 1000.0 || pressure > 1.0e7)
        return "the atmospheric pressure must lie within 1000..10000000 Pa";
    if (s.nMinTdb >= s.nMaxTdb) return "the lowest temperature must be below the highest";
    if (s.nMinTdb < kLowestChartTdb || s.nMaxTdb > kHighestChartTdb)
        return Range("the temperature range (°C)", kLowestChartTdb, kHighestChartTdb);
    if (s.nMinD < 0 || s.nMinD >= s.nMaxD) return "the moisture range must start at 0 or above and not be empty";
    if (s.nMaxD > kHighestChartD) return Range("the moisture range (g/kg)", 0, kHighestChartD);
    if (s.nTdbLength <= 0 || s.nDLength <= 0 || s.nTdbLength > kLongestDrawingLength ||
        s.nDLength > kLongestDrawingLength)
        return Range("the drawing lengths", 1, kLongestDrawingLength);
    if (s.nTdbInterval < 1 || s.nDInterval < 1 || s.nHInterval < 1 || s.nRHInterval < 1)
        return "the intervals of the lines must be 1 or more";
    if (s.nRHInterval > 100) return "the interval of the relative-humidity curves must be 100 % or less";
    if ((s.nMaxTdb - s.nMinTdb) / static_cast<double>(s.nTdbInterval) > kMostLinesPerFamily ||
        (s.nMaxD - s.nMinD) / static_cast<double>(s.nDInterval) > kMostLinesPerFamily)
        return "the intervals give more than 5000 lines";
    const double hSpan = AIR::GetH(s.nMaxTdb, s.nMaxD) - AIR::GetH(s.nMinTdb, s.nMinD);
    if (hSpan / s.nHInterval > kMostLinesPerFamily) return "the enthalpy interval gives more than 5000 lines";
    if (!(s.dChineseTextHeight > 0.0) || !(s.dWesternTextHeight > 0.0) || s.dChineseTextHeight > 1000.0 ||
        s.dWesternTextHeight > 1000.0)
        return "the text heights must be above 0 and at most 1000";
    if (!(AIR::GetD(s.nMaxTdb, 1.0, pressure) > s.nMinD))
        return "at this pressure all air in the chart's ranges would be supersaturated";
    return std::string();
}

HDGChartAxes::HDGChartAxes(const SHvacHDGDrawSet& s, double pressure)
    : m_pressure(pressure),
      m_minT(s.nMinTdb),
      m_maxT(s.nMaxTdb),
      m_minD(s.nMinD),
      m_maxD(s.nMaxD),
      m_sx(s.nDLength / (m_maxD - m_minD)),
      m_k(s.nTdbLength / ((m_maxT - m_minT) * (AIR::GetH(1.0, m_minD) - AIR::GetH(0.0, m_minD)))),
      m_y0(0.0) {
    m_y0 = ToChart(m_minT, m_minD).y;

    // y rises with t at constant D, and along the saturation curve, so the
    // region's extremes lie at its corners.
    double lowT = 0.0, lowD = 0.0, highT = 0.0, highD = 0.0;
    SaturationEnds(lowT, lowD, highT, highD);
    const double bottomLeft = ToChart(std::max(m_minT, SaturationTdb(m_minD)), m_minD).y;
    const double bottomRight = ToChart(lowT, lowD).y;
    const double topLeft = ToChart(m_maxT, m_minD).y;
    const double topRight = ToChart(m_maxT, highT >= m_maxT ? highD : m_maxD).y;
    m_frame.minX = 0.0;
    m_frame.maxX = XOfD(m_maxD);
    m_frame.minY = std::min({0.0, bottomLeft, bottomRight});
    m_frame.maxY = std::max({topLeft, topRight, static_cast<double>(s.nTdbLength)});
}

SHDGChartXY HDGChartAxes::ToChart(double Tdb, double D) const {
    return {XOfD(D), m_k * (AIR::GetH(Tdb, D) - kShear * D) - m_y0};
}

void HDGChartAxes::FromChart(const SHDGChartXY& p, double& Tdb, double& D) const {
    D = DOfX(p.x);
    const double H = (p.y + m_y0) / m_k + kShear * D;
    Tdb = AIR::GetTdb(H, D);
}

double HDGChartAxes::SaturatedD(double Tdb) const { return AIR::GetD(Tdb, 1.0, m_pressure); }

double HDGChartAxes::SaturationTdb(double D) const {
    if (!(D > 0.0)) return m_minT;
    return AIR::GetTdbByDAndRH(D, 1.0, m_pressure);
}

bool HDGChartAxes::SaturationEnds(double& lowTdb, double& lowD, double& highTdb, double& highD) const {
    const double dAtMinT = SaturatedD(m_minT);
    if (dAtMinT >= m_maxD) {
        // Warm enough everywhere: the curve passes below the chart.
        lowTdb = highTdb = m_minT;
        lowD = highD = m_maxD;
        return false;
    }
    if (dAtMinT >= m_minD) {
        lowTdb = m_minT;
        lowD = dAtMinT;
    } else {
        lowTdb = SaturationTdb(m_minD);
        lowD = m_minD;
    }
    const double dAtMaxT = SaturatedD(m_maxT);
    if (dAtMaxT <= m_maxD) {
        highTdb = m_maxT;
        highD = dAtMaxT;
    } else {
        highTdb = SaturationTdb(m_maxD);
        highD = m_maxD;
    }
    return true;
}

bool HDGChartAxes::IsInRegion(double Tdb, double D, double slack) const {
    return Tdb >= m_minT - slack && Tdb <= m_maxT + slack && D >= m_minD - slack && D <= m_maxD + slack &&
           D <= SaturatedD(Tdb) + slack;
}
