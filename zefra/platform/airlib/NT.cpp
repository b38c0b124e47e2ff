#include "zefra/platform/airlib/NT.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <string>

namespace NT {

namespace {

constexpr int kMostDecimals = 30;

// Powers of ten that a double holds exactly.
constexpr double kScale[] = {1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
constexpr int kMostQuickDecimals = 15;
// Below this (and 2^52) the scaled value's whole part, its fraction and
// every half are exact.
constexpr double kQuickLimit = 1e15;

// "00" to "99": the digits of a figure go two at a time.
constexpr char kDigitPairs[] =
    "0001020304050607080910111213141516171819202122232425262728293031323334353637383940414243444546474849"
    "5051525354555657585960616263646566676869707172737475767778798081828384858687888990919293949596979899";

// Writes `rest` backwards, ending before `end`: its last `decimals` digits
// behind a point, at least one digit ahead of it.
template <typename UINT>
void WriteBackwards(UINT rest, int decimals, wchar_t* end) {
    wchar_t* first = end;
    const auto pair = [&first](unsigned twoDigits) {
        first -= 2;
        first[0] = static_cast<wchar_t>(kDigitPairs[2 * twoDigits]);
        first[1] = static_cast<wchar_t>(kDigitPairs[2 * twoDigits + 1]);
    };
    int behind = decimals;
    for (; behind >= 2; behind -= 2) {
        pair(static_cast<unsigned>(rest % 100));
        rest /= 100;
    }
    if (behind == 1) {
        *--first = static_cast<wchar_t>(L'0' + rest % 10);
        rest /= 10;
    }
    if (decimals > 0) *--first = L'.';
    for (; rest >= 100; rest /= 100) pair(static_cast<unsigned>(rest % 100));
    if (rest >= 10)
        pair(static_cast<unsigned>(rest));
    else
        *--first = static_cast<wchar_t>(L'0' + rest);
}

// The number of decimal digits of n, which is below 10^16.
int DigitCount(uint64_t n) {
    int count = 1;
    for (uint64_t next = 10; count < 16 && n >= next; next *= 10) ++count;
    return count;
}

// The figures of a report: a few decimals of a moderate value. Below
// kQuickLimit every half (k + 0.5) is a double, and rounding the product
// value * 10^decimals to a double can land on a half but never cross one;
// so unless it lands on one, its nearest whole number is the one printf
// reaches from the exact binary value. Products on a half (a tie, or a value
// just beside one) and large, long or non-finite figures are left to the
// exact conversion: the answer is 0 then, else the length written to `text`.
int QuickFixed(double value, int decimals, wchar_t* text) {
    if (decimals > kMostQuickDecimals) return 0;
    const double magnitude = std::fabs(value);
    const double scaled = magnitude * kScale[decimals];
    if (!(scaled < kQuickLimit)) return 0;  // also NaN and infinity
    const double whole = std::floor(scaled);
    const double fraction = scaled - whole;
    if (fraction == 0.5) return 0;
    const uint64_t rounded = static_cast<uint64_t>(whole) + (fraction > 0.5 ? 1u : 0u);

    // Sign, digits (at least one ahead of the point) and point, written in
    // place from the back.
    const bool negative = rounded != 0 && std::signbit(value);  // "-0.00" reads as zero
    const int length = (negative ? 1 : 0) + std::max(DigitCount(rounded), decimals + 1) + (decimals > 0 ? 1 : 0);
    if (negative) text[0] = L'-';
    // Most figures fit 32 bits, whose division by ten is the cheaper.
    if (rounded <= UINT32_MAX)
        WriteBackwards(static_cast<uint32_t>(rounded), decimals, text + length);
    else
        WriteBackwards(rounded, decimals, text + length);
    return length;
}

}  // namespace

int WriteFixed(wchar_t* out, double value, int decimals) {
    if (decimals < 0) decimals = 0;
    if (decimals > kMostDecimals) decimals = kMostDecimals;
    const int quick = QuickFixed(value, decimals, out);
    if (quick > 0) return quick;
    // The same digits as printf's "%.*f", without its locale and multi-precision path.
    char digits[kMostFixedLength];
    const std::to_chars_result written =
        std::to_chars(digits, digits + sizeof digits, value, std::chars_format::fixed, decimals);
    const char* first = digits;
    // "-0.00" and its like read as zero.
    if (digits[0] == '-' &&
        std::find_if(digits + 1, written.ptr, [](char c) { return c != '0' && c != '.'; }) == written.ptr)
        ++first;
    int length = 0;
    for (const char* c = first; c != written.ptr; ++c) out[length++] = static_cast<wchar_t>(*c);
    return length;
}

void AppendFixed(std::wstring& out, double value, int decimals) {
    wchar_t text[kMostFixedLength];
    out.append(text, static_cast<size_t>(WriteFixed(text, value, decimals)));
}

CString ftoa(double value, int decimals, bool /*flag*/) {
    std::wstring text;
    AppendFixed(text, value, decimals);
    return CString(std::move(text));
}

CString itoa(int value) { return CString(std::to_string(value).c_str()); }

}  // namespace NT

CString ftoa(double value, int decimals, bool flag) { return NT::ftoa(value, decimals, flag); }
