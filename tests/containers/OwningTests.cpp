// Owning containers, exact arrays and the queue-filling searches: focused cases.

#include "ContainerTestKit.h"

#include "zefra/containers/Qo2dArray.h"
#include "zefra/containers/QoArray.h"
#include "zefra/containers/QoDynPArray.h"
#include "zefra/containers/QoPDList.h"
#include "zefra/containers/QoPXList.h"
#include "zefra/platform/mfc/CString.h"

// An element class whose relations are constants: nothing is equal, nothing
// is greater, so ordering and searching have no effect.
struct Inert {
    int id = 0;
    friend bool operator==(const Inert&, const Inert&) { return false; }
    friend bool operator!=(const Inert&, const Inert&) { return true; }
    friend bool operator>(const Inert&, const Inert&) { return false; }
    friend bool operator<(const Inert&, const Inert&) { return false; }
};

namespace {

template <typename Owning>
std::vector<int> Ids(const Owning& c) {
    std::vector<int> ids;
    for (auto p = c.GetFirst(); p != nullptr; p = c.GetNext(p)) ids.push_back(*p == nullptr ? -1 : (*p)->id);
    return ids;
}

using V = std::vector<int>;

}  // namespace

template class QoDynPArray<Inert>;
template class QoPDList<Inert>;
template class Qo2dArray<Tagged>;

TEST(OwningContainers, TakeOffKeepsTheArraySlotButDropsTheListNode) {
    QoDynPArray<Inert> array;
    QoPDList<Inert> list;
    for (int id : {1, 2}) {
        array.Append(new Inert{id});
        list.Append(new Inert{id});
    }
    Inert* fromArray = array.TakeOff(0);
    Inert* fromList = list.TakeOff(0);
    EXPECT_EQ(fromArray->id, 1);
    EXPECT_EQ(fromList->id, 1);
    EXPECT_EQ(Ids(array), (V{-1, 2}));
    EXPECT_EQ(array.GetDataNum(), 1);
    EXPECT_EQ(Ids(list), (V{2}));
    delete fromArray;
    delete fromList;
}

TEST(OwningContainers, ConstantRelationsLeaveTheOrderAloneAndFindNothing) {
    QoDynPArray<Inert> grips;
    for (int id : {3, 1, 2}) grips.Append(new Inert{id});
    grips.Sort(true);
    EXPECT_EQ(Ids(grips), (V{3, 1, 2}));
    EXPECT_EQ(grips.FindData(*grips.GetAt(0)), -1);

    QoDynPArray<Inert> holes;
    holes.Append(nullptr);
    holes.Append(new Inert{1});
    holes.Append(nullptr);
    holes.Append(new Inert{2});
    holes.SortEx(true);
    EXPECT_EQ(Ids(holes), (V{1, 2, -1, -1}));

    QoPDList<Inert> paths;
    for (int id : {5, 0, 4}) paths.Append(id == 0 ? nullptr : new Inert{id});
    paths.Sort(false);
    EXPECT_EQ(Ids(paths), (V{5, 4, -1}));
}

TEST(OwningContainers, CopiesOwnObjectsOfTheirOwn) {
    QoPXList<Tagged> original(0, 2);
    for (int key : {4, 5}) original.Append(new Tagged{key, key});
    original.Append(nullptr);
    QoDynPArray<Tagged> array;
    array.DeepCopy(original);
    original.Reset();  // the copy must survive this
    EXPECT_EQ(array.GetPData(1).key, 5);
    EXPECT_TRUE(array.IsEmptyData(2));

    QoPDList<Tagged> left, right;
    left.Append(new Tagged{1, 0});
    right.Append(nullptr);
    EXPECT_FALSE(left == right);
}

TEST(OwningContainers, SearchesLookAtPointees) {
    QoPDList<Tagged> list;
    for (int key : {1, 3, 5}) list.Append(new Tagged{key, 0});
    EXPECT_EQ(list.BFindData(Tagged{3, 0}), 1);
    EXPECT_EQ(list.BFindData(Tagged{4, 0}), -1);
    EXPECT_TRUE(list.FindDataTo(Tagged{5, 0}, 1));
    EXPECT_EQ(list.GetCur(), 2);
    EXPECT_FALSE(list.FindDataTo(Tagged{5, 0}, 0, 1));
}

TEST(ExactArrays, ReallocateAtEveryChangeAndCheckReverseBounds) {
    QoArray<int> a(3);
    EXPECT_EQ(a.GetLength(), 3);
    a.Del(0);
    a.Del(0);
    a.Del(0);
    EXPECT_EQ(a.GetLength(), 0);
    EXPECT_EQ(a.GetDataBuffer(), nullptr);

    QoArray<CString> s;
    s.Append(L"a");
    s.Append(L"b");
    s.Insert(0, s[1]);
    s.Append(s[0]);
    EXPECT_EQ(s.Find(L"b"), 0);
    EXPECT_EQ(s.FindDel(s[0]), 3);
    EXPECT_EQ(s.GetLength(), 1);

    QoArray<int> r;
    for (int x : {1, 2, 3, 4}) r.Append(x);
    r.Reverse(1, 7);  // an invalid bound does nothing
    r.Reverse(1, -1);
    EXPECT_EQ(r[1], 4);
    EXPECT_EQ(r[3], 2);
    EXPECT_EQ(r.BFind(3), -1);  // not sorted any more: the search misses
    r.Sort(true);
    EXPECT_EQ(r.BFind(3), 2);

    Qo2dArray<int> grid(2, 3);
    grid.SetAll(7);
    grid[1][2] = 9;
    grid.ReAllocate(3, 4, true);
    EXPECT_EQ(grid.GetLength(), 3);
    EXPECT_EQ(grid[2].GetLength(), 4);
    EXPECT_EQ(grid[1][2], 9);
    EXPECT_EQ(grid[0][0], 7);
}
