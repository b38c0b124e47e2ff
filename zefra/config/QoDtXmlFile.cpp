#include "zefra/config/QoDtXmlFile.h"

#include "zefra/config/QoDtDictionary.h"
#include "zefra/config/QoDtDiskFile.h"
#include "zefra/config/QoDtTextCodec.h"

#include <pugixml.hpp>

#include <algorithm>
#include <cstring>
#include <memory>

namespace {

const char kRootElement[] = "zefra-config";

// Text is kept exactly: no end-of-line normalisation, and a value made only
// of white space stays.
constexpr unsigned kParseOptions = (pugi::parse_default | pugi::parse_ws_pcdata_single) & ~pugi::parse_eol;

class StringWriter : public pugi::xml_writer {
public:
    explicit StringWriter(std::string& out) : m_out(out) {}
    void write(const void* data, size_t size) override { m_out.append(static_cast<const char*>(data), size); }

private:
    std::string& m_out;
};

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
    pugi::xml_document document;
    pugi::xml_node declaration = document.append_child(pugi::node_declaration);
    declaration.append_attribute("version").set_value("1.0");
    declaration.append_attribute("encoding").set_value("UTF-8");
    pugi::xml_node root = document.append_child(kRootElement);
    root.append_attribute("format").set_value(kFormatVersion);
    _auto_ptr<QoUtXMLDOMNode> node(new QoUtXMLDOMNode(root.append_child(pugi::node_element)));
    dict >> node;

    std::string out;
    StringWriter writer(out);
    document.save(writer, "  ", pugi::format_indent, pugi::encoding_utf8);
    if (out.size() > kMaxFileBytes) {
        error = "the file would be larger than " + std::to_string(kMaxFileBytes >> 20) +
                " MiB; such a file could not be read back";
        return false;
    }
    text.swap(out);
    return true;
}

bool QoDtXmlFile::Parse(QoDtDictionary& dict, char* text, size_t size, std::string& error, ptrdiff_t& offset) {
    offset = -1;
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

bool QoDtXmlFile::FromText(QoDtDictionary& dict, const std::string& text, std::string& error) {
    std::string buffer(text);
    ptrdiff_t offset = -1;
    if (Parse(dict, buffer.data(), buffer.size(), error, offset)) return true;
    error = Position(text, offset) + error;
    return false;
}

bool QoDtXmlFile::Save(const QoDtDictionary& dict, const std::string& path, std::string& error) {
    std::string text;
    return ToText(dict, text, error) && QoDtDiskFile::WriteAtomically(path, text, error);
}

bool QoDtXmlFile::Load(QoDtDictionary& dict, const std::string& path, std::string& error) {
    std::unique_ptr<char[]> buffer;
    size_t size = 0;
    if (!QoDtDiskFile::Read(path, kMaxFileBytes, buffer, size, error)) return false;
    ptrdiff_t offset = -1;
    if (Parse(dict, buffer.get(), size, error, offset)) return true;
    // The parse changed the text; the position is counted on a fresh read.
    std::string text;
    std::string ignored;
    if (offset >= 0 && QoDtDiskFile::Read(path, kMaxFileBytes, text, ignored)) error = Position(text, offset) + error;
    return false;
}
