#include "ConfigTestSupport.h"

#include "zefra/config/HvacConfigAccess.h"
#include "zefra/config/QoDtConfigStore.h"
#include "zefra/config/QoDtFileSearch.h"
#include "zefra/platform/host/AcDbDatabase.h"
#include "zefra/platform/host/CommandLine.h"

using configtest::IsolatedSearch;
using configtest::ReadFile;
using configtest::W;
using configtest::WriteFile;

namespace {

const std::string kShippedConfig = std::string(ZEFRA_SOURCE_DATA_DIR) + "/Config.xml";

std::string Found(const char* name) {
    std::string path;
    return QoDtFileSearch::Find(name, path) ? path : std::string();
}

// Both global trees as a fresh process would have them, loaded from what
// the isolated search finds.
void ReloadGlobalTrees() {
    g_dictCfg.children.Reset();
    g_dictHistoryData.children.Reset();
    LoadConfigData();
    LoadHistoryData();
}

}  // namespace

TEST(FileSearch, ConfigDirThenCurrentDirThenShippedData) {
    IsolatedSearch search;
    EXPECT_EQ(Found("Config.xml"), kShippedConfig);
    EXPECT_TRUE(QoDtFileSearch::IsShippedData(Found("Config.xml")));
    EXPECT_EQ(Found("nothing-like-it.xml"), "");

    WriteFile(search.WorkDir().File("Config.xml"), "cwd");
    EXPECT_EQ(Found("Config.xml"), configtest::fs::current_path().string() + "/Config.xml");
    WriteFile(search.ConfigDir().File("Config.xml"), "env");
    EXPECT_EQ(Found("Config.xml"), search.ConfigDir().File("Config.xml"));
    EXPECT_FALSE(QoDtFileSearch::IsShippedData(Found("Config.xml")));
    EXPECT_EQ(Found(search.WorkDir().File("Config.xml").c_str()), search.WorkDir().File("Config.xml"));
}

TEST(ConfigStore, ChangesToTheShippedConfigurationAreSavedBesideTheUsersFiles) {
    IsolatedSearch search;
    const std::string shipped = ReadFile(kShippedConfig);
    ReloadGlobalTrees();
    EXPECT_EQ(QoDtConfigStore::GetSource(QoDtConfigStore::eConfig).ToUtf8(), kShippedConfig);

    double size = 0;
    CString fields;
    ASSERT_TRUE(HVAC::GetHvacSpaceInfoFromConfig(size, fields));
    EXPECT_EQ(size, 3.0);
    ASSERT_TRUE(HVAC::SetHvacSpaceInfoToConfig(4.5, W("名称")));
    EXPECT_EQ(ReadFile(kShippedConfig), shipped);

    // The next start finds the user's copy first.
    ReloadGlobalTrees();
    EXPECT_EQ(QoDtConfigStore::GetSource(QoDtConfigStore::eConfig).ToUtf8(), search.ConfigDir().File("Config.xml"));
    ASSERT_TRUE(HVAC::GetHvacSpaceInfoFromConfig(size, fields));
    EXPECT_EQ(size, 4.5);
    EXPECT_EQ(fields, W("名称"));
}

TEST(ConfigStore, AFileThatFailsToLoadKeepsTheTreeAndIsNeverOverwritten) {
    IsolatedSearch search;
    ReloadGlobalTrees();
    const std::string broken = "<zefra-config format=\"1\"><dict>";
    WriteFile(search.ConfigDir().File("Config.xml"), broken);
    CString printed;
    auto old = zefra::SetCommandLineSink([&printed](const CString& line) { printed += line; });
    EXPECT_FALSE(LoadConfigData());
    zefra::SetCommandLineSink(old);
    EXPECT_NE(printed.ToUtf8().find(search.ConfigDir().File("Config.xml") + ": line 1"), std::string::npos)
        << printed.ToUtf8();
    EXPECT_NE(g_dictCfg.FindDict(L"ZEFRA\\SPACE"), nullptr);

    EXPECT_TRUE(HVAC::SetHvacSpaceInfoToConfig(5.0, L"x"));
    EXPECT_EQ(ReadFile(search.ConfigDir().File("Config.xml")), broken);
}

