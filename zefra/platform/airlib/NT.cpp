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

void AppendFixed(std::wstring& out, double value, int decimals) {
    if (decimals < 0) decimals = 0;
    if (decimals > kMostDecimals) decimals = kMostDecimals;
    // The same digits as printf's "%.*f", without its locale and multi-precision path.
    char digits[400];
    const std::to_chars_result written =
        std::to_chars(digits, digits + sizeof digits, value, std::chars_format::fixed, decimals);
    const char* first = digits;
    // "-0.00" and its like read as zero.
    if (digits[0] == '-' &&
        std::find_if(digits + 1, written.ptr, [](char c) { return c != '0' && c != '.'; }) == written.ptr)
        ++first;
    out.append(first, static_cast<const char*>(written.ptr));
}

CString ftoa(double value, int decimals, bool /*flag*/) {
    std::wstring text;
    AppendFixed(text, value, decimals);
    return CString(std::move(text));
}

CString itoa(int value) { return CString(std::to_string(value).c_str()); }

}  // namespace NT

CString ftoa(double value, int decimals, bool flag) { return NT::ftoa(value, decimals, flag); }
