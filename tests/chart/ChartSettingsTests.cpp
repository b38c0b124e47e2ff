#include "zefra/chart/HDGChartItemTables.h"
#include "zefra/chart/QoHvacHDGSysSetManager.h"
#include "zefra/config/QoDtConfigStore.h"
#include "zefra/config/QoDtXmlFile.h"

#include <gtest/gtest.h>

#include <string>

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

    // The stored form of the manager's settings.
    std::string Saved() {
        std::string text;
        std::string error;
        EXPECT_TRUE(mgr->SaveData());
        EXPECT_TRUE(QoDtXmlFile::ToText(Branch(), text, error)) << error;
        return text;
    }

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
    EXPECT_FALSE(mgr->ReadData());  // no "ZEFRA\HDG": nothing read, nothing changed
    ExpectFullTables(*mgr);
    EXPECT_EQ(mgr->GetUnitsName(L"焓").ToUtf8(), "kJ/kg.干空气");
    EXPECT_EQ(mgr->GetDislayItemNumbers(), 5);
    // The process hands kW and kg/s; the texts show W and g/s.
    EXPECT_DOUBLE_EQ(mgr->QConvertStdToCur(11.6), 11600.0);
    EXPECT_DOUBLE_EQ(mgr->MwConvertStdToCur(0.0014), 1.4);
}

TEST_F(ChartSettings, ShippedConfigurationHoldsTheBuiltInSettings) {
    const std::string builtIn = Saved();
    QoDtDictionary shipped;
    ASSERT_TRUE(shipped.LoadFromXML(CString(ZEFRA_SOURCE_DATA_DIR "/Config.xml")));
    g_dictCfg.Swap(shipped);
    mgr->SetPrecision(L"风量", 7);
    mgr->GetDrawSet().nMaxD = 1;
    ASSERT_TRUE(mgr->ReadData());
    QoDtDictionary empty;
    g_dictCfg.Swap(empty);
    EXPECT_EQ(Saved(), builtIn);
}

TEST_F(ChartSettings, NamesMatchWholeAndExactly) {
    EXPECT_EQ(mgr->GetPrecision(L"比容"), 2);  // no row: the fallback
    EXPECT_EQ(mgr->GetPrecision(L"压力 "), 2);
    EXPECT_EQ(mgr->GetPrecision(L"压力"), 0);
    EXPECT_FALSE(mgr->SetDisplayItem(L"饱和水蒸气分压力", true));  // the item table says 饱和水蒸气压力
    EXPECT_FALSE(mgr->SetUnitsName(L"风", L"kg/s"));
    EXPECT_EQ(mgr->GetAbbreviationName(L"含湿").ToUtf8(), "");

    // "设备承担负荷" stands twice in the secondary table; the name reaches row 12 only.
    EXPECT_TRUE(mgr->SetDisplayEcHfItem(L"设备承担负荷", false));
    EXPECT_FALSE(mgr->GetEcHfItems().GetAt(12));
    EXPECT_TRUE(mgr->GetEcHfItems().GetAt(19));
    mgr->GetEcHfItems().SetAt(12, true);
    mgr->GetEcHfItems().SetAt(19, false);
    EXPECT_TRUE(mgr->IsDisplayEcHfItem(L"设备承担负荷"));

    // A unit name moves its converter; temperature has none.
    EXPECT_TRUE(mgr->SetUnitsName(L"冷热负荷", L"kW"));
    EXPECT_DOUBLE_EQ(mgr->QConvertStdToCur(11.6), 11.6);
    EXPECT_TRUE(mgr->SetUnitsName(L"焓", L"kcal/kg"));
    EXPECT_NEAR(mgr->HConvertStdToCur(4.1868), 1.0, 1e-12);
    EXPECT_TRUE(mgr->SetUnitsName(L"温度", L"K"));
    EXPECT_EQ(mgr->GetQCurUnit().ToUtf8(), "kW");
}

