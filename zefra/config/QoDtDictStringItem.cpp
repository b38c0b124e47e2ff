#include "zefra/config/QoDtDictStringItem.h"

#include "zefra/config/QoDtTextCodec.h"
#include "zefra/platform/mfc/CArchive.h"

void QoDtDictStringItem::CopyData(const QoDtDictItem& other) {
    CopyCommon(other);
    if (other.GetType() == GetType()) value = static_cast<const QoDtDictStringItem&>(other).value;
}

void QoDtDictStringItem::WriteXml(QoDtXmlOutput& out) const {
    WriteStartXml(out);
    out.Text(value);
    out.Close();
}

bool QoDtDictStringItem::ReadXml(QoUtXMLDOMNode& node) { return ReadTextElement(node); }

bool QoDtDictStringItem::ReadXmlValue(std::string_view text, std::string* cause) {
    (void)cause;
    value = QoDtTextCodec::FromUtf8(text.data(), text.size());
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
