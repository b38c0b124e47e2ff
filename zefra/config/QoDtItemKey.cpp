#include "zefra/config/QoDtItemKey.h"

#include "zefra/config/QoDtDictItemList.h"

#include <cstdarg>
#include <utility>

void QoDtItemKey::Changed() {
    if (m_list != nullptr) m_list->KeyChanged();
}

QoDtItemKey& QoDtItemKey::Assign(const CString& text) {
    if (static_cast<const CString&>(*this) != text) {
        CString::operator=(text);
        Changed();
    }
    return *this;
}

QoDtItemKey& QoDtItemKey::operator=(CString&& text) {
    if (static_cast<const CString&>(*this) != text) {
        CString::operator=(std::move(text));
        Changed();
    }
    return *this;
}

QoDtItemKey& QoDtItemKey::operator+=(const CString& text) {
    CString::operator+=(text);
    Changed();
    return *this;
}

QoDtItemKey& QoDtItemKey::operator+=(const wchar_t* text) {
    CString::operator+=(text);
    Changed();
    return *this;
}

QoDtItemKey& QoDtItemKey::operator+=(wchar_t ch) {
    CString::operator+=(ch);
    Changed();
    return *this;
}

void QoDtItemKey::Empty() {
    CString::Empty();
    Changed();
}

void QoDtItemKey::SetAt(int index, wchar_t ch) {
    CString::SetAt(index, ch);
    Changed();
}

void QoDtItemKey::Format(const wchar_t* format, ...) {
    va_list args;
    va_start(args, format);
    FormatV(format, args);
    va_end(args);
}

void QoDtItemKey::FormatV(const wchar_t* format, va_list args) {
    CString::FormatV(format, args);
    Changed();
}

void QoDtItemKey::AppendFormat(const wchar_t* format, ...) {
    va_list args;
    va_start(args, format);
    CString text;
    text.FormatV(format, args);
    va_end(args);
    *this += text;
}

int QoDtItemKey::Replace(wchar_t oldCh, wchar_t newCh) {
    const int count = CString::Replace(oldCh, newCh);
    Changed();
    return count;
}

int QoDtItemKey::Replace(const wchar_t* oldText, const wchar_t* newText) {
    const int count = CString::Replace(oldText, newText);
    Changed();
    return count;
}

int QoDtItemKey::Remove(wchar_t ch) {
    const int count = CString::Remove(ch);
    Changed();
    return count;
}

int QoDtItemKey::Insert(int index, wchar_t ch) {
    const int length = CString::Insert(index, ch);
    Changed();
    return length;
}

int QoDtItemKey::Insert(int index, const wchar_t* text) {
    const int length = CString::Insert(index, text);
    Changed();
    return length;
}

int QoDtItemKey::Delete(int index, int count) {
    const int length = CString::Delete(index, count);
    Changed();
    return length;
}

#define QODT_KEY_EDITOR(Editor)   \
    QoDtItemKey& QoDtItemKey::Editor() { \
        CString::Editor();        \
        Changed();                \
        return *this;             \
    }
QODT_KEY_EDITOR(MakeUpper)
QODT_KEY_EDITOR(MakeLower)
QODT_KEY_EDITOR(MakeReverse)
QODT_KEY_EDITOR(Trim)
QODT_KEY_EDITOR(TrimLeft)
QODT_KEY_EDITOR(TrimRight)
#undef QODT_KEY_EDITOR

QoDtItemKey& QoDtItemKey::Trim(wchar_t ch) {
    CString::Trim(ch);
    Changed();
    return *this;
}

QoDtItemKey& QoDtItemKey::TrimLeft(wchar_t ch) {
    CString::TrimLeft(ch);
    Changed();
    return *this;
}

QoDtItemKey& QoDtItemKey::TrimRight(wchar_t ch) {
    CString::TrimRight(ch);
    Changed();
    return *this;
}
