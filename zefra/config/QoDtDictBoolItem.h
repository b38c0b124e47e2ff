#pragma once
// An item holding one Boolean. Files write it as "true" or "false" (another
// integer that a caller stored stands as it is).

#include "zefra/config/QoDtDictItem.h"

class QoDtDictBoolItem : public QoDtDictItem {
public:
    int value = 0;  // 0 or 1, read and written directly as a 32-bit integer

    int GetType() const override { return eDtBool; }
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
