#include "SchemeTestSupport.h"

#include "zefra/air/ZefraHDGSecondaryReturnAir.h"

#include <gtest/gtest.h>

using namespace schemes_test;

namespace {

ZefraHDGSecondaryReturnAir Calculated(const SHDGSecondaryReturnAirInfo& given) {
    ZefraHDGSecondaryReturnAir scheme;
    scheme.SetGivenData(given);
    EXPECT_TRUE(scheme.Calculate());
    return scheme;
}

void ExpectSummerFacts(const ZefraHDGSecondaryReturnAir& s) {
    const SHDGSecondaryReturnAirInfo g = s.GetGivenData();
    const ZefraHDGPoint N = s.GetPointN(), W = s.GetPointW(), N1 = s.GetPointN1(), C = s.GetPointC();
    const ZefraHDGPoint M = s.GetPointM(), L = s.GetPointL(), O = s.GetPointO();

    ExpectSameState(s.GetPointW1(), W);
    ExpectSameState(s.GetPointK(), O);
    EXPECT_NEAR(O.GetTdb(), N.GetTdb() - g.SfWc, 1e-9);
    EXPECT_NEAR(SlopeBetween(N, O), s.GetHeatHumidityRatio(), 1e-6 * s.GetHeatHumidityRatio());
    EXPECT_NEAR(g.Go, g.Qn / (N.GetH() - O.GetH()), 1e-12);
    EXPECT_NEAR(M.GetTdb(), O.GetTdb() - g.SfGdWs, 1e-9);
    EXPECT_NEAR(M.GetD(), O.GetD(), 1e-12);

    // L on the curve, M on the line from L to N' (within the 0.002 °C grain of
    // the search), and the second return air is M's share of that line.
    EXPECT_NEAR(L.GetRH(), g.ptL_RH, 1e-6);
    const LinePosition m = PositionOnLine(L, N1, M);
    EXPECT_NEAR(m.ByH, m.ByD, 1e-3);
    EXPECT_NEAR(s.GetGr2(), g.Go * m.ByH, 1e-9);

    // Flows add up; C is the mix of W and N' at the unit's fresh-air share.
    EXPECT_NEAR(g.Gr1 + s.GetGr2() + g.Gw, g.Go, 1e-12);
    EXPECT_NEAR(s.GetGo1(), g.Gr1 + g.Gw, 1e-15);
    const LinePosition c = PositionOnLine(N1, W, C);
    EXPECT_NEAR(c.ByH, g.Gw / s.GetGo1(), 1e-9);
    EXPECT_NEAR(c.ByD, g.Gw / s.GetGo1(), 1e-9);

    EXPECT_NEAR(s.GetQp(), g.Qn + s.GetQw() + s.GetQr() + s.GetQo(), 1e-9);
    EXPECT_NEAR(s.GetMwp(), g.Mw + s.GetMww(), 1e-3 * (g.Mw + s.GetMww()));
}

}  // namespace

TEST(SecondaryReturnAirSummer, DefaultsBalanceAndKeepTheEarlyNames) {
    const ZefraHDGSecondaryReturnAir s = Calculated(SHDGSecondaryReturnAirInfo());
    ExpectSummerFacts(s);
    ExpectSameState(s.GetPointM(), s.GetPointO());
    ExpectSameState(s.GetPointN1(), s.GetPointN());
    // Named before the calculation: the copies carry their sources' names.
    EXPECT_EQ(s.GetPointW1().GetName(), CString(L"W"));
    EXPECT_EQ(s.GetPointK().GetName(), CString(L"O"));
    EXPECT_EQ(s.GetQk(), 0.0);
}

TEST(SecondaryReturnAirSummer, LargerDesignWithDuctRisesBalances) {
    const ZefraHDGSecondaryReturnAir s = Calculated(LargeSummerDesign<SHDGSecondaryReturnAirInfo>());
    ExpectSummerFacts(s);
    EXPECT_GT(s.GetQr(), 0.0);
    EXPECT_GT(s.GetQo(), 0.0);
    EXPECT_GT(s.GetGr2(), 0.0);
    EXPECT_FALSE(HasFailureText(s.GetResultInfo()));
}

TEST(SecondaryReturnAirSummer, FreshAirGivenAsFlowStays) {
    SHDGSecondaryReturnAirInfo given;
    given.FreshAirType = 1;
    given.Gw = 0.2;
    const ZefraHDGSecondaryReturnAir s = Calculated(given);
    EXPECT_EQ(s.GetGw(), 0.2);
    EXPECT_NEAR(s.GetFreshAirRatio(), 0.2 / s.GetGo(), 1e-15);
    ExpectSummerFacts(s);

    given.FreshAirType = 0;
    given.Gw = 5.0;
    EXPECT_NEAR(Calculated(given).GetGw(), 0.1 * Calculated(given).GetGo(), 1e-12);
}

TEST(SecondaryReturnAirSummer, SupplyBelowFreezingSkipsTheSearch) {
    SHDGSecondaryReturnAirInfo given;
    given.SfWc = 25.0;  // O and M at −3 °C: no step of the walk from 0 °C
    const ZefraHDGSecondaryReturnAir s = Calculated(given);
    ExpectSameState(s.GetPointL(), s.GetPointM());
    EXPECT_EQ(s.GetGr2(), 0.0);
}

