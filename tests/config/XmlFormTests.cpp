// The two ways into a tree and the two ways out of one, held against each
// other: the one-pass reader must read everything the writer writes, and
// every text it takes to the tree that pugixml's document gives; the text
// output must be what pugixml writes for the elements that `item >> node`
// builds. Plus what the faster store must not break: refused elements,
// reused read buffers, trees that cross threads.

#include "ConfigTestSupport.h"

#include "zefra/config/QoDtXmlFile.h"
#include "zefra/config/QoDtXmlReader.h"

#include <pugixml.hpp>

#include <random>
#include <thread>

using configtest::ExpectSameTree;
using configtest::TempDir;
using configtest::W;
using configtest::WriteFile;

namespace {

// Texts with what is easiest to get wrong: markup characters, line ends in
// all forms, control characters, characters beyond the BMP, "_x" escapes.
CString RandomText(std::mt19937& rng) {
    static const wchar_t* const kPieces[] = {L"a", L"_x", L"_x41_", L"<", L">", L"&", L"\"", L"'", L"\n", L"\r\n", L"\r",
                                             L"\t", L" ", L"水", L"\x01", L"\x1F", L"\U0001D6DC", L"]]>", L"&amp;", L"9"};
    CString text;
    for (int n = static_cast<int>(rng() % 5); n > 0; --n) text += kPieces[rng() % (sizeof kPieces / sizeof *kPieces)];
    return text;
}

void FillRandom(QoDtDictionary& dict, std::mt19937& rng, int depth) {
    for (int n = static_cast<int>(rng() % 7); n > 0; --n) {
        int kind = 1 + static_cast<int>(rng() % 8);
        if (kind == QoDtDictItem::eDtDictionary && depth > 3) kind = QoDtDictItem::eDtRow;
        QoDtDictItem* item = QoDtDictItem::Create(kind);
        item->name = RandomText(rng);
        if (rng() % 2 != 0) item->localname = RandomText(rng);
        for (int a = static_cast<int>(rng() % 3); a > 0; --a) item->SetAttributeValue(RandomText(rng), RandomText(rng));
        const double numbers[] = {0.1, -0.0, 1e300, -2.5e-7, std::numeric_limits<double>::infinity(), 42.0};
        switch (kind) {
            case QoDtDictItem::eDtBool: static_cast<QoDtDictBoolItem*>(item)->value = static_cast<int>(rng() % 3); break;
            case QoDtDictItem::eDtInt: static_cast<QoDtDictIntItem*>(item)->value = static_cast<int>(rng()); break;
            case QoDtDictItem::eDtDouble: static_cast<QoDtDictDoubleItem*>(item)->value = numbers[rng() % 6]; break;
            case QoDtDictItem::eDtString: static_cast<QoDtDictStringItem*>(item)->value = RandomText(rng); break;
            case QoDtDictItem::eDtOption: {
                auto* option = static_cast<QoDtDictOptionItem*>(item);
                for (int c = static_cast<int>(rng() % 3); c > 0; --c) option->options.Append(RandomText(rng));
                option->selection = static_cast<int>(rng() % 4) - 1;
                break;
            }
            case QoDtDictItem::eDtDoubleArray:
                for (int d = static_cast<int>(rng() % 3); d > 0; --d)
                    static_cast<QoDtDictDoubleArrayItem*>(item)->value.Append(numbers[rng() % 6]);
                break;
            case QoDtDictItem::eDtDictionary: FillRandom(*static_cast<QoDtDictionary*>(item), rng, depth + 1); break;
            default: break;
        }
        dict.children.Append(item);
    }
}

std::string Saved(const QoDtDictionary& tree) {
    std::string text;
    std::string error;
    EXPECT_TRUE(QoDtXmlFile::ToText(tree, text, error)) << error;
    return text;
}

// What a reader makes of a text: the tree written out again, or the refusal.
std::string Outcome(bool (*read)(QoDtDictionary&, const std::string&, std::string&), const std::string& text) {
    QoDtDictionary tree;
    std::string error;
    return read(tree, text, error) ? Saved(tree) : "refused: " + error;
}

// Texts the one-pass reader takes, each for one of its rules.
const char* const kPlainForms[] = {
    "<zefra-config format=\"1\"><dict name=\"\"/></zefra-config>",
    "<zefra-config format=\"1\" format=\"x\"><dict/></zefra-config>",  // the first "format" counts
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<zefra-config format=\"1\" other=\"x\">\n<dict name=\"r\" localname=\"根\">"
    "<string name='s' localname=\"a'b\">x &amp; &lt;y&gt; &quot;&apos; &#65;&#x4e2d;&#x1D6DC;</string>"
    "<item name=\"row\" a=\"tab\there\" b=\"cr\r\nlf\rend\nx\" _x0020_=\"sp\" />"
    "<string name=\"ws\">  \r\n </string><string name=\"crlf\">a\r\nb</string><string name=\"e\"></string>"
    "<bool name=\"b\"> true </bool><int name=\"i\" >-7</int ><double name=\"d\">nan</double>"
    "<doubles name=\"ds\"> 1  2e3\n-inf </doubles><option name=\"o\"><choice/><selection a=\"b\">2</selection>"
    "<choice>&#x6C34;</choice></option><dict name=\"sub\"> <dict name=\"deeper\"/> </dict></dict>\n</zefra-config>\n",
};

// Texts it leaves to pugixml: each is read or refused there.
const char* const kOtherForms[] = {
    "\xEF\xBB\xBF<zefra-config format=\"1\"><dict name=\"\"/></zefra-config>",
    "<?xml version=\"1.0\"?><zefra-config format=\"1\"><dict/></zefra-config>",
    "<zefra-config format=\"1\"><!-- note --><dict/></zefra-config>",
    "<zefra-config format=\"1\"><dict><string name=\"s\"><![CDATA[a<b]]>c</string></dict></zefra-config>",
    "<zefra-config format=\"1\"><dict><string name=\"s\">&#X41;</string></dict></zefra-config>",
    "<zefra-config format=\"1\"><dict><string name=\"s\">a&#0;b</string></dict></zefra-config>",
    "<zefra-config format=\"1\"><dict><string name=\"s\">&#xD800;</string></dict></zefra-config>",
    "<zefra-config format=\"1\"><dict><string name=\"s\">&nbsp;&</string></dict></zefra-config>",
    "<zefra-config format=\"1\"><dict><string name=\"s\" a=\"1<2\"/></dict></zefra-config>",
    "<zefra-config format=\"1\"><dict><int name=\"i\">1</int>stray</dict></zefra-config>",
    "<zefra-config format=\"1\"><dict><option name=\"o\"><selection>1</selection><selection>2</selection></option></dict>"
    "</zefra-config>",
    "<zefra-config format=\"1\"><dict><item name=\"r\">x</item></dict></zefra-config>",
    "<zefra-config format=\"1\"><dict/></zefra-config><zefra-config/>",
    "<zefra-config format=\"1\"><dict><dict name=\"a\"></dicts></dict></zefra-config>",
    "<zefra-config format=\"1\"><dict name=\"a\"b=\"c\"/></zefra-config>",
};

}  // namespace

