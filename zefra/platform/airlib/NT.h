#pragma once
// Number helpers of the air library.

#include "zefra/platform/mfc/CString.h"

#include <cmath>
#include <string>

namespace NT {

// True when a and b differ by no more than tolerance (the bound included).
inline bool IsEqual(double a, double b, double tolerance) { return std::fabs(a - b) <= tolerance; }

// The value with exactly `decimals` digits behind the point, rounded to the
// nearest as printf rounds (ties to even on the exact binary value). The
// flag is accepted for the callers' sake and doesn't change the text: both
// forms keep every decimal. A result that rounds to zero never carries a
// minus sign. Negative counts write no decimals, counts above 30 write 30.
CString ftoa(double value, int decimals, bool flag);

// The text of ftoa appended to out, for callers that build long texts.
void AppendFixed(std::wstring& out, double value, int decimals);

// The most characters the text of ftoa can take.
constexpr int kMostFixedLength = 400;
// The text of ftoa written to `out`, which has room for kMostFixedLength
// characters; answers the count written. For callers that write a text
// into a buffer of their own.
int WriteFixed(wchar_t* out, double value, int decimals);

// Decimal text of the integer.
CString itoa(int value);

}  // namespace NT

// The drawing library's helper of the same shape; one implementation.
CString ftoa(double value, int decimals, bool flag);
