#pragma once
#include "zefra/ZefraExport.h"
// Doubly linked list with a table of every g-th node (the group table), so
// that moving the cursor to an index takes at most g / 2 steps on a list of
// any length. Entry k of the table is the node at index k * g, and the table
// has ceil(GetLength() / g) entries. Every insertion and deletion shifts the
// entries behind it by one link. A group size below 2 keeps no table.

#include "zefra/containers/QoDList.h"
#include "zefra/containers/QoDynArray.h"

template <typename T>
class ZEFRA_API QoXList : public QoDList<T> {
    using Base = QoDynArrayBase<T>;
    using List = QoList<T>;
    using DList = QoDList<T>;

public:
    using Node = QoListNode<T>;

    explicit QoXList(int n = 0, int groupSize = 25, int allocUnit = 100);
    QoXList(const QoXList& o);
    QoXList(const Base& o);
    QoXList& operator=(const QoXList& o);
    QoXList& operator=(const Base& o) {
        Base::DeepCopy(o);
        return *this;
    }

    void Reset() override;
    void MoveTo(int i) override;
    void DelCur() override;
    void InsertAfterCur(const T& d) override;
    void DetachAfterCur() override;
    int Conbine(List& other, int pos) override;
    void ReverseList() override;
    void Rotate(int from, int to) override;

    int GetGroupSize() const { return m_groupSize; }
    const QoDynArray<Node*>& GetGroup() const { return m_group; }

protected:
    bool KeepsGroup() const { return m_groupSize >= 2; }
    // First table entry at or behind index i.
    int FirstEntryFrom(int i) const { return i <= 0 ? 0 : (i - 1) / m_groupSize + 1; }
    // Rebuilds the table from entry k on (entries before k stay); the cursor
    // does not move.
    void UpdateGroup(int k);

    QoDynArray<Node*> m_group;
    int m_groupSize;
};

template <typename T>
QoXList<T>::QoXList(int n, int groupSize, int allocUnit) : DList(n), m_group(0, allocUnit), m_groupSize(groupSize) {
    UpdateGroup(0);
}

template <typename T>
QoXList<T>::QoXList(const QoXList& o) : DList(), m_group(0, o.m_group.GetAllocUnit()), m_groupSize(o.m_groupSize) {
    Base::DeepCopy(o);
}

template <typename T>
QoXList<T>::QoXList(const Base& o) : DList(), m_group(0, 100), m_groupSize(25) {
    Base::DeepCopy(o);
}

template <typename T>
QoXList<T>& QoXList<T>::operator=(const QoXList& o) {
    if (&o == this) return *this;
    if (o.m_groupSize != m_groupSize) {
        m_groupSize = o.m_groupSize;
        UpdateGroup(0);
    }
    Base::DeepCopy(o);
    return *this;
}

template <typename T>
void QoXList<T>::UpdateGroup(int k) {
    if (k > m_group.GetLength()) k = m_group.GetLength();
    if (k < 0) k = 0;
    m_group.ReAllocate(k);
    if (!KeepsGroup()) return;
    int i = k * m_groupSize;
    if (i >= this->m_length) return;
    Node* node;
    int at;
    if (k == 0) {
        node = this->m_head->next;
        at = 0;
    } else {
        node = m_group.GetAt(k - 1);
        at = (k - 1) * m_groupSize;
    }
    for (; i < this->m_length; i += m_groupSize) {
        for (; at < i; ++at) node = node->next;
        m_group.Append(node);
    }
}

template <typename T>
void QoXList<T>::Reset() {
    m_group.Reset();
    DList::Reset();
}

template <typename T>
void QoXList<T>::MoveTo(int i) {
    if (KeepsGroup() && i >= 0 && i < this->m_length) {
        // Start from the nearer of the indexed nodes around i (the next one
        // may be the last element), so that at most g / 2 steps remain.
        const int k = i / m_groupSize;
        if (k < m_group.GetLength()) {
            const int from = k * m_groupSize;
            const int next = k + 1 < m_group.GetLength() ? from + m_groupSize : this->m_length - 1;
            if (next - i < i - from) {
                if (k + 1 < m_group.GetLength())
                    this->SetCursor(m_group.GetAt(k + 1), next);
                else
                    this->SetCursor(this->m_tail, next);
            } else {
                this->SetCursor(m_group.GetAt(k), from);
            }
        }
    }
    DList::MoveTo(i);
}

template <typename T>
void QoXList<T>::InsertAfterCur(const T& d) {
    DList::InsertAfterCur(d);
    if (!KeepsGroup()) return;
    const int entries = m_group.GetLength();
    for (int k = FirstEntryFrom(this->m_cur); k < entries; ++k) m_group[k] = DList::D(m_group.GetAt(k))->prev;
    if (this->m_length % m_groupSize == 1) m_group.Append(this->m_tail);
}

template <typename T>
void QoXList<T>::DelCur() {
    if (this->m_curNode == this->m_head) return;
    if (KeepsGroup()) {
        if (this->m_length % m_groupSize == 1) m_group.ReAllocate(m_group.GetLength() - 1);
        const int entries = m_group.GetLength();
        for (int k = FirstEntryFrom(this->m_cur); k < entries; ++k) m_group[k] = m_group.GetAt(k)->next;
    }
    DList::DelCur();
}

template <typename T>
void QoXList<T>::DetachAfterCur() {
    DList::DetachAfterCur();
    if (KeepsGroup()) m_group.ReAllocate((this->m_length + m_groupSize - 1) / m_groupSize);
}

template <typename T>
int QoXList<T>::Conbine(List& other, int pos) {
    const int length = DList::Conbine(other, pos);
    UpdateGroup(m_group.GetLength());
    return length;
}

template <typename T>
void QoXList<T>::ReverseList() {
    DList::ReverseList();
    UpdateGroup(0);
}

template <typename T>
void QoXList<T>::Rotate(int from, int to) {
    if (from == to || !this->IsValidIndex(from) || !this->IsValidIndex(to)) return;
    // The rotation seeks with the old table; the table is rebuilt after.
    DList::Rotate(from, to);
    UpdateGroup(0);
}
