#pragma once
// Shared checks of the return-air scheme tests.

#include "zefra/air/ZefraHDGPoint.h"
#include "zefra/platform/mfc/CArray.h"

#include <gtest/gtest.h>

#include <cmath>

namespace schemes_test {

inline void ExpectSameState(const ZefraHDGPoint& a, const ZefraHDGPoint& b, double tolerance = 1e-9) {
    EXPECT_NEAR(a.GetTdb(), b.GetTdb(), tolerance);
    EXPECT_NEAR(a.GetRH(), b.GetRH(), tolerance);
    EXPECT_NEAR(a.GetH(), b.GetH(), tolerance);
    EXPECT_NEAR(a.GetD(), b.GetD(), tolerance);
    EXPECT_NEAR(a.GetTwb(), b.GetTwb(), tolerance);
    EXPECT_NEAR(a.GetTdp(), b.GetTdp(), tolerance);
    EXPECT_NEAR(a.GetPv(), b.GetPv(), tolerance);
    EXPECT_NEAR(a.GetDen(), b.GetDen(), tolerance);
}

// Whether any result text reports a failed calculation ("...计算失败...").
inline bool HasFailureText(const CStringArray& texts) {
    for (int i = 0; i < texts.GetSize(); ++i)
        if (texts.GetAt(i).Find(L"失败") != -1) return true;
    return false;
}

// Slope of the process from a to b on the chart, kJ per kg of moisture.
inline double SlopeBetween(const ZefraHDGPoint& a, const ZefraHDGPoint& b) {
    return 1000.0 * (b.GetH() - a.GetH()) / (b.GetD() - a.GetD());
}

// Where along the line from a to b the point p lies, read in H and in D;
// both readings agree when p is on the line (a mix of a and b).
struct LinePosition {
    double ByH;
    double ByD;
};
inline LinePosition PositionOnLine(const ZefraHDGPoint& a, const ZefraHDGPoint& b, const ZefraHDGPoint& p) {
    return {(p.GetH() - a.GetH()) / (b.GetH() - a.GetH()), (p.GetD() - a.GetD()) / (b.GetD() - a.GetD())};
}

// A summer design outside the built-in data: room 26 °C / 55 %, outdoor
// 35 °C with a 28 °C wet bulb, a larger load, both duct rises.
template <typename Info>
Info LargeSummerDesign() {
    Info info;
    info.PointN = ZefraHDGPoint(26.0, 0.55, L"N");
    info.PointW.CalByTdbAndTwb(35.0, 28.0);
    info.PointW.SetName(L"W");
    info.Qn = 48.0;
    info.Mw = 0.0052;
    info.SfGdWs = 1.2;
    info.HfGdWs = 0.8;
    info.ptL_RH = 0.92;
    info.FreshAirRatio = 0.2;
    info.SfWc = 8.0;
    return info;
}

// A winter design: room 20 °C / 45 %, outdoor −5 °C / 70 %.
template <typename Info>
Info WinterDesign(int type) {
    Info info;
    info.CalPriRetAirType = static_cast<decltype(info.CalPriRetAirType)>(type);
    info.PointN = ZefraHDGPoint(20.0, 0.45, L"N");
    info.PointW = ZefraHDGPoint(-5.0, 0.7, L"W");
    info.Qn = 14.0;
    info.Mw = 0.0012;
    info.SfGdWs = 1.0;
    info.HfGdWs = 0.7;
    info.Go = 1.6;
    return info;
}

}  // namespace schemes_test
