#include "zefra/air/ZefraHDGHeatHumRat.h"
#include "zefra/air/ZefraHDGLine.h"
#include "zefra/air/ZefraHDGMixAir.h"
#include "zefra/air/ZefraHDGPrimaryReturnAir.h"
#include "zefra/air/ZefraHDGSecondaryReturnAir.h"
#include "zefra/config/QoDtDictionary.h"

#include <gtest/gtest.h>

namespace {

void ExpectSameFields(const ZefraHDGPoint& a, const ZefraHDGPoint& b) {
    for (int kind = HDGPT_TDB; kind <= HDGPT_PS; ++kind)
        EXPECT_EQ(a.GetCalParaValue(static_cast<EHvacHDGPointCalItemType>(kind)),
                  b.GetCalParaValue(static_cast<EHvacHDGPointCalItemType>(kind)))
            << "kind " << kind;
    EXPECT_EQ(a.GetName().ToUtf8(), b.GetName().ToUtf8());
    EXPECT_EQ(a.GetCalPara1Type(), b.GetCalPara1Type());
    EXPECT_EQ(a.GetCalPara2Type(), b.GetCalPara2Type());
}

void RemoveChild(QoDtDictionary& dict, const wchar_t* key) {
    for (dict.children.MoveToFirst(); !dict.children.IsOut(); dict.children.MoveToNext())
        if (dict.children.GetCurData()->name == key) {
            dict.children.DelCur();
            return;
        }
    FAIL() << "no child " << CString(key).ToUtf8();
}

SHDGSecondaryReturnAirInfo UnusualSecondaryData() {
    SHDGSecondaryReturnAirInfo given;
    given.CalPriRetAirType = HDGSEC_DJ_ISOTH_HEAT;
    given.PointN.CalByTdbAndTwb(20.0, 13.0);
    given.PointW.CalByRHAndTdp(0.5, -12.0);
    given.Qn = 7.5;
    given.Mw = 0.0003;
    given.SfGdWs = 0.7;
    given.HfGdWs = 0.4;
    given.ptL_RH = 0.85;
    given.FreshAirType = 1;
    given.FreshAirRatio = 0.25;
    given.Gw = 0.31;
    given.Go = 1.9;
    given.Gr1 = 0.62;
    given.SfWc = 7.0;
    return given;
}

}  // namespace

TEST(PointRecord, KeepsAllElevenPropertiesWithoutCalculating) {
    ZefraHDGPoint point(26.0, 0.55, L"N'");
    point.CalByDAndTwb(point.GetD(), point.GetTwb());  // pair (3, 4)
    point.SetDs(123.0);  // not a consistent state: reading must not recalculate
    QoDtDictionary dict;
    ASSERT_TRUE(point.SaveXml(&dict));
    double ds = 0.0;
    EXPECT_TRUE(dict.GetValue(L"状态点\\N'\\饱程含湿量", ds));
    EXPECT_EQ(ds, 123.0);
    EXPECT_EQ(dict.FindItem(L"状态点\\N'\\饱和含湿量"), nullptr);

    ZefraHDGPoint read;
    read.SetName(L"N'");
    ASSERT_TRUE(read.ReadXml(&dict));
    ExpectSameFields(read, point);

    // Found by the name it carries: another name finds nothing and changes nothing.
    ZefraHDGPoint other(10.0, 0.5, L"W");
    EXPECT_FALSE(other.ReadXml(&dict));
    EXPECT_EQ(other.GetTdb(), 10.0);

    // Reading leaves an empty "状态点" behind where there was none.
    QoDtDictionary bare;
    EXPECT_FALSE(other.ReadXml(&bare));
    ASSERT_NE(bare.FindDict(L"状态点"), nullptr);
    EXPECT_EQ(bare.FindDict(L"状态点")->children.GetLength(), 0);
}

