#pragma once
#include "zefra/ZefraExport.h"
// The store's XML node: one element of a configuration file, as the items
// read themselves from it (and, through QoDtXmlDomOutput, write themselves
// into it). A thin handle on a pugixml element, plus what a reader keeps
// from element to element: a buffer, the depth, the first failure.

#include "zefra/platform/mfc/CString.h"

#include <pugixml.hpp>

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

class QoUtXMLDOMNode;

// The items take their node through this owning pointer; a writer or reader
// points one node object at one element after the other.
template <typename T>
using _auto_ptr = std::unique_ptr<T>;

class ZEFRA_API QoUtXMLDOMNode {
public:
    explicit QoUtXMLDOMNode(pugi::xml_node element = pugi::xml_node()) : m_element(element) {}

    pugi::xml_node Element() const { return m_element; }
    void SetElement(pugi::xml_node element) { m_element = element; }

    const char* GetTag() const { return m_element.name(); }

    // The element's text, its value (see QoDtXmlFile) and its text and CDATA
    // nodes joined.
    std::string_view GetText();

    // Where the element starts in the parsed text, for messages; -1 if unknown.
    ptrdiff_t GetSourceOffset() const { return m_element.offset_debug(); }

    // Scratch space for conversions, kept to save allocations.
    std::string& Buffer() { return m_buffer; }

    // A node object for the children of this element, made once and then
    // pointed at one child after the other.
    _auto_ptr<QoUtXMLDOMNode>& ChildNode();

    // Reading keeps count of how deep dictionaries nest, and the first
    // failure with the place where it happened.
    int GetDepth() const { return m_depth; }
    void SetDepth(int depth) { m_depth = depth; }
    void Fail(const std::string& cause);
    void FailAt(pugi::xml_node element, const std::string& cause);
    bool HasFailed() const { return !m_error.empty(); }
    const std::string& GetError() const { return m_error; }
    ptrdiff_t GetErrorOffset() const { return m_errorOffset; }
    // Takes over the failure of a node that read a child element.
    void TakeFailure(const QoUtXMLDOMNode& child);

private:
    pugi::xml_node m_element;
    std::string m_buffer;
    _auto_ptr<QoUtXMLDOMNode> m_child;
    int m_depth = 1;
    std::string m_error;
    ptrdiff_t m_errorOffset = -1;
};
