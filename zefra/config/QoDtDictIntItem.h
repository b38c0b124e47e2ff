#pragma once
// An item holding one 32-bit integer.

#include "zefra/config/QoDtDictItem.h"

class QoDtDictIntItem : public QoDtDictItem {
public:
    int value = 0;

    int GetType() const override { return eDtInt; }
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
