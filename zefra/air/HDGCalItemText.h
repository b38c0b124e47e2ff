#pragma once
// The words by which process records name the calculation item of a state
// point. Value 9 reads "饱程含湿量", as stored records hold it.

#include "zefra/air/ZefraHDGPoint.h"
#include "zefra/platform/mfc/CString.h"

class HDGCalItemText {
public:
    // The word of a kind; empty for a value outside the table.
    static CString ToText(EHvacHDGPointCalItemType kind);
    // The kind whose word is the whole text; 0 for text outside the table.
    static EHvacHDGPointCalItemType FromText(const CString& text);
};
