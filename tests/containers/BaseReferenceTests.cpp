// Code written against the base classes runs unchanged on every container:
// the copies of the base keep every object with one owner, operations that
// grow the container while they work on it read no freed memory, and the
// splices take nodes from any list of their node kind.

#include "ContainerTestKit.h"

#include "zefra/containers/QoDList.h"
#include "zefra/containers/QoDynArray.h"
#include "zefra/containers/QoDynPArray.h"
#include "zefra/containers/QoList.h"
#include "zefra/containers/QoPDList.h"
#include "zefra/containers/QoPXList.h"
#include "zefra/containers/QoXList.h"

#include <functional>
#include <set>
#include <string>
#include <vector>

namespace {

// Counts its live objects, so that a leak or a second delete shows as a
// wrong count even without the sanitizer.
struct Counted {
    static int live;
    int key = 0;

    explicit Counted(int k = 0) : key(k) { ++live; }
    Counted(const Counted& o) : key(o.key) { ++live; }
    Counted& operator=(const Counted&) = default;
    ~Counted() { --live; }

    friend bool operator==(const Counted& a, const Counted& b) { return a.key == b.key; }
    friend bool operator!=(const Counted& a, const Counted& b) { return a.key != b.key; }
    friend bool operator<(const Counted& a, const Counted& b) { return a.key < b.key; }
    friend bool operator>(const Counted& a, const Counted& b) { return a.key > b.key; }
};
int Counted::live = 0;

using Base = QoDynArrayBase<Counted*>;

std::vector<int> Keys(const Base& c) {
    std::vector<int> keys;
    for (Counted* const* p = c.GetFirst(); p != nullptr; p = c.GetNext(p)) keys.push_back(*p ? (*p)->key : -1);
    return keys;
}

// Objects held by the containers, each counted once; equal to
// Counted::live exactly when nothing leaked and nothing is held twice.
int Held(std::initializer_list<const Base*> containers) {
    std::set<const Counted*> held;
    int slots = 0;
    for (const Base* c : containers)
        for (Counted* const* p = c->GetFirst(); p != nullptr; p = c->GetNext(p))
            if (*p != nullptr) {
                held.insert(*p);
                ++slots;
            }
    return static_cast<int>(held.size()) == slots ? slots : -1;
}

template <typename Owning>
void Fill(Owning& c, std::initializer_list<int> keys) {
    for (int k : keys) c.Append(k < 0 ? nullptr : new Counted(k));
}

// Each copy path of the base, reached through base references, between
// owning containers of every family.
template <typename Source, typename Target>
void CopiesThroughTheBase() {
    using Copy = std::function<void(const Base& from, Base& to)>;
    const struct {
        const char* name;
        Copy copy;
        std::vector<int> want;
    } cases[] = {
        {"DeepCopy", [](const Base& f, Base& t) { t.DeepCopy(f); }, {1, -1, 3, 4}},
        {"Left", [](const Base& f, Base& t) { f.Left(2, t); }, {1, -1}},
        {"Right", [](const Base& f, Base& t) { f.Right(2, t); }, {3, 4}},
        {"Mid", [](const Base& f, Base& t) { f.Mid(1, 2, t); }, {-1, 3}},
        {"operator<<", [](const Base& f, Base& t) { t << f; }, {7, 8, 1, -1, 3, 4}},
        {"SetAll", [](const Base& f, Base& t) { t.SetAll(f.GetAt(0)); }, {1, 1}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        {
            Source from;
            Fill(from, {1, -1, 3, 4});
            Target to;
            Fill(to, {7, 8});  // what the target held must not leak
            c.copy(from, to);
            EXPECT_EQ(Keys(to), c.want);
            EXPECT_EQ(Keys(from), (std::vector<int>{1, -1, 3, 4}));
            EXPECT_EQ(Held({&from, &to}), Counted::live);
        }
        EXPECT_EQ(Counted::live, 0);
    }
}

}  // namespace

TEST(OwnershipThroughTheBase, EveryCopyOfTheBaseGivesObjectsOfTheirOwn) {
    CopiesThroughTheBase<QoDynPArray<Counted>, QoDynPArray<Counted>>();
    CopiesThroughTheBase<QoDynPArray<Counted>, QoPDList<Counted>>();
    CopiesThroughTheBase<QoPDList<Counted>, QoPXList<Counted>>();
    CopiesThroughTheBase<QoPXList<Counted>, QoDynPArray<Counted>>();
}

TEST(OwnershipThroughTheBase, AssignmentsThroughTheStorageClassesCopyObjects) {
    {
        QoPDList<Counted> from, list;
        QoPXList<Counted> indexed(0, 2);
        QoDynPArray<Counted> array;
        Fill(from, {5, -1, 6});
        Fill(list, {9});
        Fill(indexed, {9, 9, 9});
        Fill(array, {9, 9});
        static_cast<QoDList<Counted*>&>(list) = from;
        static_cast<QoXList<Counted*>&>(indexed) = from;
        static_cast<QoDynArray<Counted*>&>(array) = from;
        static_cast<QoDList<Counted*>&>(list) = static_cast<const Base&>(from);
        for (const Base* c : {static_cast<const Base*>(&list), static_cast<const Base*>(&indexed),
                              static_cast<const Base*>(&array)})
            EXPECT_EQ(Keys(*c), (std::vector<int>{5, -1, 6}));
        EXPECT_EQ(Held({&from, &list, &indexed, &array}), Counted::live);
        EXPECT_EQ(indexed.GetGroup().GetLength(), 2);
    }
    EXPECT_EQ(Counted::live, 0);
}

TEST(OwnershipThroughTheBase, PartsOfItselfKeepTheirObjects) {
    {
        QoDynPArray<Counted> array;
        QoPDList<Counted> list;
        Fill(array, {1, 2, 3, 4});
        Fill(list, {1, 2, 3, 4});
        const Counted* third = array.GetAt(2);
        Base& a = array;
        a.Mid(1, 2, a);
        list.Right(3, list);
        EXPECT_EQ(Keys(array), (std::vector<int>{2, 3}));
        EXPECT_EQ(array.GetAt(1), third);
        EXPECT_EQ(array.GetCur(), 2);
        EXPECT_EQ(Keys(list), (std::vector<int>{2, 3, 4}));
        EXPECT_EQ(list.GetCur(), -1);
        array << array;  // the appended half is made of copies
        EXPECT_EQ(Keys(array), (std::vector<int>{2, 3, 2, 3}));
        EXPECT_EQ(Held({&array, &list}), Counted::live);
        a.Left(0, a);
        EXPECT_TRUE(array.IsEmpty());
    }
    EXPECT_EQ(Counted::live, 0);

    QoDList<double> plain;
    for (double v : {1.0, 2.0, 3.0}) plain.Append(v);
    plain.Left(5, plain);  // more than it has: it keeps what it has
    EXPECT_EQ(plain.GetLength(), 3);
}

// A copy of {1, 2, 3, 4}, then Exchange(0, 4): the container grows while the
// first element is in hand.
TEST(GrowingWhileWorking, ExchangeAndReversePastTheEndMoveWholeElements) {
    using Strings = std::vector<std::string>;
    auto run = [](QoDynArrayBase<std::string>& c) {
        const Strings start{"1", "2", "3", "4"};
        for (const auto& s : start) c.Append(s);
        c.Exchange(0, 4);
        Strings got;
        for (const std::string* p = c.GetFirst(); p != nullptr; p = c.GetNext(p)) got.push_back(*p);
        EXPECT_EQ(got, (Strings{"", "2", "3", "4", "1"}));
        EXPECT_EQ(c.GetCur(), 4);
        c.Exchange(6, 1);
        EXPECT_EQ(c.GetAt(6), "2");
        EXPECT_EQ(c.GetCur(), 1);
        c.Reset();
        for (const auto& s : start) c.Append(s);
        c.Reverse(0, 5);
        got.clear();
        for (const std::string* p = c.GetFirst(); p != nullptr; p = c.GetNext(p)) got.push_back(*p);
        ASSERT_EQ(got.size(), 6u);  // the two grown slots: whatever the buffer held
        EXPECT_EQ(Strings(got.begin() + 2, got.end()), (Strings{"4", "3", "2", "1"}));
    };
    {
        QoDynArray<std::string> exact(0, 0);  // every growth reallocates
        SCOPED_TRACE("array");
        run(exact);
    }
    {
        QoDynArray<std::string> source;
        for (const char* s : {"a", "b", "c", "d"}) source.Append(s);
        QoDynArray<std::string> copy(source);  // a copy fits exactly
        copy.Exchange(0, 4);
        EXPECT_EQ(copy.GetAt(4), "a");
    }
    QoList<std::string> single;
    QoXList<std::string> indexed(0, 2);
    for (QoDynArrayBase<std::string>* c : {static_cast<QoDynArrayBase<std::string>*>(&single),
                                          static_cast<QoDynArrayBase<std::string>*>(&indexed)}) {
        SCOPED_TRACE("list");
        run(*c);
    }
}

namespace {
template <typename List>
struct Derived : List {
    int extra = 0;
};
}  // namespace

TEST(ListSplices, AnyListOfTheSameNodeKindGivesItsNodes) {
    auto fill = [](QoList<double>& l, std::initializer_list<double> values) {
        for (double v : values) l.Append(v);
    };
    auto keys = [](const QoList<double>& l) {
        std::vector<double> v;
        for (const double* p = l.GetFirst(); p != nullptr; p = l.GetNext(p)) v.push_back(*p);
        return v;
    };
    using V = std::vector<double>;

    QoList<double> single;
    Derived<QoList<double>> derived;
    fill(single, {7});
    fill(derived, {0, 1, 2});
    EXPECT_EQ(single.Conbine(derived, 1), 3);
    EXPECT_EQ(keys(single), (V{7, 1, 2}));
    EXPECT_EQ(keys(derived), (V{0}));
    single.SplitAt(1, derived);
    EXPECT_EQ(keys(single), (V{7}));
    EXPECT_EQ(keys(derived), (V{0, 1, 2}));
    derived.MoveTo(2);
    derived.SplitAtCur(single);
    EXPECT_EQ(keys(single), (V{7, 2}));

    Derived<QoDList<double>> doublyDerived;
    fill(doublyDerived, {4, 5});
    EXPECT_EQ(single.Conbine(doublyDerived, 0), 2);  // other nodes: nothing moves
    QoDList<double> doubly;
    EXPECT_EQ(doubly.Conbine(doublyDerived, 1), 1);
    EXPECT_EQ(keys(doubly), (V{5}));
}
