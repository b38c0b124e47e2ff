// The arrays' merge-based rank sort against the rank sort that counts every
// pair: same result for every consistent order.

#include "ContainerTestKit.h"

#include "zefra/containers/QoArray.h"
#include "zefra/containers/QoDynArray.h"
#include "zefra/containers/QoRankSort.h"

namespace {

// For every pair i < j in which i must follow j: rank[i] + 1, rank[j] - 1.
template <typename MustFollow>
std::vector<Tagged> PairCountingSort(const std::vector<Tagged>& v, MustFollow mustFollow) {
    const int n = static_cast<int>(v.size());
    std::vector<int> rank(v.size());
    for (int i = 0; i < n; ++i) rank[i] = i;
    for (int i = 0; i < n; ++i)
        for (int j = i + 1; j < n; ++j)
            if (mustFollow(v[i], v[j])) {
                ++rank[i];
                --rank[j];
            }
    std::vector<Tagged> sorted(v.size());
    for (int i = 0; i < n; ++i) sorted[rank[i]] = v[i];
    return sorted;
}

int CompareByRemainder(const Tagged& a, const Tagged& b) { return a.key % 3 - b.key % 3; }

std::vector<Tagged> Input(RandomSteps& steps, int n, int keys, int shape) {
    std::vector<Tagged> v;
    for (int i = 0; i < n; ++i) v.push_back(steps.Next(keys));
    if (shape == 1) std::stable_sort(v.begin(), v.end(), [](auto& a, auto& b) { return a.key < b.key; });
    if (shape == 2) std::stable_sort(v.begin(), v.end(), [](auto& a, auto& b) { return a.key > b.key; });
    return v;
}

::testing::AssertionResult SameSequence(const std::vector<Tagged>& expected, const Tagged* actual) {
    for (size_t k = 0; k < expected.size(); ++k)
        if (!SameTagged(expected[k], actual[k])) return ::testing::AssertionFailure() << "differs at " << k;
    return ::testing::AssertionSuccess();
}

}  // namespace

TEST(RankSort, MatchesPairCountingForEveryOrderShapeAndSize) {
    RandomSteps steps(7u);
    const auto never = [](const Tagged&, const Tagged&) { return false; };
    for (int n : {0, 1, 2, 3, 15, 16, 17, 33, 64, 100, 257, 1000}) {
        for (int keys : {1, 3, 40, 100000}) {
            for (int shape = 0; shape < 3; ++shape) {
                const std::vector<Tagged> v = Input(steps, n, keys, shape);
                QoDynArray<Tagged> up;
                for (const Tagged& t : v) up << t;
                QoDynArray<Tagged> down(up), byFunction(up);
                QoArray<Tagged> exact(up);
                std::vector<Tagged> inert = v;
                up.Sort(true);
                down.Sort(false);
                byFunction.Sort(CompareByRemainder);
                exact.Sort(false);
                QoRankSort::SortByRank(inert.data(), n, never);

                const auto above = [](const Tagged& a, const Tagged& b) { return a > b; };
                const auto below = [](const Tagged& a, const Tagged& b) { return b > a; };
                const auto byRemainder = [](const Tagged& a, const Tagged& b) { return CompareByRemainder(a, b) > 0; };
                SCOPED_TRACE(::testing::Message() << "n " << n << " keys " << keys << " shape " << shape);
                EXPECT_TRUE(SameSequence(PairCountingSort(v, above), up.GetFirst()));
                EXPECT_TRUE(SameSequence(PairCountingSort(v, below), down.GetFirst()));
                EXPECT_TRUE(SameSequence(PairCountingSort(v, byRemainder), byFunction.GetFirst()));
                EXPECT_TRUE(SameSequence(PairCountingSort(v, below), exact.GetDataBuffer()));
                EXPECT_TRUE(SameSequence(v, inert.data()));
            }
        }
    }
}
