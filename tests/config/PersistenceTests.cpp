#include "ConfigTestSupport.h"

#include "zefra/config/QoDtXmlFile.h"
#include "zefra/platform/mfc/CArchive.h"

#include <cfloat>
#include <cmath>
#include <limits>

using configtest::ExpectSameTree;
using configtest::ReadFile;
using configtest::TempDir;
using configtest::W;
using configtest::WriteFile;

namespace {

// Every kind of item, with the texts and numbers that are easiest to lose.
void FillAwkwardTree(QoDtDictionary& root) {
    root.localname = W("根");
    QoDtDictionary* space = root.FindOrAddDict(W("ZEFRA\\SPACE"));
    space->localname = W("房间标注 <&\"'>");
    for (const char* text : {"", "  padded  ", "line\r\nbreak\ttab", "ctl\x01", "]]> <&\"'", "焓湿图 𝛆"})
        space->SetValue(W(std::string("s") + std::to_string(space->children.GetLength())), W(text));
    const double numbers[] = {0.1, -0.0, 1.0 / 3.0, 5e-324, DBL_MAX, -std::numeric_limits<double>::infinity(),
                              std::numeric_limits<double>::quiet_NaN()};
    for (double d : numbers) space->SetValue(W("d" + std::to_string(space->children.GetLength())), d);
    space->SetValue(L"int", std::numeric_limits<int>::min());
    auto* odd = static_cast<QoDtDictBoolItem*>(space->FindOrAddItem(L"bool", QoDtDictItem::eDtBool));
    odd->value = 5;
    space->SetValue(L"no", false);

    auto* option = static_cast<QoDtDictOptionItem*>(root.FindOrAddItem(L"LABELSET\\AUTOPOS", QoDtDictItem::eDtOption));
    option->options.Append(W("实线"));
    option->options.Append(W(""));
    option->options.Append(W(" 虚线 "));
    option->selection = 7;
    QoDynArray<double> dn;
    for (double d : {15.0, 0.1, -2.5e-7}) dn.Append(d);
    root.SetValue(L"WATER\\VRVPIPE\\DN", dn);
    root.SetValue(L"WATER\\VRVPIPE\\EMPTY", QoDynArray<double>());

    QoDtDictItem* row = root.FindOrAddItem(L"FLANGESET\\0", 4);
    for (const char* name : {"percition", "a b", "_x41_", "", "1st", "x:y", "暖通", "flag"})
        row->SetAttributeValue(W(name), W(std::string("v-") + name));
    root.FindOrAddDict(L"EMPTY");
    // Repeated keys are kept as they stand.
    root.children.Append(new QoDtDictStringItem);
    root.children.Append(new QoDtDictStringItem);
}

}  // namespace

TEST(ConfigXml, EveryKindRoundTripsExactlyAndTheFileIsStable) {
    TempDir dir;
    QoDtDictionary tree;
    FillAwkwardTree(tree);
    CString message;
    ASSERT_TRUE(tree.SaveToXML(W(dir.File("Config.xml")), &message)) << message.ToUtf8();

    QoDtDictionary loaded;
    ASSERT_TRUE(loaded.LoadFromXML(W(dir.File("Config.xml")), &message)) << message.ToUtf8();
    ExpectSameTree(tree, loaded);

    ASSERT_TRUE(loaded.SaveToXML(W(dir.File("again.xml"))));
    EXPECT_EQ(ReadFile(dir.File("Config.xml")), ReadFile(dir.File("again.xml")));

    // A person can read and diff it: one element per item, typed values.
    const std::string text = ReadFile(dir.File("Config.xml"));
    EXPECT_NE(text.find("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<zefra-config format=\"1\">\n"), std::string::npos);
    EXPECT_NE(text.find("      <double name=\"d6\">0.1</double>\n"), std::string::npos);
    EXPECT_NE(text.find("<doubles name=\"DN\">15 0.1 -2.5e-07</doubles>"), std::string::npos);
    EXPECT_NE(text.find("<item name=\"0\" percition=\"v-percition\" a_x0020_b=\"v-a b\""), std::string::npos);
}

TEST(ConfigArchive, EveryKindRoundTripsAndADamagedArchiveChangesNothing) {
    QoDtDictionary tree;
    FillAwkwardTree(tree);
    std::stringstream stream;
    {
        CArchive out(stream, CArchive::store);
        tree >> out;
    }
    const std::string bytes = stream.str();
    QoDtDictionary loaded;
    CArchive in(stream, CArchive::load);
    ASSERT_TRUE(loaded << in);
    ExpectSameTree(tree, loaded);

    for (size_t cut : {size_t{0}, size_t{9}, bytes.size() / 2, bytes.size() - 1}) {
        std::stringstream damaged(bytes.substr(0, cut));
        CArchive partial(damaged, CArchive::load);
        EXPECT_FALSE(loaded << partial) << cut;
        ExpectSameTree(tree, loaded);
    }
    QoDtDictStringItem item;
    item.value = L"kept";
    std::stringstream empty;
    CArchive nothing(empty, CArchive::load);
    EXPECT_FALSE(item << nothing);
    EXPECT_EQ(item.value, CString(L"kept"));
}

