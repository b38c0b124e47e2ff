#pragma once
#include "zefra/ZefraExport.h"
// Wide-character string with the MFC operations the suite's code is written
// against. Text is held as wchar_t (UTF-32 on this platform); every exchange
// with the outside world (files, terminal, JSON) goes through UTF-8.

#include <cstdarg>
#include <string>

class ZEFRA_API CString {
public:
    CString() = default;
    CString(const wchar_t* text);
    CString(const wchar_t* text, int length);
    CString(wchar_t ch, int repeat = 1);
    // Narrow text is taken as UTF-8.
    CString(const char* utf8);
    explicit CString(const std::wstring& text) : m_text(text) {}
    explicit CString(std::wstring&& text) : m_text(std::move(text)) {}

    static CString FromUtf8(const std::string& utf8);
    std::string ToUtf8() const;

    int GetLength() const { return static_cast<int>(m_text.size()); }
    bool IsEmpty() const { return m_text.empty(); }
    void Empty() { m_text.clear(); }

    // Bounds-checked like MFC: a bad index throws CInvalidArgException.
    wchar_t GetAt(int index) const;
    void SetAt(int index, wchar_t ch);
    wchar_t operator[](int index) const { return GetAt(index); }

    operator const wchar_t*() const { return m_text.c_str(); }
    const wchar_t* GetString() const { return m_text.c_str(); }
    const std::wstring& Str() const { return m_text; }

    // printf-style formatting with MFC's reading of a wide format string:
    // %s and %c take wide arguments, %S and %C (or %hs, %hc) narrow ones.
    void Format(const wchar_t* format, ...);
    void FormatV(const wchar_t* format, va_list args);
    void AppendFormat(const wchar_t* format, ...);

    int Find(wchar_t ch, int start = 0) const;
    int Find(const wchar_t* sub, int start = 0) const;
    int ReverseFind(wchar_t ch) const;
    int FindOneOf(const wchar_t* chars) const;

    CString Left(int count) const;
    CString Mid(int first) const;
    CString Mid(int first, int count) const;
    CString Right(int count) const;

    int Replace(wchar_t oldCh, wchar_t newCh);
    int Replace(const wchar_t* oldText, const wchar_t* newText);
    int Remove(wchar_t ch);
    int Insert(int index, wchar_t ch);
    int Insert(int index, const wchar_t* text);
    int Delete(int index, int count = 1);

    CString& MakeUpper();
    CString& MakeLower();
    CString& MakeReverse();
    CString& Trim();
    CString& TrimLeft();
    CString& TrimRight();
    CString& Trim(wchar_t ch);
    CString& TrimLeft(wchar_t ch);
    CString& TrimRight(wchar_t ch);

    // Next token delimited by any of `delims`, starting at `start`; `start`
    // moves past it and becomes -1 when the text is used up.
    CString Tokenize(const wchar_t* delims, int& start) const;

    int Compare(const wchar_t* other) const;
    int CompareNoCase(const wchar_t* other) const;

    CString& operator=(const wchar_t* text);
    CString& operator=(wchar_t ch);
    CString& operator+=(const CString& other);
    CString& operator+=(const wchar_t* text);
    CString& operator+=(wchar_t ch);

    friend CString operator+(const CString& a, const CString& b);
    friend CString operator+(const CString& a, const wchar_t* b);
    friend CString operator+(const wchar_t* a, const CString& b);
    friend CString operator+(const CString& a, wchar_t b);
    friend CString operator+(wchar_t a, const CString& b);

    friend bool operator==(const CString& a, const CString& b) { return a.m_text == b.m_text; }
    friend bool operator==(const CString& a, const wchar_t* b) { return a.m_text == (b ? b : L""); }
    friend bool operator==(const wchar_t* a, const CString& b) { return b == a; }
    friend bool operator!=(const CString& a, const CString& b) { return !(a == b); }
    friend bool operator!=(const CString& a, const wchar_t* b) { return !(a == b); }
    friend bool operator!=(const wchar_t* a, const CString& b) { return !(b == a); }
    friend bool operator<(const CString& a, const CString& b) { return a.m_text < b.m_text; }
    friend bool operator>(const CString& a, const CString& b) { return b.m_text < a.m_text; }
    friend bool operator<=(const CString& a, const CString& b) { return !(b < a); }
    friend bool operator>=(const CString& a, const CString& b) { return !(a < b); }

private:
    std::wstring m_text;
};

namespace zefra {
// UTF-8 <-> wide conversion. Malformed input becomes U+FFFD.
ZEFRA_API std::wstring Utf8ToWide(const std::string& utf8);
ZEFRA_API std::string WideToUtf8(const std::wstring& wide);

// MFC-style formatting into a wide string (see CString::Format).
ZEFRA_API std::wstring FormatMfc(const wchar_t* format, va_list args);
}  // namespace zefra
