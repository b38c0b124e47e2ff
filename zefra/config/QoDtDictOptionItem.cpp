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

void QoDtDictOptionItem::operator>>(_auto_ptr<QoUtXMLDOMNode>& node) const {
    WriteCommon(*node);
    std::string& text = node->Buffer();
    text.clear();
    QoDtTextCodec::AppendInt(text, selection);
    node->AppendChild("selection").text().set(text.data(), text.size());
    for (const CString* option = options.GetFirst(); option != nullptr; option = options.GetNext(option)) {
        text.clear();
        QoDtTextCodec::AppendUtf8(text, *option);
        pugi::xml_node choice = node->AppendChild("choice");
        if (!text.empty()) choice.text().set(text.data(), text.size());
    }
}

bool QoDtDictOptionItem::operator<<(_auto_ptr<QoUtXMLDOMNode>& node) {
    // Check everything first, so that a refused element changes nothing.
    int parsedSelection = -1;
    bool selectionSeen = false;
    QoUtXMLDOMNode part;
    for (pugi::xml_node child : node->Element().children()) {
        if (child.type() != pugi::node_element) {
            if (child.type() == pugi::node_pcdata && !QoDtTextCodec::TrimSpace(child.value()).empty()) {
                node->Fail("unexpected text in " + Describe(node->Element()));
                return false;
            }
            continue;
        }
        part.SetElement(child);
        const bool isSelection = std::strcmp(child.name(), "selection") == 0;
        const bool isChoice = std::strcmp(child.name(), "choice") == 0;
        if ((!isSelection && !isChoice) || (isSelection && selectionSeen)) {
            node->FailAt(child, "unexpected element <" + std::string(child.name()) + "> in " + Describe(node->Element()));
            return false;
        }
        if (!ExpectTextOnly(part)) {
            node->TakeFailure(part);
            return false;
        }
        if (isSelection && !QoDtTextCodec::ParseInt(part.GetText(), parsedSelection)) {
            node->FailAt(child, "the selection is not an integer in " + Describe(node->Element()));
            return false;
        }
        selectionSeen = selectionSeen || isSelection;
    }
    TakeCommon(ReadCommon(*node));
    options.Reset();
    for (pugi::xml_node choice = node->Element().child("choice"); choice; choice = choice.next_sibling("choice")) {
        part.SetElement(choice);
        const std::string_view text = part.GetText();
        options.Append(QoDtTextCodec::FromUtf8(text.data(), text.size()));
    }
    selection = parsedSelection;
    return true;
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
