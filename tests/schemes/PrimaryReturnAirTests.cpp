#include "SchemeTestSupport.h"

#include "zefra/air/ZefraHDGPrimaryReturnAir.h"

#include <gtest/gtest.h>

using namespace schemes_test;

namespace {

const wchar_t* const kSupplyPointFailed = L"送风点O，露点L计算失败。调整室内参数重新计算。";

ZefraHDGPrimaryReturnAir Calculated(const SHDGPrimaryReturnAirInfo& given) {
    ZefraHDGPrimaryReturnAir scheme;
    scheme.SetGivenData(given);
    EXPECT_TRUE(scheme.Calculate());
    return scheme;
}

// What holds after every summer treatment.
void ExpectSummerFacts(const ZefraHDGPrimaryReturnAir& s) {
    const SHDGPrimaryReturnAirInfo g = s.GetGivenData();
    const ZefraHDGPoint N = s.GetPointN(), W = s.GetPointW(), N1 = s.GetPointN1(), C = s.GetPointC();
    const ZefraHDGPoint L = s.GetPointL(), O = s.GetPointO();

    ExpectSameState(s.GetPointW1(), W);
    EXPECT_NEAR(SlopeBetween(N, O), s.GetHeatHumidityRatio(), 1e-6 * s.GetHeatHumidityRatio());
    EXPECT_NEAR(g.Go, g.Qn / (N.GetH() - O.GetH()), 1e-12);
    EXPECT_NEAR(N1.GetTdb(), N.GetTdb() + g.HfGdWs, 1e-9);
    EXPECT_NEAR(N1.GetD(), N.GetD(), 1e-12);
    EXPECT_NEAR(L.GetD(), O.GetD(), 1e-12);

    // C is the mix of W and N' at the fresh-air ratio.
    const LinePosition c = PositionOnLine(N1, W, C);
    EXPECT_NEAR(c.ByH, g.FreshAirRatio, 1e-9);
    EXPECT_NEAR(c.ByD, g.FreshAirRatio, 1e-9);
    EXPECT_NEAR(g.Gw, g.FreshAirRatio * g.Go, 1e-12);
    EXPECT_NEAR(s.GetGn(), g.Go - g.Gw, 1e-12);

    EXPECT_NEAR(s.GetQp(), g.Qn + s.GetQw() + s.GetQr() + s.GetQo() + s.GetQk(), 1e-9);
    EXPECT_NEAR(s.GetMwp(), g.Mw + s.GetMww(), 1e-12);
}

}  // namespace

TEST(PrimaryReturnAirSummer, DewPointSearchPlacesOAndLAndBalances) {
    SHDGPrimaryReturnAirInfo given;
    given.SfGdWs = 1.5;
    const ZefraHDGPrimaryReturnAir s = Calculated(given);
    ExpectSummerFacts(s);
    const ZefraHDGPoint L = s.GetPointL(), O = s.GetPointO();
    // L on the curve RH = ptL_RH, the supply duct warms it to O within the search's 0.005 °C.
    EXPECT_NEAR(L.GetRH(), 0.9, 1e-9);
    EXPECT_NEAR(O.GetTdb() - L.GetTdb(), 1.5, 0.005);
    ExpectSameState(s.GetPointK(), L);
    EXPECT_NEAR(s.GetQo(), s.GetGo() * (O.GetH() - L.GetH()), 1e-12);
    EXPECT_EQ(s.GetQk(), 0.0);
    EXPECT_EQ(s.GetPointK().GetName(), CString(L"K"));
    EXPECT_EQ(s.GetPointW1().GetName(), CString(L"W'"));
}

