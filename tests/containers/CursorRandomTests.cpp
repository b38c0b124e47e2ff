// Long random operation sequences on every cursor container, compared after
// each step with a std::vector model of the cursor rules.

#include "ContainerTestKit.h"

#include "zefra/containers/QoDList.h"
#include "zefra/containers/QoDynArray.h"
#include "zefra/containers/QoList.h"
#include "zefra/containers/QoXList.h"

#include <string>

// Every member compiled for a record type.
template class QoDynArray<Tagged>;
template class QoList<Tagged>;
template class QoDList<Tagged>;
template class QoXList<Tagged>;
template class QoArray<Tagged>;

namespace {

template <typename Container>
struct CursorDriver {
    Container& c;
    CursorModel<Tagged> m;
    RandomSteps& steps;

    CursorDriver(Container& container, CursorRules rules, RandomSteps& s) : c(container), m(rules), steps(s) {}

    int Len() const { return m.Length(); }
    bool IsList() const { return m.IsList(); }
    void BothMoveTo(int i) {
        c.MoveTo(i);
        m.MoveTo(i);
    }
    // Array insertion needs the cursor in 0..length, deletion on an element.
    void CursorForInsert() {
        if (!IsList() && (m.cur < 0 || m.cur > Len())) BothMoveTo(steps.Below(Len() + 1));
    }
    bool CursorOnElement() {
        if (Len() == 0) return false;
        if (!m.Valid(m.cur)) BothMoveTo(steps.Below(Len()));
        return true;
    }
    void SortBoth(bool ascending) {
        c.Sort(ascending);
        std::stable_sort(m.v.begin(), m.v.end(), [ascending](const Tagged& a, const Tagged& b) {
            return ascending ? a.key < b.key : a.key > b.key;
        });
        if (IsList() && Len() >= 2) m.cur = -1;
    }
    // Walks that fill new array slots leave them unspecified: take them over.
    void TakeOverSlots(int from, int to) {
        for (int k = from; k < to; ++k) m.v[k] = c.GetAt(k);
    }

