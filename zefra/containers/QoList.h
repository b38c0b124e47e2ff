#pragma once
#include "zefra/ZefraExport.h"
// Singly linked cursor list: a ring of nodes through a sentinel that lives as
// long as the list. The element is the first member of its node, so the
// address of an element is also the address of its node; GetFirst, GetNext
// and friends hand out element addresses that serve as positions.
//
// The cursor ring has GetLength() + 1 positions: stepping past the last
// element lands on the sentinel (GetCur() -1, IsOut() true), and one more
// step reaches the first element again.

#include "zefra/containers/QoDynArrayBase.h"

#include <functional>

template <typename T>
class QoDList;

template <typename T>
struct ZEFRA_API QoListNode {
    T data;
    QoListNode* next;

    QoListNode() : data(), next(nullptr) {}
    explicit QoListNode(const T& d) : data(d), next(nullptr) {}
};

template <typename T>
class ZEFRA_API QoList : public QoDynArrayBase<T> {
    using Base = QoDynArrayBase<T>;

public:
    using Node = QoListNode<T>;

    // A list of n default-valued elements; the cursor is out.
    explicit QoList(int n = 0) : QoList(new Node) { QoList::ReAllocate(n); }
    QoList(const QoList& o) : QoList(new Node) { Base::DeepCopy(o); }
    QoList(const Base& o) : QoList(new Node) { Base::DeepCopy(o); }
    QoList& operator=(const QoList& o) {
        Base::DeepCopy(o);
        return *this;
    }
    QoList& operator=(const Base& o) {
        Base::DeepCopy(o);
        return *this;
    }
    ~QoList() override;

    void SetLength(int n, bool keep) override;
    void Reset() override;
    T& GetCurData() override { return m_curNode->data; }
    void SetCurData(const T& d) override { m_curNode->data = d; }
    void MoveToFirst() override;
    void MoveToNext() override;
    void MoveToPre() override;
    void MoveToLast() override;
    void MoveTo(int i) override;
    const T* GetFirst() const override { return this->m_length > 0 ? &m_head->next->data : nullptr; }
    const T* GetNext(const T* p) const override;
    const T* GetPre(const T* p) const override;
    const T* GetLast() const override { return this->m_length > 0 ? &m_tail->data : nullptr; }
    const T& GetAt(int i) const override;
    // Inserts before the cursor's element; from the sentinel it appends.
    void InsertCur(const T& d) override;
    void Insert(int i, const T& d) override;
    void InsertHead(const T& d) override;
    int Append(const T& d) override;
    void DelCur() override;
    // Stable insertion sorts. Moved elements get new nodes, so positions
    // taken before the sort do not survive it.
    void Sort(int (*compare)(const T&, const T&)) override;
    void Sort(bool ascending) override;

    // New element behind the cursor's (from the sentinel: at the head); the
    // cursor moves onto it.
    virtual void InsertAfterCur(const T& d);
    // Cuts the list behind the cursor. The cut nodes are not freed: the
    // caller must have linked them into another list.
    virtual void DetachAfterCur();
    // Moves the elements pos.. of `other` onto the end of this list and
    // returns the new length. An invalid pos, `other` being this list, or
    // `other` being a doubly linked list (whose nodes are of another kind)
    // moves nothing; any other list of this node type gives its nodes.
    virtual int Conbine(QoList& other, int pos);
    // Reverses the order by relinking; the cursor stays on its element.
    virtual void ReverseList();
    // Turns the ring so that element `from` ends at index `to`; the cursor
    // ends on the new first element.
    virtual void Rotate(int from, int to);

    // Forgets every node without freeing it.
    void Detach() {
        m_curNode = m_head;
        this->m_cur = -1;
        DetachAfterCur();
    }
    void DetachAfter(int i) {
        MoveTo(i);
        DetachAfterCur();
    }
    // Element i and all behind it move to the end of `out`.
    void SplitAt(int i, QoList& out) {
        MoveTo(i);
        out.Conbine(*this, this->m_cur);
    }
    void SplitAtCur(QoList& out) { out.Conbine(*this, this->m_cur); }

    Node* GetCurPos() const { return m_curNode; }

protected:
    // Starts an empty ring on the given sentinel, which the list then owns.
    explicit QoList(Node* sentinel);

