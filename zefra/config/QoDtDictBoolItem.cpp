#include "zefra/config/QoDtDictBoolItem.h"

#include "zefra/config/QoDtTextCodec.h"
#include "zefra/platform/mfc/CArchive.h"

void QoDtDictBoolItem::CopyData(const QoDtDictItem& other) {
    CopyCommon(other);
    if (other.GetType() == GetType()) value = static_cast<const QoDtDictBoolItem&>(other).value;
}

void QoDtDictBoolItem::operator>>(_auto_ptr<QoUtXMLDOMNode>& node) const {
    WriteCommon(*node);
    if (value == 0 || value == 1) {
        node->SetText(std::string_view(value != 0 ? "true" : "false"));
        return;
    }
    std::string& text = node->Buffer();
    text.clear();
    QoDtTextCodec::AppendInt(text, value);
    node->SetText(std::string_view(text));
}

bool QoDtDictBoolItem::operator<<(_auto_ptr<QoUtXMLDOMNode>& node) {
    if (!ExpectTextOnly(*node)) return false;
    const std::string_view text = QoDtTextCodec::TrimSpace(node->GetText());
    int parsed = 0;
    if (text == "true") {
        parsed = 1;
    } else if (text != "false" && !QoDtTextCodec::ParseInt(text, parsed)) {
        node->Fail("a Boolean must be true or false in " + Describe(node->Element()));
        return false;
    }
    TakeCommon(ReadCommon(*node));
    value = parsed;
    return true;
}

void QoDtDictBoolItem::operator>>(CArchive& ar) const {
    WriteCommon(ar);
    ar << value;
}

bool QoDtDictBoolItem::operator<<(CArchive& ar) {
    return ReadGuarded([&] {
        Common common = ReadCommon(ar);
        int parsed = 0;
        ar >> parsed;
        TakeCommon(std::move(common));
        value = parsed;
        return true;
    });
}
