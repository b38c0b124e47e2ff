#include "zefra/config/QoDtDictIntItem.h"

#include "zefra/config/QoDtTextCodec.h"
#include "zefra/platform/mfc/CArchive.h"

void QoDtDictIntItem::CopyData(const QoDtDictItem& other) {
    CopyCommon(other);
    if (other.GetType() == GetType()) value = static_cast<const QoDtDictIntItem&>(other).value;
}

void QoDtDictIntItem::WriteXml(QoDtXmlOutput& out) const {
    WriteStartXml(out);
    std::string& text = out.Buffer();
    text.clear();
    QoDtTextCodec::AppendInt(text, value);
    out.Text(std::string_view(text));
    out.Close();
}

bool QoDtDictIntItem::ReadXml(QoUtXMLDOMNode& node) { return ReadTextElement(node); }

bool QoDtDictIntItem::ReadXmlValue(std::string_view text, std::string* cause) {
    if (QoDtTextCodec::ParseInt(text, value)) return true;
    if (cause != nullptr) *cause = "not a 32-bit integer";
    return false;
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
