#include "zefra/platform/airlib/NT.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <string>

namespace NT {

namespace {

constexpr int kMostDecimals = 30;

}  // namespace

bool IsEqual(double a, double b, double tolerance) { return std::fabs(a - b) <= tolerance; }

CString ftoa(double value, int decimals, bool /*flag*/) {
    if (decimals < 0) decimals = 0;
    if (decimals > kMostDecimals) decimals = kMostDecimals;
    // The same digits as printf's "%.*f", without its locale and multi-precision path.
    char digits[400];
    const std::to_chars_result written =
        std::to_chars(digits, digits + sizeof digits, value, std::chars_format::fixed, decimals);
    const int length = static_cast<int>(written.ptr - digits);
    // "-0.00" and its like read as zero.
    int first = 0;
    if (digits[0] == '-' && std::find_if(digits + 1, written.ptr, [](char c) { return c != '0' && c != '.'; }) ==
                                written.ptr)
        first = 1;
    wchar_t text[sizeof digits];
    for (int i = first; i < length; ++i) text[i - first] = static_cast<wchar_t>(digits[i]);
    return CString(text, length - first);
}

CString itoa(int value) { return CString(std::to_string(value).c_str()); }

}  // namespace NT

CString ftoa(double value, int decimals, bool flag) { return NT::ftoa(value, decimals, flag); }
