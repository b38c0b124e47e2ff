#pragma once
// An item holding one text.

#include "zefra/config/QoDtDictItem.h"

class QoDtDictStringItem : public QoDtDictItem {
public:
    CString value;

    int GetType() const override { return eDtString; }
    void CopyData(const QoDtDictItem& other) override;
    void operator>>(_auto_ptr<QoUtXMLDOMNode>& node) const override;
    void operator>>(CArchive& ar) const override;
    bool operator<<(_auto_ptr<QoUtXMLDOMNode>& node) override;
    bool operator<<(CArchive& ar) override;
};
