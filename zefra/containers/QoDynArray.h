#pragma once
#include "zefra/ZefraExport.h"
// Cursor array in one growable buffer. The cursor is a plain index and may
// stand anywhere, also before the first element (-1) or on GetLength().
// Growth is arithmetic: each reallocation leaves GetAllocUnit() spare slots.

#include "zefra/containers/QoDynArrayBase.h"
#include "zefra/containers/QoRankSort.h"

#include <algorithm>
#include <functional>
#include <memory>
#include <utility>

template <typename T>
class ZEFRA_API QoDynArray : public QoDynArrayBase<T> {
    using Base = QoDynArrayBase<T>;

public:
    // `size` reserves room; the array starts empty.
    explicit QoDynArray(int size = 0, int allocUnit = 10);
    QoDynArray(const QoDynArray& o) : Base(), m_allocUnit(kDefaultAllocUnit) { Base::DeepCopy(o); }
    QoDynArray(const Base& o) : Base(), m_allocUnit(kDefaultAllocUnit) { Base::DeepCopy(o); }
    QoDynArray& operator=(const QoDynArray& o) {
        Base::DeepCopy(o);
        return *this;
    }
    QoDynArray& operator=(const Base& o) {
        Base::DeepCopy(o);
        return *this;
    }
    ~QoDynArray() override { delete[] m_data; }

    void ReAllocate(int n) override;
    void SetLength(int n, bool keep) override;
    bool SetSpaceSize(int n);
    int GetSpaceSize() const { return m_spaceSize; }
    int GetAllocUnit() const { return m_allocUnit; }
    void SetAllocUnit(int allocUnit) { m_allocUnit = allocUnit; }

    // Empties the array; the buffer stays for reuse.
    void Reset() override {
        this->m_length = 0;
        this->m_cur = -1;
    }

    T& GetCurData() override { return m_data[this->m_cur]; }
    void SetCurData(const T& d) override { m_data[this->m_cur] = d; }
    const T* GetFirst() const override { return this->m_length > 0 ? m_data : nullptr; }
    const T* GetLast() const override { return this->m_length > 0 ? m_data + this->m_length - 1 : nullptr; }
    const T* GetNext(const T* p) const override {
        return (p == nullptr || p == GetLast()) ? nullptr : p + 1;
    }
    const T* GetPre(const T* p) const override { return (p == nullptr || p == m_data) ? nullptr : p - 1; }
    const T& GetAt(int i) const override { return m_data[i]; }

    // Inserts d before the cursor's element; the cursor stays on d. The
    // cursor must be in 0..GetLength().
    void InsertCur(const T& d) override;
    // Deletes the cursor's element; the cursor goes one back.
    void DelCur() override;

    // Stable rank sorts; the cursor stays where it is.
    void Sort(int (*compare)(const T&, const T&)) override {
        QoRankSort::SortByRank(m_data, this->m_length, [compare](const T& a, const T& b) { return compare(a, b) > 0; });
    }
    void Sort(bool ascending) override;

    // Takes over `buffer` (allocated with new[] and holding n elements).
    void Attach(int n, T* buffer);
    // Gives the buffer away; the array is left empty with no buffer.
    T* Detach();

    // Same results as the generic search, on the buffer directly.
    int Find(const T& d, int lo = 0, int hi = -1) const;
    int Find(const T& d, QoQuene<int>& out, int lo = 0, int hi = -1) const { return Base::Find(d, out, lo, hi); }

protected:
    static constexpr int kDefaultAllocUnit = 10;

    void CopyToCur(const T& d) override { m_data[this->m_cur] = d; }

    // Replaces the buffer by one of `space` elements holding the first
    // `kept` old elements; `d` goes to `slot` (if not -1) before the old
    // buffer is freed, and the old elements from `slot` on go one up.
    void Regrow(int space, int kept, int slot, const T* d);
    // Insertion that shifts elements or grows the buffer.
    void InsertWithMove(int at, int length, const T* d);

