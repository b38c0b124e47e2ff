#include "zefra/air/HDGReportText.h"
#include "zefra/air/ZefraHDGPrimaryReturnAir.h"
#include "zefra/air/ZefraHDGSecondaryReturnAir.h"
#include "zefra/chart/HDGChartItemTables.h"
#include "zefra/chart/QoHvacHDGSysSetManager.h"
#include "zefra/config/QoDtConfigStore.h"
#include "zefra/platform/airlib/NT.h"

#include "reports/ReportGolden.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

template <int N>
std::vector<std::string> Expected(const char* const (&texts)[N]) {
    return std::vector<std::string>(texts, texts + N);
}

std::vector<std::string> Texts(const CStringArray& texts) {
    std::vector<std::string> utf8;
    for (int i = 0; i < texts.GetSize(); ++i) utf8.push_back(texts.GetAt(i).ToUtf8());
    return utf8;
}

// A winter design: room 20 °C / 45 %, outdoor -5 °C / 50 %, a small
// moisture gain, 30 % fresh air.
template <typename Info>
Info WinterDesign(Info info) {
    info.PointN = ZefraHDGPoint(20.0, 0.45, L"N");
    info.PointW = ZefraHDGPoint(-5.0, 0.5, L"W");
    info.Mw = 0.0002;
    info.FreshAirRatio = 0.3;
    return info;
}

class Reports : public ::testing::Test {
protected:
    void SetUp() override {
        QoDtDictionary empty;
        g_dictCfg.Swap(empty);
        settings = QoHvacHDGSysSetManager::GetInstance();
        settings->GetDisplayItems().RemoveAll();
        settings->GetAbbreviations().RemoveAll();
        settings->GetUnitsNames().RemoveAll();
        settings->GetPrecisions().RemoveAll();
        HDGChartItemTables::TopUpDisplayItems(settings->GetDisplayItems());
        HDGChartItemTables::TopUpAbbreviations(settings->GetAbbreviations());
        HDGChartItemTables::TopUpUnitsNames(settings->GetUnitsNames());
        HDGChartItemTables::TopUpPrecisions(settings->GetPrecisions());
        settings->UpdateAllCurUnitsConvertSet();
    }

    QoHvacHDGSysSetManager* settings = nullptr;
};

}  // namespace

TEST_F(Reports, PrimaryTextsOfEachSeason) {
    ZefraHDGPrimaryReturnAir summer;
    ASSERT_TRUE(summer.Calculate());
    EXPECT_EQ(Texts(summer.GetResultInfo()), Expected(kPrimarySummer));
    // The texts can be asked for again, and read the same.
    EXPECT_EQ(summer.GetAllText_Q().ToUtf8(), kPrimarySummer[2]);

    ZefraHDGPrimaryReturnAir rises;
    SHDGPrimaryReturnAirInfo given;
    given.CalPriRetAirType = HDGPRI_XJ_SUPPLYDT;
    given.SfGdWs = 1.0;
    given.HfGdWs = 1.0;
    rises.SetGivenData(given);
    ASSERT_TRUE(rises.Calculate());
    EXPECT_EQ(Texts(rises.GetResultInfo()), Expected(kPrimarySupplyDtWithDuctRises));

    // A failed search stands ahead of the four texts.
    given.CalPriRetAirType = HDGPRI_XJ_DEWPOINT;
    given.SfGdWs = -200.0;
    rises.SetGivenData(given);
    rises.Calculate();
    ASSERT_EQ(rises.GetResultInfo().GetSize(), 5);
    EXPECT_NE(rises.GetResultInfo().GetAt(0).Find(L"计算失败"), -1);
    EXPECT_EQ(rises.GetResultInfo().GetAt(1).Find(L"一次回风夏季处理过程计算结果"), 0);

    // The preheat branch mixes at the ratio of the last summer calculation
    // (1.0 on a new object), not at the actual 30 %: both balances fail.
    ZefraHDGPrimaryReturnAir winter;
    SHDGPrimaryReturnAirInfo winterGiven = WinterDesign(SHDGPrimaryReturnAirInfo());
    winterGiven.CalPriRetAirType = HDGPRI_DJ_ISENTH_HEAT;
    winter.SetGivenData(winterGiven);
    ASSERT_TRUE(winter.Calculate());
    EXPECT_EQ(Texts(winter.GetResultInfo()), Expected(kPrimaryWinter));
}

