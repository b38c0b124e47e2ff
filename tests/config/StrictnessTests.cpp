// Text that is not a well-formed configuration file is refused with the
// place and the cause, whichever reader meets it; crafted content costs
// what ordinary content costs; deep trees free without recursion.

#include "ConfigTestSupport.h"

#include "zefra/config/QoDtAttributes.h"
#include "zefra/config/QoDtChildIndex.h"
#include "zefra/config/QoDtXmlFile.h"

using configtest::W;

namespace {

std::string File(const std::string& inside, const std::string& after = "") {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<zefra-config format=\"1\">\n<dict name=\"\">\n" + inside +
           "\n</dict>\n</zefra-config>\n" + after;
}

}  // namespace

TEST(ConfigStrictness, MalformedTextIsRefusedWithLineColumnAndCause) {
    struct Case {
        const char* what;
        std::string text;
        const char* expected;
    } const cases[] = {
        {"an element after the root", File("", "<dict name=\"x\"/>"), "line 7, column 1: not well-formed XML: content after the root element"},
        {"text after the root", File("", "  trailing"), "line 7, column 3: not well-formed XML: content after the root element"},
        {"an element after the root behind a comment", File("", "<!-- c -->\n<x/>"), "line 8, column 1"},
        {"an undeclared entity", File("<string name=\"s\">a &nbsp; b</string>"), "line 4, column 20: not well-formed XML: the undeclared entity &nbsp;"},
        {"an entity declared in a document type", "<!DOCTYPE z [<!ENTITY e \"x\">]>" + File("<string name=\"s\">&e;</string>").substr(39), "the undeclared entity &e;"},
        {"an undeclared entity in an attribute", File("<item name=\"r\" a=\"&foo;\"/>"), "line 4, column 19: not well-formed XML: the undeclared entity &foo;"},
        {"a reference to NUL", File("<string name=\"s\">&#0;</string>"), "line 4, column 18: not well-formed XML: a character reference to NUL"},
        {"a hex reference to NUL", File("<item name=\"r\" a=\"&#x00;\"/>"), "a character reference to NUL"},
        {"a reference to U+FFFF", File("<string name=\"s\">&#xFFFF;</string>"), "the non-character U+FFFF"},
        {"a reference to U+FDD0", File("<string name=\"s\">&#64976;</string>"), "the non-character U+FDD0"},
        {"a reference to U+10FFFE", File("<string name=\"s\">&#x10FFFE;</string>"), "the non-character U+10FFFE"},
        {"a reference beyond Unicode", File("<string name=\"s\">&#x110000;</string>"), "a number beyond Unicode"},
        {"a bare ampersand", File("<string name=\"s\">a & b</string>"), "a bare '&'"},
        {"an escaped name that is \"name\"", File("<item name=\"a\" _x006E_ame=\"b\"/>"), "line 4, column 2: the attribute _x006E_ame of <item name=\"a\"> repeats a name"},
        {"an escaped name that is \"localname\"", File("<int name=\"a\" localname=\"x\" _x006C_ocalname=\"y\">1</int>"), "repeats a name"},
        {"one attribute twice", File("<item name=\"a\" b=\"1\" b=\"2\"/>"), "the attribute b of"},
        {"an escaped form of another attribute", File("<item name=\"a\" b=\"1\" _x0062_=\"2\"/>"), "the attribute _x0062_ of"},
        {"the key twice", File("<dict name=\"a\" name=\"b\"/>"), "the attribute name of"},
    };
    for (const Case& c : cases) {
        for (const auto read : {&QoDtXmlFile::FromText, &QoDtXmlFile::FromTextByDocument}) {
            QoDtDictionary tree;
            tree.SetValue(L"kept", 1);
            std::string error;
            EXPECT_FALSE(read(tree, c.text, error)) << c.what;
            EXPECT_NE(error.find(c.expected), std::string::npos) << c.what << ": " << error;
            EXPECT_EQ(configtest::ChildKeys(tree), "kept") << c.what;
        }
    }
    // What stays allowed: comments and processing instructions after the
    // root, control characters as references, the five entities.
    for (const std::string& text :
         {File("", "<!-- saved by hand -->\n<?pi x?>\n"), File("<string name=\"s\">&#1;&#x9;&amp;&lt;&gt;&quot;&apos;</string>"),
          File("<item name=\"a\" _x0020_=\"1\" _x_=\"2\"/>")}) {
        QoDtDictionary tree;
        std::string error;
        EXPECT_TRUE(QoDtXmlFile::FromText(tree, text, error)) << text << error;
    }
}

