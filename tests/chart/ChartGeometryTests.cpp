// Where states lie on the drawn chart, where its lines start and end, and how
// many lines the intervals give.

#include "zefra/chart/HDGChartAxes.h"
#include "zefra/chart/HDGChartLines.h"
#include "zefra/platform/airlib/Air.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

// The oblique construction written out on its own: x from D, y from the
// enthalpy less 2.5 kJ/g of D, scaled so that the temperature range takes
// its length along the left edge.
SHDGChartXY Expected(const SHvacHDGDrawSet& s, double t, double d) {
    const double sx = s.nDLength / double(s.nMaxD - s.nMinD);
    const double k = s.nTdbLength / ((s.nMaxTdb - s.nMinTdb) * (1.01 + 0.00184 * s.nMinD));
    auto y = [k](double tt, double dd) { return k * (1.01 * tt + 0.00184 * tt * dd); };
    return {sx * (d - s.nMinD), y(t, d) - y(s.nMinTdb, s.nMinD)};
}

SHvacHDGDrawSet Narrow() {
    SHvacHDGDrawSet s;
    s.nMinTdb = -10;
    s.nMaxTdb = 30;
    s.nMinD = 2;
    s.nMaxD = 30;
    s.nTdbLength = 240;
    s.nDLength = 300;
    return s;
}

TEST(ChartAxes, PlaceStatesByTheObliqueConstructionAtAnyPressure) {
    const struct { double t, d; } states[] = {{22, 9.896}, {33.2, 19.09}, {-5, 1.73}, {12.74, 8.244}, {0, 0}, {65, 45}};
    for (const SHvacHDGDrawSet& s : {SHvacHDGDrawSet(), Narrow()})
        for (double pressure : {101325.0, 84000.0}) {
            const HDGChartAxes axes(s, pressure);
            for (const auto& state : states) {
                SCOPED_TRACE(testing::Message() << pressure << " Pa, t " << state.t << ", d " << state.d);
                const SHDGChartXY p = axes.ToChart(state.t, state.d);
                const SHDGChartXY e = Expected(s, state.t, state.d);
                EXPECT_NEAR(p.x, e.x, 1e-9);
                EXPECT_NEAR(p.y, e.y, 1e-9);
                double t = 0, d = 0;
                axes.FromChart(p, t, d);
                EXPECT_NEAR(t, state.t, 1e-9);
                EXPECT_NEAR(d, state.d, 1e-9);
            }
        }
}

TEST(ChartAxes, RangesTakeTheirDrawingLengthsAndTheGridIsStraight) {
    const SHvacHDGDrawSet s = Narrow();
    const HDGChartAxes axes(s, 101325.0);
    EXPECT_NEAR(axes.ToChart(s.nMaxTdb, s.nMinD).y - axes.ToChart(s.nMinTdb, s.nMinD).y, s.nTdbLength, 1e-9);
    EXPECT_NEAR(axes.ToChart(10, s.nMaxD).x - axes.ToChart(10, s.nMinD).x, s.nDLength, 1e-9);
    // The 0 °C isotherm is level; warmer isotherms rise to the right, colder fall.
    EXPECT_NEAR(axes.ToChart(0, 2).y, axes.ToChart(0, 30).y, 1e-12);
    EXPECT_GT(axes.ToChart(25, 30).y, axes.ToChart(25, 2).y);
    EXPECT_LT(axes.ToChart(-8, 30).y, axes.ToChart(-8, 2).y);
    // Points of one enthalpy lie on one straight line falling to the right.
    const double H = 50.0;
    const SHDGChartXY a = axes.ToChart(AIR::GetTdb(H, 3), 3), b = axes.ToChart(AIR::GetTdb(H, 12), 12),
                      c = axes.ToChart(AIR::GetTdb(H, 25), 25);
    EXPECT_NEAR((b.y - a.y) / (b.x - a.x), (c.y - a.y) / (c.x - a.x), 1e-9);
    EXPECT_LT(b.y, a.y);
}

