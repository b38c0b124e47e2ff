#pragma once
#include "zefra/ZefraExport.h"
// First-in first-out queue. The search operations of the containers report
// their hits through it: Add puts an item at the tail and says how many items
// went in, GetCount tells how many are waiting.

#include <cstddef>
#include <deque>

template <typename T>
class ZEFRA_API QoQuene {
public:
    // Always takes the item; the result is the number of items added (1).
    int Add(const T& item) {
        m_items.push_back(item);
        return 1;
    }

    int GetCount() const { return static_cast<int>(m_items.size()); }
    bool IsEmpty() const { return m_items.empty(); }

    // Item i counted from the head; i must be below GetCount().
    const T& GetAt(int i) const { return m_items[static_cast<std::size_t>(i)]; }

    // Takes the head item into `item`; false when the queue is empty.
    bool Pop(T& item) {
        if (m_items.empty()) return false;
        item = m_items.front();
        m_items.pop_front();
        return true;
    }

    void Reset() { m_items.clear(); }

private:
    std::deque<T> m_items;
};
