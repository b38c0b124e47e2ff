#pragma once
#include "zefra/ZefraExport.h"
// Root of the cursor containers. A container carries a current position, the
// cursor, and is walked by moving it:
//
//     for (a.MoveToFirst(); !a.IsOut(); a.MoveToNext())
//         if (Unwanted(a.GetCurData())) a.DelCur();
//
// DelCur leaves the cursor on the element before the deleted one, so the
// walk above needs no special case. Everything that can be said with the
// storage primitives (the pure operations) is written here once and runs on
// arrays and lists alike. Indexes and counts are 32-bit; -1 means not found.

#include "zefra/containers/QoQuene.h"

#include <cstddef>
#include <functional>
#include <utility>
#include <vector>

static_assert(sizeof(int) == 4, "container indexes are 32-bit");

template <typename T>
class QoArray;

template <typename T>
class ZEFRA_API QoDynArrayBase {
public:
    QoDynArrayBase() = default;

protected:
    // Copy only the length and the cursor: they serve the derived classes,
    // which copy the elements themselves.
    QoDynArrayBase(const QoDynArrayBase&) = default;
    QoDynArrayBase& operator=(const QoDynArrayBase&) = default;

    virtual void ReAllocate(int n) = 0;

public:
    virtual ~QoDynArrayBase() = default;
    virtual void SetLength(int n, bool keep) = 0;
    virtual void Reset();
    virtual T& GetCurData() = 0;
    virtual void SetCurData(const T& d) = 0;
    virtual void MoveToFirst() { m_cur = 0; }
    virtual void MoveToNext() { ++m_cur; }
    virtual void MoveToPre() { --m_cur; }
    virtual void MoveToLast() { m_cur = m_length - 1; }
    virtual void MoveTo(int i) { m_cur = i; }
    // Grows the container when i is past its end, and moves the cursor to i.
    virtual T& operator[](int i);
    virtual const T* GetFirst() const = 0;
    virtual const T* GetNext(const T* p) const = 0;
    virtual const T* GetPre(const T* p) const = 0;
    virtual const T* GetLast() const = 0;
    virtual const T& GetAt(int i) const = 0;
    virtual void InsertCur(const T& d) = 0;
    virtual void Insert(int i, const T& d);
    virtual void InsertHead(const T& d);
    virtual int Append(const T& d);
    virtual void DelCur() = 0;
    virtual void Sort(int (*compare)(const T&, const T&)) = 0;
    virtual void Sort(bool ascending) = 0;
    virtual bool Move(int from, int to);

protected:
    // Every operation here that copies elements into a container (DeepCopy,
    // Left, Right, Mid, operator<< of a container, SetAll, and so the
    // assignments of the derived classes) stores them through this hook: it
    // puts a copy of d into the cursor's slot in place of what the slot held.
    // The owning containers copy the pointee instead of the pointer, so a
    // copy never leaves two owners of one object.
    virtual void CopyToCur(const T& d) { SetCurData(d); }

public:

    int GetLength() const { return m_length; }
    int GetMaxIndex() const { return m_length - 1; }
    int GetCur() const { return m_cur; }
    bool IsEmpty() const { return m_length == 0; }
    bool IsBegin() const { return m_cur < 0; }
    bool IsEnd() const { return m_cur >= m_length; }
    bool IsOut() const { return IsBegin() || IsEnd(); }
    bool IsValidIndex(int i) const { return i >= 0 && i < m_length; }

    const T& operator[](int i) const { return GetAt(i); }
    const T* GetTo(int i) const { return IsValidIndex(i) ? &GetAt(i) : nullptr; }

    QoDynArrayBase& operator<<(const T& d) {
        Append(d);
        return *this;
    }
    QoDynArrayBase& operator<<(const QoDynArrayBase& o);
    QoDynArrayBase& operator<<(const QoArray<T>& o);

    void Del(int i) {
        MoveTo(i);
        DelCur();
    }
    void DelHead() {
        MoveToFirst();
        DelCur();
    }
    void DelTail() {
        MoveToLast();
        DelCur();
    }

    void IncreaseSize(int n) { ReAllocate(m_length + n); }
    void DecreaseSize(int n) { ReAllocate(m_length - n); }

