#pragma once
#include "zefra/ZefraExport.h"
// What the owning containers share: a container of T* that owns the objects
// its elements point to. A null element is an empty slot; it counts in the
// length. Storage is the cursor container of pointers underneath
// (QoDynArray<T*>, QoDList<T*> or QoXList<T*>).
//
// Every pointee has exactly one owner. Whatever copies elements into an
// owning container (copy constructor, operator=, DeepCopy, Left, Right, Mid,
// operator<< of a container, SetAll through the base), also when it is
// called through a reference to a base class, gives it objects of its own,
// copy-constructed from the source's pointees: the base stores copies
// through the CopyToCur hook, which is overridden here. Handing a pointer in
// (Append, Insert, PlaceIn, SortInto, operator<< of a pointer) passes its
// ownership to the container; TakeOff hands ownership back out.

#include "zefra/containers/QoDynArrayBase.h"

template <typename T, typename Storage>
class ZEFRA_API QoOwning : public Storage {
    using Base = QoDynArrayBase<T*>;

public:
    ~QoOwning() override { ReleaseAll(); }

    // Deletes the pointee, then removes the slot; the cursor goes one back.
    void DelCur() override {
        if (this->IsOut()) return;
        delete this->GetCurData();
        this->GetCurData() = nullptr;
        Storage::DelCur();
    }
    // Removes the element without the pointee leaving the container.
    bool Move(int from, int to) override;

    // Deletes the pointee of the cursor's slot and leaves the slot empty.
    virtual void ReleaseCur() {
        if (IsCurEmpty()) return;
        delete this->GetCurData();
        this->GetCurData() = nullptr;
    }
    // Hands the cursor's pointee to the caller; null when the cursor is out.
    virtual T* TakeOffCur() = 0;
    // Sorts by the pointees; no slot may be empty.
    virtual void Sort(int (*compare)(const T&, const T&)) = 0;
    using Storage::Sort;

    void Release(int i) {
        this->MoveTo(i);
        ReleaseCur();
    }
    // Deletes every pointee; the slots stay, empty, and the cursor stays.
    void ReleaseAll() {
        for (T* const* p = this->GetFirst(); p != nullptr; p = this->GetNext(p)) {
            delete *p;
            *const_cast<T**>(p) = nullptr;
        }
    }
    T* TakeOff(int i) {
        this->MoveTo(i);
        return TakeOffCur();
    }
    T* TakeOffHead() {
        this->MoveToFirst();
        return TakeOffCur();
    }
    T* TakeOffTail() {
        this->MoveToLast();
        return TakeOffCur();
    }

    bool IsCurEmpty() { return this->IsOut() || this->GetCurData() == nullptr; }
    bool IsEmptyData(int i) const { return !this->IsValidIndex(i) || this->GetAt(i) == nullptr; }
    int GetDataNum() const;
    const T& GetPData(int i) const { return *this->GetAt(i); }
    T& GetCurPData() { return *this->GetCurData(); }
    // The pointee at i; grows the container and moves the cursor like [].
    T& operator()(int i) { return *(*this)[i]; }

    // Puts p into the first empty slot, or appends it; returns its index.
    int PlaceIn(T* p);
    // Deletes the slot holding this very pointer (and the pointee): 1, or 0.
    int FindDel(T* p);

    int FindData(const T& d, int lo = 0, int hi = -1) const {
        return this->FindWith(lo, hi, [&d](T* const& e) { return e != nullptr && *e == d; });
    }
    // Deletes every element whose pointee equals d; returns how many went.
    int FindDataDel(const T& d);
    int FindDataOrAppend(const T& d) {
        const int found = FindData(d);
        return found >= 0 ? found : this->Append(new T(d));
    }
    void FindDataOrInsertHead(const T& d) {
        if (FindData(d) < 0) this->InsertHead(new T(d));
    }

    // The binary searches over pointees, ordered by T's < and >; no slot may
    // be empty.
    int BFindData(const T& d, int lo = 0, int hi = -1) const {
        return this->BFindWith(d, lo, hi, ElementAbove, ValueAbove);
    }
    bool BFindDataTo(const T& d, int lo = 0, int hi = -1) {
        return this->BFindToWith(d, lo, hi, ElementAbove, ValueAbove);
    }
    // Inserts p in pointee order and takes it over when the result is true.
    bool SortInto(T* p, bool allowEqual);

