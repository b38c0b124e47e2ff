#include "AirTestSupport.h"

#include "zefra/air/ZefraHDGPoint.h"
#include "zefra/platform/airlib/Air.h"
#include "zefra/platform/mfc/CArchive.h"
#include "zefra/platform/mfc/CNTArray.h"

#include <gtest/gtest.h>

#include <functional>
#include <sstream>

namespace {

void ExpectSameFields(const ZefraHDGPoint& a, const ZefraHDGPoint& b) {
    for (int kind = HDGPT_TDB; kind <= HDGPT_PS; ++kind) {
        const auto k = static_cast<EHvacHDGPointCalItemType>(kind);
        EXPECT_EQ(a.GetCalParaValue(k), b.GetCalParaValue(k)) << kind;
    }
    EXPECT_EQ(a.GetName(), b.GetName());
    EXPECT_EQ(a.GetErrorInfo(), b.GetErrorInfo());
    EXPECT_EQ(a.GetCalPara1Type(), b.GetCalPara1Type());
    EXPECT_EQ(a.GetCalPara2Type(), b.GetCalPara2Type());
}

TEST(StatePoint, DefaultsAndTheConstructorFromTdbAndRH) {
    EXPECT_EQ(GetHDGCurB(), 101325.0);
    const ZefraHDGPoint empty;
    EXPECT_EQ(empty.GetTdb(), 0.0);
    EXPECT_EQ(empty.GetPs(), 0.0);
    EXPECT_TRUE(empty.GetName().IsEmpty());
    EXPECT_EQ(empty.GetCalPara1Type(), HDGPT_TDB);
    EXPECT_EQ(empty.GetCalPara2Type(), HDGPT_RH);

    const ZefraHDGPoint n(22.0, 0.6, L"N");
    EXPECT_EQ(n.GetName(), CString(L"N"));
    EXPECT_EQ(n.GetPv(), 0.6 * n.GetPs());
    EXPECT_EQ(n.GetPs(), AIR::GetPs(22.0));
    EXPECT_EQ(n.GetD(), AIR::GetDByPv(n.GetPv(), 101325.0));
    EXPECT_EQ(n.GetH(), AIR::GetH(22.0, n.GetD()));
    EXPECT_EQ(n.GetDen(), AIR::GetDen(22.0, 0.6, 101325.0));
    EXPECT_EQ(n.GetSV(), AIR::GetSVByDAndDen(n.GetD(), n.GetDen()));
    EXPECT_EQ(n.GetTwb(), AIR::GetTwb(n.GetH(), 0.6, 101325.0));
    EXPECT_EQ(n.GetTdp(), AIR::GetTdp(n.GetD(), 101325.0));
    EXPECT_EQ(n.GetDs(), AIR::GetDByPv(n.GetPs(), 101325.0));
    EXPECT_EQ(n.GetCalPara1Type(), HDGPT_TDB);
    EXPECT_EQ(n.GetCalPara2Type(), HDGPT_RH);
}

TEST(StatePoint, CopiesCarryNameErrorInfoAndPair) {
    ZefraHDGPoint p(25.0, 0.5, L"W'");
    p.SetErrorInfo(L"检查");
    p.SetCalPara1Type(HDGPT_H);
    p.SetCalPara2Type(HDGPT_PV);
    const ZefraHDGPoint copy(p);
    ExpectSameFields(copy, p);
    ZefraHDGPoint assigned;
    assigned = p;
    ExpectSameFields(assigned, p);
}

TEST(StatePoint, ReadsItsFieldsByKind) {
    const ZefraHDGPoint p(30.0, 0.4, L"A");
    EXPECT_EQ(p.GetCalParaValue(HDGPT_TDB), p.GetTdb());
    EXPECT_EQ(p.GetCalParaValue(HDGPT_TWB), p.GetTwb());
    EXPECT_EQ(p.GetCalParaValue(HDGPT_SV), p.GetSV());
    EXPECT_EQ(p.GetCalParaValue(HDGPT_PS), p.GetPs());
    EXPECT_EQ(p.GetCalParaValue(static_cast<EHvacHDGPointCalItemType>(11)), -1000000.0);
    EXPECT_EQ(p.GetCalParaValue(static_cast<EHvacHDGPointCalItemType>(-1)), -1000000.0);
    EXPECT_EQ(p.GetCalPara1Value(), 30.0);
    EXPECT_EQ(p.GetCalPara2Value(), 0.4);
}

struct PairCase {
    int a, b;
    std::function<bool(ZefraHDGPoint&, const ZefraHDGPoint&)> direct;
};

// Every pair of the dispatch table, in both orders, computes what the
// direct call computes and records the pair that call records; from any
// state of the chart the pair leads back to that state.
TEST(StatePoint, CalculateDispatchesEveryPairInEitherOrder) {
    using P = ZefraHDGPoint;
    const PairCase cases[] = {
        {0, 1, [](P& p, const P& s) { return p.CalByTdbAndRH(s.GetTdb(), s.GetRH()); }},
        {0, 2, [](P& p, const P& s) { return p.CalByTdbAndH(s.GetTdb(), s.GetH()); }},
        {0, 3, [](P& p, const P& s) { return p.CalByTdbAndD(s.GetTdb(), s.GetD()); }},
        {0, 4, [](P& p, const P& s) { return p.CalByTdbAndTwb(s.GetTdb(), s.GetTwb()); }},
        {0, 5, [](P& p, const P& s) { return p.CalByTdbAndTdp(s.GetTdb(), s.GetTdp()); }},
        {0, 6, [](P& p, const P& s) { return p.CalByTdbAndPv(s.GetTdb(), s.GetPv()); }},
        {1, 2, [](P& p, const P& s) { return p.CalByRHAndH(s.GetRH(), s.GetH()); }},
        {1, 3, [](P& p, const P& s) { return p.CalByRHAndD(s.GetRH(), s.GetD()); }},
        {1, 4, [](P& p, const P& s) { return p.CalByRHAndTwb(s.GetRH(), s.GetTwb()); }},
        {1, 5, [](P& p, const P& s) { return p.CalByRHAndTdp(s.GetRH(), s.GetTdp()); }},
        {1, 6, [](P& p, const P& s) { return p.CalByRHAndPv(s.GetRH(), s.GetPv()); }},
        {2, 3, [](P& p, const P& s) { return p.CalByHAndD(s.GetH(), s.GetD()); }},
        {2, 5, [](P& p, const P& s) { return p.CalByHAndTdp(s.GetH(), s.GetTdp()); }},
        {2, 6, [](P& p, const P& s) { return p.CalByHAndPv(s.GetH(), s.GetPv()); }},
        {3, 4, [](P& p, const P& s) { return p.CalByDAndTwb(s.GetD(), s.GetTwb()); }},
        {4, 5, [](P& p, const P& s) { return p.CalByTwbAndTdp(s.GetTwb(), s.GetTdp()); }},
        {4, 6, [](P& p, const P& s) { return p.CalByTwbAndPv(s.GetTwb(), s.GetPv()); }},
    };
    for (double B : {50000.0, 101325.0, 110000.0}) {
        const ScopedPressure pressure(B);
        for (double t : {-25.0, 3.0, 22.0, 45.0}) {
            const ZefraHDGPoint state(t, 0.55, L"S");
            for (const PairCase& c : cases) {
                for (bool swapped : {false, true}) {
                    ZefraHDGPoint viaTable = state;
                    viaTable.SetCalPara1Type(static_cast<EHvacHDGPointCalItemType>(swapped ? c.b : c.a));
                    viaTable.SetCalPara2Type(static_cast<EHvacHDGPointCalItemType>(swapped ? c.a : c.b));
                    ASSERT_TRUE(viaTable.Calculate());
                    ZefraHDGPoint direct;
                    direct.SetName(L"S");
                    ASSERT_TRUE(c.direct(direct, state));
                    ExpectSameFields(viaTable, direct);
                    // {2,3} records the pair of its result, (Tdb, D).
                    const int first = c.a == 2 && c.b == 3 ? 0 : c.a;
                    EXPECT_EQ(direct.GetCalPara1Type(), first) << c.a << c.b;
                    EXPECT_EQ(direct.GetCalPara2Type(), c.b) << c.a << c.b;
                    for (int kind = HDGPT_TDB; kind <= HDGPT_PS; ++kind) {
                        const auto k = static_cast<EHvacHDGPointCalItemType>(kind);
                        EXPECT_LT(RelativeError(direct.GetCalParaValue(k), state.GetCalParaValue(k)), 1e-9)
                            << "pair " << c.a << c.b << " kind " << kind << " at " << t << " °C, " << B << " Pa";
                    }
                }
            }
        }
    }
}

TEST(StatePoint, CalculateRefusesPairsWithoutACalculationAndChangesNothing) {
    const int refused[][2] = {{2, 4}, {3, 5}, {3, 6}, {5, 6}, {0, 7}, {7, 0}, {5, 5}, {0, 0},
                              {1, 8}, {9, 10}, {2, 11}, {-1, 0}, {3, 3}};
    for (const auto& pair : refused) {
        ZefraHDGPoint p(24.0, 0.5, L"X");
        p.SetErrorInfo(L"e");
        p.SetCalPara1Type(static_cast<EHvacHDGPointCalItemType>(pair[0]));
        p.SetCalPara2Type(static_cast<EHvacHDGPointCalItemType>(pair[1]));
        const ZefraHDGPoint before = p;
        EXPECT_FALSE(p.Calculate()) << pair[0] << "," << pair[1];
        ExpectSameFields(p, before);
    }
    // A default point recomputes as Tdb 0, RH 0.
    ZefraHDGPoint zero;
    EXPECT_TRUE(zero.Calculate());
    EXPECT_EQ(zero.GetPs(), AIR::GetPs(0.0));
    EXPECT_EQ(zero.GetD(), 0.0);
}

TEST(StatePoint, DensityIsReachedOnlyByItsDirectCall) {
    const ZefraHDGPoint state(26.0, 0.45, L"S");
    ZefraHDGPoint p;
    EXPECT_TRUE(p.CalByTdbAndDen(26.0, state.GetDen()));
    EXPECT_EQ(p.GetCalPara1Type(), HDGPT_TDB);
    EXPECT_EQ(p.GetCalPara2Type(), HDGPT_DEN);
    EXPECT_NEAR(p.GetRH(), 0.45, 1e-9);
    EXPECT_FALSE(p.Calculate());
}

TEST(StatePoint, FollowsTheCurrentPressure) {
    const ZefraHDGPoint atSeaLevel(20.0, 0.5, L"S");
    const ScopedPressure pressure(80000.0);
    ZefraHDGPoint high(20.0, 0.5, L"S");
    EXPECT_EQ(high.GetPs(), atSeaLevel.GetPs());
    EXPECT_GT(high.GetD(), atSeaLevel.GetD());
    EXPECT_LT(high.GetDen(), atSeaLevel.GetDen());
    EXPECT_NEAR(high.GetD() / atSeaLevel.GetD(), (101325.0 - high.GetPv()) / (80000.0 - high.GetPv()), 1e-12);
}

TEST(StatePoint, FindsTheKindNamedInAText) {
    EXPECT_EQ(GetHDGPtCalItemType(L"干球温度"), HDGPT_TDB);
    EXPECT_EQ(GetHDGPtCalItemType(L"相对湿度(%)"), HDGPT_RH);
    EXPECT_EQ(GetHDGPtCalItemType(L"焓"), HDGPT_H);
    EXPECT_EQ(GetHDGPtCalItemType(L"饱和含湿量"), HDGPT_DS);
    EXPECT_EQ(GetHDGPtCalItemType(L"含湿量"), HDGPT_D);
    EXPECT_EQ(GetHDGPtCalItemType(L"饱和水蒸气分压力"), HDGPT_PS);
    EXPECT_EQ(GetHDGPtCalItemType(L"水蒸气分压力"), HDGPT_PV);
    EXPECT_EQ(GetHDGPtCalItemType(L"湿球温度"), HDGPT_TWB);
    EXPECT_EQ(GetHDGPtCalItemType(L"露点温度"), HDGPT_TDP);
    EXPECT_EQ(GetHDGPtCalItemType(L"密度"), HDGPT_DEN);
    EXPECT_EQ(GetHDGPtCalItemType(L"比容"), HDGPT_SV);
    EXPECT_EQ(GetHDGPtCalItemType(L"饱和水蒸气压力"), HDGPT_TDB);
    EXPECT_EQ(GetHDGPtCalItemType(L""), HDGPT_TDB);
    // Earlier rows win: enthalpy before moisture content.
    EXPECT_EQ(GetHDGPtCalItemType(L"含湿量和焓"), HDGPT_H);
}

TEST(StatePoint, PointArraysGoThroughAnArchive) {
    CNTArray<ZefraHDGPoint, ZefraHDGPoint&> points;
    ZefraHDGPoint n(22.0, 0.6, L"N");
    ZefraHDGPoint w(33.2, 0.5, L"W");
    w.SetCalPara1Type(HDGPT_TWB);
    w.SetCalPara2Type(HDGPT_PV);
    points.Add(n);
    points.Add(w);
    std::stringstream stream;
    {
        CArchive out(stream, CArchive::store);
        points.Serialize(out);
    }
    CNTArray<ZefraHDGPoint, ZefraHDGPoint&> back;
    CArchive in(stream, CArchive::load);
    back.Serialize(in);
    ASSERT_EQ(back.GetSize(), 2);
    ExpectSameFields(back[0], n);
    EXPECT_EQ(back[1].GetName(), CString(L"W"));
    EXPECT_EQ(back[1].GetCalPara1Type(), HDGPT_TWB);
    EXPECT_EQ(back[1].GetTwb(), w.GetTwb());
}

}  // namespace
