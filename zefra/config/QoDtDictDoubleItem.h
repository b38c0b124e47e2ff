#pragma once
// An item holding one double. Files write the shortest text that reads back
// to the same number.

#include "zefra/config/QoDtDictItem.h"

class QoDtDictDoubleItem : public QoDtDictItem {
public:
    double value = 0.0;

    int GetType() const override { return eDtDouble; }
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
