#pragma once
#include "zefra/ZefraExport.h"
// Doubly linked list of pointers that owns its pointees (see QoOwning), on a
// plain (QoDList<T*>) or group-indexed (QoXList<T*>) list. Taking an object
// off removes its node: the list gets shorter.

#include "zefra/containers/QoOwning.h"

template <typename T, typename ListStorage>
class ZEFRA_API QoOwningList : public QoOwning<T, ListStorage> {
    using Owning = QoOwning<T, ListStorage>;

public:
    void Reset() override {
        this->ReleaseAll();
        ListStorage::Reset();
    }
    // Sorts by the pointees, stably; empty slots go to the tail first.
    void Sort(bool ascending) override;
    // Sorts by the pointees, stably; no slot may be empty.
    void Sort(int (*compare)(const T&, const T&)) override {
        this->InsertionSortBackward([compare](T* const& a, T* const& d) { return compare(*a, *d) > 0; });
    }
    using Owning::Sort;

    // Removes the cursor's node and hands its object to the caller; null
    // when the cursor is out.
    T* TakeOffCur() override;

    // Adds the index of the first slot in lo..hi whose pointee equals d and
    // returns what the add returned; without a match, the queue's count.
    int FindData(const T& d, QoQuene<int>& out, int lo = 0, int hi = -1) const;
    using Owning::FindData;

protected:
    template <typename... StorageArgs>
    explicit QoOwningList(StorageArgs... args) : Owning(args...) {}
};

template <typename T, typename ListStorage>
void QoOwningList<T, ListStorage>::Sort(bool ascending) {
    if (this->m_length < 2) return;
    int empties = 0;
    for (this->MoveToFirst(); !this->IsOut(); this->MoveToNext()) {
        if (this->GetCurData() == nullptr) {
            this->DelCur();
            ++empties;
        }
    }
    if (ascending)
        this->InsertionSortBackward([](T* const& a, T* const& d) { return *a > *d; });
    else
        this->InsertionSortBackward([](T* const& a, T* const& d) { return *a < *d; });
    for (int k = 0; k < empties; ++k) this->Append(nullptr);
}

template <typename T, typename ListStorage>
T* QoOwningList<T, ListStorage>::TakeOffCur() {
    if (this->IsOut()) return nullptr;
    T* const taken = this->GetCurData();
    this->GetCurData() = nullptr;
    this->DelCur();
    return taken;
}

template <typename T, typename ListStorage>
int QoOwningList<T, ListStorage>::FindData(const T& d, QoQuene<int>& out, int lo, int hi) const {
    const int found = Owning::FindData(d, lo, hi);
    return found >= 0 ? out.Add(found) : out.GetCount();
}
