#pragma once
// What a calculation says besides its results: a balance that doesn't close,
// a search that failed, or a step that engineering mode took differently
// from the given data. Front ends show them as data (a code, an English
// message, and the system's Chinese text where there is one).

#include "zefra/ZefraExport.h"
#include "zefra/platform/mfc/CArray.h"
#include "zefra/platform/mfc/CString.h"

#include <string>
#include <vector>

struct ZEFRA_API SHDGWarning {
    // "search-failed": the results mean nothing (front ends refuse them);
    // "heat-balance", "moisture-balance": a report's check failed; the others
    // name a step that engineering mode took differently from the given data.
    std::string Code;
    std::string Message;  // one English sentence
    CString Text;         // the system's Chinese text, or empty
};

using HDGWarningList = std::vector<SHDGWarning>;

// The warnings that the report texts of a calculation carry: the balance
// messages and the failure texts of the searches, in the order they stand.
ZEFRA_API HDGWarningList HDGWarningsInTexts(const CStringArray& resultInfo);
