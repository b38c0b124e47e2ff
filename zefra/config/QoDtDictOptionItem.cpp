#include "zefra/config/QoDtDictOptionItem.h"

#include "zefra/config/QoDtTextCodec.h"
#include "zefra/platform/mfc/CArchive.h"

#include <cstring>

namespace {
// More texts than this in one archived option means the data is damaged.
constexpr uint64_t kMaxArchiveOptions = 1u << 24;
}  // namespace

void QoDtDictOptionItem::CopyData(const QoDtDictItem& other) {
    CopyCommon(other);
    if (other.GetType() != GetType() || &other == this) return;
    const auto& option = static_cast<const QoDtDictOptionItem&>(other);
    options = option.options;
    selection = option.selection;
}

CString QoDtDictOptionItem::GetSelectedText() const {
    const CString* text = options.GetTo(selection);
    return text != nullptr ? *text : CString();
}

void QoDtDictOptionItem::WriteXml(QoDtXmlOutput& out) const {
    WriteStartXml(out);
    std::string& text = out.Buffer();
    text.clear();
    QoDtTextCodec::AppendInt(text, selection);
    out.Open("selection");
    out.Text(std::string_view(text));
    out.Close();
    for (const CString* option = options.GetFirst(); option != nullptr; option = options.GetNext(option)) {
        out.Open("choice");
        out.Text(*option);
        out.Close();
    }
    out.Close();
}

bool QoDtDictOptionItem::ReadXml(QoUtXMLDOMNode& node) {
    bool selectionSeen = false;
    if (!QoDtTextCodec::TrimSpace(node.Element().value()).empty()) {
        node.Fail("unexpected text in " + Describe(node.Element()));
        return false;
    }
    QoUtXMLDOMNode part;
    for (pugi::xml_node child = node.Element().first_child(); child; child = child.next_sibling()) {
        const pugi::xml_node_type kind = child.type();
        if (kind != pugi::node_element) {
            if (kind == pugi::node_pcdata && !QoDtTextCodec::TrimSpace(child.value()).empty()) {
                node.Fail("unexpected text in " + Describe(node.Element()));
                return false;
            }
            continue;
        }
        const bool isSelection = std::strcmp(child.name(), "selection") == 0;
        const bool isChoice = !isSelection && std::strcmp(child.name(), "choice") == 0;
        if ((!isSelection && !isChoice) || (isSelection && selectionSeen)) {
            node.FailAt(child, "unexpected element <" + std::string(child.name()) + "> in " + Describe(node.Element()));
            return false;
        }
        part.SetElement(child);
        std::string_view text;
        if (!ReadTextOnly(part, text)) {
            node.TakeFailure(part);
            return false;
        }
        if (isChoice) {
            options.Append(QoDtTextCodec::FromUtf8(text.data(), text.size()));
        } else if (!QoDtTextCodec::ParseInt(text, selection)) {
            node.FailAt(child, "the selection is not an integer in " + Describe(node.Element()));
            return false;
        } else {
            selectionSeen = true;
        }
    }
    return ReadCommonXml(node);
}

void QoDtDictOptionItem::operator>>(CArchive& ar) const {
    WriteCommon(ar);
    ar << selection;
    ar.WriteCount(static_cast<uint64_t>(options.GetLength()));
    for (const CString* option = options.GetFirst(); option != nullptr; option = options.GetNext(option)) ar << *option;
}

bool QoDtDictOptionItem::operator<<(CArchive& ar) {
    return ReadGuarded([&] {
        Common common = ReadCommon(ar);
        int parsedSelection = -1;
        ar >> parsedSelection;
        const uint64_t count = ar.ReadCount();
        if (count > kMaxArchiveOptions) return false;
        QoList<CString> parsedOptions;
        for (uint64_t k = 0; k < count; ++k) parsedOptions.Append(ar.ReadString());
        TakeCommon(std::move(common));
        options = parsedOptions;
        selection = parsedSelection;
        return true;
    });
}
