#include "zefra/config/QoDtDictIntItem.h"

#include "zefra/config/QoDtTextCodec.h"
#include "zefra/platform/mfc/CArchive.h"

void QoDtDictIntItem::CopyData(const QoDtDictItem& other) {
    CopyCommon(other);
    if (other.GetType() == GetType()) value = static_cast<const QoDtDictIntItem&>(other).value;
}

void QoDtDictIntItem::operator>>(_auto_ptr<QoUtXMLDOMNode>& node) const {
    WriteCommon(*node);
    std::string& text = node->Buffer();
    text.clear();
    QoDtTextCodec::AppendInt(text, value);
    node->SetText(std::string_view(text));
}

bool QoDtDictIntItem::operator<<(_auto_ptr<QoUtXMLDOMNode>& node) {
    if (!ExpectTextOnly(*node)) return false;
    int parsed = 0;
    if (!QoDtTextCodec::ParseInt(node->GetText(), parsed)) {
        node->Fail("not a 32-bit integer in " + Describe(node->Element()));
        return false;
    }
    TakeCommon(ReadCommon(*node));
    value = parsed;
    return true;
}

void QoDtDictIntItem::operator>>(CArchive& ar) const {
    WriteCommon(ar);
    ar << value;
}

bool QoDtDictIntItem::operator<<(CArchive& ar) {
    return ReadGuarded([&] {
        Common common = ReadCommon(ar);
        int parsed = 0;
        ar >> parsed;
        TakeCommon(std::move(common));
        value = parsed;
        return true;
    });
}
