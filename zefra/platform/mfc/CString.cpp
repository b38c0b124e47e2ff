#include "zefra/platform/mfc/CString.h"

#include "zefra/platform/mfc/Exceptions.h"

#include <algorithm>
#include <cstdio>
#include <cwctype>
#include <vector>

namespace zefra {

std::wstring Utf8ToWide(const std::string& utf8) {
    std::wstring out;
    out.reserve(utf8.size());
    const auto* s = reinterpret_cast<const unsigned char*>(utf8.data());
    const size_t n = utf8.size();
    size_t i = 0;
    while (i < n) {
        unsigned char c = s[i];
        if (c < 0x80) {
            out.push_back(static_cast<wchar_t>(c));
            ++i;
            continue;
        }
        int extra = 0;
        char32_t cp = 0;
        char32_t least = 0;
        if ((c & 0xE0) == 0xC0) { extra = 1; cp = c & 0x1F; least = 0x80; }
        else if ((c & 0xF0) == 0xE0) { extra = 2; cp = c & 0x0F; least = 0x800; }
        else if ((c & 0xF8) == 0xF0) { extra = 3; cp = c & 0x07; least = 0x10000; }
        else { out.push_back(L'\xFFFD'); ++i; continue; }
        if (i + static_cast<size_t>(extra) >= n) {  // truncated sequence at the end
            out.push_back(L'\xFFFD');
            break;
        }
        bool ok = true;
        for (int k = 1; k <= extra; ++k) {
            unsigned char cc = s[i + k];
            if ((cc & 0xC0) != 0x80) { ok = false; break; }
            cp = (cp << 6) | (cc & 0x3F);
        }
        if (!ok || cp < least || cp > 0x10FFFF || (cp >= 0xD800 && cp <= 0xDFFF)) {
            out.push_back(L'\xFFFD');
            ++i;
            continue;
        }
        out.push_back(static_cast<wchar_t>(cp));
        i += static_cast<size_t>(extra) + 1;
    }
    return out;
}

std::string WideToUtf8(const std::wstring& wide) {
    std::string out;
    out.reserve(wide.size());
    for (wchar_t wc : wide) {
        auto cp = static_cast<char32_t>(wc);
        if (cp > 0x10FFFF || (cp >= 0xD800 && cp <= 0xDFFF)) cp = 0xFFFD;
        if (cp < 0x80) {
            out.push_back(static_cast<char>(cp));
        } else if (cp < 0x800) {
            out.push_back(static_cast<char>(0xC0 | (cp >> 6)));
            out.push_back(static_cast<char>(0x80 | (cp & 0x3F)));
        } else if (cp < 0x10000) {
            out.push_back(static_cast<char>(0xE0 | (cp >> 12)));
            out.push_back(static_cast<char>(0x80 | ((cp >> 6) & 0x3F)));
            out.push_back(static_cast<char>(0x80 | (cp & 0x3F)));
        } else {
            out.push_back(static_cast<char>(0xF0 | (cp >> 18)));
            out.push_back(static_cast<char>(0x80 | ((cp >> 12) & 0x3F)));
            out.push_back(static_cast<char>(0x80 | ((cp >> 6) & 0x3F)));
            out.push_back(static_cast<char>(0x80 | (cp & 0x3F)));
        }
    }
    return out;
}

namespace {

std::wstring Widen(const char* text, size_t len) { return Utf8ToWide(std::string(text, len)); }

// Pads a converted string argument to `width`, honouring '-'.
void AppendPadded(std::wstring& out, const std::wstring& text, int width, bool left) {
    const int pad = width - static_cast<int>(text.size());
    if (pad > 0 && !left) out.append(static_cast<size_t>(pad), L' ');
    out += text;
    if (pad > 0 && left) out.append(static_cast<size_t>(pad), L' ');
}

}  // namespace

// Formats with MFC's reading of a wide format string. Numbers go through the C
// library's narrow printf (their text is plain ASCII); strings and characters
// are handled here so that %s takes a wide string and %S a narrow (UTF-8) one.
std::wstring FormatMfc(const wchar_t* format, va_list args) {
    std::wstring out;
    if (!format) return out;
    va_list ap;
    va_copy(ap, args);
    const wchar_t* p = format;
    while (*p) {
        if (*p != L'%') {
            out.push_back(*p++);
            continue;
        }
        ++p;
        if (*p == L'%') {
            out.push_back(L'%');
            ++p;
            continue;
        }
        std::string narrowFormat = "%";
        bool left = false;
        while (*p == L'-' || *p == L'+' || *p == L' ' || *p == L'#' || *p == L'0') {
            if (*p == L'-') left = true;
            narrowFormat.push_back(static_cast<char>(*p++));
        }
        int width = -1;
        if (*p == L'*') {
            width = va_arg(ap, int);
            if (width < 0) { left = true; narrowFormat.push_back('-'); width = -width; }
            narrowFormat += std::to_string(width);
            ++p;
        } else if (iswdigit(static_cast<wint_t>(*p))) {
            width = 0;
            while (iswdigit(static_cast<wint_t>(*p))) {
                width = width * 10 + (*p - L'0');
                narrowFormat.push_back(static_cast<char>(*p++));
            }
        }
        int precision = -1;
        if (*p == L'.') {
            ++p;
            precision = 0;
            if (*p == L'*') {
                precision = va_arg(ap, int);
                ++p;
            } else {
                while (iswdigit(static_cast<wint_t>(*p))) precision = precision * 10 + (*p++ - L'0');
            }
            if (precision >= 0) narrowFormat += "." + std::to_string(precision);
        }
        // Length modifiers. 'h' on a string or character means narrow, 'l'/'w' wide.
        enum class Len { None, HH, H, L, LL, Z, BigL, I64 } len = Len::None;
        bool narrowText = false;
        bool wideText = false;
        for (;;) {
            if (*p == L'h') { len = (len == Len::H) ? Len::HH : Len::H; narrowText = true; ++p; }
            else if (*p == L'l') { len = (len == Len::L) ? Len::LL : Len::L; wideText = true; ++p; }
            else if (*p == L'w') { wideText = true; ++p; }
            else if (*p == L'z' || *p == L'j' || *p == L't') { len = Len::Z; ++p; }
            else if (*p == L'L') { len = Len::BigL; ++p; }
            else if (p[0] == L'I' && p[1] == L'6' && p[2] == L'4') { len = Len::I64; p += 3; }
            else break;
        }
        const wchar_t conv = *p;
        if (!conv) break;
        ++p;
        switch (conv) {
        case L's':
        case L'S': {
            const bool narrow = narrowText || (conv == L'S' && !wideText);
            std::wstring text;
            if (narrow) {
                const char* s = va_arg(ap, const char*);
                if (!s) s = "(null)";
                size_t n = std::char_traits<char>::length(s);
                text = Widen(s, n);
            } else {
                const wchar_t* s = va_arg(ap, const wchar_t*);
                text = s ? s : L"(null)";
            }
            if (precision >= 0 && static_cast<int>(text.size()) > precision) text.resize(static_cast<size_t>(precision));
            AppendPadded(out, text, width, left);
            break;
        }
        case L'c':
        case L'C': {
            const bool narrow = narrowText || (conv == L'C' && !wideText);
            int v = va_arg(ap, int);
            std::wstring text(1, narrow ? static_cast<wchar_t>(static_cast<unsigned char>(v)) : static_cast<wchar_t>(v));
            AppendPadded(out, text, width, left);
            break;
        }
        case L'd': case L'i': case L'u': case L'o': case L'x': case L'X': {
            char buf[128];
            switch (len) {
            case Len::LL: case Len::I64:
                narrowFormat += "ll"; narrowFormat.push_back(static_cast<char>(conv));
                std::snprintf(buf, sizeof buf, narrowFormat.c_str(), va_arg(ap, long long));
                break;
            case Len::L: case Len::Z:
                narrowFormat += "l"; narrowFormat.push_back(static_cast<char>(conv));
                std::snprintf(buf, sizeof buf, narrowFormat.c_str(), va_arg(ap, long));
                break;
            case Len::H:
                narrowFormat += "h"; narrowFormat.push_back(static_cast<char>(conv));
                std::snprintf(buf, sizeof buf, narrowFormat.c_str(), va_arg(ap, int));
                break;
            case Len::HH:
                narrowFormat += "hh"; narrowFormat.push_back(static_cast<char>(conv));
                std::snprintf(buf, sizeof buf, narrowFormat.c_str(), va_arg(ap, int));
                break;
            default:
                narrowFormat.push_back(static_cast<char>(conv));
                std::snprintf(buf, sizeof buf, narrowFormat.c_str(), va_arg(ap, int));
                break;
            }
            out += Widen(buf, std::char_traits<char>::length(buf));
            break;
        }
        case L'f': case L'F': case L'e': case L'E': case L'g': case L'G': case L'a': case L'A': {
            narrowFormat.push_back(static_cast<char>(conv));
            double v = (len == Len::BigL) ? static_cast<double>(va_arg(ap, long double)) : va_arg(ap, double);
            int n = std::snprintf(nullptr, 0, narrowFormat.c_str(), v);
            std::vector<char> buf(static_cast<size_t>(n > 0 ? n : 0) + 1);
            std::snprintf(buf.data(), buf.size(), narrowFormat.c_str(), v);
            out += Widen(buf.data(), static_cast<size_t>(n > 0 ? n : 0));
            break;
        }
        case L'p': {
            char buf[64];
            std::snprintf(buf, sizeof buf, "%p", va_arg(ap, void*));
            out += Widen(buf, std::char_traits<char>::length(buf));
            break;
        }
        default:
            // Unknown conversion: keep it as written, consuming no argument.
            out.push_back(L'%');
            out.push_back(conv);
            break;
        }
    }
    va_end(ap);
    return out;
}

}  // namespace zefra

