#pragma once
#include "zefra/ZefraExport.h"
// Doubly linked list that owns the objects its elements point to.

#include "zefra/containers/QoDList.h"
#include "zefra/containers/QoOwningList.h"

template <typename T>
class ZEFRA_API QoPDList : public QoOwningList<T, QoDList<T*>> {
    using OwningList = QoOwningList<T, QoDList<T*>>;

public:
    // A list of n empty slots.
    explicit QoPDList(int n = 0) : OwningList(n) {}
    QoPDList(const QoPDList& o) : OwningList(0) { this->CloneFrom(o); }
    QoPDList& operator=(const QoPDList& o) {
        this->CloneFrom(o);
        return *this;
    }

    // Walks from lo towards hi (clamped); true with the cursor on the first
    // slot whose pointee equals d.
    bool FindDataTo(const T& d, int lo = 0, int hi = -1);
};

template <typename T>
bool QoPDList<T>::FindDataTo(const T& d, int lo, int hi) {
    hi = this->ClampHigh(hi);
    for (this->MoveTo(lo); !this->IsOut() && this->m_cur <= hi; this->MoveToNext()) {
        T* const e = this->GetCurData();
        if (e != nullptr && *e == d) return true;
    }
    return false;
}
