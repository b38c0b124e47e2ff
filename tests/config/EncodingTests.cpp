// Files in the encodings a user's editor may leave: read to the same text,
// refused with the place and the bytes when they aren't what they claim,
// saved as UTF-8 with the original kept.

#include "ConfigTestSupport.h"

#include "zefra/config/QoDtTextCodec.h"

#include <iconv.h>

using configtest::ReadFile;
using configtest::TempDir;
using configtest::W;
using configtest::WriteFile;

namespace {

std::string Body() {
    return "<zefra-config format=\"1\">\n"
           "  <dict name=\"\">\n"
           "    <dict name=\"SPACE\" localname=\"房间标注\">\n"
           "      <string name=\"VISIBLE_FIELD\" note=\"€ 𝛜\">名称,编号,面积</string>\n"
           "      <string name=\"冷冻供水\">HVAC-冷冻供水-平面</string>\n"
           "    </dict>\n"
           "  </dict>\n"
           "</zefra-config>\n";
}

std::string Declared(const std::string& encoding) {
    return "<?xml version=\"1.0\" encoding=\"" + encoding + "\"?>\n" + Body();
}

std::string Encode(const std::string& utf8, const char* to) {
    iconv_t cd = ::iconv_open(to, "UTF-8");
    EXPECT_NE(cd, reinterpret_cast<iconv_t>(-1)) << to;
    std::string out(utf8.size() * 4 + 16, '\0');
    char* in = const_cast<char*>(utf8.data());
    size_t inLeft = utf8.size();
    char* dst = out.data();
    size_t outLeft = out.size();
    EXPECT_NE(::iconv(cd, &in, &inLeft, &dst, &outLeft), static_cast<size_t>(-1)) << to;
    ::iconv_close(cd);
    out.resize(out.size() - outLeft);
    return out;
}

void ExpectChineseIntact(const QoDtDictionary& tree, const std::string& where) {
    CString text;
    EXPECT_TRUE(tree.GetValue(W("SPACE\\VISIBLE_FIELD"), text)) << where;
    EXPECT_EQ(text.ToUtf8(), "名称,编号,面积") << where;
    EXPECT_TRUE(tree.GetValue(W("SPACE\\冷冻供水"), text)) << where;
    EXPECT_EQ(text.ToUtf8(), "HVAC-冷冻供水-平面") << where;
    const QoDtDictionary* space = tree.FindDict(W("SPACE"));
    ASSERT_NE(space, nullptr) << where;
    EXPECT_EQ(space->localname.ToUtf8(), "房间标注") << where;
}

}  // namespace

TEST(ConfigEncodings, EveryReadEncodingGivesTheSameTree) {
    const std::string utf16 = Declared("UTF-16");
    struct Case {
        const char* what;
        std::string bytes;
        const char* encoding;
        bool bmpOnly;  // GB2312 and GBK have no 𝛜 and no €
    };
    const std::string bmp = [] {
        std::string text = Body();
        text.replace(text.find("€ 𝛜"), std::strlen("€ 𝛜"), "x");
        return text;
    }();
    const Case cases[] = {
        {"UTF-8, declared", Declared("UTF-8"), "UTF-8", false},
        {"UTF-8, no declaration", Body(), "UTF-8", false},
        {"UTF-8 with a byte order mark", "\xEF\xBB\xBF" + Declared("utf-8"), "UTF-8", false},
        {"UTF-16 LE", "\xFF\xFE" + Encode(utf16, "UTF-16LE"), "UTF-16LE", false},
        {"UTF-16 BE", "\xFE\xFF" + Encode(utf16, "UTF-16BE"), "UTF-16BE", false},
        {"GBK", Encode("<?xml version=\"1.0\" encoding=\"GBK\"?>\n" + bmp, "GBK"), "GBK", true},
        {"GB2312", Encode("<?xml version=\"1.0\" encoding=\"gb2312\"?>\n" + bmp, "GB2312"), "GB2312", true},
        {"GB18030", Encode(Declared("GB18030"), "GB18030"), "GB18030", false},
    };
    for (const Case& c : cases) {
        TempDir dir;
        const std::string file = dir.File("Config.xml");
        WriteFile(file, c.bytes);
        QoDtDictionary tree;
        CString message;
        ASSERT_TRUE(tree.LoadFromXML(W(file), &message)) << c.what << ": " << message.ToUtf8();
        ExpectChineseIntact(tree, c.what);
        EXPECT_EQ(tree.GetSourceEncoding(), c.encoding) << c.what;
        if (!c.bmpOnly) {
            const QoDtDictItem* field = tree.FindItem(W("SPACE\\VISIBLE_FIELD"));
            ASSERT_NE(field, nullptr);
            EXPECT_EQ(const_cast<QoDtDictItem*>(field)->GetAttributeValue(L"note").ToUtf8(), "€ 𝛜") << c.what;
        }
    }
}

