#include "zefra/config/QoUtXMLDOMNode.h"

#include "zefra/config/QoDtTextCodec.h"

void QoUtXMLDOMNode::AddAttribute(const char* xmlName, const CString& value) {
    m_buffer.clear();
    QoDtTextCodec::AppendUtf8(m_buffer, value);
    m_element.append_attribute(xmlName).set_value(m_buffer.data(), m_buffer.size());
}

void QoUtXMLDOMNode::AddStoreAttribute(const CString& name, const CString& value) {
    m_buffer.clear();
    QoDtTextCodec::AppendXmlName(m_buffer, name);
    pugi::xml_attribute attribute = m_element.append_attribute(m_buffer.c_str());
    m_buffer.clear();
    QoDtTextCodec::AppendUtf8(m_buffer, value);
    attribute.set_value(m_buffer.data(), m_buffer.size());
}

void QoUtXMLDOMNode::SetText(const CString& text) {
    m_buffer.clear();
    QoDtTextCodec::AppendUtf8(m_buffer, text);
    m_element.text().set(m_buffer.data(), m_buffer.size());
}

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
    pugi::xml_node first = m_element.first_child();
    if (!first) return std::string_view();
    if (!first.next_sibling()) return first.type() == pugi::node_element ? std::string_view() : first.value();
    m_buffer.clear();
    for (pugi::xml_node piece : m_element.children())
        if (piece.type() == pugi::node_pcdata || piece.type() == pugi::node_cdata) m_buffer += piece.value();
    return m_buffer;
}

_auto_ptr<QoUtXMLDOMNode>& QoUtXMLDOMNode::ChildNode() {
    if (!m_child) m_child.reset(new QoUtXMLDOMNode);
    m_child->m_depth = m_depth + 1;
    return m_child;
}