TEST(SchemeRecord, RoundTripsTheGivenDataOfBothSchemes) {
    ZefraHDGSecondaryReturnAir secondary;
    const SHDGSecondaryReturnAirInfo given = UnusualSecondaryData();
    secondary.SetGivenData(given);
    QoDtDictionary dict;
    ASSERT_TRUE(secondary.SaveXml(&dict));
    int kind = -1;
    EXPECT_TRUE(dict.GetValue(L"二次回风处理过程\\状态点\\N\\计算参数2类型", kind));
    EXPECT_EQ(kind, HDGPT_TWB);
    CString text;
    EXPECT_TRUE(dict.GetValue(L"二次回风处理过程\\室外空气状态点计算项2", text));
    EXPECT_EQ(text.ToUtf8(), "露点温度");

    ZefraHDGSecondaryReturnAir back;
    ASSERT_TRUE(back.ReadXml(&dict));
    const SHDGSecondaryReturnAirInfo read = back.GetGivenData();
    EXPECT_EQ(read.CalPriRetAirType, HDGSEC_DJ_ISOTH_HEAT);
    ExpectSameFields(read.PointN, given.PointN);
    ExpectSameFields(read.PointW, given.PointW);
    EXPECT_EQ(read.Qn, 7.5);
    EXPECT_EQ(read.Mw, 0.0003);
    EXPECT_EQ(read.SfGdWs, 0.7);
    EXPECT_EQ(read.HfGdWs, 0.4);
    EXPECT_EQ(read.ptL_RH, 0.85);
    EXPECT_EQ(read.FreshAirType, 1);
    EXPECT_EQ(read.FreshAirRatio, 0.25);
    EXPECT_EQ(read.Gw, 0.31);
    EXPECT_EQ(read.Go, 1.9);
    EXPECT_EQ(read.Gr1, 0.62);
    EXPECT_EQ(read.SfWc, 7.0);

    // The primary record has its own name and no first return air.
    ZefraHDGPrimaryReturnAir primary;
    SHDGPrimaryReturnAirInfo primaryGiven;
    primaryGiven.CalPriRetAirType = HDGPRI_DJ_HEAT_ISOTH;
    primaryGiven.SfWc = 4.5;
    primary.SetGivenData(primaryGiven);
    ASSERT_TRUE(primary.SaveXml(&dict));
    EXPECT_EQ(dict.FindItem(L"一次回风处理过程\\一次回风量"), nullptr);
    ZefraHDGPrimaryReturnAir primaryBack;
    ASSERT_TRUE(primaryBack.ReadXml(&dict));
    EXPECT_EQ(primaryBack.GetCalPriRetAirType(), HDGPRI_DJ_HEAT_ISOTH);
    EXPECT_EQ(primaryBack.GetSfWc(), 4.5);
}

TEST(SchemeRecord, MissingAndForeignKeys) {
    ZefraHDGPrimaryReturnAir saved;
    SHDGPrimaryReturnAirInfo given;
    given.CalPriRetAirType = HDGPRI_XJ_SUPPLYDT;
    given.Qn = 20.0;
    given.SfWc = 5.0;
    saved.SetGivenData(given);
    QoDtDictionary dict;
    saved.SaveXml(&dict);
    QoDtDictionary* record = dict.FindDict(L"一次回风处理过程");
    ASSERT_NE(record, nullptr);

    // No record of this scheme: false, nothing taken over.
    ZefraHDGSecondaryReturnAir foreign;
    foreign.SetQn(3.0);
    EXPECT_FALSE(foreign.ReadXml(&dict));
    EXPECT_EQ(foreign.GetQn(), 3.0);

    // The item texts decide the kinds over the point records; a text outside
    // the table reads 0, a missing one repeats the one before it.
    record->SetValue(L"室内空气状态点计算项1", L"焓");
    record->SetValue(L"室内空气状态点计算项2", L"饱程含湿量");
    record->SetValue(L"室外空气状态点计算项1", L"饱和含湿量");
    RemoveChild(*record, L"室外空气状态点计算项2");
    RemoveChild(*record, L"送风温差");
    RemoveChild(*record, L"计算类型");
    RemoveChild(*record->FindDict(L"状态点"), L"N");

    ZefraHDGPrimaryReturnAir read;
    read.GetCalPriRetAirType(HDGPRI_DJ_ISOTH_HEAT);
    read.SetSfWc(9.0);
    EXPECT_FALSE(read.ReadXml(&dict));  // "送风温差" decides the result
    EXPECT_EQ(read.GetCalPriRetAirType(), HDGPRI_XJ_DEWPOINT);
    EXPECT_EQ(read.GetSfWc(), 9.0);
    EXPECT_EQ(read.GetQn(), 20.0);
    EXPECT_EQ(read.GetPointN().GetCalPara1Type(), HDGPT_H);
    EXPECT_EQ(read.GetPointN().GetCalPara2Type(), HDGPT_DS);
    EXPECT_EQ(read.GetPointW().GetCalPara1Type(), HDGPT_TDB);
    EXPECT_EQ(read.GetPointW().GetCalPara2Type(), HDGPT_TDB);
}

