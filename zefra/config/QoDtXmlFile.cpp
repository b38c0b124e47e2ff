#include "zefra/config/QoDtXmlFile.h"

#include "zefra/config/QoDtDictionary.h"
#include "zefra/config/QoDtDiskFile.h"
#include "zefra/config/QoDtTextCodec.h"
#include "zefra/config/QoDtXmlOutput.h"
#include "zefra/config/QoDtXmlReader.h"

#include <pugixml.hpp>

#include <algorithm>
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
    pugi::xml_document document;
    const pugi::xml_parse_result parsed = document.load_buffer_inplace(text, size, kParseOptions, pugi::encoding_auto);
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
    std::string buffer(text);
    ptrdiff_t offset = -1;
    if (Parse(dict, buffer.data(), buffer.size(), onePass, error, offset)) return true;
    error = Position(text, offset) + error;
    return false;
}

bool QoDtXmlFile::FromText(QoDtDictionary& dict, const std::string& text, std::string& error) {
    return ReadText(dict, text, true, error);
}

bool QoDtXmlFile::FromTextByDocument(QoDtDictionary& dict, const std::string& text, std::string& error) {
    return ReadText(dict, text, false, error);
}

bool QoDtXmlFile::Save(const QoDtDictionary& dict, const std::string& path, std::string& error) {
    std::string text;
    return ToText(dict, text, error) && QoDtDiskFile::WriteAtomically(path, text, error);
}

bool QoDtXmlFile::Load(QoDtDictionary& dict, const std::string& path, std::string& error) {
    // The buffer is kept from load to load (up to kKeptBufferBytes, on each
    // thread). A large block taken afresh makes the allocator sort all its
    // small free blocks first, and the thousands of keys and values that the
    // tree then takes all come the slow way: that costs more than the read.
    static thread_local std::vector<char> buffer;
    const auto release = [] {
        if (buffer.capacity() > kKeptBufferBytes) std::vector<char>().swap(buffer);
    };
    if (!QoDtDiskFile::Read(path, kMaxFileBytes, buffer, error)) {
        release();
        return false;
    }
    ptrdiff_t offset = -1;
    const bool parsed = Parse(dict, buffer.data(), buffer.size(), true, error, offset);
    release();
    if (parsed) return true;
    // The parse changed the text; the position is counted on a fresh read.
    std::string text;
    std::string ignored;
    if (offset >= 0 && QoDtDiskFile::Read(path, kMaxFileBytes, text, ignored)) error = Position(text, offset) + error;
    return false;
}
