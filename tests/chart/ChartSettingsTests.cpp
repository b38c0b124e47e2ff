#include "zefra/chart/HDGChartItemTables.h"
#include "zefra/chart/QoHvacHDGSysSetManager.h"
#include "zefra/config/QoDtConfigStore.h"

#include <gtest/gtest.h>

namespace {

// Each test starts from an empty configuration tree and a manager holding
// the built-in settings, whatever an earlier test in this process left.
class ChartSettings : public ::testing::Test {
protected:
    void SetUp() override {
        QoDtDictionary empty;
        g_dictCfg.Swap(empty);
        mgr = QoHvacHDGSysSetManager::GetInstance();
        ResetToBuiltIn();
    }

    void ResetToBuiltIn() {
        mgr->SetDrawSet(SHvacHDGDrawSet());
        mgr->GetDisplayItems().RemoveAll();
        mgr->GetYcHfItems().RemoveAll();
        mgr->GetEcHfItems().RemoveAll();
        mgr->GetAbbreviations().RemoveAll();
        mgr->GetUnitsNames().RemoveAll();
        mgr->GetPrecisions().RemoveAll();
        HDGChartItemTables::TopUpDisplayItems(mgr->GetDisplayItems());
        HDGChartItemTables::TopUpYcHfItems(mgr->GetYcHfItems());
        HDGChartItemTables::TopUpEcHfItems(mgr->GetEcHfItems());
        HDGChartItemTables::TopUpAbbreviations(mgr->GetAbbreviations());
        HDGChartItemTables::TopUpUnitsNames(mgr->GetUnitsNames());
        HDGChartItemTables::TopUpPrecisions(mgr->GetPrecisions());
        mgr->UpdateAllCurUnitsConvertSet();
    }

    QoDtDictionary& Branch() { return *g_dictCfg.FindOrAddDict(L"ZEFRA\\HDG"); }

    QoHvacHDGSysSetManager* mgr = nullptr;
};

void ExpectFullTables(const QoHvacHDGSysSetManager& m) {
    EXPECT_EQ(m.GetDisplayItems().GetSize(), 11);
    EXPECT_EQ(m.GetYcHfItems().GetSize(), 21);
    EXPECT_EQ(m.GetEcHfItems().GetSize(), 25);
    EXPECT_EQ(m.GetAbbreviations().GetSize(), 11);
    EXPECT_EQ(m.GetUnitsNames().GetSize(), 8);
    EXPECT_EQ(m.GetPrecisions().GetSize(), 8);
}

}  // namespace

TEST_F(ChartSettings, SingleInstanceWithBuiltInSettings) {
    EXPECT_EQ(QoHvacHDGSysSetManager::GetInstance(), mgr);
    ExpectFullTables(*mgr);
    EXPECT_FALSE(mgr->ReadData());  // no "ZEFRA\HDG": nothing read, nothing changed
    ExpectFullTables(*mgr);
    EXPECT_EQ(mgr->GetDrawSet().dAtmPressure, 101325.0);
    EXPECT_EQ(mgr->GetDrawSet().nMinTdb, -35);
    EXPECT_EQ(mgr->GetUnitsName(L"焓"), CString(L"kJ/kg.干空气"));
    EXPECT_EQ(mgr->GetUnitsName(L"冷热负荷"), CString(L"W"));
    EXPECT_EQ(mgr->GetAbbreviationName(L"饱和水蒸气压力"), CString(L"饱和水蒸气压力"));
    EXPECT_EQ(mgr->GetDislayItemNumbers(), 5);
    EXPECT_TRUE(mgr->IsDisplayItem(L"湿球温度"));
    EXPECT_FALSE(mgr->IsDisplayItem(L"露点温度"));
    EXPECT_TRUE(mgr->IsDisplayEcHfItem(L"总湿负荷"));
    EXPECT_EQ(mgr->GetPrecision(L"压力"), 0);
    EXPECT_EQ(mgr->GetPrecision(L"风量"), 3);
    // The process hands kW and kg/s; the texts show W and g/s.
    EXPECT_DOUBLE_EQ(mgr->QConvertStdToCur(11.6), 11600.0);
    EXPECT_DOUBLE_EQ(mgr->MwConvertStdToCur(0.0014), 1.4);
}