TEST(ConfigXmlLoad, RefusalsNameFileAndCauseAndChangeNothing) {
    TempDir dir;
    QoDtDictionary tree;
    FillAwkwardTree(tree);
    QoDtDictionary before;
    before.CopyData(tree);

    std::string deep = "<zefra-config format=\"1\"><dict name=\"\">";
    for (int i = 0; i < 64; ++i) deep += "<dict name=\"d\">";
    for (int i = 0; i < 64; ++i) deep += "</dict>";
    deep += "</dict></zefra-config>";

    const std::pair<std::string, std::string> cases[] = {
        {"<zefra-config format=\"1\">\n  <dict name=\"\">\n    <int name=\"a\">1</dict>\n", "line 3, column 22: not well-formed XML"},
        {"<settings/>", "the root element is <settings>"},
        {"<zefra-config><dict/></zefra-config>", "no valid format version"},
        {"<zefra-config format=\"2\"><dict/></zefra-config>", "format version 2 is newer"},
        {"<zefra-config format=\"1\"><dict/><dict/></zefra-config>", "unexpected element <dict>"},
        {"<zefra-config format=\"1\"><dict>\n<float name=\"x\">1</float></dict></zefra-config>",
         "line 2, column 2: unknown item type <float>"},
        {"<zefra-config format=\"1\"><dict><double name=\"x\">1,5</double></dict></zefra-config>",
         "not a number in <double name=\"x\">"},
        {"<zefra-config format=\"1\"><dict><int name=\"x\">99999999999</int></dict></zefra-config>", "not a 32-bit integer"},
        {"<zefra-config format=\"1\"><dict>stray</dict></zefra-config>", "unexpected text"},
        {"<zefra-config format=\"1\"><dict><string name=\"s\"><b/></string></dict></zefra-config>", "unexpected element <b>"},
        {deep, "nest deeper than 64 levels"},
    };
    for (const auto& [content, cause] : cases) {
        WriteFile(dir.File("Config.xml"), content);
        CString message;
        EXPECT_FALSE(tree.LoadFromXML(W(dir.File("Config.xml")), &message));
        EXPECT_NE(message.ToUtf8().find(dir.File("Config.xml") + ": "), std::string::npos) << message.ToUtf8();
        EXPECT_NE(message.ToUtf8().find(cause), std::string::npos) << message.ToUtf8();
        EXPECT_EQ(ReadFile(dir.File("Config.xml")), content);
        ExpectSameTree(before, tree);
    }

    CString message;
    EXPECT_FALSE(tree.LoadFromXML(W(dir.File("missing.xml")), &message));
    EXPECT_NE(message.ToUtf8().find("missing.xml: cannot open: No such file"), std::string::npos) << message.ToUtf8();
    EXPECT_FALSE(tree.LoadFromXML(W(dir.Path()), &message));
    EXPECT_NE(message.ToUtf8().find("not a regular file"), std::string::npos);
    configtest::fs::resize_file(dir.File("Config.xml"), QoDtXmlFile::kMaxFileBytes + 1);
    EXPECT_FALSE(tree.LoadFromXML(W(dir.File("Config.xml")), &message));
    EXPECT_NE(message.ToUtf8().find("larger than 64 MiB"), std::string::npos);
    ExpectSameTree(before, tree);

    // One level less than the refused file is still read.
    deep.replace(deep.find("<dict name=\"d\">"), 15, "");
    deep.replace(deep.find("</dict>"), 7, "");
    WriteFile(dir.File("Config.xml"), deep);
    EXPECT_TRUE(tree.LoadFromXML(W(dir.File("Config.xml")), &message)) << message.ToUtf8();
    EXPECT_EQ(tree.GetDepth(), QoDtDictionary::kMaxDepth);
}

TEST(ConfigXmlSave, RefusesATreeThatCouldNotBeReadBackAndKeepsTheOldFile) {
    TempDir dir;
    WriteFile(dir.File("Config.xml"), "old");
    QoDtDictionary tree;
    CString path = L"d";
    for (int i = 1; i < QoDtDictionary::kMaxDepth; ++i) path += L"\\d";
    ASSERT_NE(tree.FindOrAddDict(path), nullptr);
    CString message;
    EXPECT_FALSE(tree.SaveToXML(W(dir.File("Config.xml")), &message));
    EXPECT_NE(message.ToUtf8().find("deeper than 64"), std::string::npos);
    EXPECT_EQ(ReadFile(dir.File("Config.xml")), "old");
    EXPECT_FALSE(QoDtDictionary().SaveToXML(W(dir.File("no-such-dir/Config.xml")), &message));
    EXPECT_NE(message.ToUtf8().find("cannot"), std::string::npos);
}
