#pragma once
// Where a state of moist air lies on the drawn enthalpy-humidity chart.
//
// The chart is drawn in its oblique form, in drawing units (millimetres),
// with y upwards:
//
//   x = sx · (D − Dmin)
//   y = k · (H(t, D) − 2.5 · D) − y0 = k · (1.01 · t + 0.00184 · t · D) − y0
//
// x is proportional to the moisture content; y is the enthalpy less the
// latent heat of the vapour at 0 °C (2500 kJ/kg, 2.5 kJ per gram), so the
// enthalpy lines run obliquely down to the right, the 0 °C isotherm is
// level, and the isotherms above it rise slightly to the right and fan out.
// Lines of constant enthalpy, moisture content and temperature are all
// straight. sx is the moisture range's drawing length over the range; k is
// chosen so that the temperature range takes its drawing length along the
// left edge of the chart (D = Dmin); y0 puts (tmin, Dmin) at y = 0. A state's
// position depends on (t, D) only; the pressure moves the saturation curve
// and the relative-humidity curves, not the grid.

#include "zefra/chart/SHvacHDGDrawSet.h"

#include <string>

struct SHDGChartXY {
    double x = 0.0;
    double y = 0.0;
};

struct SHDGChartBox {
    double minX = 0.0;
    double minY = 0.0;
    double maxX = 0.0;
    double maxY = 0.0;

    double Width() const { return maxX - minX; }
    double Height() const { return maxY - minY; }
    bool Contains(const SHDGChartXY& p, double slack = 0.0) const {
        return p.x >= minX - slack && p.x <= maxX + slack && p.y >= minY - slack && p.y <= maxY + slack;
    }
};

class HDGChartAxes {
public:
    // Latent heat of vapour at 0 °C per gram, kJ/g: the shear of the y axis.
    static constexpr double kShear = 2.5;

    // Why these settings can't give a chart at this pressure; empty when
    // they can. Construct only from settings that pass.
    static std::string Check(const SHvacHDGDrawSet& drawSet, double pressure);

    HDGChartAxes(const SHvacHDGDrawSet& drawSet, double pressure);

    SHDGChartXY ToChart(double Tdb, double D) const;
    // The state at a place of the drawing (the inverse of ToChart).
    void FromChart(const SHDGChartXY& p, double& Tdb, double& D) const;
    double XOfD(double D) const { return m_sx * (D - m_minD); }
    double DOfX(double x) const { return m_minD + x / m_sx; }

    // Drawing units per g/kg along x, and per kJ/kg along y.
    double MoistureScale() const { return m_sx; }
    double EnthalpyScale() const { return m_k; }

    double Pressure() const { return m_pressure; }
    double MinTdb() const { return m_minT; }
    double MaxTdb() const { return m_maxT; }
    double MinD() const { return m_minD; }
    double MaxD() const { return m_maxD; }

    // Moisture content of saturated air at Tdb.
    double SaturatedD(double Tdb) const;
    // Temperature at which air of moisture content D is saturated (its dew
    // point); for D <= 0 the lowest temperature of the chart.
    double SaturationTdb(double D) const;

    // The chart's two saturated ends: where the saturation curve enters the
    // ranges (lowest temperature or lowest moisture content) and where it
    // leaves them (highest moisture content or highest temperature). False,
    // with both ends at (tmin, Dmax), when the curve passes below the chart.
    bool SaturationEnds(double& lowTdb, double& lowD, double& highTdb, double& highD) const;

    // Within the ranges of t and D and not supersaturated.
    bool IsInRegion(double Tdb, double D, double slack = 1e-9) const;

    // The smallest box around the region of the chart.
    SHDGChartBox Frame() const { return m_frame; }

private:
    double m_pressure;
    double m_minT;
    double m_maxT;
    double m_minD;
    double m_maxD;
    double m_sx;
    double m_k;
    double m_y0;
    SHDGChartBox m_frame;
};