TEST_F(Reports, SecondaryTextsOfEachSeason) {
    ZefraHDGSecondaryReturnAir summer;
    ASSERT_TRUE(summer.Calculate());
    EXPECT_EQ(Texts(summer.GetResultInfo()), Expected(kSecondarySummer));

    ZefraHDGSecondaryReturnAir winter;
    SHDGSecondaryReturnAirInfo given = WinterDesign(SHDGSecondaryReturnAirInfo());
    given.CalPriRetAirType = HDGSEC_DJ_ISENTH_HEAT;
    given.Gr1 = 0.3;
    winter.SetGivenData(given);
    ASSERT_TRUE(winter.Calculate());
    EXPECT_EQ(Texts(winter.GetResultInfo()), Expected(kSecondaryWinter));
}

TEST_F(Reports, DisplayFilterAbbreviationsAndPrecisionsShapeThePointText) {
    ZefraHDGPrimaryReturnAir scheme;
    scheme.Calculate();
    for (int row = 0; row < HDGChartItemTables::kDisplayRows; ++row)
        settings->SetDisplayItem(HDGChartItemTables::DisplayName(row), false);
    EXPECT_EQ(scheme.GetAllPointText().ToUtf8(),
              "一次回风夏季处理过程计算结果\r\n"
              "-----------------------------------\r\n"
              "N: \r\n"
              "W: \r\n"
              "C: \r\n"
              "L: \r\n"
              "O: ");

    settings->SetDisplayItem(L"比容", true);
    settings->SetDisplayItem(L"饱和水蒸气压力", true);
    settings->SetAbbreviationName(L"比容", L"v");
    settings->SetPrecision(L"压力", 1);
    settings->SetUnitsName(L"焓", L"kcal/kg");  // not shown: only the items switched on count
    const std::string text = scheme.GetAllPointText().ToUtf8();
    EXPECT_NE(text.find("\r\nN: v:0.85m^3/kg\t饱和水蒸气压力:2644.8Pa\r\n"), std::string::npos) << text;

    settings->SetDisplayItem(L"比容", false);
    settings->SetDisplayItem(L"饱和水蒸气压力", false);
    settings->SetDisplayItem(L"焓", true);
    EXPECT_NE(scheme.GetAllPointText().ToUtf8().find("\r\nW: 焓:19.69kcal/kg\r\n"), std::string::npos);
}

TEST_F(Reports, UnitsAndPrecisionsChangeTheNextTextOnly) {
    ZefraHDGSecondaryReturnAir scheme;
    scheme.Calculate();
    const double qp = scheme.GetQp();
    settings->SetUnitsName(L"冷热负荷", L"kW");
    settings->SetPrecision(L"冷热负荷", 3);
    settings->SetUnitsName(L"风量", L"kg/s");
    settings->SetUnitsName(L"湿负荷", L"kg/h");
    EXPECT_EQ(scheme.GetAllText_Q().ToUtf8(),
              "\r\n冷负荷关系\r\n-----------------------------------\r\n"
              "室内负荷：11.600kW\t\t新风负荷：4.581kW\r\n"
              "回风管段温升负荷：0.000kW\t\t送风管段温升负荷：0.000kW\r\n"
              "设备承担负荷：16.181kW\t\t总冷负荷：16.181kW");
    const std::string flows = scheme.GetAllText_G().ToUtf8();
    EXPECT_NE(flows.find("送风量：1.306kg/s\t\t设备风量：0.847kg/s\r\n新风比：10.00%\t\t"), std::string::npos) << flows;
    EXPECT_NE(scheme.GetMwText_Mw().ToUtf8().find("总湿负荷：9.365kg/h"), std::string::npos);
    EXPECT_EQ(scheme.GetQp(), qp);
    // What ResultInfo already holds stays as it was written.
    EXPECT_EQ(Texts(scheme.GetResultInfo()), Expected(kSecondarySummer));
}