TEST(ConfigStrictness, AnElementWithEightyThousandAttributesReadsAndFindsEachOne) {
    std::string row = "<item name=\"r\"";
    for (int i = 0; i < 80000; ++i) row += " a" + std::to_string(i) + "=\"" + std::to_string(i) + "\"";
    row += "/>";
    QoDtDictionary tree;
    std::string error;
    ASSERT_TRUE(QoDtXmlFile::FromText(tree, File(row), error)) << error;
    QoDtDictItem* item = tree.FindItem(L"r");
    ASSERT_NE(item, nullptr);
    EXPECT_EQ(item->GetAttributes().GetCount(), 80000);
    for (int i = 0; i < 80000; i += 997) EXPECT_EQ(item->GetAttributeIntValue(W("a" + std::to_string(i))), i);
    EXPECT_EQ(item->GetAttributeValue(L"a80000"), CString());

    // Order, change, removal and copies keep the index right.
    QoDtAttributes attributes;
    for (int i = 0; i < 40; ++i) attributes.Set(W("k" + std::to_string(i)), W(std::to_string(i)));
    attributes.Set(W("k7"), W("seven"));
    EXPECT_TRUE(attributes.Remove(L"k3"));
    EXPECT_FALSE(attributes.Remove(L"k3"));
    const QoDtAttributes copy = attributes;
    EXPECT_EQ(copy.GetCount(), 39);
    EXPECT_EQ(copy.GetName(3).ToUtf8(), "k4");
    ASSERT_NE(copy.Find(L"k7"), nullptr);
    EXPECT_EQ(copy.Find(L"k7")->ToUtf8(), "seven");
    EXPECT_EQ(copy.Find(L"k3"), nullptr);
    ASSERT_NE(copy.Find(L"k39"), nullptr);
    EXPECT_EQ(copy.Find(L"k39")->ToUtf8(), "39");
}

TEST(ConfigStrictness, TheIndexHashIsKeyedSoNoFixedKeysCollideEverywhere) {
    // Keys that differ in one character spread over the slots as any keys
    // do: of 4096 keys no more than a handful share the low 12 bits.
    std::vector<int> counts(4096);
    int worst = 0;
    for (int i = 0; i < 4096; ++i) {
        const std::wstring key = L"HVAC-NT_PROJ_KT-" + std::to_wstring(i);
        worst = std::max(worst, ++counts[QoDtChildIndex::Hash(key) & 4095]);
    }
    EXPECT_LE(worst, 12);
}

TEST(ConfigStrictness, ATreeAHundredThousandLevelsDeepIsFreedWithoutRecursion) {
    auto* root = new QoDtDictionary;
    QoDtDictionary* deepest = root;
    for (int level = 0; level < 100000; ++level) {
        auto* child = new QoDtDictionary;
        child->name = L"d";
        child->SetValue(L"v", level);
        deepest->children.Append(child);
        deepest = child;
    }
    EXPECT_EQ(root->GetDepth(), 100001);
    std::string text;
    std::string error;
    EXPECT_FALSE(QoDtXmlFile::ToText(*root, text, error));
    EXPECT_NE(error.find("deeper than 64"), std::string::npos);
    delete root;
}