    // Grows by appending default elements; never shrinks. The cursor stays.
    void ReAllocate(int n) override;
    void CopyToCur(const T& d) override { m_curNode->data = d; }

    static Node* NodeOf(const T* p) { return reinterpret_cast<Node*>(const_cast<T*>(p)); }
    void SetCursor(Node* node, int index) {
        m_curNode = node;
        this->m_cur = index;
    }
    // Deletes every element node as a NodeType and leaves the ring empty.
    template <typename NodeType>
    void FreeElementNodes();

    Node* m_curNode;
    Node* m_head;
    Node* m_tail;

private:
    template <typename Above>
    void InsertionSort(Above above);
};

template <typename T>
QoList<T>::QoList(Node* sentinel) : Base(), m_curNode(sentinel), m_head(sentinel), m_tail(sentinel) {
    m_head->next = m_head;
}

template <typename T>
QoList<T>::~QoList() {
    if (m_head == nullptr) return;  // a derived list has freed its own nodes
    FreeElementNodes<Node>();
    delete m_head;
}

template <typename T>
template <typename NodeType>
void QoList<T>::FreeElementNodes() {
    Node* node = m_head->next;
    while (node != m_head) {
        Node* next = node->next;
        delete static_cast<NodeType*>(node);
        node = next;
    }
    m_head->next = m_head;
    m_tail = m_curNode = m_head;
    this->m_length = 0;
    this->m_cur = -1;
}

template <typename T>
void QoList<T>::ReAllocate(int n) {
    if (n <= this->m_length) return;
    Node* const node = m_curNode;
    const int index = this->m_cur;
    while (this->m_length < n) Append(T());
    SetCursor(node, index);
}

template <typename T>
void QoList<T>::SetLength(int n, bool) {
    if (n < 0) n = 0;
    if (n > this->m_length)
        ReAllocate(n);
    else
        while (this->m_length > n) this->DelTail();
}

template <typename T>
void QoList<T>::Reset() {
    FreeElementNodes<Node>();
}

template <typename T>
void QoList<T>::MoveToFirst() {
    m_curNode = m_head->next;
    this->m_cur = m_curNode == m_head ? -1 : 0;
}

template <typename T>
void QoList<T>::MoveToNext() {
    m_curNode = m_curNode->next;
    this->m_cur = m_curNode == m_head ? -1 : this->m_cur + 1;
}

template <typename T>
void QoList<T>::MoveToPre() {
    if (this->m_cur < 0)
        MoveToLast();
    else
        MoveTo(this->m_cur - 1);
}

template <typename T>
void QoList<T>::MoveToLast() {
    SetCursor(m_tail, this->m_length - 1);
}

template <typename T>
void QoList<T>::MoveTo(int i) {
    if (!this->IsValidIndex(i)) {
        SetCursor(m_head, -1);
        return;
    }
    if (i == this->m_length - 1) {
        SetCursor(m_tail, i);
        return;
    }
    if (i < this->m_cur) SetCursor(m_head->next, 0);
    while (this->m_cur < i) {
        m_curNode = m_curNode->next;
        ++this->m_cur;
    }
}

template <typename T>
const T* QoList<T>::GetNext(const T* p) const {
    if (p == nullptr || p == GetLast()) return nullptr;
    return &NodeOf(p)->next->data;
}

template <typename T>
const T* QoList<T>::GetPre(const T* p) const {
    if (p == nullptr || p == GetFirst()) return nullptr;
    Node* const node = NodeOf(p);
    if (m_curNode->next == node) return &m_curNode->data;
    Node* before = m_head;
    for (int k = 0; k < this->m_length; ++k, before = before->next)
        if (before->next == node) return before == m_head ? nullptr : &before->data;
    return nullptr;
}

template <typename T>
const T& QoList<T>::GetAt(int i) const {
    if (i == this->m_length - 1) return m_tail->data;
    const Node* node = m_curNode;
    int at = this->m_cur;
    if (i < at) {
        node = m_head;
        at = -1;
    }
    for (; at < i; ++at) node = node->next;
    return node->data;
}

template <typename T>
void QoList<T>::InsertAfterCur(const T& d) {
    Node* fresh = new Node(d);
    fresh->next = m_curNode->next;
    m_curNode->next = fresh;
    if (m_curNode == m_tail) m_tail = fresh;
    ++this->m_length;
    SetCursor(fresh, this->m_cur + 1);
}

