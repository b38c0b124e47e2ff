#include "zefra/config/QoDtXmlOutput.h"

#include "zefra/config/QoDtTextCodec.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <type_traits>

namespace {

// Bytes that can't stand as they are in a text (kText) or in an attribute
// value (kAttribute). A NUL ends either.
constexpr unsigned char kText = 1;
constexpr unsigned char kAttribute = 2;

constexpr std::array<unsigned char, 256> MakeSpecialBytes() {
    std::array<unsigned char, 256> special{};
    for (int c = 0; c < 32; ++c) special[c] = kText | kAttribute;
    // Tabs and line ends stay in a text; in an attribute value a reader
    // would turn them into spaces.
    special['\t'] = special['\n'] = special['\r'] = kAttribute;
    special['&'] = special['<'] = kText | kAttribute;
    special['>'] = kText;
    special['"'] = kAttribute;
    return special;
}

constexpr std::array<unsigned char, 256> kSpecial = MakeSpecialBytes();

// The longest form that one character takes: "&quot;".
constexpr size_t kMaxCharBytes = 6;

// The replacement for what isn't a Unicode scalar value.
constexpr char32_t kReplacement = 0xFFFD;

char* PutUtf8(char* out, char32_t cp) {
    if (cp > 0x10FFFF || (cp >= 0xD800 && cp <= 0xDFFF)) cp = kReplacement;
    if (cp < 0x800) {
        *out++ = static_cast<char>(0xC0 | (cp >> 6));
    } else if (cp < 0x10000) {
        *out++ = static_cast<char>(0xE0 | (cp >> 12));
        *out++ = static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
    } else {
        *out++ = static_cast<char>(0xF0 | (cp >> 18));
        *out++ = static_cast<char>(0x80 | ((cp >> 12) & 0x3F));
        *out++ = static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
    }
    *out++ = static_cast<char>(0x80 | (cp & 0x3F));
    return out;
}

char* PutLiteral(char* out, std::string_view literal) {
    for (char c : literal) *out++ = c;
    return out;
}

const char* Begin(std::string_view text) { return text.data(); }
const char* End(std::string_view text) { return text.data() + text.size(); }
const wchar_t* Begin(const CString& text) { return text.GetString(); }
const wchar_t* End(const CString& text) { return text.GetString() + text.GetLength(); }

}  // namespace

// ---- text ----------------------------------------------------------------

QoDtXmlTextOutput::QoDtXmlTextOutput(std::string& out) : m_out(out) {
    m_out.clear();
    Put("<?xml version=\"1.0\" encoding=\"UTF-8\"?>");
}

void QoDtXmlTextOutput::Grow(size_t n) {
    m_out.resize(std::max(m_out.size() * 2, m_size + n + 4096));
}

void QoDtXmlTextOutput::Put(const char* bytes, size_t n) {
    std::memcpy(Room(n), bytes, n);
    m_size += n;
}

void QoDtXmlTextOutput::PutIndent(size_t depth) {
    char* out = Room(1 + 2 * depth);
    *out = '\n';
    std::memset(out + 1, ' ', 2 * depth);
    m_size += 1 + 2 * depth;
}

// UTF-8 passes through as it is; wide text is encoded on the way.
template <typename Chars>
void QoDtXmlTextOutput::PutEscaped(const Chars& text, unsigned char where) {
    const auto* p = Begin(text);
    const auto* const end = End(text);
    char* const start = Room(kMaxCharBytes * static_cast<size_t>(end - p));
    char* out = start;
    for (; p != end; ++p) {
        const auto c = static_cast<std::make_unsigned_t<std::remove_const_t<std::remove_pointer_t<decltype(p)>>>>(*p);
        if (c >= 0x80) {
            if constexpr (sizeof *p == 1)
                *out++ = static_cast<char>(c);
            else
                out = PutUtf8(out, static_cast<char32_t>(c));
            continue;
        }
        if ((kSpecial[c] & where) == 0) {
            *out++ = static_cast<char>(c);
            continue;
        }
        if (c == 0) break;
        switch (c) {
            case '&': out = PutLiteral(out, "&amp;"); break;
            case '<': out = PutLiteral(out, "&lt;"); break;
            case '>': out = PutLiteral(out, "&gt;"); break;
            case '"': out = PutLiteral(out, "&quot;"); break;
            default:
                // A control character, as a character reference of two digits.
                out = PutLiteral(out, "&#");
                *out++ = static_cast<char>('0' + c / 10);
                *out++ = static_cast<char>('0' + c % 10);
                *out++ = ';';
        }
    }
    m_size += static_cast<size_t>(out - start);
}

void QoDtXmlTextOutput::EndStartTag() {
    if (!m_inStartTag) return;
    Put(">", 1);
    m_inStartTag = false;
}

void QoDtXmlTextOutput::Open(const char* tag) {
    EndStartTag();
    PutIndent(m_open.size());
    Put("<", 1);
    Put(tag);
    m_open.push_back(tag);
    m_inStartTag = true;
    m_hasText = false;
}

void QoDtXmlTextOutput::Attribute(const char* xmlName, std::string_view value) {
    Put(" ", 1);
    Put(xmlName);
    Put("=\"", 2);
    PutEscaped(value, kAttribute);
    Put("\"", 1);
}

void QoDtXmlTextOutput::Attribute(const char* xmlName, const CString& value) {
    Put(" ", 1);
    Put(xmlName);
    Put("=\"", 2);
    PutEscaped(value, kAttribute);
    Put("\"", 1);
}

void QoDtXmlTextOutput::Text(std::string_view text) {
    if (text.empty()) return;
    EndStartTag();
    PutEscaped(text, kText);
    m_hasText = true;
}

void QoDtXmlTextOutput::Text(const CString& text) {
    if (text.IsEmpty()) return;
    EndStartTag();
    PutEscaped(text, kText);
    m_hasText = true;
}

void QoDtXmlTextOutput::Close() {
    const char* const tag = m_open.back();
    m_open.pop_back();
    if (m_inStartTag) {
        Put(" />", 3);
    } else {
        if (!m_hasText) PutIndent(m_open.size());
        Put("</", 2);
        Put(tag);
        Put(">", 1);
    }
    m_inStartTag = false;
    m_hasText = false;
}

void QoDtXmlTextOutput::Finish() {
    Put("\n", 1);
    m_out.resize(m_size);
}

// ---- pugixml elements ----------------------------------------------------

void QoDtXmlDomOutput::Open(const char* tag) {
    if (m_depth == 0)
        m_element.set_name(tag);
    else
        m_element = m_element.append_child(tag);
    ++m_depth;
}

void QoDtXmlDomOutput::Attribute(const char* xmlName, std::string_view value) {
    m_element.append_attribute(xmlName).set_value(value.data(), value.size());
}

void QoDtXmlDomOutput::Attribute(const char* xmlName, const CString& value) {
    std::string& text = Buffer();
    text.clear();
    QoDtTextCodec::AppendUtf8(text, value);
    Attribute(xmlName, std::string_view(text));
}

void QoDtXmlDomOutput::Text(std::string_view text) {
    if (!text.empty()) m_element.text().set(text.data(), text.size());
}

void QoDtXmlDomOutput::Text(const CString& text) {
    std::string& utf8 = Buffer();
    utf8.clear();
    QoDtTextCodec::AppendUtf8(utf8, text);
    Text(std::string_view(utf8));
}

void QoDtXmlDomOutput::Close() {
    if (--m_depth > 0) m_element = m_element.parent();
}