CString::CString(const wchar_t* text) : m_text(text ? text : L"") {}
CString::CString(const wchar_t* text, int length) : m_text(text ? std::wstring(text, static_cast<size_t>(std::max(length, 0))) : std::wstring()) {}
CString::CString(wchar_t ch, int repeat) : m_text(static_cast<size_t>(std::max(repeat, 0)), ch) {}
CString::CString(const char* utf8) : m_text(utf8 ? zefra::Utf8ToWide(utf8) : std::wstring()) {}

CString CString::FromUtf8(const std::string& utf8) { return CString(zefra::Utf8ToWide(utf8)); }
std::string CString::ToUtf8() const { return zefra::WideToUtf8(m_text); }

wchar_t CString::GetAt(int index) const {
    if (index < 0 || index >= GetLength()) throw CInvalidArgException("CString index out of range");
    return m_text[static_cast<size_t>(index)];
}

void CString::SetAt(int index, wchar_t ch) {
    if (index < 0 || index >= GetLength()) throw CInvalidArgException("CString index out of range");
    m_text[static_cast<size_t>(index)] = ch;
}

void CString::Format(const wchar_t* format, ...) {
    va_list args;
    va_start(args, format);
    FormatV(format, args);
    va_end(args);
}

void CString::FormatV(const wchar_t* format, va_list args) { m_text = zefra::FormatMfc(format, args); }

