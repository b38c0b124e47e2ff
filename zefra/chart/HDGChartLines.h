#pragma once
// The line families of the enthalpy-humidity chart, each line already cut to
// the chart's region: within the ranges of temperature and moisture content
// and not beyond the saturation curve.

#include "zefra/chart/HDGChartAxes.h"

#include <vector>

struct SHDGChartLine {
    double value = 0.0;  // °C, g/kg, kJ/kg or % (relative humidity)
    std::vector<SHDGChartXY> points;
};

struct SHDGChartLines {
    std::vector<SHDGChartLine> isotherms;         // every nTdbInterval °C
    std::vector<SHDGChartLine> moistureLines;     // every nDInterval g/kg
    std::vector<SHDGChartLine> enthalpyLines;     // every nHInterval kJ/kg
    std::vector<SHDGChartLine> humidityCurves;    // every nRHInterval %, below 100 %
    SHDGChartLine saturation;                     // 100 %; empty when it passes below the chart
};

namespace HDGChartLines {

// Every line of the four families whose value is a multiple of its interval
// and that has a stretch of positive length inside the region. Curves are
// polylines within `tolerance` drawing units of the true curve.
SHDGChartLines Build(const HDGChartAxes& axes, const SHvacHDGDrawSet& drawSet, double tolerance = 0.02);

// The line of constant enthalpy H inside the region, as its two ends (upper
// left first); false when it has no stretch there.
bool EnthalpyLine(const HDGChartAxes& axes, double H, SHDGChartXY& from, SHDGChartXY& to);

// The curve of relative humidity RH (a fraction) from where it enters the
// region to where it leaves it.
std::vector<SHDGChartXY> HumidityCurve(const HDGChartAxes& axes, double RH, double tolerance = 0.02);

}  // namespace HDGChartLines