TEST_F(Reports, BalanceMessagesAppearExactlyWhenABalanceFails) {
    HDGReportText report(*settings);
    HDGReportText::SLoads q;
    q.Qn = 10.0;
    q.Qw = 3.0;
    q.Qk = 1.0;
    q.Qp = 14.0;
    const std::string heat = "冷热负荷不守恒，计算有误。";
    EXPECT_EQ(report.SummerHeatLoadText(q, true).ToUtf8().find(heat), std::string::npos);
    // The secondary form counts no reheat in its total.
    EXPECT_NE(report.SummerHeatLoadText(q, false).ToUtf8().find(heat), std::string::npos);
    // The tolerance is 0.001 of the unit shown: 0.0009 W passes, 0.002 W doesn't...
    q.Qp = 14.0 + 0.9e-6;
    EXPECT_EQ(report.SummerHeatLoadText(q, true).ToUtf8().find(heat), std::string::npos);
    q.Qp = 14.0 + 2e-6;
    EXPECT_NE(report.SummerHeatLoadText(q, true).ToUtf8().find(heat), std::string::npos);
    // ...but passes in kW.
    settings->SetUnitsName(L"冷热负荷", L"kW");
    EXPECT_EQ(report.SummerHeatLoadText(q, true).ToUtf8().find(heat), std::string::npos);

    // Winter: the preheater carries its share of the heat.
    q.Qk = 0.0;
    q.Qw1 = 2.0;
    q.Qp = 11.0;
    EXPECT_EQ(report.WinterHeatLoadText(q).ToUtf8().find(heat), std::string::npos);
    q.Qp = 13.0;
    EXPECT_NE(report.WinterHeatLoadText(q).ToUtf8().find(heat), std::string::npos);

    // Moisture: in summer the unit removes what room and fresh air bring; in
    // winter it adds what they lack.
    const std::string moisture = "湿负荷不守恒，计算有误。";
    HDGReportText::SMoisture m;
    m.Mw = 0.0002;
    m.Mww = -0.002;
    m.Mwp = 0.0018;
    EXPECT_EQ(report.MoistureText(m, true).ToUtf8().find(moisture), std::string::npos);
    EXPECT_NE(report.MoistureText(m, false).ToUtf8().find(moisture), std::string::npos);
    m.Mwp = -0.0018;
    EXPECT_EQ(report.MoistureText(m, false).ToUtf8().find(moisture), std::string::npos);
    EXPECT_NE(report.MoistureText(m, true).ToUtf8().find(moisture), std::string::npos);
}

// The texts read the settings by row; a table cut short through the table
// accessors must still answer as the lookups by name do: precision 2, empty
// unit and abbreviation, item not shown.
TEST_F(Reports, TablesCutShortGiveTheDefaultsOfTheLookups) {
    ZefraHDGPrimaryReturnAir scheme;
    scheme.Calculate();
    settings->GetPrecisions().SetSize(4);    // no row for 风量 and the loads
    settings->GetUnitsNames().SetSize(2);    // no row for 焓
    settings->GetDisplayItems().SetSize(3);  // 干球温度, 相对湿度, 焓
    settings->GetAbbreviations().SetSize(1);
    settings->SetPrecision(L"温度", 1);
    const std::string points = scheme.GetAllPointText().ToUtf8();
    EXPECT_NE(points.find("\r\nN: 干球温度:22.0℃\t:60.00%\t:47.36\r\n"), std::string::npos) << points;
    const std::string flows = scheme.GetAllText_G().ToUtf8();
    EXPECT_NE(flows.find("新风量：762.71m^3/h\t\t"), std::string::npos) << flows;
    EXPECT_NE(scheme.GetAllText_Mw().ToUtf8().find("总湿负荷：3.74g/s"), std::string::npos);
}

// A figure far longer than the texts plan room for (30 decimals of a huge
// flow) still lands whole, as many times as the text has figures.
TEST_F(Reports, LongFiguresFitInTheText) {
    settings->SetPrecision(L"风量", 30);
    settings->SetUnitsName(L"风量", L"kg/s");
    HDGReportText report(*settings);
    HDGReportText::SFlows flows;
    flows.Gw = flows.Gn = flows.Go = flows.Gr1 = flows.Gr2 = 1e300;
    const std::string f = NT::ftoa(1e300, 30, false).ToUtf8() + "kg/s";
    const std::string twice = NT::ftoa(2e300, 30, false).ToUtf8() + "kg/s";
    EXPECT_EQ(report.SecondaryAirFlowText(flows).ToUtf8(),
              "\r\n风量关系\r\n-----------------------------------"
              "\r\n新风量：" + f + "\t\t回风量：" + f +
              "\r\n一次回风量：" + f + "\t\t二次回风量：" + f +
              "\r\n送风量：" + f + "\t\t设备风量：" + twice +
              "\r\n新风比：0.00%\t\t热湿比：0.00kJ/kg");
}