TEST_F(ChartSettings, SaveThenReadGivesTheSameSettings) {
    QoDtDictionary* precisions = Branch().FindOrAddDict(L"PrecisionSet");
    precisions->SetValue(L"12", 7);  // a stale row beyond the table goes with the save

    mgr->GetDrawSet().dAtmPressure = 90000.0;
    mgr->GetDrawSet().nMaxD = 30;
    mgr->GetDrawSet().bDrawTitle = false;
    mgr->GetDrawSet().dWesternTextHeight = 2.5;
    mgr->SetDisplayItem(L"比容", true);
    mgr->SetDisplayYcHfItem(L"总冷负荷", false);
    mgr->GetEcHfItems().SetAt(19, false);
    mgr->SetAbbreviationName(L"干球温度", L"t");
    mgr->SetUnitsName(L"冷热负荷", L"kW");
    mgr->SetPrecision(L"冷热负荷", 4);
    const std::string saved = Saved();
    EXPECT_EQ(Branch().localname.ToUtf8(), "焓湿图系统设置");
    EXPECT_EQ(Branch().FindDict(L"AbbrrvItemSet")->localname.ToUtf8(), "缩写设置");
    EXPECT_EQ(precisions->children.GetLength(), 8);

    ResetToBuiltIn();
    ASSERT_TRUE(mgr->ReadData());
    EXPECT_EQ(Saved(), saved);
    EXPECT_EQ(mgr->GetQCurUnit().ToUtf8(), "kW");  // the converters follow the names read
}

TEST_F(ChartSettings, ReadKeepsWhatTheBranchLacks) {
    Branch().FindOrAddDict(L"DrawSet")->SetValue(L"中文字高", 5.0);
    Branch().FindOrAddDict(L"PrecisionSet");
    QoDtDictionary* display = Branch().FindOrAddDict(L"DisplayItemSet");
    display->SetValue(L"0", false);
    display->SetValue(L"1", true);

    ASSERT_TRUE(mgr->ReadData());
    EXPECT_EQ(mgr->GetDrawSet().dChineseTextHeight, 5.0);
    EXPECT_EQ(mgr->GetDrawSet().nMaxTdb, 65);
    // A stored table counts: rows it lacks read false, 0 or empty.
    EXPECT_TRUE(mgr->IsDisplayItem(L"相对湿度"));
    EXPECT_EQ(mgr->GetDislayItemNumbers(), 1);
    for (int row = 0; row < 8; ++row) EXPECT_EQ(mgr->GetPrecisions().GetAt(row), 0);
    // "UnitsItemSet" was added empty: the rows with a converter show its unit.
    EXPECT_EQ(mgr->GetUnitsName(L"温度").ToUtf8(), "");
    EXPECT_EQ(mgr->GetUnitsName(L"焓").ToUtf8(), "kJ/kg");
    // A table without a dictionary keeps its rows.
    EXPECT_TRUE(mgr->IsDisplayYcHfItem(L"新风量"));
    EXPECT_EQ(mgr->GetAbbreviationName(L"焓").ToUtf8(), "焓");
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
    EXPECT_EQ(mgr->GetAbbreviationName(L"饱和水蒸气压力").ToUtf8(), "a10");
    // No dictionary: the built-in values of the missing rows.
    EXPECT_EQ(mgr->GetDislayItemNumbers(), 5);
    EXPECT_TRUE(mgr->IsDisplayYcHfItem(L"总湿负荷"));
    EXPECT_TRUE(mgr->IsDisplayEcHfItem(L"总湿负荷"));

    // A table cut short by a caller answers past its end as a miss.
    mgr->GetPrecisions().SetSize(2);
    mgr->GetDisplayItems().RemoveAll();
    EXPECT_EQ(mgr->GetPrecision(L"冷热负荷"), 2);
    EXPECT_FALSE(mgr->SetPrecision(L"冷热负荷", 1));
    EXPECT_FALSE(mgr->SetDisplayItem(L"焓", true));
}

namespace {

bool Listed(const QoHvacHDGSysSetManager& m, const wchar_t* item, const wchar_t* name) {
    for (const auto& unknown : m.GetUnknownUnitsNames())
        if (unknown.item == item && unknown.name == name) return true;
    return false;
}

}  // namespace

