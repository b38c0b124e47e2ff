#pragma once
#include "zefra/ZefraExport.h"
// How the enthalpy-humidity chart is drawn: ranges, line intervals, the
// drawing lengths the ranges take, which decorations appear and the text.

struct ZEFRA_API SHvacHDGDrawSet {
    SHvacHDGDrawSet();
    ~SHvacHDGDrawSet() {}

    double dAtmPressure;        // Pa; stored only, the chart's calculations read GetHDGCurB()
    int nTdbInterval;           // between temperature lines, °C
    int nDInterval;             // between moisture-content lines, g/kg
    int nHInterval;             // between enthalpy lines, kJ/kg
    int nRHInterval;            // between relative-humidity curves, %
    int nMinTdb;                // lowest temperature on the chart, °C
    int nMaxTdb;                // highest temperature on the chart, °C
    int nMinD;                  // lowest moisture content on the chart, g/kg
    int nMaxD;                  // highest moisture content on the chart, g/kg
    int nTdbLength;             // drawing length of the temperature range
    int nDLength;               // drawing length of the moisture range
    bool bDrawFrame;
    bool bDrawTitle;
    bool bDrawPvScale;          // the vapour-pressure scale
    bool bDrawHeatHumRatioDial;
    double dChineseTextHeight;
    double dWesternTextHeight;
    int nFontType;
};
