#include "zefra/config/QoDtDictItem.h"

#include "zefra/config/QoDtDictBoolItem.h"
#include "zefra/config/QoDtDictDoubleArrayItem.h"
#include "zefra/config/QoDtDictDoubleItem.h"
#include "zefra/config/QoDtDictIntItem.h"
#include "zefra/config/QoDtDictOptionItem.h"
#include "zefra/config/QoDtDictStringItem.h"
#include "zefra/config/QoDtDictionary.h"
#include "zefra/config/QoDtTextCodec.h"
#include "zefra/platform/mfc/CArchive.h"

#include <cstring>
#include <memory>
#include <utility>

namespace {

const wchar_t kNameAttribute[] = L"name";
const wchar_t kLocalNameAttribute[] = L"localname";

bool IsNameAttribute(const wchar_t* attribute) { return attribute != nullptr && std::wcscmp(attribute, kNameAttribute) == 0; }
bool IsLocalNameAttribute(const wchar_t* attribute) {
    return attribute != nullptr && std::wcscmp(attribute, kLocalNameAttribute) == 0;
}

bool IsBlank(const char* text) {
    for (; *text != '\0'; ++text)
        if (*text != ' ' && *text != '\t' && *text != '\n' && *text != '\r') return false;
    return true;
}

// An archive holds at most this many attributes on one item; more means
// the data is damaged.
constexpr uint64_t kMaxArchiveAttributes = 1u << 20;

}  // namespace

void QoDtDictItem::CopyData(const QoDtDictItem& other) { CopyCommon(other); }

void QoDtDictItem::CopyCommon(const QoDtDictItem& other) {
    if (&other == this) return;
    name = other.name;
    localname = other.localname;
    m_attributes = other.m_attributes;
}

void QoDtDictItem::operator>>(_auto_ptr<QoUtXMLDOMNode>& node) const {
    QoDtXmlDomOutput out(node->Element());
    WriteXml(out);
}

void QoDtDictItem::operator>>(CArchive& ar) const { WriteCommon(ar); }

bool QoDtDictItem::operator<<(_auto_ptr<QoUtXMLDOMNode>& node) {
    std::unique_ptr<QoDtDictItem> fresh(Create(GetType()));
    if (!fresh->ReadXml(*node)) return false;
    CopyData(*fresh);
    return true;
}

bool QoDtDictItem::operator<<(CArchive& ar) {
    return ReadGuarded([&] {
        TakeCommon(ReadCommon(ar));
        return true;
    });
}

void QoDtDictItem::WriteXml(QoDtXmlOutput& out) const {
    WriteStartXml(out);
    out.Close();
}

bool QoDtDictItem::ReadXml(QoUtXMLDOMNode& node) {
    if (!ExpectNoContent(node)) return false;
    return ReadCommonXml(node);
}

void QoDtDictItem::WriteStartXml(QoDtXmlOutput& out) const {
    out.Open(GetTypeName(GetType()));
    out.Attribute("name", name);
    if (!localname.IsEmpty()) out.Attribute("localname", localname);
    m_attributes.ForEach([&out](const CString& attribute, const CString& value) {
        std::string& xmlName = out.NameBuffer();
        xmlName.clear();
        QoDtTextCodec::AppendXmlName(xmlName, attribute);
        out.Attribute(xmlName.c_str(), value);
    });
}

bool QoDtDictItem::ReadCommonXml(QoUtXMLDOMNode& node) {
    const pugi::xml_node element = node.Element();
    unsigned seen = 0;
    for (pugi::xml_attribute attribute = element.first_attribute(); attribute; attribute = attribute.next_attribute()) {
        const char* const text = attribute.value();
        if (!TakeXmlAttribute(attribute.name(), QoDtTextCodec::FromUtf8(text, std::strlen(text)), seen)) {
            node.FailAt(element, "the attribute " + std::string(attribute.name()) + " of " + Describe(element) +
                                     " repeats a name given before (names are compared unescaped)");
            return false;
        }
    }
    return true;
}