    T* m_data = nullptr;
    int m_spaceSize = 0;
    int m_allocUnit = kDefaultAllocUnit;
};

template <typename T>
QoDynArray<T>::QoDynArray(int size, int allocUnit) : Base(), m_allocUnit(allocUnit) {
    if (size >= 1) {
        m_data = new T[size];
        m_spaceSize = size;
    }
}

template <typename T>
void QoDynArray<T>::Regrow(int space, int kept, int slot, const T* d) {
    T* fresh = space > 0 ? new T[space] : nullptr;
    if (slot < 0) {
        std::move(m_data, m_data + kept, fresh);
    } else {
        fresh[slot] = *d;
        std::move(m_data, m_data + slot, fresh);
        std::move(m_data + slot, m_data + kept, fresh + slot + 1);
    }
    delete[] m_data;
    m_data = fresh;
    m_spaceSize = space;
}

template <typename T>
void QoDynArray<T>::ReAllocate(int n) {
    if (n < 0) n = 0;
    if (n > m_spaceSize) Regrow(n + m_allocUnit, this->m_length, -1, nullptr);
    this->m_length = n;
}

template <typename T>
void QoDynArray<T>::SetLength(int n, bool keep) {
    if (n != m_spaceSize) {
        if (n < 1) n = 0;
        const int kept = keep ? std::min(n, this->m_length) : 0;
        Regrow(n, kept, -1, nullptr);
    }
    this->m_length = n;
}

template <typename T>
bool QoDynArray<T>::SetSpaceSize(int n) {
    if (n < this->m_length) return false;
    if (n == m_spaceSize) return true;
    const int length = this->m_length;
    SetLength(n, true);
    this->m_length = length;
    return true;
}

template <typename T>
void QoDynArray<T>::InsertCur(const T& d) {
    const int at = this->m_cur;
    const int length = this->m_length;
    if (at == length && length < m_spaceSize) {
        m_data[at] = d;
        this->m_length = length + 1;
        return;
    }
    InsertWithMove(at, length, std::addressof(d));
}

template <typename T>
void QoDynArray<T>::InsertWithMove(int at, int length, const T* d) {
    if (length + 1 > m_spaceSize) {
        Regrow(length + 1 + m_allocUnit, length, at, d);
    } else {
        // d may be an element of this array that the shift moves one up.
        const std::less<const T*> before;
        if (!before(d, m_data + at) && before(d, m_data + length)) ++d;
        std::move_backward(m_data + at, m_data + length, m_data + length + 1);
        m_data[at] = *d;
    }
    this->m_length = length + 1;
}

template <typename T>
void QoDynArray<T>::DelCur() {
    std::move(m_data + this->m_cur + 1, m_data + this->m_length, m_data + this->m_cur);
    QoDynArray<T>::ReAllocate(this->m_length - 1);
    --this->m_cur;
}

template <typename T>
void QoDynArray<T>::Sort(bool ascending) {
    const std::greater<T> above;
    if (ascending)
        QoRankSort::SortByRank(m_data, this->m_length, [&above](const T& a, const T& b) { return above(a, b); });
    else
        QoRankSort::SortByRank(m_data, this->m_length, [&above](const T& a, const T& b) { return above(b, a); });
}

template <typename T>
void QoDynArray<T>::Attach(int n, T* buffer) {
    if (buffer != m_data) delete[] m_data;
    m_data = buffer;
    this->m_length = m_spaceSize = n;
}

template <typename T>
T* QoDynArray<T>::Detach() {
    T* buffer = m_data;
    m_data = nullptr;
    this->m_length = m_spaceSize = 0;
    this->m_cur = -1;
    return buffer;
}

template <typename T>
int QoDynArray<T>::Find(const T& d, int lo, int hi) const {
    hi = this->ClampHigh(hi);
    if (lo < 0 || lo > hi) return -1;
    const T* const begin = m_data;
    const T* const end = begin + hi + 1;
    const T* const found = std::find(begin + lo, end, d);
    return found == end ? -1 : static_cast<int>(found - begin);
}
