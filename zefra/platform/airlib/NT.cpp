#include "zefra/platform/airlib/NT.h"

#include <cmath>
#include <cstdio>
#include <string>

namespace NT {

namespace {

constexpr int kMostDecimals = 30;

}  // namespace

bool IsEqual(double a, double b, double tolerance) { return std::fabs(a - b) <= tolerance; }

CString ftoa(double value, int decimals, bool /*flag*/) {
    if (decimals < 0) decimals = 0;
    if (decimals > kMostDecimals) decimals = kMostDecimals;
    char buffer[400];
    std::snprintf(buffer, sizeof buffer, "%.*f", decimals, value);
    std::string text(buffer);
    // "-0.00" and its like read as zero.
    if (text[0] == '-' && text.find_first_not_of("-0.") == std::string::npos) text.erase(0, 1);
    return CString(text.c_str());
}

CString itoa(int value) { return CString(std::to_string(value).c_str()); }

}  // namespace NT

CString ftoa(double value, int decimals, bool flag) { return NT::ftoa(value, decimals, flag); }
