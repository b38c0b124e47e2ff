#pragma once
#include "zefra/ZefraExport.h"
// Doubly linked cursor list: the ring of QoList with a backward link in every
// node, which makes stepping back, GetPre and GetAt cheap. Moving the cursor
// to an index walks from whichever of the cursor, the first or the last
// element is nearest.

#include "zefra/containers/QoList.h"

#include <cstdlib>
#include <functional>

template <typename T>
struct ZEFRA_API QoDListNode : QoListNode<T> {
    QoDListNode* prev;

    QoDListNode() : QoListNode<T>(), prev(nullptr) {}
    explicit QoDListNode(const T& d) : QoListNode<T>(d), prev(nullptr) {}
};

template <typename T>
class ZEFRA_API QoDList : public QoList<T> {
    using Base = QoDynArrayBase<T>;
    using List = QoList<T>;

public:
    using Node = QoListNode<T>;
    using DNode = QoDListNode<T>;

    explicit QoDList(int n = 0) : List(NewSentinel()) { QoDList::ReAllocate(n); }
    QoDList(const QoDList& o) : List(NewSentinel()) { Base::DeepCopy(o); }
    QoDList(const Base& o) : List(NewSentinel()) { Base::DeepCopy(o); }
    QoDList& operator=(const QoDList& o) {
        Base::DeepCopy(o);
        return *this;
    }
    QoDList& operator=(const Base& o) {
        Base::DeepCopy(o);
        return *this;
    }
    ~QoDList() override;

    void Reset() override;
    void MoveToPre() override;
    void MoveTo(int i) override;
    const T* GetPre(const T* p) const override;
    const T& GetAt(int i) const override { return NodeAt(i)->data; }
    void DelCur() override;
    void Sort(int (*compare)(const T&, const T&)) override;
    void Sort(bool ascending) override;

    void InsertAfterCur(const T& d) override;
    void DetachAfterCur() override;
    // `other` must be a doubly linked list too, or nothing moves.
    int Conbine(List& other, int pos) override;
    void ReverseList() override;
    void Rotate(int from, int to) override;

protected:
    static DNode* NewSentinel() {
        DNode* sentinel = new DNode;
        sentinel->prev = sentinel;
        return sentinel;
    }
    static DNode* D(Node* node) { return static_cast<DNode*>(node); }

    // Node at valid index i, walked to from the nearest of the cursor, the
    // first and the last element; the cursor does not move.
    Node* NodeAt(int i) const;

    // Stable insertion sort that walks back from each element to its place.
    // The element is copied into a new node and the old node's element is
    // cleared to T() before the old node goes, so that an owning list does
    // not free what it has just moved.
    template <typename Above>
    void InsertionSortBackward(Above above);
};

template <typename T>
QoDList<T>::~QoDList() {
    this->template FreeElementNodes<DNode>();
    delete D(this->m_head);
    this->m_head = nullptr;
}

template <typename T>
void QoDList<T>::Reset() {
    this->template FreeElementNodes<DNode>();
    D(this->m_head)->prev = D(this->m_head);
}

template <typename T>
void QoDList<T>::MoveToPre() {
    const bool fromSentinel = this->m_cur < 0;
    this->m_curNode = D(this->m_curNode)->prev;
    if (this->m_curNode == this->m_head)
        this->m_cur = -1;
    else
        this->m_cur = fromSentinel ? this->m_length - 1 : this->m_cur - 1;
}

template <typename T>
typename QoDList<T>::Node* QoDList<T>::NodeAt(int i) const {
    const int length = this->m_length;
    Node* node = this->m_curNode;
    int at = this->m_cur;
    if (std::abs(i - at) > i) {
        node = this->m_head->next;
        at = 0;
    }
    if (std::abs(i - at) > length - 1 - i) {
        node = this->m_tail;
        at = length - 1;
    }
    for (; at < i; ++at) node = node->next;
    for (; at > i; --at) node = D(node)->prev;
    return node;
}

template <typename T>
void QoDList<T>::MoveTo(int i) {
    if (!this->IsValidIndex(i))
        this->SetCursor(this->m_head, -1);
    else
        this->SetCursor(NodeAt(i), i);
}

template <typename T>
const T* QoDList<T>::GetPre(const T* p) const {
    if (p == nullptr || p == this->GetFirst()) return nullptr;
    return &D(List::NodeOf(p))->prev->data;
}

