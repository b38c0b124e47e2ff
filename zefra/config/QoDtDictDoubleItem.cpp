#include "zefra/config/QoDtDictDoubleItem.h"

#include "zefra/config/QoDtTextCodec.h"
#include "zefra/platform/mfc/CArchive.h"

void QoDtDictDoubleItem::CopyData(const QoDtDictItem& other) {
    CopyCommon(other);
    if (other.GetType() == GetType()) value = static_cast<const QoDtDictDoubleItem&>(other).value;
}

void QoDtDictDoubleItem::WriteXml(QoDtXmlOutput& out) const {
    WriteStartXml(out);
    std::string& text = out.Buffer();
    text.clear();
    QoDtTextCodec::AppendDouble(text, value);
    out.Text(std::string_view(text));
    out.Close();
}

bool QoDtDictDoubleItem::ReadXml(QoUtXMLDOMNode& node) { return ReadTextElement(node); }

bool QoDtDictDoubleItem::ReadXmlValue(std::string_view text, std::string* cause) {
    if (QoDtTextCodec::ParseDouble(text, value)) return true;
    if (cause != nullptr) *cause = "not a number";
    return false;
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
