#include "zefra/config/QoUtXMLDOMNode.h"

void QoUtXMLDOMNode::Fail(const std::string& cause) { FailAt(m_element, cause); }

void QoUtXMLDOMNode::FailAt(pugi::xml_node element, const std::string& cause) {
    if (HasFailed()) return;
    m_error = cause;
    m_errorOffset = element.offset_debug();
}

void QoUtXMLDOMNode::TakeFailure(const QoUtXMLDOMNode& child) {
    if (HasFailed() || !child.HasFailed()) return;
    m_error = child.m_error;
    m_errorOffset = child.m_errorOffset;
}

std::string_view QoUtXMLDOMNode::GetText() {
    // The text at the start is the element's value; pieces after a CDATA
    // section or a comment are nodes.
    const char* const leading = m_element.value();
    pugi::xml_node piece = m_element.first_child();
    if (!piece) return leading;
    m_buffer = leading;
    for (; piece; piece = piece.next_sibling())
        if (piece.type() == pugi::node_pcdata || piece.type() == pugi::node_cdata) m_buffer += piece.value();
    return m_buffer;
}

_auto_ptr<QoUtXMLDOMNode>& QoUtXMLDOMNode::ChildNode() {
    if (!m_child) m_child.reset(new QoUtXMLDOMNode);
    m_child->m_depth = m_depth + 1;
    return m_child;
}