TEST(ConfigXmlReaders, TheOnePassReaderReadsEveryWrittenTreeAsTheDocumentDoes) {
    for (unsigned seed = 1; seed <= 40; ++seed) {
        std::mt19937 rng(seed);
        QoDtDictionary tree;
        tree.localname = RandomText(rng);
        FillRandom(tree, rng, 1);
        const std::string text = Saved(tree);
        QoDtDictionary onePass;
        QoDtDictionary byDocument;
        std::string error;
        ASSERT_TRUE(QoDtXmlReader::Read(onePass, text)) << text;
        ASSERT_TRUE(QoDtXmlFile::FromTextByDocument(byDocument, text, error)) << error;
        ExpectSameTree(tree, onePass, "seed " + std::to_string(seed));
        ExpectSameTree(byDocument, onePass, "seed " + std::to_string(seed));
    }
    for (const char* text : kPlainForms) {
        QoDtDictionary tree;
        EXPECT_TRUE(QoDtXmlReader::Read(tree, text)) << text;
        EXPECT_EQ(Outcome(QoDtXmlFile::FromText, text), Outcome(QoDtXmlFile::FromTextByDocument, text)) << text;
    }
}

TEST(ConfigXmlReaders, EveryOtherTextIsReadOrRefusedAsTheDocumentDoes) {
    for (const char* text : kOtherForms) {
        QoDtDictionary tree;
        tree.SetValue(L"kept", 1);
        EXPECT_FALSE(QoDtXmlReader::Read(tree, text)) << text;
        EXPECT_EQ(tree.children.GetLength(), 1) << text;
        EXPECT_EQ(Outcome(QoDtXmlFile::FromText, text), Outcome(QoDtXmlFile::FromTextByDocument, text)) << text;
    }

    // Written files and the plain forms with markup put in, cut out or
    // doubled: well-formed or not, both readers must come to one outcome.
    static const char* const kInserts[] = {"stray", " ", "\r\n", "<![CDATA[x]]>", "<b/>", "<!--c-->", "&amp;", "&#1;",
                                           "&#xD;", "<selection>2</selection>", "<choice>q</choice>", "<int name=\"z\">5</int>",
                                           "<dict name=\"k\">t</dict>", "<item name=\"r\"/>", "</dict>", "<", "\"", "'", "x",
                                           "<string name=\"s\"> </string>", "<doubles name=\"d\">1 x</doubles>", "=\"v\""};
    std::vector<std::string> seeds(std::begin(kPlainForms), std::end(kPlainForms));
    for (unsigned seed = 100; seed < 110; ++seed) {
        std::mt19937 rng(seed);
        QoDtDictionary tree;
        FillRandom(tree, rng, 1);
        seeds.push_back(Saved(tree));
    }
    std::mt19937 rng(7);
    int readByBoth = 0;
    int readInOnePass = 0;
    for (int round = 0; round < 60; ++round) {
        for (const std::string& seed : seeds) {
            std::string text = seed;
            for (int edits = 1 + static_cast<int>(rng() % 2); edits > 0; --edits) {
                size_t at = rng() % text.size();
                if (rng() % 2 != 0 && text.find('>', at) != std::string::npos) at = text.find('>', at) + 1;
                if (rng() % 4 == 0)
                    text.erase(at, 1 + rng() % 3);
                else
                    text.insert(at, kInserts[rng() % (sizeof kInserts / sizeof *kInserts)]);
            }
            const std::string expected = Outcome(QoDtXmlFile::FromTextByDocument, text);
            ASSERT_EQ(Outcome(QoDtXmlFile::FromText, text), expected) << text;
            if (expected.rfind("refused: ", 0) == 0) continue;
            ++readByBoth;
            QoDtDictionary tree;
            readInOnePass += QoDtXmlReader::Read(tree, text) ? 1 : 0;
        }
    }
    // The comparison means something only if the one-pass reader took part.
    EXPECT_GT(readByBoth, 100);
    EXPECT_GT(readInOnePass, readByBoth / 3);
}

