#pragma once
#include "zefra/ZefraExport.h"
// Cursor array of pointers that owns its pointees (see QoOwning). Shrinking
// deletes the pointees of the slots that go; growing adds empty slots.
// Taking an object off leaves its slot empty: the array keeps its length.

#include "zefra/containers/QoDynArray.h"
#include "zefra/containers/QoOwning.h"
#include "zefra/containers/QoRankSort.h"

#include <algorithm>

template <typename T>
class ZEFRA_API QoDynPArray : public QoOwning<T, QoDynArray<T*>> {
    using Owning = QoOwning<T, QoDynArray<T*>>;
    using Array = QoDynArray<T*>;

public:
    explicit QoDynPArray(int size = 0, int allocUnit = 10) : Owning(size, allocUnit) {}
    QoDynPArray(const QoDynPArray& o) : Owning(0, 10) { this->CloneFrom(o); }
    QoDynPArray& operator=(const QoDynPArray& o) {
        this->CloneFrom(o);
        return *this;
    }

    void ReAllocate(int n) override;
    // With keep the slots that stay keep their objects; without, every
    // object is deleted and every slot is empty afterwards.
    void SetLength(int n, bool keep) override;
    void Reset() override {
        this->ReleaseAll();
        this->m_length = 0;
        this->m_cur = -1;
    }
    // Sorts by the pointees; no slot may be empty.
    void Sort(bool ascending) override;
    void Sort(int (*compare)(const T&, const T&)) override {
        QoRankSort::SortByRank(this->m_data, this->m_length,
                               [compare](T* a, T* b) { return compare(*a, *b) > 0; });
    }
    using Owning::Sort;
    // Sorts by the pointees with every empty slot behind every occupied one.
    void SortEx(bool ascending);

    // The slot stays, empty; the caller owns the object.
    T* TakeOffCur() override;

    // Adds the index of every slot in lo..hi whose pointee equals d.
    int FindData(const T& d, QoQuene<int>& out, int lo = 0, int hi = -1) const {
        return this->FindAllWith(lo, hi, out, [&d](T* const& e) { return e != nullptr && *e == d; });
    }
    using Owning::FindData;

private:
    void ClearSlots(int from, int to) { std::fill(this->m_data + from, this->m_data + to, nullptr); }
};

template <typename T>
void QoDynPArray<T>::ReAllocate(int n) {
    if (n < 0) n = 0;
    const int old = this->m_length;
    if (n > old) {
        Array::ReAllocate(n);
        ClearSlots(old, n);
    } else if (n < old) {
        for (int i = n; i < old; ++i) delete this->m_data[i];
        ClearSlots(n, old);
        Array::ReAllocate(n);
    }
}

template <typename T>
void QoDynPArray<T>::SetLength(int n, bool keep) {
    if (n < 0) n = 0;
    const int old = this->m_length;
    if (keep) {
        for (int i = n; i < old; ++i) delete this->m_data[i];
        if (n < old) ClearSlots(n, old);
        Array::SetLength(n, true);
        if (n > old) ClearSlots(old, n);
    } else {
        this->ReleaseAll();
        Array::SetLength(n, false);
        ClearSlots(0, n);
    }
}

template <typename T>
void QoDynPArray<T>::Sort(bool ascending) {
    if (ascending)
        QoRankSort::SortByRank(this->m_data, this->m_length, [](T* a, T* b) { return *a > *b; });
    else
        QoRankSort::SortByRank(this->m_data, this->m_length, [](T* a, T* b) { return *b > *a; });
}

template <typename T>
void QoDynPArray<T>::SortEx(bool ascending) {
    QoRankSort::SortByRank(this->m_data, this->m_length, [ascending](T* a, T* b) {
        if (b == nullptr) return false;
        if (a == nullptr) return true;
        return ascending ? *a > *b : *b > *a;
    });
}

template <typename T>
T* QoDynPArray<T>::TakeOffCur() {
    if (this->IsOut()) return nullptr;
    T* const taken = this->GetCurData();
    this->GetCurData() = nullptr;
    return taken;
}
