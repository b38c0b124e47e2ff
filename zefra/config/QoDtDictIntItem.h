#pragma once
// An item holding one 32-bit integer.

#include "zefra/config/QoDtDictItem.h"

class QoDtDictIntItem : public QoDtDictItem {
public:
    int value = 0;

    int GetType() const override { return eDtInt; }
    void CopyData(const QoDtDictItem& other) override;
    void operator>>(_auto_ptr<QoUtXMLDOMNode>& node) const override;
    void operator>>(CArchive& ar) const override;
    bool operator<<(_auto_ptr<QoUtXMLDOMNode>& node) override;
    bool operator<<(CArchive& ar) override;
};