TEST(ConfigXmlWriter, TheFileTextIsWhatPugixmlWritesForTheSameElements) {
    for (unsigned seed = 200; seed < 230; ++seed) {
        std::mt19937 rng(seed);
        QoDtDictionary tree;
        tree.localname = RandomText(rng);
        FillRandom(tree, rng, 1);
        tree.SetValue(L"cut", CString(std::wstring(L"a\0b", 3)));  // a text ends at a NUL
        tree.SetValue(L"lost", CString(std::wstring(L"\0b", 2)));

        pugi::xml_document document;
        pugi::xml_node declaration = document.append_child(pugi::node_declaration);
        declaration.append_attribute("version") = "1.0";
        declaration.append_attribute("encoding") = "UTF-8";
        pugi::xml_node root = document.append_child("zefra-config");
        root.append_attribute("format") = QoDtXmlFile::kFormatVersion;
        _auto_ptr<QoUtXMLDOMNode> node(new QoUtXMLDOMNode(root.append_child(pugi::node_element)));
        tree >> node;
        std::ostringstream expected;
        document.save(expected, "  ", pugi::format_indent, pugi::encoding_utf8);
        EXPECT_EQ(Saved(tree), expected.str()) << "seed " << seed;
    }
}

TEST(ConfigXmlItems, AnElementThatIsRefusedLeavesTheItemAsItWas) {
    pugi::xml_document document;
    ASSERT_TRUE(document.load_string("<r><double name=\"x\">1,5</double><double name=\"y\" a=\"b\">2</double>"
                                     "<option name=\"o\"><choice>c</choice><selection>z</selection></option></r>"));
    const pugi::xml_node bad = document.first_child().first_child();
    _auto_ptr<QoUtXMLDOMNode> node(new QoUtXMLDOMNode(bad));

    QoDtDictDoubleItem number;
    number.name = L"kept";
    number.value = 2.5;
    EXPECT_FALSE(number << node);
    EXPECT_NE(node->GetError().find("not a number in <double name=\"x\">"), std::string::npos) << node->GetError();
    EXPECT_EQ(number.name, CString(L"kept"));
    EXPECT_EQ(number.value, 2.5);

    _auto_ptr<QoUtXMLDOMNode> good(new QoUtXMLDOMNode(bad.next_sibling()));
    EXPECT_TRUE(number << good);
    EXPECT_EQ(number.name, CString(L"y"));
    EXPECT_EQ(number.GetAttributeValue(L"a"), CString(L"b"));
    EXPECT_EQ(number.value, 2.0);

    QoDtDictOptionItem option;
    option.options.Append(L"first");
    option.selection = 0;
    _auto_ptr<QoUtXMLDOMNode> badOption(new QoUtXMLDOMNode(bad.next_sibling().next_sibling()));
    EXPECT_FALSE(option << badOption);
    EXPECT_EQ(option.options.GetLength(), 1);
    EXPECT_EQ(option.GetSelectedText(), CString(L"first"));
}