TEST(PrimaryReturnAirSummer, WithoutSupplyDuctRiseLSitsAtOsTemperature) {
    const ZefraHDGPrimaryReturnAir s = Calculated(SHDGPrimaryReturnAirInfo());
    ExpectSummerFacts(s);
    EXPECT_EQ(s.GetPointL().GetTdb(), s.GetPointO().GetTdb());
    EXPECT_EQ(s.GetPointL().GetD(), s.GetPointO().GetD());
    EXPECT_NEAR(s.GetQo(), 0.0, 1e-9);
    // The search stopped near the curve, so L's humidity is close to ptL_RH.
    EXPECT_NEAR(s.GetPointL().GetRH(), 0.9, 0.002);
}

TEST(PrimaryReturnAirSummer, SupplyTemperatureDifferenceFixesOAndReheats) {
    SHDGPrimaryReturnAirInfo given;
    given.CalPriRetAirType = HDGPRI_XJ_SUPPLYDT;
    given.SfGdWs = 1.0;
    given.HfGdWs = 0.5;
    const ZefraHDGPrimaryReturnAir s = Calculated(given);
    ExpectSummerFacts(s);
    const ZefraHDGPoint L = s.GetPointL(), K = s.GetPointK(), O = s.GetPointO();
    EXPECT_NEAR(O.GetTdb(), 22.0 - 6.0, 1e-9);
    EXPECT_NEAR(L.GetRH(), 0.9, 1e-9);
    EXPECT_NEAR(K.GetTdb(), L.GetTdb() + 1.0, 1e-9);
    EXPECT_NEAR(K.GetD(), L.GetD(), 1e-12);
    EXPECT_GT(s.GetQk(), 0.0);
    EXPECT_GT(s.GetQo(), 0.0);
    EXPECT_GT(s.GetQr(), 0.0);
}

TEST(PrimaryReturnAirSummer, LargerDesignKeepsTheBalancesInBothTypes) {
    for (EHDGPriRetAirType type : {HDGPRI_XJ_DEWPOINT, HDGPRI_XJ_SUPPLYDT}) {
        SCOPED_TRACE(type);
        SHDGPrimaryReturnAirInfo given = LargeSummerDesign<SHDGPrimaryReturnAirInfo>();
        given.CalPriRetAirType = type;
        const ZefraHDGPrimaryReturnAir s = Calculated(given);
        ExpectSummerFacts(s);
        EXPECT_NEAR(s.GetPointL().GetRH(), 0.92, 1e-9);
        EXPECT_FALSE(HasFailureText(s.GetResultInfo()));
        EXPECT_GT(s.GetGo(), 2.0);
    }
}

TEST(PrimaryReturnAirSummer, FreshAirIsGivenAsRatioOrAsFlow) {
    SHDGPrimaryReturnAirInfo given;
    given.Go = 99.0;
    given.Gw = 7.0;
    ZefraHDGPrimaryReturnAir byRatio = Calculated(given);
    EXPECT_NE(byRatio.GetGo(), 99.0);
    EXPECT_NEAR(byRatio.GetGw(), 0.3 * byRatio.GetGo(), 1e-12);

    given.FreshAirType = 1;
    given.Gw = 0.2;
    ZefraHDGPrimaryReturnAir byFlow = Calculated(given);
    EXPECT_EQ(byFlow.GetGw(), 0.2);
    EXPECT_NEAR(byFlow.GetFreshAirRatio(), 0.2 / byFlow.GetGo(), 1e-15);
    ExpectSummerFacts(byFlow);
}

TEST(PrimaryReturnAirSummer, FailedSearchReportsAndCarriesOnWithTheOldPoints) {
    SHDGPrimaryReturnAirInfo given;
    given.SfGdWs = -200.0;  // no step comes within 100 °C of it
    ZefraHDGPrimaryReturnAir s;
    const ZefraHDGPoint oldO = s.GetPointO();
    s.SetGivenData(given);
    EXPECT_TRUE(s.Calculate());
    ASSERT_GE(s.GetResultInfo().GetSize(), 1);
    EXPECT_EQ(s.GetResultInfo().GetAt(0), CString(kSupplyPointFailed));
    ExpectSameState(s.GetPointO(), oldO);
    EXPECT_NEAR(s.GetGo(), given.Qn / (s.GetPointN().GetH() - oldO.GetH()), 1e-12);
}