void CString::AppendFormat(const wchar_t* format, ...) {
    va_list args;
    va_start(args, format);
    m_text += zefra::FormatMfc(format, args);
    va_end(args);
}

int CString::Find(wchar_t ch, int start) const {
    if (start < 0) start = 0;
    if (start >= GetLength()) return -1;
    auto pos = m_text.find(ch, static_cast<size_t>(start));
    return pos == std::wstring::npos ? -1 : static_cast<int>(pos);
}

int CString::Find(const wchar_t* sub, int start) const {
    if (!sub) return -1;
    if (start < 0) start = 0;
    if (start > GetLength()) return -1;
    auto pos = m_text.find(sub, static_cast<size_t>(start));
    return pos == std::wstring::npos ? -1 : static_cast<int>(pos);
}

int CString::ReverseFind(wchar_t ch) const {
    auto pos = m_text.rfind(ch);
    return pos == std::wstring::npos ? -1 : static_cast<int>(pos);
}

int CString::FindOneOf(const wchar_t* chars) const {
    if (!chars) return -1;
    auto pos = m_text.find_first_of(chars);
    return pos == std::wstring::npos ? -1 : static_cast<int>(pos);
}

CString CString::Left(int count) const {
    count = std::clamp(count, 0, GetLength());
    return CString(m_text.substr(0, static_cast<size_t>(count)));
}

CString CString::Mid(int first) const { return Mid(first, GetLength()); }

CString CString::Mid(int first, int count) const {
    first = std::max(first, 0);
    count = std::max(count, 0);
    if (first >= GetLength()) return CString();
    count = std::min(count, GetLength() - first);
    return CString(m_text.substr(static_cast<size_t>(first), static_cast<size_t>(count)));
}

CString CString::Right(int count) const {
    count = std::clamp(count, 0, GetLength());
    return CString(m_text.substr(static_cast<size_t>(GetLength() - count)));
}

int CString::Replace(wchar_t oldCh, wchar_t newCh) {
    int n = 0;
    if (oldCh == newCh) return static_cast<int>(std::count(m_text.begin(), m_text.end(), oldCh));
    for (auto& c : m_text)
        if (c == oldCh) { c = newCh; ++n; }
    return n;
}

