#include "zefra/config/QoDtTextCodec.h"

#include <charconv>
#include <cstring>
#include <cmath>
#include <cstdint>
#include <limits>

namespace {

bool IsAsciiSpace(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }

bool IsXmlNameStartChar(char32_t c) {
    if ((c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_') return true;
    if (c < 0xC0) return false;
    return (c <= 0xD6) || (c >= 0xD8 && c <= 0xF6) || (c >= 0xF8 && c <= 0x2FF) ||
           (c >= 0x370 && c <= 0x37D) || (c >= 0x37F && c <= 0x1FFF) || (c >= 0x200C && c <= 0x200D) ||
           (c >= 0x2070 && c <= 0x218F) || (c >= 0x2C00 && c <= 0x2FEF) || (c >= 0x3001 && c <= 0xD7FF) ||
           (c >= 0xF900 && c <= 0xFDCF) || (c >= 0xFDF0 && c <= 0xFFFD) || (c >= 0x10000 && c <= 0xEFFFF);
}

bool IsXmlNameChar(char32_t c) {
    return IsXmlNameStartChar(c) || c == '-' || c == '.' || (c >= '0' && c <= '9') || c == 0xB7 ||
           (c >= 0x300 && c <= 0x36F) || (c >= 0x203F && c <= 0x2040);
}

int HexDigit(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

void AppendEscape(std::string& out, char32_t c) {
    static const char kHex[] = "0123456789ABCDEF";
    out += "_x";
    char digits[8];
    int n = 0;
    do {
        digits[n++] = kHex[c & 0xF];
        c >>= 4;
    } while (c != 0);
    while (n < 4) digits[n++] = '0';
    while (n > 0) out.push_back(digits[--n]);
    out.push_back('_');
}

// Longest leading run of characters that can belong to a decimal number,
// narrowed to ASCII; white space in front is skipped.
std::string NumberPrefix(const CString& text) {
    const std::wstring& s = text.Str();
    size_t i = 0;
    while (i < s.size() && (s[i] == L' ' || s[i] == L'\t' || s[i] == L'\n' || s[i] == L'\r')) ++i;
    std::string out;
    for (; i < s.size(); ++i) {
        const wchar_t c = s[i];
        const bool numeric = (c >= L'0' && c <= L'9') || c == L'.' || c == L'-' || c == L'+' || c == L'e' ||
                             c == L'E' || (c >= L'a' && c <= L'z') || (c >= L'A' && c <= L'Z');
        if (!numeric) break;
        out.push_back(static_cast<char>(c));
    }
    return out;
}

}  // namespace

void QoDtTextCodec::AppendCodePoint(std::string& out, char32_t cp) {
    if (cp < 0x80) {
        out.push_back(static_cast<char>(cp));
        return;
    }
    if (cp > 0x10FFFF || (cp >= 0xD800 && cp <= 0xDFFF)) cp = 0xFFFD;
    if (cp < 0x800) {
        out.push_back(static_cast<char>(0xC0 | (cp >> 6)));
    } else if (cp < 0x10000) {
        out.push_back(static_cast<char>(0xE0 | (cp >> 12)));
        out.push_back(static_cast<char>(0x80 | ((cp >> 6) & 0x3F)));
    } else {
        out.push_back(static_cast<char>(0xF0 | (cp >> 18)));
        out.push_back(static_cast<char>(0x80 | ((cp >> 12) & 0x3F)));
        out.push_back(static_cast<char>(0x80 | ((cp >> 6) & 0x3F)));
    }
    out.push_back(static_cast<char>(0x80 | (cp & 0x3F)));
}

void QoDtTextCodec::AppendUtf8(std::string& out, const CString& text) {
    for (wchar_t wc : text.Str()) AppendCodePoint(out, static_cast<char32_t>(wc));
}

std::string QoDtTextCodec::ToUtf8(const CString& text) {
    std::string out;
    out.reserve(static_cast<size_t>(text.GetLength()));
    AppendUtf8(out, text);
    return out;
}

namespace {

// Decodes `length` bytes of UTF-8 into `out`, which has room for `length`
// characters (decoded text is never longer than its UTF-8 form), and gives
// the number of characters written.
size_t DecodeUtf8(const unsigned char* s, size_t length, wchar_t* out) {
    size_t n = 0;
    size_t i = 0;
    while (i < length) {
        const unsigned char c = s[i];
        if (c < 0x80) {
            out[n++] = static_cast<wchar_t>(c);
            ++i;
            continue;
        }
        size_t extra = 0;
        char32_t cp = 0;
        char32_t least = 0;
        if ((c & 0xE0) == 0xC0) {
            extra = 1, cp = c & 0x1F, least = 0x80;
        } else if ((c & 0xF0) == 0xE0) {
            extra = 2, cp = c & 0x0F, least = 0x800;
        } else if ((c & 0xF8) == 0xF0) {
            extra = 3, cp = c & 0x07, least = 0x10000;
        } else {
            out[n++] = L'\xFFFD';
            ++i;
            continue;
        }
        bool ok = i + extra < length;
        for (size_t k = 1; ok && k <= extra; ++k) {
            const unsigned char cc = s[i + k];
            ok = (cc & 0xC0) == 0x80;
            cp = (cp << 6) | (cc & 0x3F);
        }
        if (!ok || cp < least || cp > 0x10FFFF || (cp >= 0xD800 && cp <= 0xDFFF)) {
            out[n++] = L'\xFFFD';
            ++i;
            continue;
        }
        out[n++] = static_cast<wchar_t>(cp);
        i += extra + 1;
    }
    return n;
}

}  // namespace

CString QoDtTextCodec::FromUtf8(const char* text, size_t length) {
    const auto* s = reinterpret_cast<const unsigned char*>(text);
    size_t ascii = 0;
    while (ascii < length && s[ascii] < 0x80) ++ascii;
    if (ascii == length) return CString(std::wstring(s, s + length));
    // Short texts (keys, names, most values) are decoded on the stack and
    // copied once, so that the string gets only the room it needs.
    wchar_t local[256];
    if (length <= sizeof local / sizeof local[0]) return CString(local, static_cast<int>(DecodeUtf8(s, length, local)));
    std::wstring heap(length, L'\0');
    heap.resize(DecodeUtf8(s, length, heap.data()));
    return CString(std::move(heap));
}

void QoDtTextCodec::AppendDouble(std::string& out, double value) {
    char buffer[32];
    const auto result = std::to_chars(buffer, buffer + sizeof buffer, value);
    out.append(buffer, result.ptr);
}

void QoDtTextCodec::AppendInt(std::string& out, int value) {
    char buffer[16];
    const auto result = std::to_chars(buffer, buffer + sizeof buffer, value);
    out.append(buffer, result.ptr);
}

std::string_view QoDtTextCodec::TrimSpace(std::string_view text) {
    while (!text.empty() && IsAsciiSpace(text.front())) text.remove_prefix(1);
    while (!text.empty() && IsAsciiSpace(text.back())) text.remove_suffix(1);
    return text;
}

bool QoDtTextCodec::ParseDouble(std::string_view text, double& value) {
    text = TrimSpace(text);
    if (!text.empty() && text.front() == '+') text.remove_prefix(1);
    if (text.empty()) return false;
    double parsed = 0.0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), parsed);
    if (result.ec != std::errc() || result.ptr != text.data() + text.size()) return false;
    value = parsed;
    return true;
}

bool QoDtTextCodec::ParseInt(std::string_view text, int& value) {
    text = TrimSpace(text);
    if (!text.empty() && text.front() == '+') text.remove_prefix(1);
    if (text.empty()) return false;
    int parsed = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), parsed);
    if (result.ec != std::errc() || result.ptr != text.data() + text.size()) return false;
    value = parsed;
    return true;
}

