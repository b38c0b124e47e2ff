#include "zefra/config/QoDtDictBoolItem.h"

#include "zefra/config/QoDtTextCodec.h"
#include "zefra/platform/mfc/CArchive.h"

void QoDtDictBoolItem::CopyData(const QoDtDictItem& other) {
    CopyCommon(other);
    if (other.GetType() == GetType()) value = static_cast<const QoDtDictBoolItem&>(other).value;
}

void QoDtDictBoolItem::WriteXml(QoDtXmlOutput& out) const {
    WriteStartXml(out);
    if (value == 0 || value == 1) {
        out.Text(std::string_view(value != 0 ? "true" : "false"));
    } else {
        std::string& text = out.Buffer();
        text.clear();
        QoDtTextCodec::AppendInt(text, value);
        out.Text(std::string_view(text));
    }
    out.Close();
}

bool QoDtDictBoolItem::ReadXml(QoUtXMLDOMNode& node) { return ReadTextElement(node); }

bool QoDtDictBoolItem::ReadXmlValue(std::string_view text, std::string* cause) {
    text = QoDtTextCodec::TrimSpace(text);
    if (text == "true") {
        value = 1;
    } else if (text == "false") {
        value = 0;
    } else if (!QoDtTextCodec::ParseInt(text, value)) {
        if (cause != nullptr) *cause = "a Boolean must be true or false";
        return false;
    }
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
