// libFuzzer target: the cursor containers against std models. The first
// byte picks a family, the rest is a stream of operations and their
// arguments. Every operation goes through a reference to the base class, as
// code written against it does; after each one the contents must equal the
// model's. The owning families hold objects that count themselves, so an
// object deleted twice, or never, or held by two containers, stops the run.

#include "zefra/containers/QoDList.h"
#include "zefra/containers/QoDynArray.h"
#include "zefra/containers/QoDynPArray.h"
#include "zefra/containers/QoList.h"
#include "zefra/containers/QoPDList.h"
#include "zefra/containers/QoPXList.h"
#include "zefra/containers/QoXList.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <optional>
#include <set>
#include <vector>

namespace {

void Check(bool condition) {
    if (!condition) std::abort();
}

class Bytes {
public:
    Bytes(const uint8_t* data, size_t size) : m_data(data), m_size(size) {}
    bool Empty() const { return m_pos >= m_size; }
    int Next() { return m_pos < m_size ? m_data[m_pos++] : 0; }
    // 0..n-1; 0 for n below 1.
    int Below(int n) { return n < 1 ? 0 : Next() % n; }

private:
    const uint8_t* m_data;
    size_t m_size;
    size_t m_pos = 0;
};

// ---- plain containers of int --------------------------------------------

using Plain = QoDynArrayBase<int>;

std::unique_ptr<Plain> NewPlain(int kind, int arg) {
    switch (kind % 4) {
        case 0: return std::make_unique<QoDynArray<int>>(0, arg % 4);
        case 1: return std::make_unique<QoList<int>>();
        case 2: return std::make_unique<QoDList<int>>();
        default: return std::make_unique<QoXList<int>>(0, 2 + arg % 5);
    }
}

std::vector<int> Contents(const Plain& c) {
    std::vector<int> v;
    for (const int* p = c.GetFirst(); p != nullptr; p = c.GetNext(p)) v.push_back(*p);
    Check(static_cast<int>(v.size()) == c.GetLength());
    return v;
}

// Slots that a growth or an unkept resize leaves unspecified take the
// container's values.
void TakeOver(const Plain& c, std::vector<int>& m, int from, int to) {
    for (int k = from; k < to; ++k) m[k] = c.GetAt(k);
}

void DrivePlain(Bytes& in, int kind) {
    std::unique_ptr<Plain> owner = NewPlain(kind, in.Next());
    Plain& c = *owner;
    const bool array = kind % 4 == 0;
    std::vector<int> m;
    int steps = 0;
    while (!in.Empty() && ++steps < 400) {
        const int len = static_cast<int>(m.size());
        const int v = in.Below(8);
        switch (in.Below(16)) {
            case 0: Check(c.Append(v) == len); m.push_back(v); break;
            case 1: {
                const int i = in.Below(len + 1);
                c.Insert(i, v);
                m.insert(m.begin() + i, v);
                break;
            }
            case 2:
                if (len > 0) {
                    const int i = in.Below(len);
                    c.Del(i);
                    m.erase(m.begin() + i);
                }
                break;
            case 3:
                if (len > 0) {  // an element of the container itself goes in
                    const int i = in.Below(len), j = in.Below(len + 1);
                    c.Insert(j, c.GetAt(i));
                    m.insert(m.begin() + j, m[i]);
                }
                break;
            case 4:
                if (len > 0) {
                    const int i = in.Below(len), j = in.Below(len + 3);
                    c.Exchange(i, j);
                    if (j >= len) {
                        m.resize(j + 1);
                        TakeOver(c, m, len, j);
                        m[j] = m[i];
                        m[i] = c.GetAt(i);
                    } else {
                        std::swap(m[i], m[j]);
                    }
                }
                break;
            case 5:
                if (len > 0) {
                    const int lo = in.Below(len), hi = lo + in.Below(len - lo);
                    c.Reverse(lo, hi);
                    std::reverse(m.begin() + lo, m.begin() + hi + 1);
                }
                break;
            case 6: {
                const int from = in.Below(len + 1) - 1, to = in.Below(len + 1);
                const bool moves = from >= 0 && from < len && from != to && from != to - 1;
                Check(c.Move(from, to) == moves);
                if (moves) {
                    const int e = m[from];
                    m.erase(m.begin() + from);
                    m.insert(m.begin() + (from < to ? to - 1 : to), e);
                }
                break;
            }
            case 7: {
                const bool ascending = in.Below(2) == 0;
                c.Sort(ascending);
                if (ascending)
                    std::stable_sort(m.begin(), m.end());
                else
                    std::stable_sort(m.begin(), m.end(), [](int a, int b) { return a > b; });
                break;
            }
            case 8: {
                c.Sort(true);
                std::sort(m.begin(), m.end());
                const bool allowEqual = in.Below(2) == 0;
                const bool present = std::binary_search(m.begin(), m.end(), v);
                Check(c.SortInto(v, allowEqual) == (allowEqual || !present));
                if (allowEqual || !present) m.insert(std::upper_bound(m.begin(), m.end(), v), v);
                const int at = c.BFind(v);
                Check(at >= 0 && m[at] == v);
                break;
            }
            case 9: {
                const auto gone = std::count(m.begin(), m.end(), v);
                Check(c.FindDel(v) == gone);
                m.erase(std::remove(m.begin(), m.end(), v), m.end());
                break;
            }
            case 10: {
                const auto at = std::find(m.begin(), m.end(), v);
                Check(c.Find(v) == (at == m.end() ? -1 : static_cast<int>(at - m.begin())));
                break;
            }
            case 11: {
                const int n = in.Below(len + 5);
                const bool keep = in.Below(2) == 0;
                c.SetLength(n, keep);
                const int kept = array && !keep ? 0 : std::min(n, len);
                m.resize(n);
                TakeOver(c, m, kept, n);
                break;
            }
            case 12: {  // copies into a container of another family
                std::unique_ptr<Plain> other = NewPlain(in.Next(), in.Next());
                other->Append(99);
                const int n = in.Below(len + 1);
                switch (in.Below(4)) {
                    case 0: other->DeepCopy(c); Check(Contents(*other) == m); break;
                    case 1:
                        c.Left(n, *other);
                        Check(Contents(*other) == std::vector<int>(m.begin(), m.begin() + n));
                        break;
                    case 2:
                        c.Right(n, *other);
                        Check(Contents(*other) == std::vector<int>(m.end() - n, m.end()));
                        break;
                    default:
                        *other << c;
                        m.insert(m.begin(), 99);
                        Check(Contents(*other) == m);
                        m.erase(m.begin());
                        break;
                }
                break;
            }
            case 13:
                if (len < 64) {
                    c << c;
                    m.insert(m.end(), m.begin(), m.end());
                }
                break;
            case 14:
                if (len > 0) {  // a part of itself
                    const int i = in.Below(len), j = i + in.Below(len - i);
                    c.Mid(i, j, c);
                    m = std::vector<int>(m.begin() + i, m.begin() + j + 1);
                }
                break;
            default:
                if (!array && len > 0) {
                    auto& list = static_cast<QoList<int>&>(c);
                    const int i = in.Below(len);
                    if (in.Below(2) == 0) {
                        const int to = in.Below(len);
                        list.Rotate(i, to);  // element i ends at index `to`
                        std::rotate(m.begin(), m.begin() + (i - to + len) % len, m.end());
                    } else {
                        std::unique_ptr<Plain> outHolder = NewPlain(kind, in.Next());
                        auto& out = static_cast<QoList<int>&>(*outHolder);
                        list.SplitAt(i, out);
                        Check(Contents(out) == std::vector<int>(m.begin() + i, m.end()));
                        Check(Contents(c) == std::vector<int>(m.begin(), m.begin() + i));
                        Check(list.Conbine(out, 0) == len);
                        Check(out.IsEmpty());
                    }
                }
                break;
        }
        Check(Contents(c) == m);
    }
}

// ---- owning containers ----------------------------------------------------

struct Counted {
    static int live;
    int key;
    explicit Counted(int k) : key(k) { ++live; }
    Counted(const Counted& o) : key(o.key) { ++live; }
    Counted& operator=(const Counted&) = default;
    ~Counted() { --live; }
    friend bool operator==(const Counted& a, const Counted& b) { return a.key == b.key; }
    friend bool operator<(const Counted& a, const Counted& b) { return a.key < b.key; }
    friend bool operator>(const Counted& a, const Counted& b) { return a.key > b.key; }
};
int Counted::live = 0;

using Owning = QoDynArrayBase<Counted*>;
using Slot = std::optional<int>;

struct AnyOwning {
    int kind;
    std::unique_ptr<Owning> c;

