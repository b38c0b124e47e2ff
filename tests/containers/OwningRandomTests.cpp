// Random operation sequences on the owning containers against a model of
// optional elements. Under the sanitizer build a pointee freed twice, or
// never, fails the run.

#include "ContainerTestKit.h"

#include "zefra/containers/QoDynPArray.h"
#include "zefra/containers/QoPDList.h"
#include "zefra/containers/QoPXList.h"

#include <set>
#include <string>

template class QoDynPArray<Tagged>;
template class QoPDList<Tagged>;
template class QoPXList<Tagged>;

namespace {

using Slot = std::optional<Tagged>;

bool HasEmpty(const CursorModel<Slot>& m) {
    return std::any_of(m.v.begin(), m.v.end(), [](const Slot& s) { return !s.has_value(); });
}

bool SlotBefore(const Slot& a, const Slot& b, bool ascending) {
    if (!a) return false;
    if (!b) return true;
    return ascending ? a->key < b->key : a->key > b->key;
}

// The plain container of pointers under each owning one.
template <typename Owning>
struct StorageOf;
template <>
struct StorageOf<QoDynPArray<Tagged>> {
    using type = QoDynArray<Tagged*>;
};
template <>
struct StorageOf<QoPDList<Tagged>> {
    using type = QoDList<Tagged*>;
};
template <>
struct StorageOf<QoPXList<Tagged>> {
    using type = QoXList<Tagged*>;
};

// No object is held by both containers.
::testing::AssertionResult ShareNoObject(const QoDynArrayBase<Tagged*>& a, const QoDynArrayBase<Tagged*>& b) {
    std::set<const Tagged*> held;
    for (Tagged* const* p = a.GetFirst(); p != nullptr; p = a.GetNext(p))
        if (*p != nullptr) held.insert(*p);
    for (Tagged* const* p = b.GetFirst(); p != nullptr; p = b.GetNext(p))
        if (*p != nullptr && held.count(*p) != 0) return ::testing::AssertionFailure() << "an object has two owners";
    return ::testing::AssertionSuccess();
}

template <typename Owning>
struct OwningDriver {
    static constexpr bool kArray = std::is_same_v<Owning, QoDynPArray<Tagged>>;

    Owning& c;
    CursorModel<Slot> m{kArray ? CursorRules::Array : CursorRules::List};
    RandomSteps steps;

