#include "zefra/config/QoDtDictStringItem.h"

#include "zefra/config/QoDtTextCodec.h"
#include "zefra/platform/mfc/CArchive.h"

void QoDtDictStringItem::CopyData(const QoDtDictItem& other) {
    CopyCommon(other);
    if (other.GetType() == GetType()) value = static_cast<const QoDtDictStringItem&>(other).value;
}

void QoDtDictStringItem::operator>>(_auto_ptr<QoUtXMLDOMNode>& node) const {
    WriteCommon(*node);
    if (!value.IsEmpty()) node->SetText(value);
}

bool QoDtDictStringItem::operator<<(_auto_ptr<QoUtXMLDOMNode>& node) {
    if (!ExpectTextOnly(*node)) return false;
    const std::string_view text = node->GetText();
    CString parsed = QoDtTextCodec::FromUtf8(text.data(), text.size());
    TakeCommon(ReadCommon(*node));
    value = std::move(parsed);
    return true;
}

void QoDtDictStringItem::operator>>(CArchive& ar) const {
    WriteCommon(ar);
    ar << value;
}

bool QoDtDictStringItem::operator<<(CArchive& ar) {
    return ReadGuarded([&] {
        Common common = ReadCommon(ar);
        CString parsed;
        ar >> parsed;
        TakeCommon(std::move(common));
        value = std::move(parsed);
        return true;
    });
}
