#include "zefra/air/ZefraHDGHeatHumRat.h"
#include "zefra/air/ZefraHDGLine.h"
#include "zefra/air/ZefraHDGMixAir.h"
#include "zefra/platform/airlib/NT.h"

#include <gtest/gtest.h>

#include <type_traits>

namespace {

static_assert(std::is_abstract<ZefraHDGProcess>::value, "Calculate has no body in the base");

TEST(HDGLine, ComputesTheLoadOrTheFlowAndZeroFlowOnEqualEnthalpy) {
    ZefraHDGLine line;
    EXPECT_EQ(line.GetHDGPointA().GetName(), CString(L"A"));
    EXPECT_EQ(line.GetHDGPointB().GetTdb(), 20.0);
    const double dh = line.GetHDGPointB().GetH() - line.GetHDGPointA().GetH();
    EXPECT_TRUE(line.Calculate());
    EXPECT_DOUBLE_EQ(line.GetQ(), 1.35 * dh);
    EXPECT_EQ(line.GetG(), 1.35);

    line.SetCalType(1);
    line.SetQ(-12.0);
    EXPECT_TRUE(line.Calculate());
    EXPECT_DOUBLE_EQ(line.GetG(), -12.0 / dh);
    EXPECT_EQ(line.GetQ(), -12.0);

    ZefraHDGPoint same;
    same.CalByHAndD(40.0, 8.0);
    line.SetHDGPointA(same);
    same.CalByHAndD(40.0, 12.0);  // other moisture, same enthalpy
    line.SetHDGPointB(same);
    EXPECT_TRUE(line.Calculate());
    EXPECT_EQ(line.GetG(), 0.0);
    EXPECT_TRUE(line.GetResultInfo().IsEmpty());
}

TEST(HDGMixAir, MixesByFlowsOrByAGivenRatio) {
    ZefraHDGMixAir mix;
    const ZefraHDGPoint a = mix.GetHDGPointA();
    const ZefraHDGPoint b = mix.GetHDGPointB();
    EXPECT_TRUE(mix.GetHDGPointC().GetName().IsEmpty());
    EXPECT_TRUE(mix.Calculate());
    EXPECT_EQ(mix.GetdMixRatio(), 3.0);
    ZefraHDGPoint c = mix.GetHDGPointC();
    EXPECT_EQ(c.GetName(), CString(L"C"));
    EXPECT_DOUBLE_EQ(c.GetH(), (3.0 * a.GetH() + b.GetH()) / 4.0);
    EXPECT_DOUBLE_EQ(c.GetD(), (3.0 * a.GetD() + b.GetD()) / 4.0);
    EXPECT_EQ(c.GetCalPara1Type(), HDGPT_TDB);
    EXPECT_EQ(c.GetCalPara2Type(), HDGPT_D);

    mix.SetGa(500.0);
    mix.SetGb(2000.0);
    mix.Calculate();
    EXPECT_EQ(mix.GetdMixRatio(), 0.25);

    // A given ratio ignores the flows.
    mix.SetIsHfb(true);
    mix.SetdMixRatio(1.0);
    mix.SetGb(0.0);
    mix.Calculate();
    c = mix.GetHDGPointC();
    EXPECT_EQ(mix.GetdMixRatio(), 1.0);
    EXPECT_DOUBLE_EQ(c.GetH(), 0.5 * (a.GetH() + b.GetH()));
    EXPECT_DOUBLE_EQ(c.GetD(), 0.5 * (a.GetD() + b.GetD()));
    EXPECT_TRUE(mix.GetResultInfo().IsEmpty());
}

TEST(HDGHeatHumRat, WritesTheRatioWithTwoDecimalsOrASignedInfinity) {
    ZefraHDGHeatHumRat ratio;
    EXPECT_EQ(ratio.GetValue(), CString(L"1000"));
    EXPECT_TRUE(ratio.Calculate());
    EXPECT_EQ(ratio.GetValue(), CString(L"1000.00"));

    ratio.SetMw(0.0);
    ratio.SetQ(5.0);
    ratio.Calculate();
    EXPECT_EQ(ratio.GetValue(), CString(L"+∞"));
    ratio.SetQ(-5.0);
    ratio.Calculate();
    EXPECT_EQ(ratio.GetValue(), CString(L"-∞"));
    ratio.SetQ(0.0);
    ratio.Calculate();
    EXPECT_EQ(ratio.GetValue(), CString(L"+∞"));
    ratio.SetMw(-1e-10);  // inside the zero band
    ratio.Calculate();
    EXPECT_EQ(ratio.GetValue(), CString(L"+∞"));

    // From the points: the enthalpy runs A to B, the divisor B to A.
    ratio.SetCalType(1);
    ratio.Calculate();
    const ZefraHDGPoint a = ratio.GetHDGPointA();
    const ZefraHDGPoint b = ratio.GetHDGPointB();
    const double expected = 1000.0 * (b.GetH() - a.GetH()) / (a.GetD() - b.GetD());
    EXPECT_LT(expected, 0.0);
    EXPECT_EQ(ratio.GetValue(), NT::ftoa(expected, 2, true));

    ZefraHDGPoint p;
    p.CalByTdbAndD(20.0, 8.0);
    ratio.SetHDGPointA(p);
    p.CalByTdbAndD(30.0, 8.0);
    ratio.SetHDGPointB(p);
    ratio.Calculate();
    EXPECT_EQ(ratio.GetValue(), CString(L"+∞"));
    ratio.SetHDGPointB(ratio.GetHDGPointA());
    ratio.Calculate();
    EXPECT_EQ(ratio.GetValue(), CString(L"+∞"));
    p.CalByTdbAndD(10.0, 8.0);
    ratio.SetHDGPointB(p);
    ratio.Calculate();
    EXPECT_EQ(ratio.GetValue(), CString(L"-∞"));
    EXPECT_TRUE(ratio.GetResultInfo().IsEmpty());
}

TEST(SimpleProcesses, RenameTheirPointsAndKeepCopiesApart) {
    ZefraHDGMixAir mix;
    mix.SetHDGPointA(ZefraHDGPoint(30.0, 0.4, L"N"));
    mix.SetHDGPointB(ZefraHDGPoint(10.0, 0.8, L"W"));
    EXPECT_EQ(mix.GetHDGPointA().GetName(), CString(L"A"));
    EXPECT_EQ(mix.GetHDGPointB().GetName(), CString(L"B"));
    EXPECT_EQ(mix.GetHDGPointA().GetTdb(), 30.0);
    ZefraHDGMixAir copy(mix);
    copy.SetHDGPointA(ZefraHDGPoint(0.0, 0.5, L"X"));
    EXPECT_EQ(mix.GetHDGPointA().GetTdb(), 30.0);
}

TEST(SimpleProcesses, RunTimeClassesChainUpToCObject) {
    const ZefraHDGLine line;
    const ZefraHDGProcess& process = line;
    const CRuntimeClass* record = process.GetRuntimeClass();
    const char* chain[] = {"ZefraHDGLine", "ZefraHDGProcess", "CNTObject", "CObject"};
    for (const char* name : chain) {
        ASSERT_NE(record, nullptr);
        EXPECT_STREQ(record->m_lpszClassName, name);
        EXPECT_EQ(record->m_wSchema, 0xFFFFu);
        EXPECT_EQ(record->CreateObject(), nullptr);
        record = record->GetBaseClass();
    }
    EXPECT_EQ(record, nullptr);
    EXPECT_EQ(RUNTIME_CLASS(ZefraHDGLine)->m_nObjectSize, static_cast<int>(sizeof(ZefraHDGLine)));
    EXPECT_EQ(&ZefraHDGMixAir::classZefraHDGMixAir, RUNTIME_CLASS(ZefraHDGMixAir));
    EXPECT_EQ(RUNTIME_CLASS(ZefraHDGHeatHumRat)->GetBaseClass(), RUNTIME_CLASS(ZefraHDGProcess));
    EXPECT_EQ(RUNTIME_CLASS(ZefraHDGProcess)->GetBaseClass(), RUNTIME_CLASS(CNTObject));
    EXPECT_TRUE(line.IsKindOf(RUNTIME_CLASS(ZefraHDGProcess)));
    EXPECT_FALSE(line.IsKindOf(RUNTIME_CLASS(ZefraHDGMixAir)));
    EXPECT_EQ(line.GetClassNameW(), CString(L"ZefraHDGLine"));
}

TEST(SimpleProcesses, RecordsAreNotWrittenYet) {
    ZefraHDGHeatHumRat ratio;
    ZefraHDGProcess& process = ratio;
    EXPECT_FALSE(process.SaveXml(nullptr));
    EXPECT_FALSE(process.ReadXml(nullptr));
}

}  // namespace
