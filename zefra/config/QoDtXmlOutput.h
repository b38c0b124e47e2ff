#pragma once
#include "zefra/ZefraExport.h"
// Where items write their XML: one element after the other, as a stream of
// calls. Open starts an element inside the current one, its attributes
// follow, then either a text or child elements, then Close.
//
// Two outputs take the same calls: QoDtXmlTextOutput writes the text of a
// configuration file straight away, and QoDtXmlDomOutput builds pugixml
// elements (for `item >> node`). Saving the built elements with pugixml
// (indent of two spaces) gives the very text that the text output writes,
// byte for byte.

#include "zefra/platform/mfc/CString.h"

#include <pugixml.hpp>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

class ZEFRA_API QoDtXmlOutput {
public:
    virtual ~QoDtXmlOutput() = default;

    virtual void Open(const char* tag) = 0;
    // An attribute of the element just opened; the name is a valid XML name.
    // Values and texts are UTF-8, or wide text that is written as UTF-8.
    virtual void Attribute(const char* xmlName, std::string_view value) = 0;
    virtual void Attribute(const char* xmlName, const CString& value) = 0;
    // The element's text. An empty text adds nothing; a text stops at its
    // first NUL, which XML can't carry.
    virtual void Text(std::string_view text) = 0;
    virtual void Text(const CString& text) = 0;
    virtual void Close() = 0;

    // Scratch space for conversions, reused from item to item.
    std::string& Buffer() { return m_buffer; }
    std::string& NameBuffer() { return m_nameBuffer; }

private:
    std::string m_buffer;
    std::string m_nameBuffer;
};

// Writes a whole document into a string: the XML declaration, the elements
// indented by two spaces a level, a text on the line of its element, an
// empty element as <tag ... />, and a line end after the last element. The
// string holds the document once Finish is called.
class ZEFRA_API QoDtXmlTextOutput : public QoDtXmlOutput {
public:
    explicit QoDtXmlTextOutput(std::string& out);

    void Open(const char* tag) override;
    void Attribute(const char* xmlName, std::string_view value) override;
    void Attribute(const char* xmlName, const CString& value) override;
    void Text(std::string_view text) override;
    void Text(const CString& text) override;
    void Close() override;
    // Ends the document once every element is closed.
    void Finish();

private:
    // Room for `n` more bytes at the end of what was written. The string is
    // grown ahead in large steps and written through a pointer; Finish cuts
    // it to the bytes written.
    char* Room(size_t n) {
        if (m_out.size() - m_size < n) Grow(n);
        return &m_out[m_size];
    }
    void Grow(size_t n);
    void Put(const char* bytes, size_t n);
    void Put(std::string_view bytes) { Put(bytes.data(), bytes.size()); }
    void PutIndent(size_t depth);
    template <typename Chars>
    void PutEscaped(const Chars& text, unsigned char where);
    void EndStartTag();

    std::string& m_out;
    size_t m_size = 0;
    std::vector<const char*> m_open;  // tags of the open elements, outermost first
    bool m_inStartTag = false;        // the current element's start tag still takes attributes
    bool m_hasText = false;           // the current element holds a text
};

// Writes into pugixml elements. The first Open names the element that the
// output was made on; later ones add children below the current element.
class ZEFRA_API QoDtXmlDomOutput : public QoDtXmlOutput {
public:
    explicit QoDtXmlDomOutput(pugi::xml_node element) : m_element(element) {}

    void Open(const char* tag) override;
    void Attribute(const char* xmlName, std::string_view value) override;
    void Attribute(const char* xmlName, const CString& value) override;
    void Text(std::string_view text) override;
    void Text(const CString& text) override;
    void Close() override;

private:
    pugi::xml_node m_element;
    int m_depth = 0;
};
