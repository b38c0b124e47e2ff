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
    void operator>>(_auto_ptr<QoUtXMLDOMNode>& node) const override;
    void operator>>(CArchive& ar) const override;
    bool operator<<(_auto_ptr<QoUtXMLDOMNode>& node) override;
    bool operator<<(CArchive& ar) override;
};