TEST(ConfigXmlLoad, EachLoadReadsItsOwnFileWhateverCameBefore) {
    TempDir dir;
    QoDtDictionary big;
    for (int i = 0; i < 200; ++i) big.SetValue(W("k" + std::to_string(i)), CString(L"送风系统"));
    ASSERT_TRUE(big.SaveToXML(W(dir.File("big.xml"))));
    const std::string text = configtest::ReadFile(dir.File("big.xml"));

    QoDtDictionary tree;
    ASSERT_TRUE(tree.LoadFromXML(W(dir.File("big.xml"))));
    // A shorter file must not be read with the end of the longer one.
    WriteFile(dir.File("cut.xml"), text.substr(0, text.size() / 2));
    CString message;
    EXPECT_FALSE(tree.LoadFromXML(W(dir.File("cut.xml")), &message));
    EXPECT_NE(message.ToUtf8().find("not well-formed"), std::string::npos) << message.ToUtf8();
    WriteFile(dir.File("small.xml"), "<zefra-config format=\"1\"><dict name=\"\"><int name=\"a\">1</int></dict></zefra-config>");
    ASSERT_TRUE(tree.LoadFromXML(W(dir.File("small.xml"))));
    EXPECT_EQ(configtest::ChildKeys(tree), "a");
    ASSERT_TRUE(tree.LoadFromXML(W(dir.File("big.xml"))));
    ExpectSameTree(big, tree);
}

TEST(ConfigStoreMemory, TreesMadeOnOneThreadAndFreedOnAnotherStayWhole) {
    // Items and list cells come from per-thread pools; a block may be freed
    // on any thread and used again there.
    const auto build = [](unsigned seed) {
        auto tree = std::make_unique<QoDtDictionary>();
        std::mt19937 rng(seed);
        for (int i = 0; i < 20; ++i) FillRandom(*tree->FindOrAddDict(W("d" + std::to_string(i))), rng, 1);
        return tree;
    };
    const std::string expected = Saved(*build(5));
    std::unique_ptr<QoDtDictionary> handedOver;
    std::thread maker([&] { handedOver = build(5); });
    maker.join();
    std::string seenAfterFree;
    std::thread other([&] {
        EXPECT_EQ(Saved(*handedOver), expected);
        handedOver.reset();
        for (int round = 0; round < 3; ++round) seenAfterFree = Saved(*build(5));
    });
    std::thread concurrent([&] {
        for (int round = 0; round < 3; ++round) EXPECT_EQ(Saved(*build(5)), expected);
    });
    other.join();
    concurrent.join();
    EXPECT_EQ(seenAfterFree, expected);
    EXPECT_EQ(Saved(*build(5)), expected);
}
