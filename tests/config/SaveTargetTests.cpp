// Saves go to the file the tree came from, never to one a later search
// finds, and never over a change another program saved meanwhile.

#include "ConfigTestSupport.h"

#include "zefra/config/HvacConfigAccess.h"
#include "zefra/config/QoDtConfigStore.h"
#include "zefra/config/QoDtDiskFile.h"
#include "zefra/config/QoDtFileSearch.h"

using configtest::IsolatedSearch;
using configtest::ReadFile;
using configtest::TempDir;
using configtest::W;
using configtest::WriteFile;

namespace {

const char kConfig[] = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                       "<zefra-config format=\"1\"><dict name=\"\"><dict name=\"ZEFRA\"><dict name=\"SPACE\">"
                       "<double name=\"TEXTSIZE\">3</double><string name=\"VISIBLE_FIELD\">名称</string>"
                       "</dict></dict></dict></zefra-config>\n";

const char kForeign[] = "<?xml version=\"1.0\"?><zefra-config format=\"1\"><dict name=\"\"/></zefra-config>";

}  // namespace

TEST(ConfigSaveTarget, AfterAChangeOfDirectoryTheSaveGoesToTheFileTheTreeCameFrom) {
    IsolatedSearch search;
    // The user's file is found in the current directory; then the host
    // moves into a folder holding another program's Config.xml.
    const std::string own = search.WorkDir().File("Config.xml");
    WriteFile(own, kConfig);
    ::unsetenv("ZEFRA_CONFIG_DIR");
    ASSERT_TRUE(LoadConfigData());
    ::setenv("ZEFRA_CONFIG_DIR", search.ConfigDir().Path().c_str(), 1);
    TempDir foreignDir;
    const std::string foreign = foreignDir.File("Config.xml");
    WriteFile(foreign, kForeign);
    configtest::fs::current_path(foreignDir.Path());

    CString found;
    ASSERT_TRUE(FindFile(L"Config.xml", found));
    EXPECT_EQ(found.ToUtf8(), own);
    ASSERT_TRUE(HVAC::SetHvacSpaceInfoToConfig(4.5, W("名称,编号")));

    EXPECT_EQ(ReadFile(foreign), kForeign);
    EXPECT_FALSE(QoDtDiskFile::Exists(search.ConfigDir().File("Config.xml")));
    QoDtDictionary saved;
    ASSERT_TRUE(saved.LoadFromXML(W(own)));
    double size = 0;
    EXPECT_TRUE(saved.GetValue(W("ZEFRA\\SPACE\\TEXTSIZE"), size));
    EXPECT_EQ(size, 4.5);

    // A load searches anew.
    ASSERT_TRUE(LoadConfigData());
    EXPECT_EQ(QoDtConfigStore::GetSource(QoDtConfigStore::eConfig).ToUtf8(), foreign);
    configtest::fs::current_path(search.WorkDir().Path());
    g_dictCfg.children.Reset();
    LoadConfigData();
}

TEST(ConfigSaveTarget, RememberedValuesAreSavedToTheHistoryTheyCameFrom) {
    IsolatedSearch search;
    const std::string own = search.ConfigDir().File("History.xml");
    WriteFile(own, kForeign);
    ASSERT_TRUE(LoadHistoryData());
    TempDir elsewhere;
    WriteFile(elsewhere.File("History.xml"), kForeign);
    configtest::fs::current_path(elsewhere.Path());
    ::setenv("ZEFRA_CONFIG_DIR", elsewhere.Path().c_str(), 1);

    ASSERT_TRUE(HVAC::SetDefaultValue(W("DLG\\WIDTH"), 42));
    EXPECT_EQ(ReadFile(elsewhere.File("History.xml")), kForeign);
    QoDtDictionary saved;
    ASSERT_TRUE(saved.LoadFromXML(W(own)));
    int width = 0;
    EXPECT_TRUE(saved.GetValue(W("DLG\\WIDTH"), width));
    EXPECT_EQ(width, 42);

    ::setenv("ZEFRA_CONFIG_DIR", search.ConfigDir().Path().c_str(), 1);
    configtest::fs::current_path(search.WorkDir().Path());
    g_dictHistoryData.children.Reset();
    configtest::fs::remove(own);
    LoadHistoryData();
}

TEST(ConfigSaveTarget, ASaveOverAFileAnotherProgramChangedIsRefusedUnlessForced) {
    TempDir dir;
    const std::string file = dir.File("Config.xml");
    WriteFile(file, kConfig);
    QoDtDictionary tree;
    ASSERT_TRUE(tree.LoadFromXML(W(file)));
    EXPECT_EQ(tree.GetSourceFile(), file);

    // Another program saves (a new file renamed over the old one).
    std::string error;
    ASSERT_TRUE(QoDtDiskFile::WriteAtomically(file, kForeign, error)) << error;
    tree.SetValue(W("ZEFRA\\SPACE\\TEXTSIZE"), 5.0);
    CString message;
    EXPECT_FALSE(tree.SaveToXML(W(file), &message));
    EXPECT_NE(message.ToUtf8().find("changed by another program"), std::string::npos) << message.ToUtf8();
    EXPECT_EQ(ReadFile(file), kForeign);

    // Saving elsewhere is not touched by the check, nor is a forced save;
    // after a save the tree is in step with the file it wrote.
    EXPECT_TRUE(tree.SaveToXML(W(dir.File("other.xml")), &message)) << message.ToUtf8();
    EXPECT_EQ(tree.GetSourceFile(), dir.File("other.xml"));
    EXPECT_TRUE(tree.SaveToXML(W(file), &message, true)) << message.ToUtf8();
    EXPECT_TRUE(tree.SaveToXML(W(file), &message)) << message.ToUtf8();
    // A file removed meanwhile holds nothing to lose.
    configtest::fs::remove(file);
    EXPECT_TRUE(tree.SaveToXML(W(file), &message)) << message.ToUtf8();
}

TEST(ConfigSaveTarget, ARelativeNameIsRememberedAsTheFileItNamedThen) {
    TempDir dir;
    WriteFile(dir.File("Config.xml"), kConfig);
    const auto old = configtest::fs::current_path();
    configtest::fs::current_path(dir.Path());
    QoDtDictionary tree;
    ASSERT_TRUE(tree.LoadFromXML(L"Config.xml"));
    configtest::fs::current_path(old);
    EXPECT_EQ(tree.GetSourceFile(), dir.File("Config.xml"));
}
