#pragma once
// An item holding one double. Files write the shortest text that reads back
// to the same number.

#include "zefra/config/QoDtDictItem.h"

class QoDtDictDoubleItem : public QoDtDictItem {
public:
    double value = 0.0;

    int GetType() const override { return eDtDouble; }
    void CopyData(const QoDtDictItem& other) override;
    void operator>>(_auto_ptr<QoUtXMLDOMNode>& node) const override;
    void operator>>(CArchive& ar) const override;
    bool operator<<(_auto_ptr<QoUtXMLDOMNode>& node) override;
    bool operator<<(CArchive& ar) override;
};
