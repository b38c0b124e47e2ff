#pragma once
// Shared pieces of the container tests: an element whose order ignores a
// tag (so stability shows), and a plain model of the cursor rules over a
// std::vector, against which the containers are driven.

#include "zefra/containers/QoDynArrayBase.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <random>
#include <vector>

struct Tagged {
    int key = 0;
    int tag = 0;

    friend bool operator==(const Tagged& a, const Tagged& b) { return a.key == b.key; }
    friend bool operator!=(const Tagged& a, const Tagged& b) { return a.key != b.key; }
    friend bool operator>(const Tagged& a, const Tagged& b) { return a.key > b.key; }
    friend bool operator<(const Tagged& a, const Tagged& b) { return a.key < b.key; }
};

inline bool SameTagged(const Tagged& a, const Tagged& b) { return a.key == b.key && a.tag == b.tag; }
inline int CompareKeys(const Tagged& a, const Tagged& b) { return a.key - b.key; }

// Where the two containers kinds differ: an array cursor is a free index,
// a list cursor is an element or the sentinel (-1).
enum class CursorRules { Array, List };

template <typename E>
struct CursorModel {
    CursorRules rules;
    std::vector<E> v;
    int cur = -1;

    explicit CursorModel(CursorRules r) : rules(r) {}
    bool IsList() const { return rules == CursorRules::List; }
    int Length() const { return static_cast<int>(v.size()); }
    bool Valid(int i) const { return i >= 0 && i < Length(); }

    void MoveToFirst() { cur = IsList() && v.empty() ? -1 : 0; }
    void MoveToLast() { cur = Length() - 1; }
    void MoveToNext() { cur = !IsList() || cur + 1 < Length() ? cur + 1 : -1; }
    void MoveToPre() { cur = IsList() && cur < 0 ? Length() - 1 : cur - 1; }
    void MoveTo(int i) { cur = !IsList() || Valid(i) ? i : -1; }
    void InsertAfterCur(const E& d) {
        v.insert(v.begin() + (cur + 1), d);
        ++cur;
    }
    void InsertCur(const E& d) {
        if (IsList()) {
            MoveToPre();
            InsertAfterCur(d);
        } else {
            v.insert(v.begin() + cur, d);
        }
    }
    void Insert(int i, const E& d) {
        if (IsList()) {
            MoveTo(i - 1);
            InsertAfterCur(d);
        } else {
            cur = i;
            InsertCur(d);
        }
    }
    int Append(const E& d) {
        Insert(Length(), d);
        return cur;
    }
    void DelCur() {
        v.erase(v.begin() + cur);
        --cur;
    }
    // Where a walk that tested IsOut ends.
    int OutAfterWalk() const { return IsList() ? -1 : Length(); }
};

// Steps of the random drivers: an operation and its arguments.
class RandomSteps {
public:
    explicit RandomSteps(unsigned seed) : m_rng(seed) {}
    int Below(int n) { return n <= 0 ? 0 : std::uniform_int_distribution<int>(0, n - 1)(m_rng); }
    int Between(int lo, int hi) { return std::uniform_int_distribution<int>(lo, hi)(m_rng); }
    Tagged Next(int keys = 8) { return Tagged{Below(keys), ++m_tag}; }

private:
    std::mt19937 m_rng;
    int m_tag = 0;
};

inline bool SameSlot(const Tagged& a, const Tagged& b) { return SameTagged(a, b); }
inline bool SameSlot(Tagged* const& a, const std::optional<Tagged>& b) {
    return (a == nullptr) == !b.has_value() && (a == nullptr || SameTagged(*a, *b));
}

// Same length, same cursor, and element by element the same keys and tags.
template <typename T, typename E>
::testing::AssertionResult Matches(const QoDynArrayBase<T>& c, const CursorModel<E>& m) {
    if (c.GetLength() != m.Length())
        return ::testing::AssertionFailure() << "length " << c.GetLength() << " != " << m.Length();
    if (c.GetCur() != m.cur) return ::testing::AssertionFailure() << "cursor " << c.GetCur() << " != " << m.cur;
    int k = 0;
    for (const T* p = c.GetFirst(); p != nullptr; p = c.GetNext(p), ++k)
        if (k >= m.Length() || !SameSlot(*p, m.v[k])) return ::testing::AssertionFailure() << "element " << k << " differs";
    if (k != m.Length()) return ::testing::AssertionFailure() << "walk gave " << k << " elements";
    return ::testing::AssertionSuccess();
}
