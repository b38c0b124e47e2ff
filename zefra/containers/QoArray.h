#pragma once
#include "zefra/ZefraExport.h"
// Plain array of exact size, without cursor: the buffer always holds exactly
// GetLength() elements, and every insertion or deletion reallocates to the
// new length. Access by index is unchecked.

#include "zefra/containers/QoDynArrayBase.h"
#include "zefra/containers/QoQuene.h"
#include "zefra/containers/QoRankSort.h"

#include <functional>
#include <utility>

template <typename T>
class ZEFRA_API QoArray {
public:
    explicit QoArray(int n = 0) { ReAllocate(n, false); }
    QoArray(const QoArray& o) { CopyFrom(o); }
    QoArray(const QoDynArrayBase<T>& o) { CopyFrom(o); }
    QoArray(QoArray&& o) noexcept : m_data(o.m_data), m_length(o.m_length) {
        o.m_data = nullptr;
        o.m_length = 0;
    }
    QoArray& operator=(const QoArray& o) {
        if (&o != this) CopyFrom(o);
        return *this;
    }
    QoArray& operator=(const QoDynArrayBase<T>& o) {
        CopyFrom(o);
        return *this;
    }
    QoArray& operator=(QoArray&& o) noexcept {
        if (&o != this) {
            delete[] m_data;
            m_data = std::exchange(o.m_data, nullptr);
            m_length = std::exchange(o.m_length, 0);
        }
        return *this;
    }
    virtual ~QoArray() { delete[] m_data; }

    int GetLength() const { return m_length; }
    int GetMaxIndex() const { return m_length - 1; }
    bool IsEmpty() const { return m_length == 0; }
    bool IsValidIndex(int i) const { return i >= 0 && i < m_length; }

    T* GetDataBuffer() { return m_data; }
    const T* GetDataBuffer() const { return m_data; }
    T& GetAt(int i) { return m_data[i]; }
    const T& GetAt(int i) const { return m_data[i]; }
    void SetAt(int i, const T& d) { m_data[i] = d; }
    T& operator[](int i) { return m_data[i]; }
    const T& operator[](int i) const { return m_data[i]; }

    void Reset() {
        delete[] m_data;
        m_data = nullptr;
        m_length = 0;
    }
    void ReAllocate(int n, bool keep);
    void SetAll(const T& d);

    void Insert(int i, const T& d);
    void InsertHead(const T& d) { Insert(0, d); }
    int Append(const T& d) {
        Insert(m_length, d);
        return m_length - 1;
    }
    void Del(int i);
    void DelHead() { Del(0); }
    void DelTail() { Del(m_length - 1); }

    int Find(const T& d, int lo = 0, int hi = -1) const;
    int Find(const T& d, QoQuene<int>& out, int lo = 0, int hi = -1) const;
    int FindDel(const T& d);
    int FindOrAppend(const T& d) {
        const int found = Find(d);
        return found >= 0 ? found : Append(d);
    }
    void FindOrInsertHead(const T& d) {
        if (Find(d) < 0) InsertHead(d);
    }
    int BFind(const T& d, int lo = 0, int hi = -1) const;

    // Unlike the cursor containers' Reverse, an invalid bound does nothing.
    void Reverse(int lo = 0, int hi = -1);
    void Sort(int (*compare)(const T&, const T&)) {
        QoRankSort::SortByRank(m_data, m_length, [compare](const T& a, const T& b) { return compare(a, b) > 0; });
    }
    void Sort(bool ascending) {
        const std::greater<T> above;
        if (ascending)
            QoRankSort::SortByRank(m_data, m_length, [&above](const T& a, const T& b) { return above(a, b); });
        else
            QoRankSort::SortByRank(m_data, m_length, [&above](const T& a, const T& b) { return above(b, a); });
    }

    bool operator==(const QoArray& o) const;
    bool operator!=(const QoArray& o) const { return !(*this == o); }
    // Arrays order by length alone.
    bool operator<(const QoArray& o) const { return m_length < o.m_length; }
    bool operator>(const QoArray& o) const { return m_length > o.m_length; }

private:
    int ClampHigh(int hi) const { return (hi < 0 || hi >= m_length) ? m_length - 1 : hi; }
    void CopyFrom(const QoArray& o);
    void CopyFrom(const QoDynArrayBase<T>& o);