    std::string Step();
};

template <typename Container>
std::string CursorDriver<Container>::Step() {
    const Tagged d = steps.Next();
    int op = steps.Below(25);
    if (op > 18) op %= 4;  // lean towards growth, so that lists get long
    switch (op) {
    case 0: {
        const int at = c.Append(d);
        EXPECT_EQ(at, m.Append(d));
        return "Append";
    }
    case 1:
        c.InsertHead(d);
        m.Insert(0, d);
        return "InsertHead";
    case 2: {
        const int i = steps.Below(Len() + (IsList() ? 2 : 1));
        c.Insert(i, d);
        m.Insert(i, d);
        return "Insert";
    }
    case 3:
        CursorForInsert();
        c.InsertCur(d);
        m.InsertCur(d);
        return "InsertCur";
    case 4:
        if (CursorOnElement()) {
            c.DelCur();
            m.DelCur();
        }
        return "DelCur";
    case 5:
        for (int k = steps.Below(6); k > 0; --k) {
            switch (steps.Below(5)) {
            case 0: c.MoveToFirst(); m.MoveToFirst(); break;
            case 1: c.MoveToNext(); m.MoveToNext(); break;
            case 2: c.MoveToPre(); m.MoveToPre(); break;
            case 3: c.MoveToLast(); m.MoveToLast(); break;
            default: BothMoveTo(steps.Between(-2, Len() + 1)); break;
            }
        }
        return "walk";
    case 6: {
        const int i = steps.Below(Len() + 4);
        const int old = Len();
        c[i] = d;
        if (i >= old) {
            m.v.resize(i + 1);
            if (!IsList()) TakeOverSlots(old, i);
        }
        m.MoveTo(i);
        m.v[i] = d;
        return "operator[]";
    }
    case 7: {
        const int from = steps.Between(-1, Len()), to = steps.Between(-1, Len() + 1);
        const bool moves = m.Valid(from) && to >= 0 && to <= Len() && from != to && from != to - 1;
        EXPECT_EQ(c.Move(from, to), moves);
        if (moves) {
            const Tagged e = m.v[from];
            m.v.erase(m.v.begin() + from);
            m.cur = from < to ? to - 1 : to;
            m.v.insert(m.v.begin() + m.cur, e);
        }
        return "Move";
    }
    case 8: {
        const int how = steps.Below(3);
        if (how == 2) {
            c.Sort(CompareKeys);
            SortBoth(true);  // same order; sorting twice is a no-op
        } else {
            SortBoth(how == 0);
        }
        return "Sort";
    }
    case 9: {
        SortBoth(true);
        const bool allowEqual = steps.Below(2) == 0;
        const bool present = std::find(m.v.begin(), m.v.end(), d) != m.v.end();
        EXPECT_EQ(c.SortInto(d, allowEqual), allowEqual || !present);
        if (allowEqual || !present) {
            const auto at = std::upper_bound(m.v.begin(), m.v.end(), d);
            m.cur = static_cast<int>(at - m.v.begin());
            m.v.insert(at, d);
        } else {
            EXPECT_EQ(c.GetCurData(), d);  // the search stopped on an equal element
            m.cur = c.GetCur();
        }
        return "SortInto";
    }
    case 10: {
        const auto gone = std::count(m.v.begin(), m.v.end(), d);
        EXPECT_EQ(c.FindDel(d), gone);
        m.v.erase(std::remove(m.v.begin(), m.v.end(), d), m.v.end());
        m.cur = m.OutAfterWalk();
        return "FindDel";
    }
    case 11:
        if (Len() > 0 && steps.Below(3) == 0) {
            // An exchange with a slot past the end grows the container
            // first, through the base as code written against it does.
            QoDynArrayBase<Tagged>& base = c;
            const int old = Len();
            const int i = steps.Below(old), j = old + steps.Below(3);
            const Tagged moving = m.v[i];
            const bool growingFirst = steps.Below(2) == 0;
            if (growingFirst)
                base.Exchange(j, i);
            else
                base.Exchange(i, j);
            m.v.resize(j + 1);
            TakeOverSlots(old, j);
            m.v[i] = c.GetAt(i);  // the new slot's unspecified value
            m.v[j] = moving;
            m.cur = growingFirst ? i : j;
            return "Exchange past the end";
        }
        if (Len() > 0) {
            const int lo = steps.Below(Len()), hi = steps.Between(-1, Len() - 1);
            c.Reverse(lo, hi);
            const int top = hi == -1 ? Len() - 1 : hi;
            const int half = (top - lo + 1) / 2;
            for (int k = 0; k < half; ++k) std::swap(m.v[lo + k], m.v[top - k]);
            if (half > 0) m.cur = top - half + 1;
        }
        return "Reverse";
    case 12: {
        int n = std::max(0, Len() + steps.Between(-4, 4));
        const bool keep = steps.Below(2) == 0;
        if constexpr (std::is_same_v<Container, QoDynArray<Tagged>>) {
            if (n == c.GetSpaceSize()) ++n;  // an unchanged buffer keeps old slots: tested apart
        }
        c.SetLength(n, keep);
        if (IsList()) {
            if (n < Len()) m.cur = n - 1;
            m.v.resize(n);
        } else {
            m.v.resize(keep ? n : 0);
            m.v.resize(n);
        }
        return "SetLength";
    }
    case 13:
        if (steps.Below(8) == 0) {
            c.Reset();
            m.v.clear();
            m.cur = -1;
        }
        return "Reset";
    case 14: {
        const int lo = steps.Below(Len() + 1), hi = steps.Between(-1, Len());
        const int top = hi < 0 || hi >= Len() ? Len() - 1 : hi;
        std::vector<int> every;
        for (int k = lo; k <= top; ++k)
            if (m.v[k] == d) every.push_back(k);
        EXPECT_EQ(c.Find(d, lo, hi), every.empty() ? -1 : every.front());
        QoQuene<int> all;
        EXPECT_EQ(c.Find(d, all, lo, hi), static_cast<int>(every.size()));
        for (int k = 0; k < all.GetCount(); ++k) {
            EXPECT_EQ(all.GetAt(k), every[k]);
        }
        const int from = steps.Between(-1, Len());
        const bool found = c.FindTo(d, from);
        m.MoveTo(from);
        while (!(m.cur < 0 || m.cur >= Len()) && m.v[m.cur] != d) m.MoveToNext();
        EXPECT_EQ(found, m.Valid(m.cur));
        return "Find";
    }
    case 15: {
        SortBoth(true);
        const int at = c.BFind(d);
        const bool present = std::binary_search(m.v.begin(), m.v.end(), d);
        EXPECT_EQ(at >= 0, present);
        if (at >= 0) {
            EXPECT_EQ(m.v[at], d);
        }
        return "BFind";
    }
    case 16: {
        const Container copy(c);
        CursorModel<Tagged> copied = m;
        copied.cur = copied.OutAfterWalk();
        EXPECT_TRUE(Matches(copy, copied));
        QoDynArray<Tagged> part;
        const int n = steps.Below(Len() + 1);
        c.Left(n, part);
        EXPECT_EQ(part.GetLength(), n);
        for (int k = 0; k < part.GetLength(); ++k) {
            EXPECT_TRUE(SameTagged(part[k], m.v[k]));
        }
        c.Right(n, part);
        EXPECT_EQ(part.GetLength(), n);
        for (int k = 0; k < part.GetLength(); ++k) {
            EXPECT_TRUE(SameTagged(part[k], m.v[Len() - n + k]));
        }
        if (Len() > 0 && steps.Below(3) == 0) {
            c << copy;
            m.v.insert(m.v.end(), copied.v.begin(), copied.v.end());
            m.cur = m.OutAfterWalk();
        }
        return "copy";
    }
    case 17:
        if (CursorOnElement()) {
            const int j = steps.Below(Len());
            c.InsertCur(c.GetAt(j));  // an element of the container itself
            m.InsertCur(Tagged(m.v[j]));
        } else {
            c.Append(d);
            m.Append(d);
        }
        return "InsertCur(own element)";
    default:
        if (Len() > 0) {
            const int i = steps.Below(Len());
            c.Del(i);
            m.MoveTo(i);
            m.DelCur();
        }
        return "Del";
    }
}

template <typename Container>
void CheckNothingElse(const Container&) {}

// Entry k of the group table is the node at index k * g.
::testing::AssertionResult GroupTableHolds(const QoXList<Tagged>& x) {
    const int g = x.GetGroupSize();
    const int entries = (x.GetLength() + g - 1) / g;
    if (x.GetGroup().GetLength() != entries)
        return ::testing::AssertionFailure() << x.GetGroup().GetLength() << " entries, want " << entries;
    int index = 0;
    for (const Tagged* p = x.GetFirst(); p != nullptr; p = x.GetNext(p), ++index)
        if (index % g == 0 && &x.GetGroup().GetAt(index / g)->data != p)
            return ::testing::AssertionFailure() << "entry " << index / g << " is off its node";
    return ::testing::AssertionSuccess();
}

template <typename Container, typename Check>
void DriveRandomly(Container& c, CursorRules rules, unsigned seed, int count, Check check) {
    RandomSteps steps(seed);
    CursorDriver<Container> driver(c, rules, steps);
    for (int step = 0; step < count; ++step) {
        const std::string op = driver.Step();
        ASSERT_TRUE(Matches(c, driver.m)) << "after step " << step << ": " << op;
        ASSERT_NO_FATAL_FAILURE(check(c)) << "after step " << step << ": " << op;
        ASSERT_FALSE(::testing::Test::HasFailure()) << "after step " << step << ": " << op;
    }
}

}  // namespace

