#include "zefra/config/QoDtXmlFile.h"

#include "zefra/config/QoDtDictionary.h"
#include "zefra/config/QoDtDiskFile.h"
#include "zefra/config/QoDtTextCodec.h"
#include "zefra/config/QoDtTextEncoding.h"
#include "zefra/config/QoDtXmlOutput.h"
#include "zefra/config/QoDtXmlReader.h"

#include <pugixml.hpp>

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <memory>
#include <vector>

namespace {

const char kRootElement[] = "zefra-config";

// Text is kept exactly: no end-of-line normalisation, and a value made only
// of white space stays. The text at the start of an element is kept as the
// element's value rather than as a node of its own (every value item has
// one), so the readers look there first; what follows a CDATA section or an
// element is still a node.
constexpr unsigned kParseOptions =
    ((pugi::parse_default | pugi::parse_ws_pcdata_single) & ~pugi::parse_eol) | pugi::parse_embed_pcdata;

bool StartsWith(const char* p, const char* end, const char* literal) {
    const size_t n = std::strlen(literal);
    return static_cast<size_t>(end - p) >= n && std::memcmp(p, literal, n) == 0;
}

bool IsSpace(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }

std::string CodePointName(uint32_t cp) {
    char text[16];
    std::snprintf(text, sizeof text, "U+%04X", static_cast<unsigned>(cp));
    return text;
}

// Checks the reference at `p` ('&'): one of the five entities, or a
// character reference to a character that text may hold (a NUL can't, nor
// a non-character or half of a surrogate pair). No other entity is
// declared: a file whose document type declares some is refused too.
bool CheckReference(const char*& p, const char* end, std::string& error) {
    const char* q = p + 1;
    if (q < end && *q == '#') {
        ++q;
        const bool hex = q < end && *q == 'x';
        if (hex) ++q;
        uint64_t cp = 0;
        int digits = 0;
        for (; q < end && std::isxdigit(static_cast<unsigned char>(*q)) != 0 &&
               (hex || std::isdigit(static_cast<unsigned char>(*q)) != 0);
             ++q, ++digits) {
            const int d = std::isdigit(static_cast<unsigned char>(*q)) != 0 ? *q - '0' : (std::tolower(*q) - 'a' + 10);
            cp = std::min<uint64_t>(cp * (hex ? 16 : 10) + static_cast<uint64_t>(d), 0x7FFFFFFF);
        }
        if (digits == 0 || q >= end || *q != ';') {
            error = "a malformed character reference";
            return false;
        }
        if (cp == 0) {
            error = "a character reference to NUL (&#0;), which text can't hold";
            return false;
        }
        const bool nonCharacter = (cp >= 0xFDD0 && cp <= 0xFDEF) || (cp & 0xFFFE) == 0xFFFE;
        if (cp > 0x10FFFF || (cp >= 0xD800 && cp <= 0xDFFF) || nonCharacter) {
            error = "a character reference to " + (cp > 0x10FFFF ? std::string("a number beyond Unicode")
                                                                   : "the non-character " + CodePointName(static_cast<uint32_t>(cp)));
            return false;
        }
        p = q + 1;
        return true;
    }
    const char* nameEnd = q;
    while (nameEnd < end && *nameEnd != ';' && !IsSpace(*nameEnd) && *nameEnd != '<' && *nameEnd != '&' &&
           *nameEnd != '"' && *nameEnd != '\'' && nameEnd - q < 64)
        ++nameEnd;
    const std::string name(q, nameEnd);
    if (nameEnd >= end || *nameEnd != ';' || name.empty()) {
        error = "a bare '&' (write &amp;)";
        return false;
    }
    if (name != "amp" && name != "lt" && name != "gt" && name != "quot" && name != "apos") {
        error = "the undeclared entity &" + name + ";";
        return false;
    }
    p = nameEnd + 1;
    return true;
}

// What the full parser lets pass and a configuration file may not hold:
// references as above, and anything but comments, processing instructions
// and white space after the root element. A linear walk over the text;
// everything else is the parser's to judge. On a fault `offset` is where.
bool CheckMarkup(const char* text, size_t size, std::string& error, ptrdiff_t& offset) {
    const char* p = text;
    const char* const end = text + size;
    long depth = 0;
    bool rootClosed = false;
    const auto fail = [&](const char* at, std::string cause) {
        offset = at - text;
        error = std::move(cause);
        return false;
    };
    const auto skipPast = [&](const char* literal) {
        const char* found = std::search(p, end, literal, literal + std::strlen(literal));
        p = found == end ? end : found + std::strlen(literal);
    };
    while (p < end) {
        const char c = *p;
        if (c == '<') {
            if (StartsWith(p, end, "<!--")) {
                p += 4;
                skipPast("-->");
            } else if (StartsWith(p, end, "<![CDATA[")) {
                if (depth == 0) return fail(p, rootClosed ? "content after the root element" : "text before the root element");
                p += 9;
                skipPast("]]>");
            } else if (StartsWith(p, end, "<?")) {
                p += 2;
                skipPast("?>");
            } else if (StartsWith(p, end, "<!")) {
                // A document type declaration, with its internal subset.
                int brackets = 0;
                for (++p; p < end; ++p) {
                    if (*p == '[') ++brackets;
                    if (*p == ']') --brackets;
                    if (*p == '>' && brackets <= 0) break;
                }
                if (p < end) ++p;
            } else if (StartsWith(p, end, "</")) {
                if (depth == 0) return fail(p, "content after the root element");
                while (p < end && *p != '>') ++p;
                if (p < end) ++p;
                if (--depth == 0) rootClosed = true;
            } else {
                if (rootClosed) return fail(p, "content after the root element");
                const char* const tag = p;
                char quote = 0;
                for (++p; p < end; ++p) {
                    if (quote != 0) {
                        if (*p == quote) {
                            quote = 0;
                        } else if (*p == '&') {
                            const char* at = p;
                            if (!CheckReference(p, end, error)) return fail(at, error);
                            --p;
                        }
                    } else if (*p == '"' || *p == '\'') {
                        quote = *p;
                    } else if (*p == '>') {
                        break;
                    }
                }
                if (p >= end) return true;  // the parser names that fault
                const bool empty = p > tag && p[-1] == '/';
                ++p;
                if (!empty) {
                    ++depth;
                } else if (depth == 0) {
                    rootClosed = true;
                }
            }
        } else if (c == '&') {
            if (depth == 0) return fail(p, rootClosed ? "content after the root element" : "text before the root element");
            const char* at = p;
            if (!CheckReference(p, end, error)) return fail(at, error);
        } else {
            if (depth == 0 && !IsSpace(c))
                return fail(p, rootClosed ? "content after the root element" : "text before the root element");
            ++p;
        }
    }
    return true;
}

}  // namespace