TEST(PrimaryReturnAir, TypesOutsideTheTableCalculateNothing) {
    for (int type : {6, -1}) {
        ZefraHDGPrimaryReturnAir s;
        s.GetCalPriRetAirType(static_cast<EHDGPriRetAirType>(type));
        EXPECT_FALSE(s.Calculate());
        EXPECT_TRUE(s.GetResultInfo().IsEmpty());
        EXPECT_EQ(s.GetPointO().GetName(), CString(L"O"));
        EXPECT_EQ(s.GetQp(), 0.0);
    }
}

TEST(PrimaryReturnAir, AccessorsHandOutCopiesAndTheRatioFollowsTheSeason) {
    ZefraHDGPrimaryReturnAir s;
    ZefraHDGPoint n = s.GetPointN();
    n.SetTdb(99.0);
    EXPECT_EQ(s.GetPointN().GetTdb(), 22.0);
    EXPECT_EQ(s.GetHeatHumidityRatio(), 11.6 / 0.0014);
    s.GetCalPriRetAirType(HDGPRI_DJ_ISENTH_HEAT);
    EXPECT_EQ(s.GetCalPriRetAirType(), HDGPRI_DJ_ISENTH_HEAT);
    EXPECT_EQ(s.GetHeatHumidityRatio(), -(11.6 / 0.0014));
    EXPECT_NEAR(s.GetGivenData().Gw, 0.405, 1e-15);
}

TEST(PrimaryReturnAir, CalculationItemWordsReadBothWays) {
    EXPECT_EQ(ZefraHDGPrimaryReturnAir::GetCalItemTypeStr(HDGPT_DS), CString(L"饱程含湿量"));
    EXPECT_EQ(ZefraHDGPrimaryReturnAir::GetCalItemType(L"饱程含湿量"), HDGPT_DS);
    EXPECT_EQ(ZefraHDGPrimaryReturnAir::GetCalItemType(L"饱和含湿量"), HDGPT_TDB);
    EXPECT_EQ(ZefraHDGPrimaryReturnAir::GetCalItemType(L"饱和水蒸气分压力"), HDGPT_PS);
    EXPECT_EQ(ZefraHDGPrimaryReturnAir::GetCalItemType(L"水蒸气分压力"), HDGPT_PV);
    EXPECT_EQ(ZefraHDGPrimaryReturnAir::GetCalItemTypeStr(static_cast<EHvacHDGPointCalItemType>(11)), CString());
    for (int kind = 0; kind <= 10; ++kind) {
        const auto item = static_cast<EHvacHDGPointCalItemType>(kind);
        EXPECT_EQ(ZefraHDGPrimaryReturnAir::GetCalItemType(ZefraHDGPrimaryReturnAir::GetCalItemTypeStr(item)), item);
    }
}

TEST(PrimaryReturnAir, ChartListShowsDuctPointsOnlyWhenTheyDiffer) {
    auto names = [](const ZefraHDGPrimaryReturnAir& s) {
        CString joined;
        const auto points = s.GetAllPoint();
        for (int i = 0; i < points.GetSize(); ++i) joined += points.GetAt(i).GetName() + L" ";
        return joined;
    };
    EXPECT_EQ(names(Calculated(SHDGPrimaryReturnAirInfo())), CString(L"N W C L O "));

    SHDGPrimaryReturnAirInfo given;
    given.CalPriRetAirType = HDGPRI_XJ_SUPPLYDT;
    given.SfGdWs = 1.0;
    given.HfGdWs = 0.0005;  // counts as no rise
    EXPECT_EQ(names(Calculated(given)), CString(L"N W C L K O "));
    given.CalPriRetAirType = HDGPRI_XJ_DEWPOINT;
    given.HfGdWs = 1.0;
    EXPECT_EQ(names(Calculated(given)), CString(L"N N' W C L O "));

    // Winter on a new object preheats, so W' differs from W.
    EXPECT_EQ(names(Calculated(WinterDesign<SHDGPrimaryReturnAirInfo>(2))), CString(L"N N' W W' C L K O "));
}

