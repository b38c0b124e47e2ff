#include "zefra/config/QoDtChildIndex.h"

#include "zefra/config/QoDtDictItem.h"

#include <cstdint>
#include <random>

namespace {
std::wstring_view KeyOf(const QoDtDictItem* item) { return item->name.Str(); }
}  // namespace

namespace {

struct HashKey {
    uint64_t k0;
    uint64_t k1;
};

// Drawn once per process, so that no file can be made whose keys all land
// on one slot: the keys come from files, and a crafted set of colliding
// keys would make every look-up walk them all.
HashKey MakeHashKey() {
    HashKey key{0x736f6d6570736575ull, 0x646f72616e646f6dull};
    std::random_device device;
    key.k0 ^= (static_cast<uint64_t>(device()) << 32) | device();
    key.k1 ^= (static_cast<uint64_t>(device()) << 32) | device();
    return key;
}

const HashKey& TheHashKey() {
    static const HashKey key = MakeHashKey();
    return key;
}

inline uint64_t Rotate(uint64_t x, int b) { return (x << b) | (x >> (64 - b)); }

inline void Round(uint64_t& v0, uint64_t& v1, uint64_t& v2, uint64_t& v3) {
    v0 += v1, v1 = Rotate(v1, 13), v1 ^= v0, v0 = Rotate(v0, 32);
    v2 += v3, v3 = Rotate(v3, 16), v3 ^= v2;
    v0 += v3, v3 = Rotate(v3, 21), v3 ^= v0;
    v2 += v1, v1 = Rotate(v1, 17), v1 ^= v2, v2 = Rotate(v2, 32);
}

}  // namespace

size_t QoDtChildIndex::Hash(std::wstring_view key) {
    // SipHash-1-3 with the process's key, over the code points two to a word.
    const HashKey& k = TheHashKey();
    uint64_t v0 = k.k0 ^ 0x736f6d6570736575ull;
    uint64_t v1 = k.k1 ^ 0x646f72616e646f6dull;
    uint64_t v2 = k.k0 ^ 0x6c7967656e657261ull;
    uint64_t v3 = k.k1 ^ 0x7465646279746573ull;
    const size_t n = key.size();
    size_t i = 0;
    for (; i + 2 <= n; i += 2) {
        const uint64_t m = static_cast<uint64_t>(static_cast<uint32_t>(key[i])) |
                           (static_cast<uint64_t>(static_cast<uint32_t>(key[i + 1])) << 32);
        v3 ^= m;
        Round(v0, v1, v2, v3);
        v0 ^= m;
    }
    uint64_t last = static_cast<uint64_t>(n) << 56;
    if (i < n) last |= static_cast<uint32_t>(key[i]);
    v3 ^= last;
    Round(v0, v1, v2, v3);
    v0 ^= last;
    v2 ^= 0xff;
    Round(v0, v1, v2, v3);
    Round(v0, v1, v2, v3);
    Round(v0, v1, v2, v3);
    return static_cast<size_t>(v0 ^ v1 ^ v2 ^ v3);
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