// A stored name that its converter doesn't know would label figures that are
// in the converter's unit: the row takes the converter's own name instead.
TEST_F(ChartSettings, UnknownStoredUnitNamesGiveWayToTheConvertersUnits) {
    mgr->SetUnitsName(L"冷热负荷", L"kW");  // the converter moves away from its default
    QoDtDictionary& units = *Branch().FindOrAddDict(L"UnitsItemSet");
    const wchar_t* stored[] = {L"℃", L"g/kg", L"Btu/lb", L"bar", L"", L"kW", L"千克/秒", L"kg/m^3"};
    for (int row = 0; row < 8; ++row) units.SetValue(CString(std::to_wstring(row).c_str()), CString(stored[row]));
    ASSERT_TRUE(mgr->ReadData());

    EXPECT_EQ(mgr->GetUnitsName(L"焓"), mgr->GetHCurUnit());
    EXPECT_EQ(mgr->GetUnitsName(L"焓"), CString(L"kJ/kg"));
    EXPECT_EQ(mgr->GetUnitsName(L"风量"), mgr->GetVCurUnit());
    EXPECT_EQ(mgr->GetUnitsName(L"湿负荷"), mgr->GetMwCurUnit());
    EXPECT_EQ(mgr->GetUnitsName(L"冷热负荷"), CString(L"kW"));
    EXPECT_EQ(mgr->GetQCurUnitCode(), Q_UNIT_KW);
    EXPECT_EQ(mgr->GetUnitsName(L"压力"), CString(L"bar"));  // no converter, no figure in it

    ASSERT_EQ(mgr->GetUnknownUnitsNames().size(), 3u);
    EXPECT_TRUE(Listed(*mgr, L"焓", L"Btu/lb"));
    EXPECT_TRUE(Listed(*mgr, L"风量", L""));
    EXPECT_TRUE(Listed(*mgr, L"湿负荷", L"千克/秒"));

    // A good name set later takes the item off the list; a bad one goes on it.
    EXPECT_TRUE(mgr->SetUnitsName(L"焓", L"kcal/kg.干空气"));
    EXPECT_FALSE(Listed(*mgr, L"焓", L"Btu/lb"));
    EXPECT_EQ(mgr->GetHCurUnitCode(), H_UNIT_KCAL_KG);
    EXPECT_TRUE(mgr->SetUnitsName(L"密度", L"lbs"));
    EXPECT_EQ(mgr->GetUnitsName(L"密度"), mgr->GetDenCurUnit());
    EXPECT_TRUE(Listed(*mgr, L"密度", L"lbs"));

    // What is saved is what the report showed.
    const std::string saved = Saved();
    EXPECT_EQ(saved.find("千克/秒"), std::string::npos) << saved;
    EXPECT_EQ(saved.find("lbs"), std::string::npos) << saved;
    mgr->UpdateAllCurUnitsConvertSet();
    EXPECT_TRUE(mgr->GetUnknownUnitsNames().empty());
}

TEST_F(ChartSettings, KnownUnitNamesPerItem) {
    struct Case {
        const wchar_t* item;
        const wchar_t* unit;
        bool known;
    };
    const Case cases[] = {
        {L"焓", L"kJ/kg.干空气", true}, {L"焓", L"KCAL/KG", true},    {L"焓", L"Btu/lb", false},
        {L"冷热负荷", L"RT", true},      {L"冷热负荷", L"hp", false},  {L"风量", L"m³/s", true},
        {L"湿负荷", L"kg/h", true},      {L"密度", L"g/L", true},      {L"温度", L"℃", false},
        {L"焓 ", L"kJ/kg", false},
    };
    for (const Case& c : cases)
        EXPECT_EQ(QoHvacHDGSysSetManager::IsKnownUnitsName(c.item, c.unit), c.known)
            << CString(c.item).ToUtf8() << " " << CString(c.unit).ToUtf8();

    CStringArray names;
    QoHvacHDGSysSetManager::GetKnownUnitsNames(L"焓", names);
    ASSERT_EQ(names.GetSize(), 6);
    EXPECT_EQ(names.GetAt(0), CString(L"kJ/kg"));
    EXPECT_EQ(names.GetAt(3), CString(L"kcal/kg"));
    names.RemoveAll();
    QoHvacHDGSysSetManager::GetKnownUnitsNames(L"压力", names);
    EXPECT_EQ(names.GetSize(), 0);
    EXPECT_FALSE(QoHvacHDGSysSetManager::HasUnitsConverter(L"含湿量"));
    EXPECT_TRUE(QoHvacHDGSysSetManager::HasUnitsConverter(L"密度"));
}
