#include "zefra/config/QoDtDictItemList.h"

#include "zefra/config/QoDtDictItem.h"

#include <utility>

QoDtDictItemList::~QoDtDictItemList() { QoDtDictItemList::Reset(); }

void QoDtDictItemList::Adopt(QoDtDictItem* item) {
    if (item == nullptr) return;
    item->name.m_list = this;
    m_index.Add(item);
}

void QoDtDictItemList::Disown(QoDtDictItem* item) {
    if (item != nullptr && item->name.m_list == this) item->name.m_list = nullptr;
}

void QoDtDictItemList::AdoptAll() {
    for (Node* node = m_head->next; node != m_head; node = node->next)
        if (node->data != nullptr) node->data->name.m_list = this;
}

void QoDtDictItemList::Reset() {
    m_index.Drop();
    for (Node* node = m_head->next; node != m_head; node = node->next) {
        QoDtDictItem* item = node->data;
        node->data = nullptr;
        delete item;
    }
    Base::Reset();
}

void QoDtDictItemList::ReleaseAll(std::vector<QoDtDictItem*>& out) {
    m_index.Drop();
    for (Node* node = m_head->next; node != m_head; node = node->next) {
        Disown(node->data);
        out.push_back(node->data);
        node->data = nullptr;
    }
    Base::Reset();
}

void QoDtDictItemList::DelCur() {
    if (IsOut()) return;
    QoDtDictItem* const item = GetCurData();
    Base::DelCur();
    if (m_keepItems) {
        m_index.Drop();
        return;
    }
    m_index.Remove(item);
    delete item;
}

void QoDtDictItemList::SetCurData(QoDtDictItem* const& item) {
    QoDtDictItem* const old = GetCurData();
    if (IsOut() || old == item) return;
    QoDtDictItem* const fresh = item;  // `item` may refer to the slot itself
    Base::SetCurData(fresh);
    m_index.Drop();
    if (!m_keepItems) Disown(old);
    Adopt(fresh);
}

void QoDtDictItemList::InsertAfterCur(QoDtDictItem* const& item) {
    QoDtDictItem* const fresh = item;
    Base::InsertAfterCur(fresh);
    // An item entered ahead of others could hide a later one of the same key.
    if (m_index.IsBuilt() && GetCur() != GetLength() - 1) m_index.Drop();
    Adopt(fresh);
}

template <typename Reorder>
void QoDtDictItemList::KeepingItems(Reorder reorder) {
    m_keepItems = true;
    reorder();
    m_keepItems = false;
    m_index.Drop();
    AdoptAll();
}

void QoDtDictItemList::Sort(int (*compare)(QoDtDictItem* const&, QoDtDictItem* const&)) {
    KeepingItems([this, compare] { Base::Sort(compare); });
}

void QoDtDictItemList::Sort(bool ascending) {
    KeepingItems([this, ascending] { Base::Sort(ascending); });
}

bool QoDtDictItemList::Move(int from, int to) {
    bool moved = false;
    KeepingItems([this, from, to, &moved] { moved = Base::Move(from, to); });
    return moved;
}

void QoDtDictItemList::DetachAfterCur() {
    for (Node* node = m_curNode->next; node != m_head; node = node->next) Disown(node->data);
    Base::DetachAfterCur();
    m_index.Drop();
}

void QoDtDictItemList::ReverseList() {
    Base::ReverseList();
    m_index.Drop();
}

void QoDtDictItemList::Rotate(int from, int to) {
    Base::Rotate(from, to);
    m_index.Drop();
}

void QoDtDictItemList::BuildIndex() const {
    m_index.Start(static_cast<size_t>(GetLength()));
    for (const Node* node = m_head->next; node != m_head; node = node->next) m_index.Add(node->data);
}

QoDtDictItem* QoDtDictItemList::Find(std::wstring_view key) const {
    if (GetLength() < kIndexFrom) {
        for (const Node* node = m_head->next; node != m_head; node = node->next)
            if (node->data != nullptr && node->data->name.Str() == key) return node->data;
        return nullptr;
    }
    if (!m_index.IsBuilt()) BuildIndex();
    return m_index.Find(key);
}

bool QoDtDictItemList::Replace(QoDtDictItem* old, QoDtDictItem* fresh) {
    if (old == nullptr || fresh == nullptr || old == fresh) return false;
    for (Node* node = m_head->next; node != m_head; node = node->next) {
        if (node->data != old) continue;
        node->data = fresh;
        m_index.Drop();
        Adopt(fresh);
        delete old;
        return true;
    }
    return false;
}

void QoDtDictItemList::Swap(QoDtDictItemList& other) {
    if (&other == this) return;
    std::swap(m_head, other.m_head);
    std::swap(m_tail, other.m_tail);
    std::swap(m_curNode, other.m_curNode);
    std::swap(m_length, other.m_length);
    std::swap(m_cur, other.m_cur);
    m_index.Drop();
    other.m_index.Drop();
    AdoptAll();
    other.AdoptAll();
}