bool QoDtDictItem::TakeXmlAttribute(std::string_view xmlName, CString&& value, unsigned& seen) {
    constexpr unsigned kNameSeen = 1;
    constexpr unsigned kLocalNameSeen = 2;
    if (xmlName == "name") {
        if ((seen & kNameSeen) != 0) return false;
        seen |= kNameSeen;
        // The item is new and in no list yet, so no list needs telling.
        static_cast<CString&>(name) = std::move(value);
    } else if (xmlName == "localname") {
        if ((seen & kLocalNameSeen) != 0) return false;
        seen |= kLocalNameSeen;
        localname = std::move(value);
    } else {
        CString attribute = QoDtTextCodec::FromXmlName(xmlName);
        if (attribute == kNameAttribute || attribute == kLocalNameAttribute) return false;
        if (m_attributes.Find(attribute.GetString()) != nullptr) return false;
        // Most rows carry two attributes.
        if (m_attributes.GetCount() == 0) m_attributes.Reserve(2);
        m_attributes.Set(std::move(attribute), std::move(value));
    }
    return true;
}

bool QoDtDictItem::ReadXmlValue(std::string_view, std::string* cause) {
    if (cause != nullptr) *cause = "no text expected";
    return false;
}

bool QoDtDictItem::ReadTextElement(QoUtXMLDOMNode& node) {
    std::string_view text;
    if (!ReadTextOnly(node, text)) return false;
    std::string cause;
    if (!ReadXmlValue(text, &cause)) {
        node.Fail(cause + " in " + Describe(node.Element()));
        return false;
    }
    return ReadCommonXml(node);
}

void QoDtDictItem::WriteCommon(CArchive& ar) const {
    ar << static_cast<const CString&>(name) << localname;
    ar.WriteCount(static_cast<uint64_t>(m_attributes.GetCount()));
    m_attributes.ForEach([&ar](const CString& attribute, const CString& value) { ar << attribute << value; });
}

QoDtDictItem::Common QoDtDictItem::ReadCommon(CArchive& ar) {
    Common common;
    ar >> common.name >> common.localname;
    const uint64_t count = ar.ReadCount();
    if (count > kMaxArchiveAttributes) throw CArchiveException("implausible number of attributes");
    for (uint64_t k = 0; k < count; ++k) {
        CString attribute;
        CString value;
        ar >> attribute >> value;
        common.attributes.Set(attribute, value);
    }
    return common;
}

void QoDtDictItem::TakeCommon(Common&& common) {
    name = std::move(common.name);
    localname = std::move(common.localname);
    m_attributes = std::move(common.attributes);
}

bool QoDtDictItem::ExpectNoContent(QoUtXMLDOMNode& node) {
    if (!IsBlank(node.Element().value())) {
        node.FailAt(node.Element(), "unexpected content in " + Describe(node.Element()));
        return false;
    }
    for (pugi::xml_node child : node.Element().children()) {
        const bool blankText = (child.type() == pugi::node_pcdata || child.type() == pugi::node_cdata) && IsBlank(child.value());
        if (!blankText && child.type() != pugi::node_comment && child.type() != pugi::node_pi) {
            node.FailAt(child.type() == pugi::node_element ? child : node.Element(),
                        "unexpected content in " + Describe(node.Element()));
            return false;
        }
    }
    return true;
}

bool QoDtDictItem::ReadTextOnly(QoUtXMLDOMNode& node, std::string_view& text) {
    // Mostly the element's value and nothing else (see QoDtXmlFile).
    const pugi::xml_node first = node.Element().first_child();
    if (!first) {
        text = node.Element().value();
        return true;
    }
    for (pugi::xml_node child = first; child; child = child.next_sibling()) {
        if (child.type() == pugi::node_element) {
            node.FailAt(child, "unexpected element <" + std::string(child.name()) + "> in " + Describe(node.Element()));
            return false;
        }
    }
    text = node.GetText();
    return true;
}

std::string QoDtDictItem::Describe(pugi::xml_node element) {
    std::string text = "<";
    text += element.name();
    if (pugi::xml_attribute key = element.attribute("name")) {
        text += " name=\"";
        text += key.value();
        text += "\"";
    }
    text += ">";
    return text;
}

CString QoDtDictItem::GetAttributeValue(const wchar_t* attribute) const {
    if (IsNameAttribute(attribute)) return name;
    if (IsLocalNameAttribute(attribute)) return localname;
    const CString* value = attribute != nullptr ? m_attributes.Find(attribute) : nullptr;
    return value != nullptr ? *value : CString();
}

