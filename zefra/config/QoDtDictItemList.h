#pragma once
#include "zefra/ZefraExport.h"
// The child list of a dictionary. It is the cursor list of the containers,
// and it owns the items that it holds: an item that leaves it through
// DelCur, Del, Reset or SetLength is freed, and so is every item when the
// list goes. Operations that only reorder the list (Sort, Move, Rotate,
// ReverseList) keep the items. SetCurData puts another item in the slot and
// hands the old one back to the caller; DetachAfterCur and Detach, too,
// leave the cut items to the caller.
//
// Beside the list stands an index of the children by key, built at the
// first look-up in a list of some length and kept up to date from then on.

#include "zefra/config/QoDtBlockPool.h"
#include "zefra/config/QoDtChildIndex.h"
#include "zefra/containers/QoList.h"

#include <string_view>
#include <vector>

class QoDtDictItem;

// The cells of the child lists come from the trees' block pool, as the
// items do. This has to be seen wherever QoList<QoDtDictItem*> is, so it
// stands here, beside the one list of that kind.
template <>
struct QoListNode<QoDtDictItem*> {
    QoDtDictItem* data;
    QoListNode* next;

    QoListNode() : data(), next(nullptr) {}
    explicit QoListNode(QoDtDictItem* const& d) : data(d), next(nullptr) {}

    static void* operator new(size_t size) { return QoDtBlockPool::Allocate(size); }
    static void operator delete(void* block, size_t size) noexcept { QoDtBlockPool::Free(block, size); }
};

class ZEFRA_API QoDtDictItemList : public QoList<QoDtDictItem*> {
    using Base = QoList<QoDtDictItem*>;

public:
    QoDtDictItemList() = default;
    QoDtDictItemList(const QoDtDictItemList&) = delete;
    QoDtDictItemList& operator=(const QoDtDictItemList&) = delete;
    ~QoDtDictItemList() override;

    void Reset() override;
    void DelCur() override;
    void SetCurData(QoDtDictItem* const& item) override;
    void InsertAfterCur(QoDtDictItem* const& item) override;
    void Sort(int (*compare)(QoDtDictItem* const&, QoDtDictItem* const&)) override;
    void Sort(bool ascending) override;
    bool Move(int from, int to) override;
    void DetachAfterCur() override;
    void ReverseList() override;
    void Rotate(int from, int to) override;

    // The first child with this key in list order, or null. The cursor stays.
    using Base::Find;
    QoDtDictItem* Find(std::wstring_view key) const;
    // Empties the list and hands its items to the caller, behind those in
    // `out`.
    void ReleaseAll(std::vector<QoDtDictItem*>& out);
    // Puts `fresh` in the place of `old` and frees `old`. The cursor stays.
    bool Replace(QoDtDictItem* old, QoDtDictItem* fresh);
    // Exchanges the whole content, cursors included, with another list.
    void Swap(QoDtDictItemList& other);

private:
    friend class QoDtItemKey;

    // Below this length a straight walk finds a key as fast as the index.
    static constexpr int kIndexFrom = 8;

    void KeyChanged() { m_index.Drop(); }
    void Adopt(QoDtDictItem* item);
    void Disown(QoDtDictItem* item);
    void AdoptAll();
    void BuildIndex() const;
    // Runs a reordering of the base list, which moves elements by inserting
    // a copy and deleting the original, without freeing anything.
    template <typename Reorder>
    void KeepingItems(Reorder reorder);

    mutable QoDtChildIndex m_index;
    bool m_keepItems = false;
};