    QoOwning& operator<<(T* p) {
        this->Append(p);
        return *this;
    }
    // Appends copies of the pointees of o (o keeps its own).
    QoOwning& operator<<(const Base& o) {
        Base::operator<<(o);
        return *this;
    }
    QoOwning& operator<<(const QoArray<T*>& o) {
        Base::operator<<(o);
        return *this;
    }

    // Equal lengths, and slot by slot both empty or both holding equal pointees.
    bool operator==(const QoOwning& o) const;
    bool operator!=(const QoOwning& o) const { return !(*this == o); }

protected:
    template <typename... StorageArgs>
    explicit QoOwning(StorageArgs... args) : Storage(args...) {}
    QoOwning(const QoOwning&) = delete;

    // Many slots holding one pointer would be many owners.
    void SetAll(T* const&) {}

    // The slot gets a copy of *d (or stays empty for a null d), and the
    // object it held goes. A slot that holds d itself keeps it.
    void CopyToCur(T* const& d) override {
        T*& slot = this->GetCurData();
        if (slot == d) return;
        T* const copy = d != nullptr ? new T(*d) : nullptr;
        delete slot;
        slot = copy;
    }
    void CloneFrom(const Base& o) { Base::DeepCopy(o); }

    static bool ElementAbove(T* const& element, const T& d) { return d < *element; }
    static bool ValueAbove(const T& d, T* const& element) { return d > *element; }
};

template <typename T, typename Storage>
bool QoOwning<T, Storage>::Move(int from, int to) {
    if (!this->IsValidIndex(from) || to < 0 || to > this->m_length) return false;
    if (from == to || from == to - 1) return false;
    this->MoveTo(from);
    T* const moving = this->GetCurData();
    this->GetCurData() = nullptr;
    this->Insert(to, moving);
    if (from <= to) {
        this->Del(from);
        this->MoveTo(to - 1);
    } else {
        this->Del(from + 1);
        this->MoveTo(to);
    }
    return true;
}

template <typename T, typename Storage>
int QoOwning<T, Storage>::GetDataNum() const {
    int count = 0;
    for (T* const* p = this->GetFirst(); p != nullptr; p = this->GetNext(p))
        if (*p != nullptr) ++count;
    return count;
}

template <typename T, typename Storage>
int QoOwning<T, Storage>::PlaceIn(T* p) {
    for (this->MoveToFirst(); !this->IsOut(); this->MoveToNext()) {
        if (this->GetCurData() == nullptr) {
            this->GetCurData() = p;
            return this->m_cur;
        }
    }
    return this->Append(p);
}

template <typename T, typename Storage>
int QoOwning<T, Storage>::FindDel(T* p) {
    if (!this->FindTo(p, 0)) return 0;
    DelCur();
    return 1;
}

template <typename T, typename Storage>
int QoOwning<T, Storage>::FindDataDel(const T& d) {
    const T value(d);  // d may be one of the pointees that go
    int count = 0;
    for (this->MoveToFirst(); !this->IsOut(); this->MoveToNext()) {
        T* const e = this->GetCurData();
        if (e != nullptr && *e == value) {
            DelCur();
            ++count;
        }
    }
    return count;
}

template <typename T, typename Storage>
bool QoOwning<T, Storage>::SortInto(T* p, bool allowEqual) {
    if (BFindDataTo(*p, 0, -1)) {
        if (!allowEqual) return false;
        while (!this->IsOut() && *this->GetCurData() == *p) this->MoveToNext();
    }
    this->InsertCur(p);
    return true;
}

template <typename T, typename Storage>
bool QoOwning<T, Storage>::operator==(const QoOwning& o) const {
    if (this->m_length != o.m_length) return false;
    T* const* a = this->GetFirst();
    T* const* b = o.GetFirst();
    for (; a != nullptr && b != nullptr; a = this->GetNext(a), b = o.GetNext(b)) {
        if ((*a == nullptr) != (*b == nullptr)) return false;
        if (*a != nullptr && **a != **b) return false;
    }
    return true;
}
