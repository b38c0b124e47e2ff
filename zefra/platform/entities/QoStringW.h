#pragma once
#include "zefra/ZefraExport.h"
// The wide string of the entity interfaces.

#include <string>

class ZEFRA_API QoStringW {
public:
    QoStringW() = default;
    QoStringW(const wchar_t* text);

    operator const wchar_t*() const { return m_text.c_str(); }
    const wchar_t* GetString() const { return m_text.c_str(); }
    int GetLength() const { return static_cast<int>(m_text.size()); }
    bool IsEmpty() const { return m_text.empty(); }

    friend bool operator==(const QoStringW& a, const QoStringW& b) { return a.m_text == b.m_text; }
    friend bool operator!=(const QoStringW& a, const QoStringW& b) { return a.m_text != b.m_text; }

private:
    std::wstring m_text;
};
