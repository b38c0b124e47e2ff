#pragma once
#include "zefra/ZefraExport.h"
// One line of a duct label: what it shows, the texts around the value, the
// decimals of a number and whether the line is part of the label. In the
// configuration store a line is the attributes of one item.

#include "zefra/platform/mfc/CString.h"

class QoDtDictItem;

class ZEFRA_API QoHvacDuctLabelItem {
public:
    // Four empty texts, no decimals, not selected.
    QoHvacDuctLabelItem() = default;

    // prefix + content + suffix.
    CString GetLabelText() const;
    // prefix + text + suffix.
    CString GetLabelText(const CString& text) const;

    bool SaveToItem(QoDtDictItem* item) const;
    // Attributes missing from the item read as an empty text, 0 or false.
    bool ReadFromItem(QoDtDictItem* item);

    // What the line shows; the composition knows a fixed set of these.
    CString labelname;
    // Text behind the value; for a number it also names the unit.
    CString suffix;
    CString prefix;
    // Decimals of a numeric value.
    int percition = 0;
    // The value text; for a number the value to show when there is no duct.
    CString content;
    bool selected = false;
};