    OwningDriver(Owning& container, unsigned seed) : c(container), steps(seed) {}
    int Len() const { return m.Length(); }
    void BothMoveTo(int i) {
        c.MoveTo(i);
        m.MoveTo(i);
    }
    Tagged* Fresh(Tagged& d) {
        d = steps.Next();
        return new Tagged(d);
    }
    // Orders the model as the container's sort does: empty slots go last.
    void SortModel(bool ascending) {
        std::stable_sort(m.v.begin(), m.v.end(),
                         [ascending](const Slot& a, const Slot& b) { return SlotBefore(a, b, ascending); });
    }
    std::string Step();
};

template <typename Owning>
std::string OwningDriver<Owning>::Step() {
    Tagged d;
    int op = steps.Below(21);
    if (op >= 18) op = 0;  // lean towards growth
    switch (op) {
    case 0:
    case 1:
        if (steps.Below(5) == 0) {
            EXPECT_EQ(c.Append(nullptr), m.Append(Slot()));
        } else {
            Tagged* p = Fresh(d);
            EXPECT_EQ(c.Append(p), m.Append(d));
        }
        return "Append";
    case 2: {
        const int i = steps.Below(Len() + 1);
        Tagged* p = Fresh(d);
        c.Insert(i, p);
        m.Insert(i, d);
        return "Insert";
    }
    case 3: {
        Tagged* p = Fresh(d);
        const auto empty = std::find(m.v.begin(), m.v.end(), Slot());
        const int at = static_cast<int>(empty - m.v.begin());
        EXPECT_EQ(c.PlaceIn(p), at);
        if (empty == m.v.end()) m.v.emplace_back();
        m.v[at] = d;
        m.cur = at;
        return "PlaceIn";
    }
    case 4:
        if (Len() > 0) {
            BothMoveTo(steps.Below(Len()));
            c.DelCur();
            m.DelCur();
        }
        return "DelCur";
    case 5:
        if (Len() > 0) {
            const int i = steps.Below(Len());
            c.Release(i);
            m.MoveTo(i);
            m.v[i].reset();
        }
        return "Release";
    case 6: {
        const int i = steps.Between(-1, Len() - 1);
        Tagged* taken = c.TakeOff(i);
        m.MoveTo(i);
        if (!m.Valid(m.cur)) {
            EXPECT_EQ(taken, nullptr);
        } else {
            EXPECT_EQ(taken != nullptr, m.v[i].has_value());
            if (taken != nullptr) {
                EXPECT_TRUE(SameTagged(*taken, *m.v[i]));
            }
            if (kArray)
                m.v[i].reset();
            else
                m.DelCur();
        }
        delete taken;
        return "TakeOff";
    }
    case 7: {
        const int from = steps.Between(-1, Len()), to = steps.Between(0, Len());
        const bool moves = m.Valid(from) && from != to && from != to - 1;
        EXPECT_EQ(c.Move(from, to), moves);
        if (moves) {
            const Slot e = m.v[from];
            m.v.erase(m.v.begin() + from);
            m.cur = from < to ? to - 1 : to;
            m.v.insert(m.v.begin() + m.cur, e);
        }
        return "Move";
    }
    case 8: {
        const bool ascending = steps.Below(2) == 0;
        if constexpr (kArray) {
            c.SortEx(ascending);
        } else {
            c.Sort(ascending);
            if (Len() >= 2) m.cur = HasEmpty(m) ? Len() - 1 : -1;
        }
        SortModel(ascending);
        return "Sort";
    }
    case 9:
        if (!HasEmpty(m)) {
            c.Sort(CompareKeys);
            SortModel(true);
            if (!kArray && Len() >= 2) m.cur = -1;
            Tagged* p = Fresh(d);
            const bool allowEqual = steps.Below(2) == 0;
            const bool present = std::find(m.v.begin(), m.v.end(), Slot(d)) != m.v.end();
            const bool taken = c.SortInto(p, allowEqual);
            EXPECT_EQ(taken, allowEqual || !present);
            if (taken) {
                const auto at = std::upper_bound(m.v.begin(), m.v.end(), Slot(d),
                                                 [](const Slot& a, const Slot& b) { return SlotBefore(a, b, true); });
                m.cur = static_cast<int>(at - m.v.begin());
                m.v.insert(at, d);
            } else {
                delete p;
                m.cur = c.GetCur();
            }
        }
        return "SortInto";
    case 10: {
        d = steps.Next();
        const auto gone = std::count(m.v.begin(), m.v.end(), Slot(d));
        EXPECT_EQ(c.FindDataDel(d), gone);
        m.v.erase(std::remove(m.v.begin(), m.v.end(), Slot(d)), m.v.end());
        m.cur = m.OutAfterWalk();
        return "FindDataDel";
    }
    case 11: {
        const int n = std::max(0, Len() + steps.Between(-4, 4));
        const bool keep = steps.Below(2) == 0;
        c.SetLength(n, keep);
        if (kArray && !keep) m.v.clear();
        if (!kArray && n < Len()) m.cur = n - 1;
        m.v.resize(n);
        return "SetLength";
    }
    case 12: {
        Owning copy(c);
        CursorModel<Slot> copied = m;
        copied.cur = copied.OutAfterWalk();
        EXPECT_TRUE(Matches(copy, copied));
        EXPECT_TRUE(copy == c);
        Owning other;
        other.Append(new Tagged{99, 0});
        other = c;
        EXPECT_TRUE(other == c);
        for (int k = 0; k < copy.GetLength(); ++k)
            if (!copy.IsEmptyData(k)) copy.GetAt(k)->key += 100;  // the original must not see this
        return "copy";
    }
    case 16: {
        // The copies of the base, called through base references, into an
        // owning container that already holds objects of its own.
        Owning other;
        other.Append(new Tagged{98, 0});
        other.Append(nullptr);
        QoDynArrayBase<Tagged*>& base = other;
        auto same = [this](const Owning& o, int first, int count) {
            CursorModel<Slot> part{m.rules};
            part.v.assign(m.v.begin() + first, m.v.begin() + first + count);
            part.cur = o.GetCur();
            return Matches(o, part);
        };
        const int n = steps.Below(Len() + 1);
        const int i = steps.Below(Len() + 1);
        const int j = i + steps.Below(Len() - i + 1) - 1;
        switch (steps.Below(6)) {
        case 0: base.DeepCopy(c); EXPECT_TRUE(same(other, 0, Len())); break;
        case 1: c.Left(n, base); EXPECT_TRUE(same(other, 0, n)); break;
        case 2: c.Right(n, base); EXPECT_TRUE(same(other, Len() - n, n)); break;
        case 3: c.Mid(i, j, base); EXPECT_TRUE(same(other, i, j - i + 1)); break;
        case 4:
            base << c;
            EXPECT_EQ(other.GetLength(), Len() + 2);
            break;
        default:
            static_cast<typename StorageOf<Owning>::type&>(other) = c;
            EXPECT_TRUE(same(other, 0, Len()));
            break;
        }
        EXPECT_TRUE(ShareNoObject(c, other));
        return "copy through the base";
    }
    case 13: {
        d = steps.Next();
        const auto first = std::find(m.v.begin(), m.v.end(), Slot(d));
        const int at = first == m.v.end() ? -1 : static_cast<int>(first - m.v.begin());
        EXPECT_EQ(c.FindData(d), at);
        QoQuene<int> hits;
        const auto all = std::count(m.v.begin(), m.v.end(), Slot(d));
        EXPECT_EQ(c.FindData(d, hits), kArray ? all : (at >= 0 ? 1 : 0));
        EXPECT_EQ(c.GetDataNum(), std::count_if(m.v.begin(), m.v.end(), [](const Slot& s) { return s.has_value(); }));
        return "FindData";
    }
    case 14:
        if (Len() > 0 && steps.Below(4) != 0) {
            int j = steps.Below(Len());
            Tagged* const held = c.GetAt(j);
            if (held == nullptr) j = static_cast<int>(std::find(m.v.begin(), m.v.end(), Slot()) - m.v.begin());
            EXPECT_EQ(c.FindDel(held), 1);  // the first slot holding that very pointer goes
            m.MoveTo(j);
            m.DelCur();
        } else {
            Tagged foreign;
            EXPECT_EQ(c.FindDel(&foreign), 0);
            m.cur = m.OutAfterWalk();
        }
        return "FindDel";
    case 15:
        if (steps.Below(6) == 0) {
            c.Reset();
            m.v.clear();
            m.cur = -1;
        }
        return "Reset";
    default:
        BothMoveTo(steps.Between(-1, Len()));
        return "MoveTo";
    }
}

template <typename Owning>
void DriveOwning(Owning& c, unsigned seed) {
    OwningDriver<Owning> driver(c, seed);
    for (int step = 0; step < 3000; ++step) {
        const std::string op = driver.Step();
        ASSERT_TRUE(Matches(c, driver.m)) << "after step " << step << ": " << op;
        ASSERT_FALSE(::testing::Test::HasFailure()) << "after step " << step << ": " << op;
    }
}

}  // namespace

TEST(OwningContainersRandom, OwningArrayFollowsTheModel) {
    QoDynPArray<Tagged> a(0, 4);
    DriveOwning(a, 51u);
}

TEST(OwningContainersRandom, OwningListsFollowTheModel) {
    QoPDList<Tagged> plain;
    DriveOwning(plain, 61u);
    QoPXList<Tagged> indexed(0, 3);
    DriveOwning(indexed, 62u);
}