TEST(SecondaryReturnAir, TypesOutsideTheTableCalculateNothing) {
    for (int type : {5, -1}) {
        ZefraHDGSecondaryReturnAir s;
        s.GetCalPriRetAirType(static_cast<EHDGSecRetAirType>(type));
        EXPECT_FALSE(s.Calculate());
        EXPECT_TRUE(s.GetResultInfo().IsEmpty());
    }
    EXPECT_EQ(ZefraHDGSecondaryReturnAir::GetCalItemType(L"no such item"), HDGPT_TDB);
    EXPECT_EQ(ZefraHDGSecondaryReturnAir::GetCalItemTypeStr(HDGPT_DS), CString(L"饱程含湿量"));
}

// ---- Winter ------------------------------------------------------------------

TEST(SecondaryReturnAirWinter, AllTypesBalanceWithTheUnitLoad) {
    for (int type = 1; type <= 4; ++type) {
        SCOPED_TRACE(type);
        SHDGSecondaryReturnAirInfo given = WinterDesign<SHDGSecondaryReturnAirInfo>(type);
        given.Gr1 = 0.8;
        const ZefraHDGSecondaryReturnAir s = Calculated(given);
        const SHDGSecondaryReturnAirInfo g = s.GetGivenData();
        const ZefraHDGPoint N = s.GetPointN(), W = s.GetPointW(), W1 = s.GetPointW1(), N1 = s.GetPointN1();
        const ZefraHDGPoint C = s.GetPointC(), L = s.GetPointL(), M = s.GetPointM(), K = s.GetPointK();
        const ZefraHDGPoint O = s.GetPointO();

        EXPECT_EQ(g.Go, given.Go);
        EXPECT_EQ(g.Gr1, given.Gr1);
        EXPECT_NEAR(g.Gr1 + s.GetGr2() + g.Gw, g.Go, 1e-12);
        EXPECT_NEAR(g.Go * (O.GetH() - N.GetH()), g.Qn, 1e-9);
        EXPECT_NEAR(g.Go * (N.GetD() - O.GetD()) / 1000.0, g.Mw, 1e-12);
        EXPECT_NEAR(K.GetTdb(), O.GetTdb() + g.SfGdWs, 1e-9);

        // W' is W preheated at constant D; C mixes W' and N' at the unit's share.
        EXPECT_NEAR(W1.GetD(), W.GetD(), 1e-12);
        const LinePosition c = PositionOnLine(N1, W1, C);
        EXPECT_NEAR(c.ByH, g.Gw / s.GetGo1(), 1e-9);
        EXPECT_NEAR(c.ByD, g.Gw / s.GetGo1(), 1e-9);
        // M mixes L and N' at the second return air's share of the supply.
        const LinePosition m = PositionOnLine(L, N1, M);
        EXPECT_NEAR(m.ByH, s.GetGr2() / g.Go, 1e-9);
        EXPECT_NEAR(m.ByD, s.GetGr2() / g.Go, 1e-9);

        EXPECT_NEAR(s.GetQp(), s.GetQk() + s.GetQl(), 1e-12);
        EXPECT_NEAR(s.GetQp() + s.GetQw1(), g.Qn + s.GetQw() + s.GetQr() + s.GetQo(), 1e-9);
        EXPECT_NEAR(s.GetMwp(), s.GetGo1() * (L.GetD() - C.GetD()) / 1000.0, 1e-15);

        switch (type) {
            case HDGSEC_DJ_ISENTH_HEAT:
                EXPECT_NEAR(L.GetRH(), g.ptL_RH, 1e-9);
                break;
            case HDGSEC_DJ_HEAT_ISENTH:
                EXPECT_EQ(s.GetMwp(), 0.0);
                EXPECT_NEAR(M.GetH(), K.GetH(), 1e-12);
                break;
            case HDGSEC_DJ_ISOTH_HEAT:
                EXPECT_NEAR(L.GetTdb(), C.GetTdb(), 1e-9);
                break;
            default:
                EXPECT_EQ(s.GetMwp(), 0.0);
                EXPECT_NEAR(M.GetTdb(), K.GetTdb(), 1e-9);
                break;
        }
    }
}

TEST(SecondaryReturnAirWinter, NoSecondReturnAirLeavesMAtL) {
    for (int type : {1, 3}) {
        SHDGSecondaryReturnAirInfo given = WinterDesign<SHDGSecondaryReturnAirInfo>(type);
        given.Gr1 = given.Go * (1.0 - given.FreshAirRatio);  // all return air through the first mix
        const ZefraHDGSecondaryReturnAir s = Calculated(given);
        EXPECT_NEAR(s.GetGr2(), 0.0, 1e-15);
        ExpectSameState(s.GetPointM(), s.GetPointL(), 1e-9);
    }
}

TEST(SecondaryReturnAirWinter, WinterAfterSummerUsesSummersFlows) {
    ZefraHDGSecondaryReturnAir s = Calculated(SHDGSecondaryReturnAirInfo());
    const double summerGo = s.GetGo();
    const double summerGr1 = s.GetGr1();
    s.GetCalPriRetAirType(HDGSEC_DJ_ISENTH_HEAT);
    s.SetPointW(ZefraHDGPoint(-5.0, 0.7, L"W"));
    ASSERT_TRUE(s.Calculate());
    EXPECT_EQ(s.GetGo(), summerGo);
    EXPECT_EQ(s.GetGr1(), summerGr1);
    EXPECT_EQ(s.GetPointW1().GetName(), CString(L"W'"));
}
