#include "zefra/config/QoDtXmlReader.h"

#include "zefra/config/QoDtDictOptionItem.h"
#include "zefra/config/QoDtDictionary.h"
#include "zefra/config/QoDtTextCodec.h"
#include "zefra/config/QoDtXmlFile.h"

#include <array>
#include <cstdint>
#include <cstring>
#include <memory>

namespace {

// Classes of bytes, as the full parser draws them, and the bytes that end a
// plain run of text or of an attribute value.
constexpr unsigned char kSpace = 1;      // tab, line feed, carriage return, space
constexpr unsigned char kNameStart = 2;  // letters, '_', ':', every byte from 0x80
constexpr unsigned char kNameChar = 4;   // those, digits, '-', '.'
constexpr unsigned char kEndsText = 8;   // '<', '&', NUL
constexpr unsigned char kEndsValue = 16; // those, quotes, tab, line feed, carriage return

constexpr std::array<unsigned char, 256> MakeClasses() {
    std::array<unsigned char, 256> classes{};
    classes['\t'] = classes['\n'] = classes['\r'] = classes[' '] = kSpace;
    for (int c = 'a'; c <= 'z'; ++c) classes[c] = kNameStart | kNameChar;
    for (int c = 'A'; c <= 'Z'; ++c) classes[c] = kNameStart | kNameChar;
    for (int c = 0x80; c < 0x100; ++c) classes[c] = kNameStart | kNameChar;
    classes['_'] = classes[':'] = kNameStart | kNameChar;
    for (int c = '0'; c <= '9'; ++c) classes[c] = kNameChar;
    classes['-'] = classes['.'] = kNameChar;
    for (const char c : {'<', '&', '\0'}) classes[static_cast<unsigned char>(c)] |= kEndsText | kEndsValue;
    for (const char c : {'"', '\'', '\t', '\n', '\r'}) classes[static_cast<unsigned char>(c)] |= kEndsValue;
    return classes;
}

constexpr std::array<unsigned char, 256> kClasses = MakeClasses();

bool Is(char c, unsigned char what) { return (kClasses[static_cast<unsigned char>(c)] & what) != 0; }

const char kDeclaration[] = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>";
const char kRootElement[] = "zefra-config";

void AppendUtf8(std::string& out, uint32_t cp) {
    if (cp < 0x80) {
        out.push_back(static_cast<char>(cp));
    } else if (cp < 0x800) {
        out.push_back(static_cast<char>(0xC0 | (cp >> 6)));
        out.push_back(static_cast<char>(0x80 | (cp & 0x3F)));
    } else if (cp < 0x10000) {
        out.push_back(static_cast<char>(0xE0 | (cp >> 12)));
        out.push_back(static_cast<char>(0x80 | ((cp >> 6) & 0x3F)));
        out.push_back(static_cast<char>(0x80 | (cp & 0x3F)));
    } else {
        out.push_back(static_cast<char>(0xF0 | (cp >> 18)));
        out.push_back(static_cast<char>(0x80 | ((cp >> 12) & 0x3F)));
        out.push_back(static_cast<char>(0x80 | ((cp >> 6) & 0x3F)));
        out.push_back(static_cast<char>(0x80 | (cp & 0x3F)));
    }
}

int DigitValue(char c, uint32_t base) {
    if (c >= '0' && c <= '9') return c - '0';
    if (base == 16 && c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (base == 16 && c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

}  // namespace

bool QoDtXmlReader::Read(QoDtDictionary& dict, std::string_view text) {
    QoDtDictionary fresh;
    if (!QoDtXmlReader(text).Document(fresh)) return false;
    dict.Swap(fresh);
    return true;
}

// ---- the file's structure -----------------------------------------------

bool QoDtXmlReader::Document(QoDtDictionary& dict) {
    Skip(kDeclaration);
    SkipSpace();
    std::string_view tag;
    if (!Skip('<') || !Name(tag) || tag != kRootElement) return false;
    // The first "format" counts, as for the full parser.
    int format = 0;
    bool formatSeen = false;
    bool empty = false;
    const bool attributes = Attributes(
        [&](std::string_view name, std::string_view value) {
            if (name != "format" || formatSeen) return true;
            formatSeen = true;
            return QoDtTextCodec::ParseInt(value, format);
        },
        empty);
    if (!attributes || !formatSeen || format < 1 || format > QoDtXmlFile::kFormatVersion || empty) return false;

    if (!SpaceUntilTag() || !Skip('<') || !Name(tag) || tag != "dict") return false;
    bool dictEmpty = false;
    const bool read = Attributes(
                          [&dict, seen = 0u](std::string_view name, std::string_view value) mutable {
                              return dict.TakeXmlAttribute(name, QoDtTextCodec::FromUtf8(value), seen);
                          },
                          dictEmpty) &&
                      Dictionary(dict, 1, dictEmpty);
    if (!read || !SpaceUntilTag() || !EndTag(kRootElement)) return false;
    SkipSpace();
    return m_p == m_end;
}

bool QoDtXmlReader::Dictionary(QoDtDictionary& dict, int depth, bool empty) {
    if (depth > QoDtDictionary::kMaxDepth) return false;
    if (empty) return true;
    for (;;) {
        if (!SpaceUntilTag()) return false;
        if (m_end - m_p > 1 && m_p[1] == '/') return EndTag("dict");
        ++m_p;
        std::string_view tag;
        if (!Name(tag)) return false;
        const int type = QoDtDictItem::GetTypeFromName(tag);
        if (type == 0) return false;
        std::unique_ptr<QoDtDictItem> item(QoDtDictItem::Create(type));
        bool itemEmpty = false;
        const bool attributes = Attributes(
            [&item, seen = 0u](std::string_view name, std::string_view value) mutable {
                return item->TakeXmlAttribute(name, QoDtTextCodec::FromUtf8(value), seen);
            },
            itemEmpty);
        if (!attributes) return false;
        bool read = false;
        switch (type) {
            case QoDtDictItem::eDtDictionary:
                read = Dictionary(static_cast<QoDtDictionary&>(*item), depth + 1, itemEmpty);
                break;
            case QoDtDictItem::eDtOption: read = Option(static_cast<QoDtDictOptionItem&>(*item), itemEmpty); break;
            case QoDtDictItem::eDtRow: read = itemEmpty || (SpaceUntilTag() && EndTag(tag)); break;
            default: read = Value(*item, tag, itemEmpty);
        }
        if (!read) return false;
        dict.children.Append(item.release());
    }
}

bool QoDtXmlReader::Option(QoDtDictOptionItem& option, bool empty) {
    if (empty) return true;
    bool selectionSeen = false;
    for (;;) {
        if (!SpaceUntilTag()) return false;
        if (m_end - m_p > 1 && m_p[1] == '/') return EndTag("option");
        ++m_p;
        std::string_view tag;
        if (!Name(tag)) return false;
        const bool isSelection = tag == "selection";
        if ((!isSelection && tag != "choice") || (isSelection && selectionSeen)) return false;
        // Attributes of the parts are not part of the option.
        bool partEmpty = false;
        if (!Attributes([](std::string_view, std::string_view) { return true; }, partEmpty)) return false;
        std::string_view text;
        if (!partEmpty && !(Text(text) && EndTag(tag))) return false;
        if (isSelection) {
            if (!QoDtTextCodec::ParseInt(text, option.selection)) return false;
            selectionSeen = true;
        } else {
            option.options.Append(QoDtTextCodec::FromUtf8(text));
        }
    }
}

bool QoDtXmlReader::Value(QoDtDictItem& item, std::string_view tag, bool empty) {
    std::string_view text;
    if (!empty && !(Text(text) && EndTag(tag))) return false;
    return item.ReadXmlValue(text, nullptr);
}

// ---- tags, attributes and text ---------------------------------------------

template <typename Visit>
bool QoDtXmlReader::Attributes(Visit&& visit, bool& empty) {
    for (;;) {
        const char* const before = m_p;
        SkipSpace();
        if (m_p == m_end) return false;
        if (*m_p == '>') {
            ++m_p;
            empty = false;
            return true;
        }
        if (*m_p == '/') {
            ++m_p;
            empty = true;
            return Skip('>');
        }
        // An attribute stands after white space.
        std::string_view name;
        if (m_p == before || !Name(name)) return false;
        SkipSpace();
        if (!Skip('=')) return false;
        SkipSpace();
        std::string_view value;
        if (!AttributeValue(value) || !visit(name, value)) return false;
    }
}

bool QoDtXmlReader::AttributeValue(std::string_view& value) {
    if (m_p == m_end || (*m_p != '"' && *m_p != '\'')) return false;
    const char quote = *m_p++;
    const char* const start = m_p;
    // Mostly plain text, which is taken as it stands.
    while (m_p != m_end && (!Is(*m_p, kEndsValue) || (*m_p != quote && (*m_p == '"' || *m_p == '\'')))) ++m_p;
    if (m_p == m_end) return false;
    if (*m_p == quote) {
        value = std::string_view(start, static_cast<size_t>(m_p - start));
        ++m_p;
        return true;
    }
    // White space in a value reads as one space each, a CR LF pair as one.
    m_value.assign(start, m_p);
    while (m_p != m_end) {
        const char c = *m_p;
        if (c == quote) {
            ++m_p;
            value = m_value;
            return true;
        }
        switch (c) {
            case '&':
                if (!Reference(m_value)) return false;
                break;
            case '\t':
            case '\n':
                m_value.push_back(' ');
                ++m_p;
                break;
            case '\r':
                m_value.push_back(' ');
                ++m_p;
                if (m_p != m_end && *m_p == '\n') ++m_p;
                break;
            case '<':
            case '\0': return false;
            default: m_value.push_back(c); ++m_p;
        }
    }
    return false;
}

bool QoDtXmlReader::Text(std::string_view& text) {
    const char* const start = m_p;
    while (m_p != m_end && !Is(*m_p, kEndsText)) ++m_p;
    if (m_p == m_end || *m_p == '\0') return false;
    if (*m_p == '<') {
        text = std::string_view(start, static_cast<size_t>(m_p - start));
        return true;
    }
    m_text.assign(start, m_p);
    while (m_p != m_end) {
        const char c = *m_p;
        if (c == '<') {
            text = m_text;
            return true;
        }
        if (c == '\0') return false;
        if (c == '&') {
            if (!Reference(m_text)) return false;
        } else {
            m_text.push_back(c);
            ++m_p;
        }
    }
    return false;
}

bool QoDtXmlReader::Reference(std::string& out) {
    ++m_p;  // '&'
    if (Skip('#')) {
        const uint32_t base = Skip('x') ? 16 : 10;
        uint32_t cp = 0;
        int digits = 0;
        for (int d; m_p != m_end && (d = DigitValue(*m_p, base)) >= 0; ++m_p, ++digits) {
            cp = cp * base + static_cast<uint32_t>(d);
            if (cp > 0x10FFFF) return false;
        }
        // A NUL can't be text, nor can half of a surrogate pair.
        // Nor can a non-character; the full parser's check names the fault.
        const bool nonCharacter = (cp >= 0xFDD0 && cp <= 0xFDEF) || (cp & 0xFFFE) == 0xFFFE;
        if (digits == 0 || !Skip(';') || cp == 0 || (cp >= 0xD800 && cp <= 0xDFFF) || nonCharacter) return false;
        AppendUtf8(out, cp);
        return true;
    }
    static const struct {
        const char* name;
        char ch;
    } kEntities[] = {{"amp;", '&'}, {"lt;", '<'}, {"gt;", '>'}, {"quot;", '"'}, {"apos;", '\''}};
    for (const auto& entity : kEntities) {
        if (Skip(entity.name)) {
            out.push_back(entity.ch);
            return true;
        }
    }
    return false;
}

bool QoDtXmlReader::Name(std::string_view& name) {
    if (m_p == m_end || !Is(*m_p, kNameStart)) return false;
    const char* const start = m_p++;
    while (m_p != m_end && Is(*m_p, kNameChar)) ++m_p;
    name = std::string_view(start, static_cast<size_t>(m_p - start));
    return true;
}

bool QoDtXmlReader::EndTag(std::string_view tag) {
    if (!Skip("</") || !Skip(tag) || (m_p != m_end && Is(*m_p, kNameChar))) return false;
    SkipSpace();
    return Skip('>');
}

bool QoDtXmlReader::SpaceUntilTag() {
    SkipSpace();
    return m_p != m_end && *m_p == '<';
}

void QoDtXmlReader::SkipSpace() {
    while (m_p != m_end && Is(*m_p, kSpace)) ++m_p;
}

bool QoDtXmlReader::Skip(char c) {
    if (m_p == m_end || *m_p != c) return false;
    ++m_p;
    return true;
}

bool QoDtXmlReader::Skip(std::string_view literal) {
    if (static_cast<size_t>(m_end - m_p) < literal.size() || std::memcmp(m_p, literal.data(), literal.size()) != 0)
        return false;
    m_p += literal.size();
    return true;
}