TEST(ChartAxes, RefusesSettingsThatGiveNoChart) {
    EXPECT_EQ(HDGChartAxes::Check(SHvacHDGDrawSet(), 101325.0), "");
    auto refused = [](void (*change)(SHvacHDGDrawSet&), double pressure = 101325.0) {
        SHvacHDGDrawSet s;
        change(s);
        return !HDGChartAxes::Check(s, pressure).empty();
    };
    EXPECT_TRUE(refused([](SHvacHDGDrawSet&) {}, 0.0));
    EXPECT_TRUE(refused([](SHvacHDGDrawSet& s) { s.nMaxTdb = s.nMinTdb; }));
    EXPECT_TRUE(refused([](SHvacHDGDrawSet& s) { s.nMinD = -1; }));
    EXPECT_TRUE(refused([](SHvacHDGDrawSet& s) { s.nDLength = 0; }));
    EXPECT_TRUE(refused([](SHvacHDGDrawSet& s) { s.nHInterval = 0; }));
    EXPECT_TRUE(refused([](SHvacHDGDrawSet& s) { s.nRHInterval = 101; }));
    EXPECT_TRUE(refused([](SHvacHDGDrawSet& s) { s.dWesternTextHeight = 0; }));
    // Air at -30 °C holds less than 5 g/kg: nothing unsaturated is left.
    EXPECT_TRUE(refused([](SHvacHDGDrawSet& s) {
        s.nMinTdb = -40;
        s.nMaxTdb = -30;
        s.nMinD = 5;
    }));
}

void ExpectAt(const SHDGChartXY& p, const HDGChartAxes& axes, double t, double d) {
    const SHDGChartXY e = axes.ToChart(t, d);
    EXPECT_NEAR(p.x, e.x, 1e-9);
    EXPECT_NEAR(p.y, e.y, 1e-9);
}

TEST(ChartLines, SaturationCurveRunsFromTheLowestTemperatureToTheFrame) {
    for (double pressure : {101325.0, 84000.0}) {
        SCOPED_TRACE(pressure);
        const SHvacHDGDrawSet s;
        const HDGChartAxes axes(s, pressure);
        const SHDGChartLines lines = HDGChartLines::Build(axes, s);
        const std::vector<SHDGChartXY>& sat = lines.saturation.points;
        ASSERT_GE(sat.size(), 20u);
        // Enters at -35 °C saturated, leaves at 45 g/kg at the dew point of 45 g/kg.
        ExpectAt(sat.front(), axes, -35.0, AIR::GetD(-35.0, 1.0, pressure));
        const double tEnd = AIR::GetTdbByDAndRH(45.0, 1.0, pressure);
        ExpectAt(sat.back(), axes, tEnd, 45.0);
        EXPECT_NEAR(sat.back().x, s.nDLength, 1e-9);
        for (const SHDGChartXY& p : sat) {
            double t = 0, d = 0;
            axes.FromChart(p, t, d);
            EXPECT_NEAR(d, AIR::GetD(t, 1.0, pressure), 1e-9);
        }
    }
    // At lower pressure air holds more water: the curve reaches 45 g/kg colder.
    EXPECT_LT(AIR::GetTdbByDAndRH(45.0, 1.0, 84000.0), AIR::GetTdbByDAndRH(45.0, 1.0, 101325.0));

    // With a warm end below saturation at the highest moisture content, the
    // curve leaves through the highest isotherm instead.
    SHvacHDGDrawSet cool;
    cool.nMaxTdb = 30;
    const HDGChartAxes axes(cool, 101325.0);
    const SHDGChartLines lines = HDGChartLines::Build(axes, cool);
    ExpectAt(lines.saturation.points.back(), axes, 30.0, AIR::GetD(30.0, 1.0, 101325.0));
}