template <typename T>
void QoList<T>::InsertCur(const T& d) {
    MoveToPre();
    InsertAfterCur(d);
}

template <typename T>
void QoList<T>::Insert(int i, const T& d) {
    MoveTo(i - 1);
    InsertAfterCur(d);
}

template <typename T>
void QoList<T>::InsertHead(const T& d) {
    MoveTo(-1);
    InsertAfterCur(d);
}

template <typename T>
int QoList<T>::Append(const T& d) {
    MoveToLast();
    InsertAfterCur(d);
    return this->m_length - 1;
}

template <typename T>
void QoList<T>::DelCur() {
    if (m_curNode == m_head) return;  // the sentinel is not an element
    Node* const gone = m_curNode;
    MoveToPre();
    m_curNode->next = gone->next;
    if (gone == m_tail) m_tail = m_curNode;
    delete gone;
    --this->m_length;
}

template <typename T>
template <typename Above>
void QoList<T>::InsertionSort(Above above) {
    if (this->m_length < 2) return;
    MoveTo(1);
    while (!this->IsOut()) {
        const T d(m_curNode->data);
        Node* const moving = m_curNode;
        const int s = this->m_cur;
        MoveToFirst();
        Node* before = m_head;
        int beforeIndex = -1;
        while (this->m_cur < s) {
            if (above(m_curNode->data, d)) {
                SetCursor(before, beforeIndex);
                InsertAfterCur(d);
                SetCursor(moving, s + 1);
                DelCur();  // leaves the cursor on index s
            } else {
                before = m_curNode;
                beforeIndex = this->m_cur;
                MoveToNext();
            }
        }
        MoveToNext();
    }
}

template <typename T>
void QoList<T>::Sort(int (*compare)(const T&, const T&)) {
    InsertionSort([compare](const T& a, const T& b) { return compare(a, b) > 0; });
}

template <typename T>
void QoList<T>::Sort(bool ascending) {
    const std::greater<T> above;
    if (ascending)
        InsertionSort([&above](const T& a, const T& b) { return above(a, b); });
    else
        InsertionSort([&above](const T& a, const T& b) { return above(b, a); });
}

template <typename T>
void QoList<T>::DetachAfterCur() {
    m_curNode->next = m_head;
    m_tail = m_curNode;
    this->m_length = this->m_cur + 1;
}

template <typename T>
int QoList<T>::Conbine(QoList& other, int pos) {
    if (&other == this || !other.IsValidIndex(pos) || dynamic_cast<const QoDList<T>*>(&other) != nullptr)
        return this->m_length;
    Node* const node = m_curNode;
    const int index = this->m_cur;
    other.MoveTo(pos);
    Node* const first = other.m_curNode;
    other.MoveToLast();
    Node* const last = other.m_curNode;
    this->m_length += other.m_length - pos;
    other.DetachAfter(pos - 1);
    m_tail->next = first;
    m_tail = last;
    last->next = m_head;
    SetCursor(node, index);
    return this->m_length;
}

template <typename T>
void QoList<T>::ReverseList() {
    if (this->m_length < 2) return;
    Node* const oldFirst = m_head->next;
    Node* before = m_head;
    Node* node = oldFirst;
    while (node != m_head) {
        Node* next = node->next;
        node->next = before;
        before = node;
        node = next;
    }
    m_head->next = before;
    m_tail = oldFirst;
    if (this->m_cur >= 0) this->m_cur = this->m_length - 1 - this->m_cur;
}

template <typename T>
void QoList<T>::Rotate(int from, int to) {
    if (from == to || !this->IsValidIndex(from) || !this->IsValidIndex(to)) return;
    const int length = this->m_length;
    const int first = (from - to + length) % length;
    const int last = (first + length - 1) % length;
    MoveTo(last);
    Node* const newTail = m_curNode;
    MoveTo(first);
    m_tail->next = m_head->next;
    m_head->next = m_curNode;
    this->m_cur = 0;
    m_tail = newTail;
    m_tail->next = m_head;
}

// Conbine must know the doubly linked list, whichever header comes first.
#include "zefra/containers/QoDList.h"