    void SetAll(const T& d);
    void DeepCopy(const QoDynArrayBase& o);
    void DeepCopy(const QoArray<T>& o);

    void Left(int n, QoDynArrayBase& out) const { CopyRangeTo(0, n, out); }
    void Right(int n, QoDynArrayBase& out) const { CopyRangeTo(m_length - n, n, out); }
    void Mid(int i, int j, QoDynArrayBase& out) const { CopyRangeTo(i, j - i + 1, out); }

    void Exchange(int i, int j);
    void Reverse(int lo, int hi = -1);

    int Find(const T& d, int lo = 0, int hi = -1) const;
    int Find(const T& d, QoQuene<int>& out, int lo = 0, int hi = -1) const;
    bool FindTo(const T& d, int from = 0);
    int FindDel(const T& d);
    int FindOrAppend(const T& d);
    void FindOrInsertHead(const T& d);

    int BFind(const T& d, int lo = 0, int hi = -1) const;
    bool BFindTo(const T& d, int lo = 0, int hi = -1);
    bool SortInto(const T& d, bool allowEqual);

    bool operator==(const QoDynArrayBase& o) const;
    bool operator!=(const QoDynArrayBase& o) const { return !(*this == o); }
    // Containers order by length alone.
    bool operator<(const QoDynArrayBase& o) const { return m_length < o.m_length; }
    bool operator>(const QoDynArrayBase& o) const { return m_length > o.m_length; }

protected:
    int ClampHigh(int hi) const { return (hi < 0 || hi >= m_length) ? m_length - 1 : hi; }

    // The search algorithms, with the order given as two predicates:
    // elementAbove(element, d) and valueAbove(d, element). The plain forms
    // use T's `>`; the owning containers compare pointees.
    template <typename V, typename ElementAbove, typename ValueAbove>
    int BFindWith(const V& d, int lo, int hi, ElementAbove elementAbove, ValueAbove valueAbove) const;
    template <typename V, typename ElementAbove, typename ValueAbove>
    bool BFindToWith(const V& d, int lo, int hi, ElementAbove elementAbove, ValueAbove valueAbove);
    // First index in lo..hi (hi clamped) whose element satisfies `matches`.
    template <typename Matches>
    int FindWith(int lo, int hi, Matches matches) const;
    template <typename Matches>
    int FindAllWith(int lo, int hi, QoQuene<int>& out, Matches matches) const;

    int m_length = 0;
    int m_cur = -1;

private:
    void CopyRangeTo(int first, int count, QoDynArrayBase& out) const;
};

template <typename T>
void QoDynArrayBase<T>::Reset() {
    while (!IsEmpty()) DelTail();
}

template <typename T>
T& QoDynArrayBase<T>::operator[](int i) {
    if (i >= m_length) ReAllocate(i + 1);
    MoveTo(i);
    return GetCurData();
}

template <typename T>
void QoDynArrayBase<T>::Insert(int i, const T& d) {
    MoveTo(i);
    InsertCur(d);
}

template <typename T>
void QoDynArrayBase<T>::InsertHead(const T& d) {
    MoveToFirst();
    InsertCur(d);
}

template <typename T>
int QoDynArrayBase<T>::Append(const T& d) {
    MoveTo(m_length);
    InsertCur(d);
    return m_cur;
}

template <typename T>
bool QoDynArrayBase<T>::Move(int from, int to) {
    if (!IsValidIndex(from) || to < 0 || to > m_length) return false;
    if (from == to || from == to - 1) return false;
    const T moving(GetAt(from));
    Insert(to, moving);
    if (from <= to) {
        Del(from);
        MoveTo(to - 1);
    } else {
        Del(from + 1);
        MoveTo(to);
    }
    return true;
}

template <typename T>
QoDynArrayBase<T>& QoDynArrayBase<T>::operator<<(const QoDynArrayBase& o) {
    const int oldLength = m_length;
    const int count = o.m_length;  // read before growing: o may be this container
    SetLength(oldLength + count, true);
    MoveTo(oldLength);
    const T* p = o.GetFirst();
    for (int k = 0; k < count; ++k, p = o.GetNext(p)) {
        CopyToCur(*p);
        MoveToNext();
    }
    return *this;
}

