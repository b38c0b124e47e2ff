#pragma once
// An item holding a list of texts and the index of the selected one. Both
// fields are read and written directly; the selection is not checked
// against the list.

#include "zefra/config/QoDtDictItem.h"
#include "zefra/containers/QoList.h"

class QoDtDictOptionItem : public QoDtDictItem {
public:
    QoList<CString> options;
    int selection = -1;

    int GetType() const override { return eDtOption; }
    void CopyData(const QoDtDictItem& other) override;
    using QoDtDictItem::operator>>;
    using QoDtDictItem::operator<<;
    void operator>>(CArchive& ar) const override;
    bool operator<<(CArchive& ar) override;
    void WriteXml(QoDtXmlOutput& out) const override;

    // The selected text; empty when the selection is outside the list.
    CString GetSelectedText() const;

protected:
    bool ReadXml(QoUtXMLDOMNode& node) override;
};
