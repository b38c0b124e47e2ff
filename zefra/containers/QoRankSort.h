#pragma once
// The arrays sort by rank: every element gets the index it must end on, and
// then each element is moved once, by cycles of the permutation.
//
// The ranks are those of a stable sort. They are found with a merge sort of
// element indexes that only ever asks mustFollow(i, j) with i < j ("must the
// earlier element i stand behind the later element j?"), so any consistent
// order gives the ranks that counting all n(n - 1) / 2 pairs would give, while
// spending O(n log n) questions. Equal elements keep their order in either
// direction, and a relation that is never true leaves every element in place.

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

namespace QoRankSort {

// Runs this short are ordered by insertion before they are merged.
constexpr int kInsertionRun = 16;

template <typename MustFollow>
void InsertionRun(int* order, int begin, int end, MustFollow& mustFollow) {
    for (int p = begin + 1; p < end; ++p) {
        const int moving = order[p];
        int k = p;
        // Everything in order[begin..p) came earlier than `moving`.
        while (k > begin && mustFollow(order[k - 1], moving)) {
            order[k] = order[k - 1];
            --k;
        }
        order[k] = moving;
    }
}

// Merges order[begin..mid) and order[mid..end) into out[begin..end). All
// indexes of the left run are below those of the right run.
template <typename MustFollow>
void MergeRuns(const int* order, int* out, int begin, int mid, int end, MustFollow& mustFollow) {
    int l = begin, r = mid, o = begin;
    while (l < mid && r < end) {
        if (mustFollow(order[l], order[r]))
            out[o++] = order[r++];
        else
            out[o++] = order[l++];
    }
    while (l < mid) out[o++] = order[l++];
    while (r < end) out[o++] = order[r++];
}

// rank[i] := the index that element i takes in the stable order.
template <typename MustFollow>
std::vector<int> StableRanks(int n, MustFollow mustFollow) {
    std::vector<int> order(static_cast<std::size_t>(n));
    std::vector<int> spare(static_cast<std::size_t>(n));
    for (int i = 0; i < n; ++i) order[i] = i;
    for (int begin = 0; begin < n; begin += kInsertionRun)
        InsertionRun(order.data(), begin, std::min(n, begin + kInsertionRun), mustFollow);
    for (int width = kInsertionRun; width < n; width *= 2) {
        for (int begin = 0; begin < n; begin += 2 * width) {
            const int mid = std::min(n, begin + width);
            const int end = std::min(n, begin + 2 * width);
            MergeRuns(order.data(), spare.data(), begin, mid, end, mustFollow);
        }
        order.swap(spare);
    }
    // `spare` is free now and becomes the rank table.
    for (int p = 0; p < n; ++p) spare[order[p]] = p;
    return spare;
}

// Moves data[i] to data[rank[i]] for every i, one carry at a time. The rank
// table ends as the identity.
template <typename T>
void ApplyRanks(T* data, std::vector<int>& rank) {
    const int n = static_cast<int>(rank.size());
    for (int i = 0; i < n; ++i) {
        if (rank[i] == i) continue;
        T carry = std::move(data[i]);
        int k = rank[i];
        while (k != i) {
            std::swap(carry, data[k]);
            const int next = rank[k];
            rank[k] = k;
            k = next;
        }
        data[i] = std::move(carry);
        rank[i] = i;
    }
}

// Sorts data[0..n) stably by mustFollow(a, b) on elements, a standing before b.
template <typename T, typename ElementsMustFollow>
void SortByRank(T* data, int n, ElementsMustFollow elementsMustFollow) {
    if (n < 2) return;
    std::vector<int> rank =
        StableRanks(n, [data, &elementsMustFollow](int i, int j) { return elementsMustFollow(data[i], data[j]); });
    ApplyRanks(data, rank);
}

}  // namespace QoRankSort