int CString::Replace(const wchar_t* oldText, const wchar_t* newText) {
    if (!oldText || !*oldText) return 0;
    const std::wstring from(oldText);
    const std::wstring to(newText ? newText : L"");
    int n = 0;
    size_t pos = 0;
    std::wstring result;
    result.reserve(m_text.size());
    while (true) {
        size_t hit = m_text.find(from, pos);
        if (hit == std::wstring::npos) break;
        result.append(m_text, pos, hit - pos);
        result += to;
        pos = hit + from.size();
        ++n;
    }
    if (n == 0) return 0;
    result.append(m_text, pos, std::wstring::npos);
    m_text.swap(result);
    return n;
}

int CString::Remove(wchar_t ch) {
    auto it = std::remove(m_text.begin(), m_text.end(), ch);
    int n = static_cast<int>(m_text.end() - it);
    m_text.erase(it, m_text.end());
    return n;
}

int CString::Insert(int index, wchar_t ch) {
    index = std::clamp(index, 0, GetLength());
    m_text.insert(m_text.begin() + index, ch);
    return GetLength();
}

int CString::Insert(int index, const wchar_t* text) {
    index = std::clamp(index, 0, GetLength());
    if (text) m_text.insert(static_cast<size_t>(index), text);
    return GetLength();
}

int CString::Delete(int index, int count) {
    index = std::max(index, 0);
    if (count > 0 && index < GetLength()) m_text.erase(static_cast<size_t>(index), static_cast<size_t>(count));
    return GetLength();
}

CString& CString::MakeUpper() {
    for (auto& c : m_text) c = static_cast<wchar_t>(std::towupper(static_cast<wint_t>(c)));
    return *this;
}

CString& CString::MakeLower() {
    for (auto& c : m_text) c = static_cast<wchar_t>(std::towlower(static_cast<wint_t>(c)));
    return *this;
}

CString& CString::MakeReverse() {
    std::reverse(m_text.begin(), m_text.end());
    return *this;
}

CString& CString::Trim() { return TrimRight().TrimLeft(); }

CString& CString::TrimLeft() {
    size_t i = 0;
    while (i < m_text.size() && std::iswspace(static_cast<wint_t>(m_text[i]))) ++i;
    m_text.erase(0, i);
    return *this;
}

CString& CString::TrimRight() {
    size_t n = m_text.size();
    while (n > 0 && std::iswspace(static_cast<wint_t>(m_text[n - 1]))) --n;
    m_text.resize(n);
    return *this;
}

CString& CString::Trim(wchar_t ch) { return TrimRight(ch).TrimLeft(ch); }

CString& CString::TrimLeft(wchar_t ch) {
    size_t i = 0;
    while (i < m_text.size() && m_text[i] == ch) ++i;
    m_text.erase(0, i);
    return *this;
}

CString& CString::TrimRight(wchar_t ch) {
    size_t n = m_text.size();
    while (n > 0 && m_text[n - 1] == ch) --n;
    m_text.resize(n);
    return *this;
}

CString CString::Tokenize(const wchar_t* delims, int& start) const {
    if (start < 0 || start >= GetLength() || !delims) {
        start = -1;
        return CString();
    }
    size_t from = m_text.find_first_not_of(delims, static_cast<size_t>(start));
    if (from == std::wstring::npos) {
        start = -1;
        return CString();
    }
    size_t to = m_text.find_first_of(delims, from);
    if (to == std::wstring::npos) to = m_text.size();
    start = static_cast<int>(to) + 1;
    return CString(m_text.substr(from, to - from));
}

int CString::Compare(const wchar_t* other) const {
    int c = m_text.compare(other ? other : L"");
    return c < 0 ? -1 : (c > 0 ? 1 : 0);
}

int CString::CompareNoCase(const wchar_t* other) const {
    CString a(*this), b(other);
    a.MakeLower();
    b.MakeLower();
    return a.Compare(b);
}

CString& CString::operator=(const wchar_t* text) {
    m_text = text ? text : L"";
    return *this;
}

CString& CString::operator=(wchar_t ch) {
    m_text.assign(1, ch);
    return *this;
}

CString& CString::operator+=(const CString& other) {
    m_text += other.m_text;
    return *this;
}

CString& CString::operator+=(const wchar_t* text) {
    if (text) m_text += text;
    return *this;
}

CString& CString::operator+=(wchar_t ch) {
    m_text.push_back(ch);
    return *this;
}

CString operator+(const CString& a, const CString& b) { return CString(a.m_text + b.m_text); }
CString operator+(const CString& a, const wchar_t* b) { return CString(a.m_text + (b ? b : L"")); }
CString operator+(const wchar_t* a, const CString& b) { return CString((a ? a : L"") + b.m_text); }
CString operator+(const CString& a, wchar_t b) { return CString(a.m_text + b); }
CString operator+(wchar_t a, const CString& b) { return CString(a + b.m_text); }
