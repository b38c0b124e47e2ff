// The cursor rules and the odd cases of arrays and lists, one behaviour at a time.

#include "ContainerTestKit.h"

#include "zefra/containers/QoDList.h"
#include "zefra/containers/QoDynArray.h"
#include "zefra/containers/QoList.h"
#include "zefra/containers/QoXList.h"
#include "zefra/platform/mfc/CString.h"

namespace {

template <typename C>
std::vector<int> Keys(const C& c) {
    std::vector<int> keys;
    for (auto p = c.GetFirst(); p != nullptr; p = c.GetNext(p)) keys.push_back(static_cast<int>(*p));
    return keys;
}

template <typename C>
C Of(std::initializer_list<int> values) {
    C c;
    for (int x : values) c.Append(x);
    return c;
}

using V = std::vector<int>;

}  // namespace

TEST(DynArrayGrowth, ReservesGrowsByTheUnitAndFitsExactly) {
    QoDynArray<double> reserved(5, 10);
    EXPECT_EQ(reserved.GetLength(), 0);
    EXPECT_EQ(reserved.GetSpaceSize(), 5);
    reserved.Append(1.0);
    EXPECT_EQ(reserved.GetSpaceSize(), 5);

    QoDynArray<double> a;
    a.Append(0.0);
    EXPECT_EQ(a.GetSpaceSize(), 11);
    for (int i = 1; i < 12; ++i) a.Append(i);
    EXPECT_EQ(a.GetSpaceSize(), 22);

    QoDynArray<double> grown;
    grown[7] = 2.5;
    EXPECT_EQ(grown.GetLength(), 8);
    EXPECT_EQ(grown.GetCur(), 7);

    // An unchanged buffer keeps what it held, even without keep.
    a.SetLength(22, false);
    EXPECT_EQ(a[11], 11.0);
    a.SetLength(3, true);
    EXPECT_EQ(a.GetSpaceSize(), 3);
    EXPECT_EQ(Keys(a), (V{0, 1, 2}));
    EXPECT_FALSE(a.SetSpaceSize(2));
    EXPECT_TRUE(a.SetSpaceSize(9));
    EXPECT_EQ(a.GetLength(), 3);
    EXPECT_EQ(a.GetSpaceSize(), 9);

    double* buffer = a.Detach();
    EXPECT_EQ(a.GetLength(), 0);
    EXPECT_EQ(a.GetFirst(), nullptr);
    a.Attach(3, buffer);
    EXPECT_EQ(Keys(a), (V{0, 1, 2}));
}

TEST(DynArrayGrowth, ElementsOfTheContainerItselfCanBeInserted) {
    // Unit 0: every insertion reallocates, freeing the buffer the argument lives in.
    QoDynArray<CString> a(0, 0);
    a.Append(L"first");
    a.Append(L"second");
    a.Append(a[0]);
    a.Insert(0, a.GetAt(2));
    a.SetAllocUnit(10);
    a.Append(L"room");
    a.MoveTo(1);
    a.InsertCur(a.GetAt(3));  // in place: the shift moves the argument
    const std::vector<CString> expected{L"first", L"first", L"first", L"second", L"first", L"room"};
    ASSERT_EQ(a.GetLength(), 6);
    for (int i = 0; i < 6; ++i) EXPECT_EQ(a.GetAt(i), expected[i]) << i;

    QoList<CString> l;
    l.Append(L"x");
    l.Append(l.GetAt(0));
    l.FindDel(l.GetAt(0));
    EXPECT_EQ(l.GetLength(), 0);
}

TEST(CursorRules, ListCursorsWrapThroughTheSentinelAndArrayCursorsDoNot) {
    QoDynArray<double> emptyArray;
    QoDList<double> emptyList;
    emptyArray.MoveToFirst();
    emptyList.MoveToFirst();
    EXPECT_EQ(emptyArray.GetCur(), 0);
    EXPECT_EQ(emptyList.GetCur(), -1);
    EXPECT_TRUE(emptyList.IsOut() && emptyList.IsBegin() && !emptyList.IsEnd());

    auto l = Of<QoList<double>>({1, 2, 3});
    auto a = Of<QoDynArray<double>>({1, 2, 3});
    l.MoveTo(2);
    a.MoveTo(2);
    l.MoveToNext();
    a.MoveToNext();
    EXPECT_EQ(l.GetCur(), -1);
    EXPECT_EQ(a.GetCur(), 3);
    l.MoveToNext();
    EXPECT_EQ(l.GetCur(), 0);
    l.MoveToPre();
    EXPECT_EQ(l.GetCur(), -1);
    l.MoveToPre();
    EXPECT_EQ(l.GetCur(), 2);

    QoList<double> three(3);
    EXPECT_EQ(three.GetCur(), -1);
    // Deleting the first element leaves the cursor before all elements.
    three.MoveToFirst();
    three.DelCur();
    EXPECT_EQ(three.GetCur(), -1);
    three.MoveToNext();
    EXPECT_EQ(three.GetCur(), 0);
}