TEST(RememberedValues, StoreEveryTypeAndSaveAtEachSet) {
    IsolatedSearch search;
    ReloadGlobalTrees();

    CString text = L"unchanged";
    EXPECT_FALSE(HVAC::GetDefaultValue(L"NoBackslash", text));
    EXPECT_FALSE(HVAC::SetDefaultValue(L"NoBackslash", W("x")));
    EXPECT_EQ(g_dictHistoryData.children.GetLength(), 0);

    // A miss leaves the value and the path's dictionaries behind.
    EXPECT_FALSE(HVAC::GetDefaultValue(W("送风\\温差\\值"), text));
    EXPECT_EQ(text, CString(L"unchanged"));
    EXPECT_NE(g_dictHistoryData.FindDict(W("送风\\温差")), nullptr);

    EXPECT_TRUE(HVAC::SetDefaultValue(W("HDG\\name"), W("夏季")));
    EXPECT_TRUE(HVAC::SetDefaultValue(L"HDG\\t", 26.5));
    EXPECT_TRUE(HVAC::SetDefaultValue(L"HDG\\n", 3));
    EXPECT_TRUE(HVAC::SetDefaultValue(L"HDG\\b", true));
    const std::string historyFile = search.ConfigDir().File("History.xml");
    EXPECT_NE(ReadFile(historyFile).find("<bool name=\"b\">true</bool>"), std::string::npos);

    ReloadGlobalTrees();
    double t = 0;
    int n = 0;
    bool b = false;
    EXPECT_TRUE(HVAC::GetDefaultValue(L"HDG\\name", text));
    EXPECT_TRUE(HVAC::GetDefaultValue(L"HDG\\t", t));
    EXPECT_TRUE(HVAC::GetDefaultValue(L"HDG\\n", n));
    EXPECT_TRUE(HVAC::GetDefaultValue(L"HDG\\b", b));
    EXPECT_EQ(text, W("夏季"));
    EXPECT_EQ(t, 26.5);
    EXPECT_EQ(n, 3);
    EXPECT_TRUE(b);
}

TEST(SeparatePathAndItem, SplitsAtTheLastBackslash) {
    CString path;
    CString item = L"untouched";
    EXPECT_FALSE(HVAC::SeparatePathAndItem(L"plain", path, item));
    EXPECT_EQ(path, CString(L"plain"));
    EXPECT_EQ(item, CString(L"untouched"));
    EXPECT_TRUE(HVAC::SeparatePathAndItem(L"A\\B\\C", path, item));
    EXPECT_EQ(path, CString(L"A\\B"));
    EXPECT_EQ(item, CString(L"C"));
    EXPECT_TRUE(HVAC::SeparatePathAndItem(L"A\\", path, item));
    EXPECT_EQ(path, CString(L"A"));
    EXPECT_EQ(item, CString());
}

TEST(SpaceSettings, CopyIntoTheDrawingRespectsWhatItAlreadyHas) {
    IsolatedSearch search;
    ReloadGlobalTrees();
    AcDbDatabase drawing;
    acdbHostApplicationServices()->setWorkingDatabase(&drawing);

    drawing.setHvacSpaceTextSize(2.0);
    drawing.setHvacSpaceVisibleField(L"mine");
    EXPECT_TRUE(HVAC::SetConfigHvacSpaceInfoToCurDwg(true));
    EXPECT_EQ(drawing.hvacSpaceTextSize(), 2.0);
    EXPECT_EQ(drawing.hvacSpaceVisibleField(), CString(L"mine"));

    drawing.setHvacSpaceVisibleField(L"");
    EXPECT_TRUE(HVAC::SetConfigHvacSpaceInfoToCurDwg(true));
    EXPECT_EQ(drawing.hvacSpaceTextSize(), 2.0);
    EXPECT_EQ(drawing.hvacSpaceVisibleField(), W("名称,编号,面积"));

    drawing.setHvacSpaceVisibleField(L"mine");
    EXPECT_TRUE(HVAC::SetConfigHvacSpaceInfoToCurDwg(false));
    EXPECT_EQ(drawing.hvacSpaceTextSize(), 3.0);
    EXPECT_EQ(drawing.hvacSpaceVisibleField(), W("名称,编号,面积"));

    // Without the branch all three give false and touch nothing.
    g_dictCfg.FindDict(L"ZEFRA")->children.Reset();
    double size = 9;
    CString fields = L"f";
    EXPECT_FALSE(HVAC::GetHvacSpaceInfoFromConfig(size, fields));
    EXPECT_FALSE(HVAC::SetHvacSpaceInfoToConfig(1.0, L"x"));
    EXPECT_FALSE(HVAC::SetConfigHvacSpaceInfoToCurDwg(false));
    EXPECT_EQ(size, 9.0);
    EXPECT_EQ(g_dictCfg.FindItem(L"ZEFRA\\SPACE"), nullptr);
    EXPECT_EQ(HVAC::GetCustomProject(), HVAC::ECustomStandard);
    acdbHostApplicationServices()->setWorkingDatabase(nullptr);
}
