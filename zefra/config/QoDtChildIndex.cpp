#include "zefra/config/QoDtChildIndex.h"

#include "zefra/config/QoDtDictItem.h"

#include <cstdint>

namespace {
std::wstring_view KeyOf(const QoDtDictItem* item) { return item->name.Str(); }
}  // namespace

size_t QoDtChildIndex::Hash(std::wstring_view key) {
    // FNV-1a over the code points; keys are short, so this beats a heavier mix.
    uint64_t h = 14695981039346656037ull;
    for (wchar_t c : key) {
        h ^= static_cast<uint32_t>(c);
        h *= 1099511628211ull;
    }
    return static_cast<size_t>(h ^ (h >> 29));
}

void QoDtChildIndex::Drop() {
    if (!m_built) return;  // nothing was entered since the last Drop
    m_slots.clear();
    m_slots.shrink_to_fit();
    m_count = 0;
    m_built = false;
    m_repeatedKeys = false;
}

void QoDtChildIndex::Start(size_t expected) {
    size_t capacity = 16;
    while (capacity < expected * 2) capacity *= 2;
    m_slots.assign(capacity, Slot{0, nullptr});
    m_count = 0;
    m_built = true;
    m_repeatedKeys = false;
}

void QoDtChildIndex::Grow() {
    std::vector<Slot> old;
    old.swap(m_slots);
    m_slots.assign(old.size() * 2, Slot{0, nullptr});
    m_count = 0;
    for (const Slot& slot : old)
        if (slot.item != nullptr) Insert(slot.hash, slot.item);
}

void QoDtChildIndex::Insert(size_t hash, QoDtDictItem* item) {
    const size_t mask = m_slots.size() - 1;
    for (size_t i = hash & mask;; i = (i + 1) & mask) {
        if (m_slots[i].item == nullptr) {
            m_slots[i] = Slot{hash, item};
            ++m_count;
            return;
        }
    }
}

void QoDtChildIndex::Add(QoDtDictItem* item) {
    if (!m_built || item == nullptr) return;
    const size_t hash = Hash(KeyOf(item));
    const size_t mask = m_slots.size() - 1;
    for (size_t i = hash & mask; m_slots[i].item != nullptr; i = (i + 1) & mask) {
        const Slot& slot = m_slots[i];
        if (slot.item == item) return;
        if (slot.hash == hash && KeyOf(slot.item) == KeyOf(item)) {
            m_repeatedKeys = true;
            return;
        }
    }
    if ((m_count + 1) * 2 > m_slots.size()) Grow();
    Insert(hash, item);
}

void QoDtChildIndex::Remove(const QoDtDictItem* item) {
    if (!m_built || item == nullptr) return;
    if (m_repeatedKeys) {
        Drop();
        return;
    }
    const size_t mask = m_slots.size() - 1;
    size_t i = Hash(KeyOf(item)) & mask;
    while (m_slots[i].item != nullptr && m_slots[i].item != item) i = (i + 1) & mask;
    if (m_slots[i].item == nullptr) return;
    // Backward-shift deletion keeps every probe run unbroken.
    m_slots[i].item = nullptr;
    --m_count;
    for (size_t j = (i + 1) & mask; m_slots[j].item != nullptr; j = (j + 1) & mask) {
        const size_t home = m_slots[j].hash & mask;
        const bool between = i <= j ? (i < home && home <= j) : (i < home || home <= j);
        if (between) continue;
        m_slots[i] = m_slots[j];
        m_slots[j].item = nullptr;
        i = j;
    }
}

QoDtDictItem* QoDtChildIndex::Find(std::wstring_view key) const {
    if (!m_built) return nullptr;
    const size_t hash = Hash(key);
    const size_t mask = m_slots.size() - 1;
    for (size_t i = hash & mask; m_slots[i].item != nullptr; i = (i + 1) & mask) {
        const Slot& slot = m_slots[i];
        if (slot.hash == hash && KeyOf(slot.item) == key) return slot.item;
    }
    return nullptr;
}
