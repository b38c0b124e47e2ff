#pragma once
#include "zefra/ZefraExport.h"
// Index of a dictionary's children by key, kept beside the child list (which
// stays the owner and keeps the order). Open addressing with linear probing;
// each slot holds the key's hash and the item. When two children share a key
// the first in list order is the one found, so changes that could alter that
// order simply drop the index, and the next look-up rebuilds it.

#include <cstddef>
#include <string_view>
#include <vector>

class QoDtDictItem;

class ZEFRA_API QoDtChildIndex {
public:
    bool IsBuilt() const { return m_built; }
    // Forgets everything; the next look-up has to rebuild.
    void Drop();
    // Starts an empty index sized for `expected` items.
    void Start(size_t expected);
    // Enters an item behind those already entered. An item whose key is
    // already there is left out, so the earlier one stays the one found.
    void Add(QoDtDictItem* item);
    // Takes an item out. Where keys repeat the index is dropped instead.
    void Remove(const QoDtDictItem* item);
    QoDtDictItem* Find(std::wstring_view key) const;

    // Keyed with a secret drawn at the start of the process: the same on
    // adversarial keys as on ordinary ones.
    static size_t Hash(std::wstring_view key);

private:
    struct Slot {
        size_t hash;
        QoDtDictItem* item;
    };

    void Grow();
    void Insert(size_t hash, QoDtDictItem* item);

    std::vector<Slot> m_slots;
    size_t m_count = 0;
    bool m_built = false;
    bool m_repeatedKeys = false;
};
