#pragma once
// An item holding one text.

#include "zefra/config/QoDtDictItem.h"

class QoDtDictStringItem : public QoDtDictItem {
public:
    CString value;

    int GetType() const override { return eDtString; }
    void CopyData(const QoDtDictItem& other) override;
    using QoDtDictItem::operator>>;
    using QoDtDictItem::operator<<;
    void operator>>(CArchive& ar) const override;
    bool operator<<(CArchive& ar) override;
    void WriteXml(QoDtXmlOutput& out) const override;

protected:
    bool ReadXml(QoUtXMLDOMNode& node) override;
    bool ReadXmlValue(std::string_view text, std::string* cause) override;
};
