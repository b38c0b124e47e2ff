#pragma once
// An item holding an array of doubles. Files write them as one line of
// numbers, each the shortest text that reads back to the same number.

#include "zefra/config/QoDtDictItem.h"
#include "zefra/containers/QoDynArray.h"

class QoDtDictDoubleArrayItem : public QoDtDictItem {
public:
    QoDynArray<double> value;

    int GetType() const override { return eDtDoubleArray; }
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