// ---- Winter ------------------------------------------------------------------

namespace {

void ExpectWinterFacts(const ZefraHDGPrimaryReturnAir& s, double givenGo) {
    const SHDGPrimaryReturnAirInfo g = s.GetGivenData();
    const ZefraHDGPoint N = s.GetPointN(), C = s.GetPointC(), L = s.GetPointL(), K = s.GetPointK();
    const ZefraHDGPoint O = s.GetPointO();
    EXPECT_EQ(g.Go, givenGo);
    EXPECT_NEAR(s.GetPointN1().GetTdb(), N.GetTdb() - g.HfGdWs, 1e-9);
    // The room gains Qn and loses Mw from the supply air.
    EXPECT_NEAR(g.Go * (O.GetH() - N.GetH()), g.Qn, 1e-9);
    EXPECT_NEAR(g.Go * (N.GetD() - O.GetD()) / 1000.0, g.Mw, 1e-12);
    EXPECT_NEAR(K.GetTdb(), O.GetTdb() + g.SfGdWs, 1e-9);
    EXPECT_NEAR(K.GetD(), O.GetD(), 1e-12);
    EXPECT_NEAR(s.GetQp(), s.GetQk() + s.GetQl(), 1e-9);
    EXPECT_NEAR(s.GetMwp(), g.Go * (L.GetD() - C.GetD()) / 1000.0, 1e-12);
    switch (g.CalPriRetAirType) {
        case HDGPRI_DJ_ISENTH_HEAT:
            EXPECT_NEAR(L.GetRH(), g.ptL_RH, 1e-9);
            EXPECT_NEAR(s.GetQl(), 0.0, 5e-5 * g.Go);
            break;
        case HDGPRI_DJ_HEAT_ISENTH:
            EXPECT_NEAR(L.GetD(), C.GetD(), 1e-12);
            EXPECT_NEAR(s.GetQl(), 0.0, 1e-9);
            break;
        case HDGPRI_DJ_ISOTH_HEAT:
            EXPECT_NEAR(L.GetTdb(), C.GetTdb(), 1e-9);
            break;
        default:
            EXPECT_NEAR(L.GetD(), C.GetD(), 1e-12);
            EXPECT_NEAR(L.GetTdb(), K.GetTdb(), 1e-9);
            break;
    }
}

}  // namespace

TEST(PrimaryReturnAirWinter, NewObjectPreheatsForTheWholeOutdoorShare) {
    // A new object has no summer ratio (1.0): 0.3 is below it, so the preheat
    // branch mixes as if all the air were outdoor air.
    for (int type = 2; type <= 5; ++type) {
        SCOPED_TRACE(type);
        const SHDGPrimaryReturnAirInfo given = WinterDesign<SHDGPrimaryReturnAirInfo>(type);
        const ZefraHDGPrimaryReturnAir s = Calculated(given);
        ExpectWinterFacts(s, given.Go);
        const ZefraHDGPoint W = s.GetPointW(), W1 = s.GetPointW1(), C = s.GetPointC();
        EXPECT_NEAR(C.GetD(), W.GetD(), 1e-12);
        EXPECT_NEAR(W1.GetD(), W.GetD(), 1e-12);
        EXPECT_NEAR(W1.GetH(), C.GetH(), 1e-9);
        EXPECT_GT(s.GetQw1(), 0.0);
        EXPECT_FALSE(HasFailureText(s.GetResultInfo()));
    }
}