TEST(ChartLines, IntervalsGiveTheLinesOfTheirMultiplesInsideTheRegion) {
    struct Case {
        int tInterval, dInterval, hInterval, rhInterval, maxT;
        size_t t, d, h, rh;
    };
    // Defaults: -35..65 °C, 0..45 g/kg; H runs from H(-35, 0) = -35.35 to
    // H(65, 45) = 183.5 kJ/kg. At 30 °C air saturates at 27.2 g/kg, so no
    // moisture line above 27 reaches into the region, and the highest
    // enthalpy is H(30, 27.2) = 99.8.
    const Case cases[] = {{1, 1, 1, 5, 65, 101, 46, 219, 19},
                          {5, 2, 5, 10, 65, 21, 23, 44, 9},
                          {10, 5, 20, 25, 65, 10, 10, 11, 3},
                          {1, 1, 1, 5, 30, 66, 28, 135, 19}};
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << c.tInterval << "/" << c.dInterval << "/" << c.hInterval << "/"
                                        << c.rhInterval << " up to " << c.maxT);
        SHvacHDGDrawSet s;
        s.nTdbInterval = c.tInterval;
        s.nDInterval = c.dInterval;
        s.nHInterval = c.hInterval;
        s.nRHInterval = c.rhInterval;
        s.nMaxTdb = c.maxT;
        const HDGChartAxes axes(s, 101325.0);
        const SHDGChartLines lines = HDGChartLines::Build(axes, s);
        EXPECT_EQ(lines.isotherms.size(), c.t);
        EXPECT_EQ(lines.moistureLines.size(), c.d);
        EXPECT_EQ(lines.enthalpyLines.size(), c.h);
        EXPECT_EQ(lines.humidityCurves.size(), c.rh);
        const std::pair<const std::vector<SHDGChartLine>*, int> families[] = {
            {&lines.isotherms, c.tInterval}, {&lines.moistureLines, c.dInterval}, {&lines.enthalpyLines, c.hInterval},
            {&lines.humidityCurves, c.rhInterval}};
        for (const auto& [family, interval] : families)
            for (const SHDGChartLine& line : *family) EXPECT_EQ(std::remainder(line.value, interval), 0.0);
    }
}

TEST(ChartLines, EveryLineIsCutAtTheSaturationCurveAndTheRanges) {
    for (double pressure : {101325.0, 84000.0}) {
        SHvacHDGDrawSet s = Narrow();
        const HDGChartAxes axes(s, pressure);
        const SHDGChartLines lines = HDGChartLines::Build(axes, s);
        const SHDGChartBox frame = axes.Frame();
        for (const auto* family : {&lines.isotherms, &lines.moistureLines, &lines.enthalpyLines, &lines.humidityCurves})
            for (const SHDGChartLine& line : *family)
                for (const SHDGChartXY& p : line.points) {
                    double t = 0, d = 0;
                    axes.FromChart(p, t, d);
                    ASSERT_TRUE(axes.IsInRegion(t, d, 1e-7)) << line.value << " at t " << t << ", d " << d;
                    ASSERT_TRUE(frame.Contains(p, 1e-9));
                }
        // Isotherms end on the curve where it crosses them, enthalpy lines at
        // the wet bulb: both ends reach a limit, not short of it.
        for (const SHDGChartLine& line : lines.isotherms) {
            double t = 0, d = 0;
            axes.FromChart(line.points.back(), t, d);
            EXPECT_NEAR(d, std::min(30.0, AIR::GetD(line.value, 1.0, pressure)), 1e-9);
        }
        for (const SHDGChartLine& line : lines.enthalpyLines) {
            double t = 0, d = 0;
            axes.FromChart(line.points.back(), t, d);
            const bool onCurve = std::fabs(d - AIR::GetD(t, 1.0, pressure)) < 1e-6;
            EXPECT_TRUE(onCurve || std::fabs(d - 30.0) < 1e-9 || std::fabs(t + 10.0) < 1e-9) << line.value;
        }
    }
}

}  // namespace
