#pragma once
#include "zefra/ZefraExport.h"
// Group-indexed list that owns the objects its elements point to.

#include "zefra/containers/QoOwningList.h"
#include "zefra/containers/QoXList.h"

template <typename T>
class ZEFRA_API QoPXList : public QoOwningList<T, QoXList<T*>> {
    using OwningList = QoOwningList<T, QoXList<T*>>;

public:
    // A list of n empty slots.
    explicit QoPXList(int n = 0, int groupSize = 25, int allocUnit = 100) : OwningList(n, groupSize, allocUnit) {}
    QoPXList(const QoPXList& o) : OwningList(0, o.GetGroupSize(), o.GetGroup().GetAllocUnit()) { this->CloneFrom(o); }
    QoPXList& operator=(const QoPXList& o) {
        if (&o == this) return *this;
        if (o.GetGroupSize() != this->m_groupSize) {
            this->m_groupSize = o.GetGroupSize();
            this->UpdateGroup(0);
        }
        this->CloneFrom(o);
        return *this;
    }
};