std::string QoDtXmlFile::Position(const std::string& text, ptrdiff_t offset) {
    if (offset < 0) return std::string();
    const size_t end = std::min(static_cast<size_t>(offset), text.size());
    size_t line = 1;
    size_t column = 1;
    for (size_t i = 0; i < end; ++i) {
        const auto c = static_cast<unsigned char>(text[i]);
        if (c == '\n') {
            ++line;
            column = 1;
        } else if ((c & 0xC0) != 0x80) {
            ++column;
        }
    }
    return "line " + std::to_string(line) + ", column " + std::to_string(column) + ": ";
}

bool QoDtXmlFile::ToText(const QoDtDictionary& dict, std::string& text, std::string& error) {
    if (dict.GetDepth() > QoDtDictionary::kMaxDepth) {
        error = "dictionaries nest deeper than " + std::to_string(QoDtDictionary::kMaxDepth) +
                " levels; such a file could not be read back";
        return false;
    }
    std::string out;
    QoDtXmlTextOutput writer(out);
    writer.Open(kRootElement);
    std::string& version = writer.Buffer();
    version.clear();
    QoDtTextCodec::AppendInt(version, kFormatVersion);
    writer.Attribute("format", std::string_view(version));
    dict.WriteXml(writer);
    writer.Close();
    writer.Finish();
    if (out.size() > kMaxFileBytes) {
        error = "the file would be larger than " + std::to_string(kMaxFileBytes >> 20) +
                " MiB; such a file could not be read back";
        return false;
    }
    text.swap(out);
    return true;
}