TEST(SimpleProcessRecord, KeysLieInTheDictionaryGiven) {
    QoDtDictionary dict;
    ZefraHDGLine line;
    line.SetCalType(1);
    line.SetQ(4.0);
    line.SetG(2.5);
    line.SetHDGPointB(ZefraHDGPoint(15.0, 0.95, L"X"));
    ASSERT_TRUE(line.SaveXml(&dict));
    ZefraHDGLine lineBack;
    ASSERT_TRUE(lineBack.ReadXml(&dict));
    EXPECT_EQ(lineBack.GetCalType(), 1);
    EXPECT_EQ(lineBack.GetQ(), 4.0);
    EXPECT_EQ(lineBack.GetG(), 2.5);
    ExpectSameFields(lineBack.GetHDGPointB(), line.GetHDGPointB());
    EXPECT_EQ(lineBack.GetHDGPointB().GetName().ToUtf8(), "B");

    ZefraHDGMixAir mix;
    mix.SetGa(10.0);
    mix.SetGb(4.0);
    mix.SetdMixRatio(2.5);
    mix.SetIsHfb(true);
    ASSERT_TRUE(mix.SaveXml(&dict));
    double ratio = 0.0;
    EXPECT_TRUE(dict.GetValue(L"混风比A:B", ratio));
    ZefraHDGMixAir mixBack;
    EXPECT_TRUE(mixBack.ReadXml(&dict));
    EXPECT_EQ(mixBack.GetGa(), 10.0);
    EXPECT_EQ(mixBack.GetGb(), 4.0);
    EXPECT_EQ(mixBack.GetdMixRatio(), 2.5);
    EXPECT_FALSE(mixBack.GetIsHfb());  // not stored
    QoDtDictionary empty;
    EXPECT_TRUE(mixBack.ReadXml(&empty));
    EXPECT_EQ(mixBack.GetGa(), 10.0);

    ZefraHDGHeatHumRat heatHum;
    heatHum.SetCalType(1);
    heatHum.SetQ(-3.0);
    heatHum.SetValue(L"-∞");
    QoDtDictionary heatHumDict;
    ASSERT_TRUE(heatHum.SaveXml(&heatHumDict));
    ZefraHDGHeatHumRat heatHumBack;
    ASSERT_TRUE(heatHumBack.ReadXml(&heatHumDict));
    EXPECT_EQ(heatHumBack.GetCalType(), 1);
    EXPECT_EQ(heatHumBack.GetQ(), -3.0);
    EXPECT_EQ(heatHumBack.GetValue().ToUtf8(), "-∞");
    EXPECT_FALSE(heatHumBack.ReadXml(&empty));  // "热湿比" decides the result
    EXPECT_EQ(heatHumBack.GetValue().ToUtf8(), "-∞");
}