    AnyOwning(int k, int arg) : kind(k % 3) {
        if (kind == 0)
            c = std::make_unique<QoDynPArray<Counted>>(0, arg % 4);
        else if (kind == 1)
            c = std::make_unique<QoPDList<Counted>>();
        else
            c = std::make_unique<QoPXList<Counted>>(0, 2 + arg % 5);
    }
    template <typename F>
    auto With(F f) {
        if (kind == 0) return f(static_cast<QoDynPArray<Counted>&>(*c));
        if (kind == 1) return f(static_cast<QoPDList<Counted>&>(*c));
        return f(static_cast<QoPXList<Counted>&>(*c));
    }
};

std::vector<Slot> Contents(const Owning& c) {
    std::vector<Slot> v;
    for (Counted* const* p = c.GetFirst(); p != nullptr; p = c.GetNext(p))
        v.push_back(*p ? Slot((*p)->key) : Slot());
    Check(static_cast<int>(v.size()) == c.GetLength());
    return v;
}

// Every live object is held by exactly one slot of these containers.
void CheckSingleOwners(std::initializer_list<const Owning*> containers) {
    std::set<const Counted*> held;
    int slots = 0;
    for (const Owning* c : containers)
        for (Counted* const* p = c->GetFirst(); p != nullptr; p = c->GetNext(p))
            if (*p != nullptr) {
                held.insert(*p);
                ++slots;
            }
    Check(static_cast<int>(held.size()) == slots && slots == Counted::live);
}

void DriveOwning(Bytes& in, int kind) {
    AnyOwning holder(kind, in.Next());
    Owning& c = *holder.c;
    const bool array = holder.kind == 0;
    std::vector<Slot> m;
    int steps = 0;
    while (!in.Empty() && ++steps < 300) {
        const int len = static_cast<int>(m.size());
        const int v = in.Below(8);
        switch (in.Below(12)) {
            case 0:
                if (in.Below(4) == 0) {
                    c.Append(nullptr);
                    m.push_back(Slot());
                } else {
                    c.Append(new Counted(v));
                    m.push_back(v);
                }
                break;
            case 1: {
                const int i = in.Below(len + 1);
                c.Insert(i, new Counted(v));
                m.insert(m.begin() + i, Slot(v));
                break;
            }
            case 2:
                if (len > 0) {
                    const int i = in.Below(len);
                    c.Del(i);
                    m.erase(m.begin() + i);
                }
                break;
            case 3:
                if (len > 0) {
                    const int i = in.Below(len);
                    const bool release = in.Below(2) == 0;
                    holder.With([&](auto& o) {
                        if (release) {
                            o.Release(i);
                        } else {
                            Counted* taken = o.TakeOff(i);
                            Check((taken != nullptr) == m[i].has_value());
                            delete taken;
                        }
                        return 0;
                    });
                    if (release || array)
                        m[i].reset();
                    else
                        m.erase(m.begin() + i);
                }
                break;
            case 4: {
                const int at = holder.With([&](auto& o) { return o.PlaceIn(new Counted(v)); });
                const auto empty = std::find(m.begin(), m.end(), Slot());
                Check(at == static_cast<int>(empty - m.begin()));
                if (empty == m.end()) m.emplace_back();
                m[at] = v;
                break;
            }
            case 5: {
                const int from = in.Below(len + 1) - 1, to = in.Below(len + 1);
                const bool moves = from >= 0 && from < len && from != to && from != to - 1;
                Check(c.Move(from, to) == moves);
                if (moves) {
                    const Slot e = m[from];
                    m.erase(m.begin() + from);
                    m.insert(m.begin() + (from < to ? to - 1 : to), e);
                }
                break;
            }
            case 6: {
                const bool ascending = in.Below(2) == 0;
                holder.With([&](auto& o) {
                    if constexpr (std::is_same_v<std::decay_t<decltype(o)>, QoDynPArray<Counted>>)
                        o.SortEx(ascending);
                    else
                        o.Sort(ascending);
                    return 0;
                });
                std::stable_sort(m.begin(), m.end(), [ascending](const Slot& a, const Slot& b) {
                    if (!a) return false;
                    if (!b) return true;
                    return ascending ? *a < *b : *a > *b;
                });
                break;
            }
            case 7: {
                const auto gone = std::count(m.begin(), m.end(), Slot(v));
                Check(holder.With([&](auto& o) { return o.FindDataDel(Counted(v)); }) == gone);
                m.erase(std::remove(m.begin(), m.end(), Slot(v)), m.end());
                break;
            }
            case 8: {
                const int n = in.Below(len + 5);
                const bool keep = in.Below(2) == 0;
                c.SetLength(n, keep);
                if (array && !keep) m.clear();
                m.resize(n);
                break;
            }
            case 9:
                if (len > 0) {
                    const int i = in.Below(len), j = in.Below(len + 3);
                    if (in.Below(2) == 0) {
                        c.Exchange(i, j);
                        if (j >= len) m.resize(j + 1);
                        std::swap(m[i], m[j]);
                    } else {
                        const int hi = i + in.Below(len - i);
                        c.Reverse(i, hi);
                        std::reverse(m.begin() + i, m.begin() + hi + 1);
                    }
                }
                break;
            case 10: {  // the copies of the base, into another owning family
                AnyOwning other(in.Next(), in.Next());
                Owning& o = *other.c;
                o.Append(new Counted(99));
                o.Append(nullptr);
                const int n = in.Below(len + 1);
                std::vector<Slot> want;
                switch (in.Below(6)) {
                    case 0: o.DeepCopy(c); want = m; break;
                    case 1: c.Left(n, o); want.assign(m.begin(), m.begin() + n); break;
                    case 2: c.Right(n, o); want.assign(m.end() - n, m.end()); break;
                    case 3:
                        o << c;
                        want = {Slot(99), Slot()};
                        want.insert(want.end(), m.begin(), m.end());
                        break;
                    case 4:
                        if (len > 0) {
                            const Slot first = m[0];
                            o.SetAll(c.GetAt(0));
                            want.assign(2, first);
                        } else {
                            want = {Slot(99), Slot()};
                        }
                        break;
                    default:
                        c.Mid(0, len - 1, c);  // a container cut to all of itself
                        o.DeepCopy(o);
                        want = {Slot(99), Slot()};
                        break;
                }
                Check(Contents(o) == want);
                CheckSingleOwners({&c, &o});
                break;
            }
            default:
                if (in.Below(8) == 0) {
                    c.Reset();
                    m.clear();
                }
                break;
        }
        Check(Contents(c) == m);
        CheckSingleOwners({&c});
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    Bytes in(data, size);
    const int family = in.Next();
    if (family % 2 == 0)
        DrivePlain(in, family / 2);
    else
        DriveOwning(in, family / 2);
    Check(Counted::live == 0);
    return 0;
}