double QoDtDictItem::GetAttributeDoubleValue(const wchar_t* attribute) const {
    return QoDtTextCodec::LeadingDouble(GetAttributeValue(attribute));
}

int QoDtDictItem::GetAttributeIntValue(const wchar_t* attribute) const {
    return QoDtTextCodec::LeadingInt(GetAttributeValue(attribute));
}

bool QoDtDictItem::GetAttributeBoolValue(const wchar_t* attribute) const {
    CString text = GetAttributeValue(attribute);
    text.Trim();
    if (text.CompareNoCase(L"true") == 0 || text.CompareNoCase(L"yes") == 0) return true;
    return QoDtTextCodec::LeadingInt(text) != 0;
}

void QoDtDictItem::SetAttributeValue(const wchar_t* attribute, const wchar_t* value) {
    if (attribute == nullptr) return;
    const CString text(value != nullptr ? value : L"");
    if (IsNameAttribute(attribute)) {
        name = text;
    } else if (IsLocalNameAttribute(attribute)) {
        localname = text;
    } else {
        m_attributes.Set(attribute, text);
    }
}

void QoDtDictItem::SetAttributeDoubleValue(const wchar_t* attribute, double value) {
    std::string text;
    QoDtTextCodec::AppendDouble(text, value);
    SetAttributeValue(attribute, QoDtTextCodec::FromUtf8(text));
}

void QoDtDictItem::SetAttributeIntValue(const wchar_t* attribute, int value) {
    std::string text;
    QoDtTextCodec::AppendInt(text, value);
    SetAttributeValue(attribute, QoDtTextCodec::FromUtf8(text));
}

void QoDtDictItem::SetAttributeBoolValue(const wchar_t* attribute, bool value) {
    SetAttributeValue(attribute, value ? L"true" : L"false");
}

bool QoDtDictItem::HasAttribute(const wchar_t* attribute) const {
    if (IsNameAttribute(attribute)) return !name.IsEmpty();
    if (IsLocalNameAttribute(attribute)) return !localname.IsEmpty();
    return attribute != nullptr && m_attributes.Find(attribute) != nullptr;
}

bool QoDtDictItem::RemoveAttribute(const wchar_t* attribute) {
    if (IsNameAttribute(attribute)) {
        name.Empty();
        return true;
    }
    if (IsLocalNameAttribute(attribute)) {
        localname.Empty();
        return true;
    }
    return attribute != nullptr && m_attributes.Remove(attribute);
}

QoDtDictItem* QoDtDictItem::Create(int type) {
    switch (type) {
        case eDtBool: return new QoDtDictBoolItem;
        case eDtInt: return new QoDtDictIntItem;
        case eDtDouble: return new QoDtDictDoubleItem;
        case eDtRow: return new QoDtDictItem;
        case eDtString: return new QoDtDictStringItem;
        case eDtOption: return new QoDtDictOptionItem;
        case eDtDoubleArray: return new QoDtDictDoubleArrayItem;
        case eDtDictionary: return new QoDtDictionary;
        default: return nullptr;
    }
}

QoDtDictItem* QoDtDictItem::Clone() const {
    std::unique_ptr<QoDtDictItem> copy(Create(GetType()));
    if (copy) copy->CopyData(*this);
    return copy.release();
}

const char* QoDtDictItem::GetTypeName(int type) {
    switch (type) {
        case eDtBool: return "bool";
        case eDtInt: return "int";
        case eDtDouble: return "double";
        case eDtRow: return "item";
        case eDtString: return "string";
        case eDtOption: return "option";
        case eDtDoubleArray: return "doubles";
        case eDtDictionary: return "dict";
        default: return nullptr;
    }
}

int QoDtDictItem::GetTypeFromName(std::string_view typeName) {
    // Every element of a file comes through here: tell the names apart by
    // their first letter before comparing the whole.
    int type = 0;
    switch (typeName.empty() ? '\0' : typeName.front()) {
        case 'b': type = eDtBool; break;
        case 'i': type = typeName.size() == 3 ? eDtInt : eDtRow; break;
        case 'd': type = typeName.size() == 4 ? eDtDictionary : typeName.size() == 6 ? eDtDouble : eDtDoubleArray; break;
        case 's': type = eDtString; break;
        case 'o': type = eDtOption; break;
        default: return 0;
    }
    return typeName == GetTypeName(type) ? type : 0;
}
