#pragma once
#include "zefra/ZefraExport.h"
// The key of a dictionary item. It is a CString in every way a reader needs;
// a change made through it also tells the child list that holds the item, so
// that the list's index of children by key stays right.

#include "zefra/platform/mfc/CString.h"

class QoDtDictItemList;

class ZEFRA_API QoDtItemKey : public CString {
public:
    QoDtItemKey() = default;
    // A copy is the text alone; it belongs to no list.
    QoDtItemKey(const QoDtItemKey& other) : CString(other) {}
    ~QoDtItemKey() = default;

    QoDtItemKey& operator=(const QoDtItemKey& other) { return Assign(other); }
    QoDtItemKey& operator=(const CString& text) { return Assign(text); }
    QoDtItemKey& operator=(CString&& text);
    QoDtItemKey& operator=(const wchar_t* text) { return Assign(CString(text)); }
    QoDtItemKey& operator=(wchar_t ch) { return Assign(CString(ch)); }
    QoDtItemKey& operator+=(const CString& text);
    QoDtItemKey& operator+=(const wchar_t* text);
    QoDtItemKey& operator+=(wchar_t ch);

    // CString's editors, each followed by the notice to the list.
    void Empty();
    void SetAt(int index, wchar_t ch);
    void Format(const wchar_t* format, ...);
    void FormatV(const wchar_t* format, va_list args);
    void AppendFormat(const wchar_t* format, ...);
    int Replace(wchar_t oldCh, wchar_t newCh);
    int Replace(const wchar_t* oldText, const wchar_t* newText);
    int Remove(wchar_t ch);
    int Insert(int index, wchar_t ch);
    int Insert(int index, const wchar_t* text);
    int Delete(int index, int count = 1);
    QoDtItemKey& MakeUpper();
    QoDtItemKey& MakeLower();
    QoDtItemKey& MakeReverse();
    QoDtItemKey& Trim();
    QoDtItemKey& TrimLeft();
    QoDtItemKey& TrimRight();
    QoDtItemKey& Trim(wchar_t ch);
    QoDtItemKey& TrimLeft(wchar_t ch);
    QoDtItemKey& TrimRight(wchar_t ch);

private:
    friend class QoDtDictItemList;

    QoDtItemKey& Assign(const CString& text);
    void Changed();

    QoDtDictItemList* m_list = nullptr;
};