TEST(CursorContainersRandom, DynArrayFollowsTheModel) {
    for (int alloc : {0, 3, 10}) {
        QoDynArray<Tagged> a(0, alloc);
        DriveRandomly(a, CursorRules::Array, 11u + alloc, 4000, CheckNothingElse<QoDynArray<Tagged>>);
    }
}

TEST(CursorContainersRandom, ListsFollowTheModel) {
    QoList<Tagged> single;
    DriveRandomly(single, CursorRules::List, 21u, 3000, CheckNothingElse<QoList<Tagged>>);
    QoDList<Tagged> doubly;
    DriveRandomly(doubly, CursorRules::List, 22u, 4000, CheckNothingElse<QoDList<Tagged>>);
}

TEST(CursorContainersRandom, GroupIndexedListKeepsItsTableAfterEveryStep) {
    for (int g : {2, 3, 25}) {
        QoXList<Tagged> x(0, g);
        DriveRandomly(x, CursorRules::List, 31u + g, 4000,
                      [](const QoXList<Tagged>& l) { ASSERT_TRUE(GroupTableHolds(l)); });
    }
}

namespace {

// Splices between two lists of one kind, mixed with ordinary operations.
template <typename ListType, typename Check>
void SpliceRandomly(unsigned seed, Check check, ListType a, ListType b) {
    RandomSteps steps(seed);
    CursorDriver<ListType> da(a, CursorRules::List, steps), db(b, CursorRules::List, steps);
    for (int step = 0; step < 3000; ++step) {
        const bool forward = steps.Below(2) == 0;
        CursorDriver<ListType>& x = forward ? da : db;
        CursorDriver<ListType>& y = forward ? db : da;
        std::string op;
        switch (steps.Below(8)) {
        case 0: {
            const int pos = steps.Between(-1, y.Len() + 1);
            const int expected = x.Len() + (y.m.Valid(pos) ? y.Len() - pos : 0);
            EXPECT_EQ(x.c.Conbine(y.c, pos), expected);
            if (y.m.Valid(pos)) {
                x.m.v.insert(x.m.v.end(), y.m.v.begin() + pos, y.m.v.end());
                y.m.v.resize(pos);
                y.m.MoveTo(pos - 1);
            }
            op = "Conbine";
            break;
        }
        case 1: {
            const int i = steps.Between(-1, x.Len());
            x.c.SplitAt(i, y.c);
            x.m.MoveTo(i);
            if (x.m.cur >= 0) {
                y.m.v.insert(y.m.v.end(), x.m.v.begin() + x.m.cur, x.m.v.end());
                x.m.v.resize(x.m.cur);
                x.m.MoveTo(x.m.cur - 1);
            }
            op = "SplitAt";
            break;
        }
        case 2:
            x.c.ReverseList();
            std::reverse(x.m.v.begin(), x.m.v.end());
            if (x.m.cur >= 0) x.m.cur = x.Len() - 1 - x.m.cur;
            op = "ReverseList";
            break;
        case 3:
            if (x.Len() > 0) {
                const int from = steps.Below(x.Len()), to = steps.Below(x.Len());
                x.c.Rotate(from, to);
                if (from != to) {
                    std::vector<Tagged> turned(x.m.v.size());
                    for (int k = 0; k < x.Len(); ++k) turned[(k + to - from + x.Len()) % x.Len()] = x.m.v[k];
                    x.m.v = turned;
                    x.m.cur = 0;
                }
            }
            op = "Rotate";
            break;
        default:
            op = x.Step();
            break;
        }
        ASSERT_TRUE(Matches(a, da.m)) << "first list after step " << step << ": " << op;
        ASSERT_TRUE(Matches(b, db.m)) << "second list after step " << step << ": " << op;
        ASSERT_NO_FATAL_FAILURE(check(a));
        ASSERT_NO_FATAL_FAILURE(check(b));
        ASSERT_FALSE(::testing::Test::HasFailure()) << "after step " << step << ": " << op;
    }
}

}  // namespace

TEST(CursorListsRandom, SplicesRotationsAndReversalsFollowTheModel) {
    SpliceRandomly(41u, CheckNothingElse<QoList<Tagged>>, QoList<Tagged>(), QoList<Tagged>());
    SpliceRandomly(42u, CheckNothingElse<QoDList<Tagged>>, QoDList<Tagged>(), QoDList<Tagged>());
    SpliceRandomly(43u, [](const QoXList<Tagged>& l) { ASSERT_TRUE(GroupTableHolds(l)); }, QoXList<Tagged>(0, 3),
                   QoXList<Tagged>(0, 4));
}
