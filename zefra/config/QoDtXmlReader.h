#pragma once
// Reads the text of a configuration file straight into a tree, in one pass
// over the bytes, with no XML document in between. It takes the plain form
// that files are written in: the XML declaration as the writer puts it,
// elements, attributes in double or single quotes, text with the five
// entities and character references, white space between elements.
//
// Anything else, every fault included, it leaves to the full parser
// (pugixml, see QoDtXmlFile), which reads such a file or refuses it with the
// cause and the place. What this reader takes, the full parser reads to the
// same tree; the tests hold the two readers against each other.

#include <string>
#include <string_view>

class QoDtDictItem;
class QoDtDictionary;
class QoDtDictOptionItem;

class QoDtXmlReader {
public:
    // True: `dict` holds the dictionary of the file (key, local name,
    // attributes and children). False: the text is left to the full parser,
    // and `dict` is as it was.
    static bool Read(QoDtDictionary& dict, std::string_view text);

private:
    explicit QoDtXmlReader(std::string_view text) : m_p(text.data()), m_end(text.data() + text.size()) {}

    bool Document(QoDtDictionary& dict);
    // The content of an element whose start tag has been read; `empty` for
    // <tag ... />.
    bool Dictionary(QoDtDictionary& dict, int depth, bool empty);
    bool Option(QoDtDictOptionItem& option, bool empty);
    bool Value(QoDtDictItem& item, std::string_view tag, bool empty);

    // The attributes of a start tag, up to and past its '>' or "/>";
    // visit(name, value) for each, false from it stops the reading.
    template <typename Visit>
    bool Attributes(Visit&& visit, bool& empty);
    bool AttributeValue(std::string_view& value);
    // Text up to the next '<'.
    bool Text(std::string_view& text);
    // An entity or character reference, onto `out`.
    bool Reference(std::string& out);
    bool Name(std::string_view& name);
    bool EndTag(std::string_view tag);
    // White space up to the next '<', and nothing else.
    bool SpaceUntilTag();
    void SkipSpace();
    bool Skip(char c);
    bool Skip(std::string_view literal);

    const char* m_p;
    const char* const m_end;
    std::string m_text;   // a text with references, decoded
    std::string m_value;  // the same for an attribute value
};