    T* m_data = nullptr;
    int m_length = 0;
};

template <typename T>
void QoArray<T>::CopyFrom(const QoArray& o) {
    if (o.m_length != m_length) ReAllocate(o.m_length, false);
    for (int i = 0; i < m_length; ++i) m_data[i] = o.m_data[i];
}

template <typename T>
void QoArray<T>::CopyFrom(const QoDynArrayBase<T>& o) {
    if (o.GetLength() != m_length) ReAllocate(o.GetLength(), false);
    int i = 0;
    for (const T* p = o.GetFirst(); p != nullptr && i < m_length; p = o.GetNext(p)) m_data[i++] = *p;
}

template <typename T>
void QoArray<T>::ReAllocate(int n, bool keep) {
    if (n == m_length) return;
    if (n <= 0) {
        Reset();
        return;
    }
    T* fresh = new T[n];
    if (keep) {
        const int kept = n < m_length ? n : m_length;
        for (int i = 0; i < kept; ++i) fresh[i] = std::move(m_data[i]);
    }
    delete[] m_data;
    m_data = fresh;
    m_length = n;
}

template <typename T>
void QoArray<T>::SetAll(const T& d) {
    for (int i = 0; i < m_length; ++i) m_data[i] = d;
}

template <typename T>
void QoArray<T>::Insert(int i, const T& d) {
    T* fresh = new T[m_length + 1];
    fresh[i] = d;  // before the old buffer goes: d may be one of its elements
    for (int k = 0; k < i; ++k) fresh[k] = std::move(m_data[k]);
    for (int k = i; k < m_length; ++k) fresh[k + 1] = std::move(m_data[k]);
    delete[] m_data;
    m_data = fresh;
    ++m_length;
}

template <typename T>
void QoArray<T>::Del(int i) {
    if (m_length == 1) {
        Reset();
        return;
    }
    T* fresh = new T[m_length - 1];
    for (int k = 0; k < i; ++k) fresh[k] = std::move(m_data[k]);
    for (int k = i + 1; k < m_length; ++k) fresh[k - 1] = std::move(m_data[k]);
    delete[] m_data;
    m_data = fresh;
    --m_length;
}

template <typename T>
int QoArray<T>::Find(const T& d, int lo, int hi) const {
    hi = ClampHigh(hi);
    for (int i = lo < 0 ? 0 : lo; i <= hi; ++i)
        if (m_data[i] == d) return i;
    return -1;
}

template <typename T>
int QoArray<T>::Find(const T& d, QoQuene<int>& out, int lo, int hi) const {
    hi = ClampHigh(hi);
    for (int i = lo < 0 ? 0 : lo; i <= hi; ++i)
        if (m_data[i] == d) out.Add(i);
    return out.GetCount();
}

template <typename T>
int QoArray<T>::FindDel(const T& d) {
    const T value(d);  // d may be one of the elements that go
    int count = 0;
    for (int i = 0; i < m_length; ++i) {
        if (m_data[i] == value) {
            Del(i--);
            ++count;
        }
    }
    return count;
}

template <typename T>
int QoArray<T>::BFind(const T& d, int lo, int hi) const {
    hi = ClampHigh(hi);
    if (lo < 0 || lo > hi) return -1;
    if (m_data[lo] > d || d > m_data[hi]) return -1;
    while (lo <= hi) {
        const int mid = (lo + hi) / 2;
        if (d > m_data[mid])
            lo = mid + 1;
        else if (m_data[mid] > d)
            hi = mid - 1;
        else
            return mid;
    }
    return -1;
}

template <typename T>
void QoArray<T>::Reverse(int lo, int hi) {
    if (hi == -1) hi = m_length - 1;
    if (!IsValidIndex(lo) || !IsValidIndex(hi)) return;
    using std::swap;
    for (; lo < hi; ++lo, --hi) swap(m_data[lo], m_data[hi]);
}

template <typename T>
bool QoArray<T>::operator==(const QoArray& o) const {
    if (m_length != o.m_length) return false;
    for (int i = 0; i < m_length; ++i)
        if (m_data[i] != o.m_data[i]) return false;
    return true;
}