template <typename T>
void QoDList<T>::InsertAfterCur(const T& d) {
    DNode* fresh = new DNode(d);
    Node* const before = this->m_curNode;
    Node* const after = before->next;
    fresh->next = after;
    fresh->prev = D(before);
    before->next = fresh;
    D(after)->prev = fresh;
    if (before == this->m_tail) this->m_tail = fresh;
    ++this->m_length;
    this->SetCursor(fresh, this->m_cur + 1);
}

template <typename T>
void QoDList<T>::DelCur() {
    Node* const gone = this->m_curNode;
    if (gone == this->m_head) return;  // the sentinel is not an element
    DNode* const before = D(gone)->prev;
    before->next = gone->next;
    D(gone->next)->prev = before;
    if (gone == this->m_tail) this->m_tail = before;
    delete D(gone);
    --this->m_length;
    this->SetCursor(before, this->m_cur - 1);
}

template <typename T>
template <typename Above>
void QoDList<T>::InsertionSortBackward(Above above) {
    if (this->m_length < 2) return;
    this->MoveTo(1);
    while (!this->IsOut()) {
        const T d(this->m_curNode->data);
        Node* const moving = this->m_curNode;
        const int s = this->m_cur;
        this->MoveToPre();
        if (!above(this->m_curNode->data, d)) {
            this->MoveToNext();
        } else {
            while (!this->IsOut() && above(this->m_curNode->data, d)) this->MoveToPre();
            this->InsertAfterCur(d);
            this->SetCursor(moving, s + 1);
            moving->data = T();
            this->DelCur();  // leaves the cursor on index s
        }
        this->MoveToNext();
    }
}

template <typename T>
void QoDList<T>::Sort(int (*compare)(const T&, const T&)) {
    InsertionSortBackward([compare](const T& a, const T& b) { return compare(a, b) > 0; });
}

template <typename T>
void QoDList<T>::Sort(bool ascending) {
    const std::greater<T> above;
    if (ascending)
        InsertionSortBackward([&above](const T& a, const T& b) { return above(a, b); });
    else
        InsertionSortBackward([&above](const T& a, const T& b) { return above(b, a); });
}

template <typename T>
void QoDList<T>::DetachAfterCur() {
    List::DetachAfterCur();
    D(this->m_head)->prev = D(this->m_curNode);
}

template <typename T>
int QoDList<T>::Conbine(List& other, int pos) {
    QoDList* donor = dynamic_cast<QoDList*>(&other);
    if (donor == this || donor == nullptr || !donor->IsValidIndex(pos)) return this->m_length;
    donor->MoveTo(pos);
    Node* const first = donor->m_curNode;
    donor->MoveToLast();
    Node* const last = donor->m_curNode;
    this->m_length += donor->m_length - pos;
    donor->DetachAfter(pos - 1);
    this->m_tail->next = first;
    D(first)->prev = D(this->m_tail);
    this->m_tail = last;
    last->next = this->m_head;
    D(this->m_head)->prev = D(last);
    return this->m_length;
}

template <typename T>
void QoDList<T>::ReverseList() {
    if (this->m_length < 2) return;
    Node* const oldFirst = this->m_head->next;
    Node* node = this->m_head;
    do {
        Node* const next = node->next;
        node->next = D(node)->prev;
        D(node)->prev = D(next);
        node = next;
    } while (node != this->m_head);
    this->m_tail = oldFirst;
    if (this->m_cur >= 0) this->m_cur = this->m_length - 1 - this->m_cur;
}

template <typename T>
void QoDList<T>::Rotate(int from, int to) {
    if (from == to || !this->IsValidIndex(from) || !this->IsValidIndex(to)) return;
    const int length = this->m_length;
    const int first = (from - to + length) % length;
    const int last = (first + length - 1) % length;
    this->MoveTo(last);
    Node* const newTail = this->m_curNode;
    this->MoveTo(first);
    Node* const newFirst = this->m_curNode;
    Node* const oldFirst = this->m_head->next;
    this->m_tail->next = oldFirst;
    D(oldFirst)->prev = D(this->m_tail);
    this->m_head->next = newFirst;
    D(newFirst)->prev = D(this->m_head);
    newTail->next = this->m_head;
    D(this->m_head)->prev = D(newTail);
    this->m_tail = newTail;
    this->m_cur = 0;
}