template <typename T>
QoDynArrayBase<T>& QoDynArrayBase<T>::operator<<(const QoArray<T>& o) {
    const int oldLength = m_length;
    SetLength(oldLength + o.GetLength(), true);
    MoveTo(oldLength);
    for (int k = 0; k < o.GetLength(); ++k) {
        CopyToCur(o.GetAt(k));
        MoveToNext();
    }
    return *this;
}

template <typename T>
void QoDynArrayBase<T>::SetAll(const T& d) {
    for (MoveToFirst(); !IsOut(); MoveToNext()) CopyToCur(d);
}

template <typename T>
void QoDynArrayBase<T>::DeepCopy(const QoDynArrayBase& o) {
    if (&o == this) return;
    SetLength(o.m_length, false);
    MoveToFirst();
    for (const T* p = o.GetFirst(); p != nullptr; p = o.GetNext(p)) {
        CopyToCur(*p);
        MoveToNext();
    }
}

template <typename T>
void QoDynArrayBase<T>::DeepCopy(const QoArray<T>& o) {
    SetLength(o.GetLength(), false);
    MoveToFirst();
    for (int k = 0; k < o.GetLength(); ++k) {
        CopyToCur(o.GetAt(k));
        MoveToNext();
    }
}

template <typename T>
void QoDynArrayBase<T>::CopyRangeTo(int first, int count, QoDynArrayBase& out) const {
    if (count < 0) count = 0;
    const T* p = count > 0 ? GetTo(first) : nullptr;
    if (&out == this) {
        // A container cut down to a part of itself keeps those very elements:
        // nothing is copied, so nothing can be read after it was freed.
        const int end = p == nullptr ? 0 : (count > m_length - first ? m_length : first + count);
        out.SetLength(end, true);
        for (int k = first; k > 0 && end > 0; --k) out.DelHead();
        if (end == 0) {
            out.MoveToFirst();
        } else {
            out.MoveToLast();
            out.MoveToNext();
        }
        return;
    }
    out.SetLength(count, false);
    out.MoveToFirst();
    for (int k = 0; k < count && p != nullptr; ++k, p = GetNext(p)) {
        out.CopyToCur(*p);
        out.MoveToNext();
    }
}

template <typename T>
void QoDynArrayBase<T>::Exchange(int i, int j) {
    // Grow first, as the two operator[] calls would: a reference taken
    // before a growth would point into the freed buffer.
    if (i >= m_length) ReAllocate(i + 1);
    if (j >= m_length) ReAllocate(j + 1);
    T& a = (*this)[i];
    T& b = (*this)[j];
    using std::swap;
    swap(a, b);
}

template <typename T>
void QoDynArrayBase<T>::Reverse(int lo, int hi) {
    if (hi == -1) hi = m_length - 1;
    const int half = (hi - lo + 1) / 2;
    for (int k = 0; k < half; ++k) Exchange(lo + k, hi - k);
}

template <typename T>
template <typename Matches>
int QoDynArrayBase<T>::FindWith(int lo, int hi, Matches matches) const {
    hi = ClampHigh(hi);
    if (lo < 0 || lo > hi) return -1;
    const T* p = &GetAt(lo);
    for (int i = lo; i <= hi; ++i, p = GetNext(p))
        if (matches(*p)) return i;
    return -1;
}

template <typename T>
template <typename Matches>
int QoDynArrayBase<T>::FindAllWith(int lo, int hi, QoQuene<int>& out, Matches matches) const {
    hi = ClampHigh(hi);
    if (lo >= 0 && lo <= hi) {
        const T* p = &GetAt(lo);
        for (int i = lo; i <= hi; ++i, p = GetNext(p))
            if (matches(*p)) out.Add(i);
    }
    return out.GetCount();
}

template <typename T>
int QoDynArrayBase<T>::Find(const T& d, int lo, int hi) const {
    return FindWith(lo, hi, [&d](const T& e) { return e == d; });
}

