#include "zefra/platform/airlib/Air.h"
#include "zefra/platform/airlib/CDenUnitConvert.h"
#include "zefra/platform/airlib/CHUnitConvert.h"
#include "zefra/platform/airlib/CMwUnitConvert.h"
#include "zefra/platform/airlib/CQUnitConvert.h"
#include "zefra/platform/airlib/CVUnitConvert.h"

#include <gtest/gtest.h>

namespace {

TEST(UnitConvert, KnowsTheChartsDefaultUnitNamesAndFixedCodes) {
    CHUnitConvert h;
    CQUnitConvert q;
    CVUnitConvert v;
    CMwUnitConvert mw;
    CDenUnitConvert den;
    EXPECT_EQ(h.GetHUnitCode(L"kJ/kg.干空气"), H_UNIT_KJ_KG);
    EXPECT_EQ(h.GetHUnitCode(L"kcal/kg"), H_UNIT_KCAL_KG);
    EXPECT_EQ(q.GetQUnitCode(L"W"), Q_UNIT_W);
    EXPECT_EQ(q.GetQUnitCode(L"kW"), 1);
    EXPECT_EQ(q.GetQUnitCode(L"RT"), Q_UNIT_RT);
    EXPECT_EQ(mw.GetMwUnitCode(L"g/s"), MW_UNIT_G_S);
    EXPECT_EQ(mw.GetMwUnitCode(L"kg/s"), 2);
    EXPECT_EQ(den.GetDenUnitCode(L"kg/m^3"), DEN_UNIT_KG_M3);
    EXPECT_EQ(den.GetDenUnitCode(L"g/L"), DEN_UNIT_G_L);
    const wchar_t* flows[] = {L"m^3/h", L"m^3/s", L"kg/h", L"kg/s", L"l/h", L"l/s"};
    for (int code = 0; code < 6; ++code) EXPECT_EQ(v.GetVUnitCode(flows[code]), code) << code;
    EXPECT_EQ(v.GetVUnitCode(L"M3/H"), V_UNIT_M3_H);
    EXPECT_EQ(v.GetVUnitCode(L"L/s"), V_UNIT_L_S);
    EXPECT_EQ(v.GetVUnitCode(L"m^3/h "), V_UNIT_UNKNOWN);
    EXPECT_EQ(q.GetQUnitCode(L""), Q_UNIT_UNKNOWN);
}

TEST(UnitConvert, StandardUnitsAreThoseOfTheEngineAndUnknownCodesChangeNothing) {
    CQUnitConvert q;
    EXPECT_EQ(q.GetQStdUnit(), CString(L"kW"));
    EXPECT_EQ(q.GetQCurUnit(), CString(L"W"));
    EXPECT_DOUBLE_EQ(q.QConvertStdToCur(1.5), 1500.0);
    q.SetQCurUnit(q.GetQUnitCode(L"no such unit"));
    EXPECT_EQ(q.GetQCurUnit(), CString(L"W"));
    q.SetQCurUnit(Q_UNIT_RT);
    EXPECT_NEAR(q.QConvertStdToCur(3.5168528420667), 1.0, 1e-12);
    q.SetQCurUnit(Q_UNIT_KCAL_H);
    EXPECT_NEAR(q.QConvertStdToCur(1.163), 1000.0, 1e-9);

    CMwUnitConvert mw;
    EXPECT_EQ(mw.GetMwStdUnitCode(), MW_UNIT_KG_S);
    EXPECT_DOUBLE_EQ(mw.MwConvertStdToCur(0.002), 2.0);
    mw.SetMwCurUnit(MW_UNIT_KG_H);
    EXPECT_DOUBLE_EQ(mw.MwConvertStdToCur(0.002), 7.2);

    CHUnitConvert h;
    EXPECT_DOUBLE_EQ(h.HConvertStdToCur(41.868), 41.868);
    h.SetHCurUnit(H_UNIT_KCAL_KG);
    EXPECT_DOUBLE_EQ(h.HConvertStdToCur(41.868), 10.0);

    CDenUnitConvert den;
    den.SetDenCurUnit(DEN_UNIT_LB_FT3);
    EXPECT_NEAR(den.DenConvertStdToCur(1.2), 0.0749, 1e-4);
}

TEST(UnitConvert, AirFlowsMeetAtStandardDensityAndCorrectToConditions) {
    CVUnitConvert v;
    EXPECT_EQ(v.GetVStdUnitCode(), V_UNIT_KG_S);
    EXPECT_EQ(v.GetVCurUnit(), CString(L"m^3/h"));
    EXPECT_DOUBLE_EQ(v.VConvertStdToCur(1.2), 3600.0);
    EXPECT_DOUBLE_EQ(v.VConvert(3600.0, V_UNIT_M3_H, V_UNIT_KG_H), 4320.0);
    EXPECT_DOUBLE_EQ(v.VConvert(1.0, V_UNIT_M3_S, V_UNIT_L_S), 1000.0);
    EXPECT_DOUBLE_EQ(v.VConvert(7200.0, V_UNIT_L_H, V_UNIT_L_S), 2.0);
    EXPECT_DOUBLE_EQ(v.VConvert(5.0, V_UNIT_UNKNOWN, V_UNIT_KG_S), 5.0);
    // m³/h at 20 °C, 60 % as a mass flow: the volume times that density.
    const double density = AIR::GetDen(20.0, 0.6, 101325.0);
    EXPECT_DOUBLE_EQ(v.GetCorFactor(20.0, 0.6, 101325.0), density / 1.2);
    EXPECT_NEAR(v.VConvert(1000.0, V_UNIT_M3_H, V_UNIT_KG_H) * v.GetCorFactor(20.0, 0.6, 101325.0),
                1000.0 * density, 1e-9);
}

}  // namespace