bool QoDtXmlFile::Parse(QoDtDictionary& dict, char* text, size_t size, bool onePass, std::string& error,
                        ptrdiff_t& offset) {
    offset = -1;
    if (onePass && QoDtXmlReader::Read(dict, std::string_view(text, size))) return true;
    if (!CheckMarkup(text, size, error, offset)) {
        error = "not well-formed XML: " + error;
        return false;
    }
    pugi::xml_document document;
    // The text is UTF-8 by now, whatever the declaration says.
    const pugi::xml_parse_result parsed = document.load_buffer_inplace(text, size, kParseOptions, pugi::encoding_utf8);
    if (!parsed) {
        offset = parsed.offset;
        error = std::string("not well-formed XML: ") + parsed.description();
        return false;
    }
    const pugi::xml_node root = document.document_element();
    if (std::strcmp(root.name(), kRootElement) != 0) {
        error = std::string("not a configuration file: the root element is <") + root.name() + ">, not <" +
                kRootElement + ">";
        return false;
    }
    int format = 0;
    const pugi::xml_attribute formatAttribute = root.attribute("format");
    if (!formatAttribute || !QoDtTextCodec::ParseInt(formatAttribute.value(), format) || format < 1) {
        offset = root.offset_debug();
        error = "not a configuration file: no valid format version";
        return false;
    }
    if (format > kFormatVersion) {
        error = "format version " + std::to_string(format) + " is newer than this program reads (" +
                std::to_string(kFormatVersion) + ")";
        return false;
    }
    if (!QoDtTextCodec::TrimSpace(root.value()).empty()) {
        offset = root.offset_debug();
        error = std::string("unexpected text in <") + kRootElement + ">";
        return false;
    }
    pugi::xml_node tree;
    for (pugi::xml_node child : root.children()) {
        if (child.type() != pugi::node_element) {
            if (child.type() == pugi::node_pcdata && !QoDtTextCodec::TrimSpace(child.value()).empty()) {
                offset = root.offset_debug();
                error = std::string("unexpected text in <") + kRootElement + ">";
                return false;
            }
            continue;
        }
        if (tree || std::strcmp(child.name(), "dict") != 0) {
            offset = child.offset_debug();
            error = std::string("unexpected element <") + child.name() + "> in <" + kRootElement + ">; it holds one <dict>";
            return false;
        }
        tree = child;
    }
    if (!tree) {
        error = "the file holds no <dict>";
        return false;
    }
    _auto_ptr<QoUtXMLDOMNode> node(new QoUtXMLDOMNode(tree));
    if (!(dict << node)) {
        offset = node->GetErrorOffset();
        error = node->GetError();
        return false;
    }
    return true;
}

bool QoDtXmlFile::ReadText(QoDtDictionary& dict, const std::string& text, bool onePass, std::string& error) {
    std::vector<char> buffer(text.begin(), text.end());
    std::string encoding;
    if (!QoDtTextEncoding::ToUtf8(buffer, encoding, error)) return false;
    const std::string decoded(buffer.data(), buffer.size());
    ptrdiff_t offset = -1;
    if (Parse(dict, buffer.data(), buffer.size(), onePass, error, offset)) return true;
    error = Position(decoded, offset) + error;
    return false;
}

bool QoDtXmlFile::FromText(QoDtDictionary& dict, const std::string& text, std::string& error) {
    return ReadText(dict, text, true, error);
}

bool QoDtXmlFile::FromTextByDocument(QoDtDictionary& dict, const std::string& text, std::string& error) {
    return ReadText(dict, text, false, error);
}

bool QoDtXmlFile::Save(const QoDtDictionary& dict, const std::string& path, std::string& error,
                       const QoDtDiskFile::Check& check) {
    std::string text;
    return ToText(dict, text, error) && QoDtDiskFile::WriteAtomically(path, text, error, check);
}

bool QoDtXmlFile::Load(QoDtDictionary& dict, const std::string& path, std::string& error, std::string* encoding) {
    // The buffer is kept from load to load (up to kKeptBufferBytes, on each
    // thread). A large block taken afresh makes the allocator sort all its
    // small free blocks first, and the thousands of keys and values that the
    // tree then takes all come the slow way: that costs more than the read.
    static thread_local std::vector<char> buffer;
    const auto release = [] {
        if (buffer.capacity() > kKeptBufferBytes) std::vector<char>().swap(buffer);
    };
    std::string found;
    if (!QoDtDiskFile::Read(path, kMaxFileBytes, buffer, error) || !QoDtTextEncoding::ToUtf8(buffer, found, error)) {
        release();
        return false;
    }
    ptrdiff_t offset = -1;
    const bool parsed = Parse(dict, buffer.data(), buffer.size(), true, error, offset);
    release();
    if (parsed) {
        if (encoding != nullptr) *encoding = found;
        return true;
    }
    // The parse changed the text; the position is counted on a fresh read.
    std::vector<char> text;
    std::string ignored;
    if (offset >= 0 && QoDtDiskFile::Read(path, kMaxFileBytes, text, ignored) &&
        QoDtTextEncoding::ToUtf8(text, found, ignored))
        error = Position(std::string(text.data(), text.size()), offset) + error;
    return false;
}