TEST(PrimaryReturnAirWinter, FullOutdoorShareSearchesTheLineFromWToN) {
    SHDGPrimaryReturnAirInfo given = WinterDesign<SHDGPrimaryReturnAirInfo>(HDGPRI_DJ_ISENTH_HEAT);
    given.FreshAirRatio = 1.0;
    const ZefraHDGPrimaryReturnAir s = Calculated(given);
    ExpectWinterFacts(s, given.Go);
    const LinePosition c = PositionOnLine(s.GetPointW(), s.GetPointN(), s.GetPointC());
    const double byTemperature = (s.GetPointC().GetTdb() - s.GetPointW().GetTdb()) /
                                 (s.GetPointN().GetTdb() - s.GetPointW().GetTdb());
    EXPECT_NEAR(c.ByD, byTemperature, 1e-9);
    EXPECT_NEAR(s.GetPointC().GetH(), s.GetPointL().GetH(), 5e-5);
    // W' isn't written by the search: a new object's default point.
    EXPECT_EQ(s.GetPointW1().GetTdb(), 0.0);
}

TEST(PrimaryReturnAirWinter, SummerRatioCarriesOverToTheWinterMix) {
    const SHDGPrimaryReturnAirInfo winter = WinterDesign<SHDGPrimaryReturnAirInfo>(HDGPRI_DJ_ISENTH_HEAT);

    // Summer at 0.3, then winter at 0.3: the search runs, W' keeps summer's W.
    ZefraHDGPrimaryReturnAir sameRatio = Calculated(SHDGPrimaryReturnAirInfo());
    const ZefraHDGPoint summerW1 = sameRatio.GetPointW1();
    sameRatio.SetGivenData(winter);
    ASSERT_TRUE(sameRatio.Calculate());
    ExpectSameState(sameRatio.GetPointW1(), summerW1);
    EXPECT_NEAR(sameRatio.GetPointC().GetH(), sameRatio.GetPointL().GetH(), 5e-5);

    // Summer at 0.3, then winter at 0.2: preheat, mixing at the summer's 0.3.
    ZefraHDGPrimaryReturnAir lowerRatio = Calculated(SHDGPrimaryReturnAirInfo());
    SHDGPrimaryReturnAirInfo lower = winter;
    lower.FreshAirRatio = 0.2;
    lowerRatio.SetGivenData(lower);
    ASSERT_TRUE(lowerRatio.Calculate());
    const ZefraHDGPoint N1 = lowerRatio.GetPointN1(), W = lowerRatio.GetPointW();
    EXPECT_NEAR(lowerRatio.GetPointC().GetD(), N1.GetD() - 0.3 * (N1.GetD() - W.GetD()), 1e-12);
    const LinePosition c = PositionOnLine(N1, lowerRatio.GetPointW1(), lowerRatio.GetPointC());
    EXPECT_NEAR(c.ByH, 0.3, 1e-9);
    EXPECT_NEAR(lowerRatio.GetGw(), 0.2 * winter.Go, 1e-12);
}

TEST(PrimaryReturnAirWinter, MixSearchThatCannotReachLStopsAtItsBound) {
    // Outdoor air warmer in enthalpy than L: no point between W and N has L's enthalpy.
    SHDGPrimaryReturnAirInfo given = WinterDesign<SHDGPrimaryReturnAirInfo>(HDGPRI_DJ_ISENTH_HEAT);
    given.PointW = ZefraHDGPoint(12.0, 0.6, L"W");
    given.FreshAirRatio = 1.0;
    const ZefraHDGPrimaryReturnAir s = Calculated(given);
    ASSERT_GT(s.GetPointW().GetH(), s.GetPointL().GetH());
    ASSERT_GE(s.GetResultInfo().GetSize(), 1);
    EXPECT_NE(s.GetResultInfo().GetAt(0).Find(L"混合点C计算失败"), -1);
    // The closest pass lies at the W end of the line.
    EXPECT_NEAR(s.GetPointC().GetTdb(), s.GetPointW().GetTdb(), 1e-6);
    EXPECT_EQ(s.GetPointC().GetName(), CString(L"C"));
}