TEST_F(ChartSettings, NamesMatchWholeAndExactly) {
    EXPECT_EQ(mgr->GetPrecision(L"比容"), 2);  // no row: the fallback
    EXPECT_EQ(mgr->GetPrecision(L"压力 "), 2);
    EXPECT_FALSE(mgr->IsDisplayItem(L"饱和水蒸气分压力"));
    EXPECT_FALSE(mgr->SetDisplayItem(L"饱和水蒸气分压力", true));
    EXPECT_FALSE(mgr->SetDisplayItem(L"焓 ", false));
    EXPECT_FALSE(mgr->SetPrecision(L"风", 1));
    EXPECT_EQ(mgr->GetAbbreviationName(L"含湿"), CString());
    EXPECT_EQ(mgr->GetUnitsName(L""), CString());
    EXPECT_EQ(mgr->GetDislayItemNumbers(), 5);

    // "设备承担负荷" stands twice in the secondary table; the name reaches row 12 only.
    EXPECT_TRUE(mgr->SetDisplayEcHfItem(L"设备承担负荷", false));
    EXPECT_FALSE(mgr->GetEcHfItems().GetAt(12));
    EXPECT_TRUE(mgr->GetEcHfItems().GetAt(19));
    EXPECT_FALSE(mgr->IsDisplayEcHfItem(L"设备承担负荷"));
    mgr->GetEcHfItems().SetAt(12, true);
    mgr->GetEcHfItems().SetAt(19, false);
    EXPECT_TRUE(mgr->IsDisplayEcHfItem(L"设备承担负荷"));
}

TEST_F(ChartSettings, UnitNamesMoveTheirConverters) {
    EXPECT_TRUE(mgr->SetUnitsName(L"冷热负荷", L"kW"));
    EXPECT_EQ(mgr->GetQCurUnit(), CString(L"kW"));
    EXPECT_DOUBLE_EQ(mgr->QConvertStdToCur(11.6), 11.6);
    EXPECT_TRUE(mgr->SetUnitsName(L"湿负荷", L"kg/h"));
    EXPECT_DOUBLE_EQ(mgr->MwConvertStdToCur(0.001), 3.6);
    EXPECT_TRUE(mgr->SetUnitsName(L"风量", L"kg/s"));
    EXPECT_DOUBLE_EQ(mgr->VConvertStdToCur(1.35), 1.35);
    EXPECT_TRUE(mgr->SetUnitsName(L"焓", L"kcal/kg"));
    EXPECT_NEAR(mgr->HConvertStdToCur(4.1868), 1.0, 1e-12);
    EXPECT_TRUE(mgr->SetUnitsName(L"密度", L"lb/ft^3"));
    EXPECT_NEAR(mgr->DenConvertStdToCur(16.018463373960138), 1.0, 1e-12);

    // Temperature has no converter: only the name changes.
    EXPECT_TRUE(mgr->SetUnitsName(L"温度", L"K"));
    EXPECT_EQ(mgr->GetUnitsName(L"温度"), CString(L"K"));
    EXPECT_DOUBLE_EQ(mgr->QConvertStdToCur(1.0), 1.0);
    EXPECT_EQ(mgr->GetVCurUnit(), CString(L"kg/s"));
}

TEST_F(ChartSettings, SaveThenReadGivesTheSameSettings) {
    // Stale rows beyond the table go with the save.
    Branch().FindOrAddDict(L"PrecisionSet")->SetValue(L"12", 7);

    SHvacHDGDrawSet drawSet;
    drawSet.dAtmPressure = 90000.0;
    drawSet.nMaxD = 30;
    drawSet.bDrawTitle = false;
    drawSet.dWesternTextHeight = 2.5;
    mgr->SetDrawSet(drawSet);
    mgr->SetDisplayItem(L"比容", true);
    mgr->SetDisplayYcHfItem(L"总冷负荷", false);
    mgr->GetEcHfItems().SetAt(19, false);
    mgr->SetAbbreviationName(L"干球温度", L"t");
    mgr->SetUnitsName(L"冷热负荷", L"kW");
    mgr->SetPrecision(L"冷热负荷", 4);
    ASSERT_TRUE(mgr->SaveData());

    EXPECT_EQ(Branch().localname, CString(L"焓湿图系统设置"));
    EXPECT_EQ(Branch().FindDict(L"AbbrrvItemSet")->localname, CString(L"缩写设置"));
    EXPECT_EQ(Branch().FindDict(L"PrecisionSet")->children.GetLength(), 8);
    EXPECT_EQ(Branch().FindDict(L"EcHfItemSet")->children.GetLength(), 25);
    int stored = 0;
    EXPECT_TRUE(Branch().GetValue(L"PrecisionSet\\5", stored));
    EXPECT_EQ(stored, 4);
    double pressure = 0.0;
    EXPECT_TRUE(Branch().GetValue(L"DrawSet\\大气压力", pressure));
    EXPECT_EQ(pressure, 90000.0);

    ResetToBuiltIn();
    ASSERT_TRUE(mgr->ReadData());
    const SHvacHDGDrawSet& read = mgr->GetDrawSet();
    EXPECT_EQ(read.dAtmPressure, 90000.0);
    EXPECT_EQ(read.nMaxD, 30);
    EXPECT_FALSE(read.bDrawTitle);
    EXPECT_TRUE(read.bDrawFrame);
    EXPECT_EQ(read.dWesternTextHeight, 2.5);
    EXPECT_TRUE(mgr->IsDisplayItem(L"比容"));
    EXPECT_EQ(mgr->GetDislayItemNumbers(), 6);
    EXPECT_FALSE(mgr->IsDisplayYcHfItem(L"总冷负荷"));
    EXPECT_TRUE(mgr->IsDisplayYcHfItem(L"总热负荷"));
    EXPECT_FALSE(mgr->GetEcHfItems().GetAt(19));
    EXPECT_EQ(mgr->GetAbbreviationName(L"干球温度"), CString(L"t"));
    EXPECT_EQ(mgr->GetPrecision(L"冷热负荷"), 4);
    // Reading the unit names brings the converters along.
    EXPECT_EQ(mgr->GetQCurUnit(), CString(L"kW"));
    ExpectFullTables(*mgr);
}