TEST(OrderedOperations, StabilityBisectionAndComparisons) {
    QoDynArray<Tagged> tagged;
    tagged << Tagged{2, 1} << Tagged{1, 2} << Tagged{2, 3};
    tagged.Sort(false);
    EXPECT_EQ(tagged[0].tag, 1);
    EXPECT_EQ(tagged[1].tag, 3);
    EXPECT_EQ(tagged[2].tag, 2);

    auto run = Of<QoDynArray<double>>({1, 2, 2, 2, 3});
    EXPECT_EQ(run.BFind(2), 2);  // where the bisection lands, not the first of the run
    EXPECT_EQ(Of<QoDList<double>>({1, 2, 2, 2, 3}).BFind(2), 2);

    EXPECT_TRUE(Of<QoDynArray<double>>({9}) < Of<QoDynArray<double>>({1, 2}));
    EXPECT_TRUE(Of<QoList<double>>({1, 2}) == Of<QoDynArray<double>>({1, 2}));
}

TEST(ListSplices, ConbineTakesOnlyNodesOfItsOwnKind) {
    auto single = Of<QoList<double>>({7});
    auto other = Of<QoList<double>>({0, 1, 2});
    EXPECT_EQ(single.Conbine(other, 1), 3);
    EXPECT_EQ(Keys(single), (V{7, 1, 2}));
    EXPECT_EQ(Keys(other), (V{0}));
    EXPECT_EQ(single.Conbine(other, 5), 3);
    EXPECT_EQ(single.Conbine(single, 0), 3);

    auto doubly = Of<QoDList<double>>({0, 1});
    EXPECT_EQ(single.Conbine(doubly, 0), 3);  // doubly linked nodes don't go into a singly linked list
    EXPECT_EQ(doubly.Conbine(single, 0), 2);
    QoXList<double> indexed(0, 2);
    indexed.Append(9);
    EXPECT_EQ(doubly.Conbine(indexed, 0), 3);
    doubly.MoveTo(-1);
    doubly.MoveToPre();
    EXPECT_EQ(doubly.GetCurData(), 9.0);  // backward links are whole after the splice
    doubly.MoveToPre();
    EXPECT_EQ(doubly.GetCurData(), 1.0);
    EXPECT_EQ(indexed.GetGroup().GetLength(), 0);
}

TEST(GroupIndexedList, TableFollowsTheLengthAcrossGroupBoundaries) {
    QoXList<int> x(26);
    EXPECT_EQ(x.GetGroup().GetLength(), 2);
    x.DelHead();
    EXPECT_EQ(x.GetGroup().GetLength(), 1);
    x.Append(5);
    ASSERT_EQ(x.GetGroup().GetLength(), 2);
    EXPECT_EQ(&x.GetGroup().GetAt(1)->data, x.GetLast());

    QoXList<int> sixty;
    for (int i = 0; i < 60; ++i) sixty.Append(i);
    sixty.MoveTo(57);
    EXPECT_EQ(sixty.GetCurData(), 57);
    std::vector<QoListNode<int>*> cut;
    for (sixty.MoveTo(30); !sixty.IsOut(); sixty.MoveToNext()) cut.push_back(sixty.GetCurPos());
    sixty.DetachAfter(29);
    EXPECT_EQ(sixty.GetLength(), 30);
    EXPECT_EQ(sixty.GetGroup().GetLength(), 2);
    for (QoListNode<int>* node : cut) delete static_cast<QoDListNode<int>*>(node);  // the cut part is ours now

    const QoXList<int> copy(sixty);
    EXPECT_EQ(copy.GetGroup().GetLength(), 2);
    EXPECT_EQ(&copy.GetGroup().GetAt(1)->data, copy.GetTo(25));
}
