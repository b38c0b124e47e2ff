#include "zefra/config/QoDtDictDoubleItem.h"

#include "zefra/config/QoDtTextCodec.h"
#include "zefra/platform/mfc/CArchive.h"

void QoDtDictDoubleItem::CopyData(const QoDtDictItem& other) {
    CopyCommon(other);
    if (other.GetType() == GetType()) value = static_cast<const QoDtDictDoubleItem&>(other).value;
}

void QoDtDictDoubleItem::operator>>(_auto_ptr<QoUtXMLDOMNode>& node) const {
    WriteCommon(*node);
    std::string& text = node->Buffer();
    text.clear();
    QoDtTextCodec::AppendDouble(text, value);
    node->SetText(std::string_view(text));
}

bool QoDtDictDoubleItem::operator<<(_auto_ptr<QoUtXMLDOMNode>& node) {
    if (!ExpectTextOnly(*node)) return false;
    double parsed = 0.0;
    if (!QoDtTextCodec::ParseDouble(node->GetText(), parsed)) {
        node->Fail("not a number in " + Describe(node->Element()));
        return false;
    }
    TakeCommon(ReadCommon(*node));
    value = parsed;
    return true;
}

void QoDtDictDoubleItem::operator>>(CArchive& ar) const {
    WriteCommon(ar);
    ar << value;
}

bool QoDtDictDoubleItem::operator<<(CArchive& ar) {
    return ReadGuarded([&] {
        Common common = ReadCommon(ar);
        double parsed = 0.0;
        ar >> parsed;
        TakeCommon(std::move(common));
        value = parsed;
        return true;
    });
}