TEST(ConfigEncodings, InvalidBytesAreRefusedWithThePlaceAndTheBytes) {
    const std::string gbkName = Encode("名称", "GBK");  // what an "ANSI" editor saves
    struct Case {
        const char* what;
        std::string bytes;
        const char* expected;  // in the message
    } const cases[] = {
        {"GBK bytes under a UTF-8 declaration",
         Declared("UTF-8").replace(Declared("UTF-8").find("名称"), std::strlen("名称"), gbkName),
         "invalid bytes for UTF-8 at line 5, column 47: 0xC3 0xFB 0xB3 0xC6"},
        {"GBK bytes with no declaration", "<zefra-config format=\"1\"><dict name=\"" + gbkName + "\"/></zefra-config>",
         "invalid bytes for UTF-8 at line 1, column 38: 0xC3 0xFB 0xB3 0xC6"},
        {"a UTF-8 surrogate", Declared("UTF-8").insert(Declared("UTF-8").find("名称"), "\xED\xA0\x80"),
         "line 5, column 47: 0xED 0xA0"},
        {"an overlong UTF-8 form", "<zefra-config format=\"1\">\xC0\xAF</zefra-config>", "column 26: 0xC0"},
        {"a byte GBK doesn't have", "<?xml version=\"1.0\" encoding=\"GBK\"?>\n<zefra-config a=\"\xFF\"/>",
         "invalid bytes for GBK at line 2, column 18: 0xFF"},
        {"GBK cut off at the end", "<?xml version=\"1.0\" encoding=\"GBK\"?>\n<zefra-config/>\xC3",
         "invalid bytes for GBK at line 2, column 16: 0xC3 (cut off"},
        {"a lone UTF-16 surrogate", "\xFF\xFE" + Encode("<a>", "UTF-16LE") + std::string("\x00\xD8\x41\x00", 4),
         "invalid bytes for UTF-16LE at line 1, column 4: 0x00 0xD8"},
        {"an encoding that isn't read", "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><zefra-config/>",
         "the encoding ISO-8859-1 is not read"},
        {"UTF-16 declared without a byte order mark", Declared("UTF-16"), "has no byte order mark"},
    };
    for (const Case& c : cases) {
        TempDir dir;
        const std::string file = dir.File("Config.xml");
        WriteFile(file, c.bytes);
        QoDtDictionary tree;
        tree.SetValue(L"kept", 1);
        CString message;
        EXPECT_FALSE(tree.LoadFromXML(W(file), &message)) << c.what;
        EXPECT_NE(message.ToUtf8().find(c.expected), std::string::npos) << c.what << ": " << message.ToUtf8();
        EXPECT_NE(message.ToUtf8().find(file), std::string::npos) << c.what;
        EXPECT_EQ(configtest::ChildKeys(tree), "kept") << c.what;
        EXPECT_EQ(ReadFile(file), c.bytes) << c.what;
    }
}

TEST(ConfigEncodings, TheFirstSaveWritesUtf8AndKeepsTheOriginalBesideIt) {
    TempDir dir;
    const std::string file = dir.File("Config.xml");
    const std::string original = Encode("<?xml version=\"1.0\" encoding=\"GBK\"?>\n" + Body().replace(
                                            Body().find("€ 𝛜"), std::strlen("€ 𝛜"), "x"),
                                        "GBK");
    WriteFile(file, original);
    QoDtDictionary tree;
    CString message;
    ASSERT_TRUE(tree.LoadFromXML(W(file), &message)) << message.ToUtf8();
    ASSERT_TRUE(tree.SetValue(W("SPACE\\TEXTSIZE"), 3.5));
    ASSERT_TRUE(tree.SaveToXML(W(file), &message)) << message.ToUtf8();

    EXPECT_EQ(ReadFile(file + ".gbk.bak"), original);
    const std::string saved = ReadFile(file);
    EXPECT_EQ(saved.rfind("<?xml version=\"1.0\" encoding=\"UTF-8\"?>", 0), 0u);
    EXPECT_NE(saved.find("名称,编号,面积"), std::string::npos);
    QoDtDictionary again;
    ASSERT_TRUE(again.LoadFromXML(W(file), &message)) << message.ToUtf8();
    EXPECT_EQ(again.GetSourceEncoding(), "UTF-8");
    ExpectChineseIntact(again, "after the save");

    // The file is UTF-8 now: later saves keep no further copies, and an
    // existing copy is never overwritten.
    ASSERT_TRUE(tree.SaveToXML(W(file), &message)) << message.ToUtf8();
    EXPECT_EQ(ReadFile(file + ".gbk.bak"), original);
    WriteFile(file, original);
    ASSERT_TRUE(again.LoadFromXML(W(file), &message));
    ASSERT_TRUE(again.SaveToXML(W(file), &message)) << message.ToUtf8();
    EXPECT_EQ(ReadFile(file + ".gbk.bak"), original);
    EXPECT_EQ(ReadFile(file + ".gbk.2.bak"), original);
}