TEST_F(ChartSettings, ReadKeepsWhatTheBranchLacks) {
    Branch().FindOrAddDict(L"DrawSet")->SetValue(L"中文字高", 5.0);
    Branch().FindOrAddDict(L"PrecisionSet");
    QoDtDictionary* display = Branch().FindOrAddDict(L"DisplayItemSet");
    display->SetValue(L"0", false);
    display->SetValue(L"1", true);
    mgr->SetPrecision(L"温度", 1);

    ASSERT_TRUE(mgr->ReadData());
    EXPECT_EQ(mgr->GetDrawSet().dChineseTextHeight, 5.0);
    EXPECT_EQ(mgr->GetDrawSet().nMaxTdb, 65);
    // A stored table counts: rows it lacks read false, 0 or empty.
    EXPECT_FALSE(mgr->IsDisplayItem(L"干球温度"));
    EXPECT_TRUE(mgr->IsDisplayItem(L"相对湿度"));
    EXPECT_FALSE(mgr->IsDisplayItem(L"焓"));
    EXPECT_EQ(mgr->GetDislayItemNumbers(), 1);
    for (int row = 0; row < 8; ++row) EXPECT_EQ(mgr->GetPrecisions().GetAt(row), 0);
    EXPECT_EQ(mgr->GetUnitsName(L"焓"), CString());  // "UnitsItemSet" was added empty
    // A table without a dictionary keeps its rows.
    EXPECT_TRUE(mgr->IsDisplayYcHfItem(L"新风量"));
    EXPECT_EQ(mgr->GetAbbreviationName(L"焓"), CString(L"焓"));
    ExpectFullTables(*mgr);
}

TEST_F(ChartSettings, OversizedAndMissingTablesLeaveUsableTables) {
    QoDtDictionary* abbr = Branch().FindOrAddDict(L"AbbrrvItemSet");
    for (int row = 0; row < 15; ++row) {
        CString key;
        key.Format(L"%d", row);
        abbr->SetValue(key, L"a" + key);
    }
    // Built from nothing, as the first GetInstance of a process would see it.
    mgr->GetDisplayItems().RemoveAll();
    mgr->GetYcHfItems().RemoveAll();
    mgr->GetEcHfItems().SetSize(3);

    ASSERT_TRUE(mgr->ReadData());
    ExpectFullTables(*mgr);
    EXPECT_EQ(mgr->GetAbbreviationName(L"饱和水蒸气压力"), CString(L"a10"));
    // No dictionary: the built-in values of the missing rows.
    EXPECT_EQ(mgr->GetDislayItemNumbers(), 5);
    EXPECT_TRUE(mgr->IsDisplayYcHfItem(L"总湿负荷"));
    EXPECT_TRUE(mgr->IsDisplayEcHfItem(L"总湿负荷"));

    // A table cut short by a caller answers past its end as a miss.
    mgr->GetPrecisions().SetSize(2);
    mgr->GetDisplayItems().RemoveAll();
    EXPECT_EQ(mgr->GetPrecision(L"冷热负荷"), 2);
    EXPECT_FALSE(mgr->SetPrecision(L"冷热负荷", 1));
    EXPECT_FALSE(mgr->IsDisplayItem(L"焓"));
    EXPECT_FALSE(mgr->SetDisplayItem(L"焓", true));
    EXPECT_EQ(mgr->GetDislayItemNumbers(), 0);
}