double QoDtTextCodec::LeadingDouble(const CString& text) {
    const std::string prefix = NumberPrefix(text);
    const char* first = prefix.data();
    const char* last = first + prefix.size();
    if (first != last && *first == '+') ++first;
    double value = 0.0;
    const auto result = std::from_chars(first, last, value);
    if (result.ec == std::errc::result_out_of_range) {
        // atof's reading: an overflow gives infinity of the right sign, an
        // underflow zero.
        const bool negative = first != last && *first == '-';
        std::string_view digits(first, static_cast<size_t>(last - first));
        const bool tiny = digits.find("e-") != std::string_view::npos || digits.find("E-") != std::string_view::npos;
        if (tiny) return negative ? -0.0 : 0.0;
        return negative ? -std::numeric_limits<double>::infinity() : std::numeric_limits<double>::infinity();
    }
    return result.ec == std::errc() ? value : 0.0;
}

int QoDtTextCodec::LeadingInt(const CString& text) {
    const std::string prefix = NumberPrefix(text);
    const char* first = prefix.data();
    const char* last = first + prefix.size();
    if (first != last && *first == '+') ++first;
    long long value = 0;
    const auto result = std::from_chars(first, last, value);
    if (result.ec != std::errc()) return 0;
    if (value > std::numeric_limits<int>::max()) return std::numeric_limits<int>::max();
    if (value < std::numeric_limits<int>::min()) return std::numeric_limits<int>::min();
    return static_cast<int>(value);
}

void QoDtTextCodec::AppendXmlName(std::string& out, const CString& name) {
    const std::wstring& s = name.Str();
    if (s.empty()) {
        out += "_x_";
        return;
    }
    for (size_t i = 0; i < s.size(); ++i) {
        auto c = static_cast<char32_t>(s[i]);
        if (c > 0x10FFFF || (c >= 0xD800 && c <= 0xDFFF)) c = 0xFFFD;
        const bool allowed = (i == 0 ? IsXmlNameStartChar(c) : IsXmlNameChar(c)) &&
                             !(c == '_' && i + 1 < s.size() && s[i + 1] == L'x');
        if (allowed) {
            AppendCodePoint(out, c);
        } else {
            AppendEscape(out, c);
        }
    }
}

CString QoDtTextCodec::FromXmlName(std::string_view name) {
    const std::string_view s = name;
    if (s == "_x_") return CString();
    if (s.find("_x") == std::string_view::npos) return FromUtf8(s);
    std::string plain;
    plain.reserve(s.size());
    for (size_t i = 0; i < s.size();) {
        if (s[i] == '_' && i + 1 < s.size() && s[i + 1] == 'x') {
            size_t j = i + 2;
            char32_t c = 0;
            while (j < s.size() && j - (i + 2) < 8 && HexDigit(s[j]) >= 0) c = (c << 4) | static_cast<char32_t>(HexDigit(s[j++]));
            if (j > i + 2 && j < s.size() && s[j] == '_' && c <= 0x10FFFF && !(c >= 0xD800 && c <= 0xDFFF) && c != 0) {
                AppendCodePoint(plain, c);
                i = j + 1;
                continue;
            }
        }
        plain.push_back(s[i++]);
    }
    return FromUtf8(plain);
}