template <typename T>
int QoDynArrayBase<T>::Find(const T& d, QoQuene<int>& out, int lo, int hi) const {
    return FindAllWith(lo, hi, out, [&d](const T& e) { return e == d; });
}

template <typename T>
bool QoDynArrayBase<T>::FindTo(const T& d, int from) {
    for (MoveTo(from); !IsOut(); MoveToNext())
        if (GetCurData() == d) return true;
    return false;
}

template <typename T>
int QoDynArrayBase<T>::FindDel(const T& d) {
    const T value(d);  // d may be one of the elements that go
    int count = 0;
    for (MoveToFirst(); !IsOut(); MoveToNext()) {
        if (GetCurData() == value) {
            DelCur();
            ++count;
        }
    }
    return count;
}

template <typename T>
int QoDynArrayBase<T>::FindOrAppend(const T& d) {
    const int found = Find(d);
    return found >= 0 ? found : Append(d);
}

template <typename T>
void QoDynArrayBase<T>::FindOrInsertHead(const T& d) {
    if (Find(d) < 0) InsertHead(d);
}

template <typename T>
template <typename V, typename ElementAbove, typename ValueAbove>
int QoDynArrayBase<T>::BFindWith(const V& d, int lo, int hi, ElementAbove elementAbove,
                                 ValueAbove valueAbove) const {
    hi = ClampHigh(hi);
    if (lo < 0 || lo > hi) return -1;
    if (elementAbove(GetAt(lo), d) || valueAbove(d, GetAt(hi))) return -1;
    while (lo <= hi) {
        const int mid = (lo + hi) / 2;
        const T& e = GetAt(mid);
        if (valueAbove(d, e))
            lo = mid + 1;
        else if (elementAbove(e, d))
            hi = mid - 1;
        else
            return mid;
    }
    return -1;
}

template <typename T>
template <typename V, typename ElementAbove, typename ValueAbove>
bool QoDynArrayBase<T>::BFindToWith(const V& d, int lo, int hi, ElementAbove elementAbove,
                                    ValueAbove valueAbove) {
    hi = ClampHigh(hi);
    if (IsEmpty()) {
        MoveTo(0);
        return false;
    }
    if (lo < 0 || lo > hi) {  // no range to search: stand behind it
        MoveTo(hi + 1);
        return false;
    }
    MoveTo(lo);
    if (elementAbove(GetCurData(), d)) return false;
    MoveTo(hi);
    if (valueAbove(d, GetCurData())) {
        MoveToNext();
        return false;
    }
    while (lo < hi) {
        const int mid = (lo + hi) / 2;
        MoveTo(mid);
        if (valueAbove(d, GetCurData()))
            lo = mid + 1;
        else if (elementAbove(GetCurData(), d))
            hi = mid - 1;
        else
            return true;
    }
    // The last probe was the first element above d.
    if (lo != hi) return false;
    MoveTo(lo);
    if (valueAbove(d, GetCurData())) {
        MoveToNext();
        return false;
    }
    return !elementAbove(GetCurData(), d);
}

template <typename T>
int QoDynArrayBase<T>::BFind(const T& d, int lo, int hi) const {
    const std::greater<T> above;
    return BFindWith(d, lo, hi, above, above);
}

template <typename T>
bool QoDynArrayBase<T>::BFindTo(const T& d, int lo, int hi) {
    const std::greater<T> above;
    return BFindToWith(d, lo, hi, above, above);
}

template <typename T>
bool QoDynArrayBase<T>::SortInto(const T& d, bool allowEqual) {
    if (BFindTo(d, 0, -1)) {
        if (!allowEqual) return false;
        while (!IsOut() && GetCurData() == d) MoveToNext();
    }
    InsertCur(d);
    return true;
}

template <typename T>
bool QoDynArrayBase<T>::operator==(const QoDynArrayBase& o) const {
    if (m_length != o.m_length) return false;
    const T* a = GetFirst();
    const T* b = o.GetFirst();
    for (; a != nullptr && b != nullptr; a = GetNext(a), b = o.GetNext(b))
        if (*a != *b) return false;
    return true;
}

// QoArray takes and gives whole arrays of the cursor containers; both
// headers need the other's class complete, whichever comes first.
#include "zefra/containers/QoArray.h"
