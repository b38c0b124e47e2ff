// Speed of the cursor containers against the standard library.

#include "zefra/containers/QoDList.h"
#include "zefra/containers/QoDynArray.h"
#include "zefra/containers/QoList.h"
#include "zefra/containers/QoXList.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <list>
#include <random>
#include <vector>

namespace {

constexpr int kCount = 100000;

std::vector<double> RandomValues(int n, unsigned seed = 1) {
    std::mt19937 rng(seed);
    std::uniform_real_distribution<double> value(0.0, 1000.0);
    std::vector<double> v(static_cast<size_t>(n));
    for (double& x : v) x = value(rng);
    return v;
}

template <typename C>
void Fill(C& c, int n) {
    for (int i = 0; i < n; ++i) c.Append(i);
}

// --- Appending ---------------------------------------------------------------

void BM_Cont_AppendVector(benchmark::State& state) {
    for (auto _ : state) {
        std::vector<double> v;
        for (int i = 0; i < kCount; ++i) v.push_back(i);
        benchmark::DoNotOptimize(v.data());
    }
}
BENCHMARK(BM_Cont_AppendVector);

void BM_Cont_AppendVectorReserved(benchmark::State& state) {
    for (auto _ : state) {
        std::vector<double> v;
        v.reserve(kCount);
        for (int i = 0; i < kCount; ++i) v.push_back(i);
        benchmark::DoNotOptimize(v.data());
    }
}
BENCHMARK(BM_Cont_AppendVectorReserved);

// Growth by a fixed unit: a copy of the whole array every `unit` appends.
void BM_Cont_AppendDynArrayByUnit(benchmark::State& state) {
    const int unit = static_cast<int>(state.range(0));
    for (auto _ : state) {
        QoDynArray<double> a(0, unit);
        Fill(a, kCount);
        benchmark::DoNotOptimize(a.GetFirst());
    }
}
BENCHMARK(BM_Cont_AppendDynArrayByUnit)->Arg(10)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);

void BM_Cont_AppendDynArrayReserved(benchmark::State& state) {
    for (auto _ : state) {
        QoDynArray<double> a(kCount);
        Fill(a, kCount);
        benchmark::DoNotOptimize(a.GetFirst());
    }
}
BENCHMARK(BM_Cont_AppendDynArrayReserved);

void BM_Cont_AppendStdList(benchmark::State& state) {
    for (auto _ : state) {
        std::list<double> l;
        for (int i = 0; i < kCount; ++i) l.push_back(i);
        benchmark::DoNotOptimize(&l.back());
    }
}
BENCHMARK(BM_Cont_AppendStdList);

void BM_Cont_AppendDList(benchmark::State& state) {
    for (auto _ : state) {
        QoDList<double> l;
        Fill(l, kCount);
        benchmark::DoNotOptimize(l.GetLast());
    }
}
BENCHMARK(BM_Cont_AppendDList);

void BM_Cont_AppendList(benchmark::State& state) {
    for (auto _ : state) {
        QoList<double> l;
        Fill(l, kCount);
        benchmark::DoNotOptimize(l.GetLast());
    }
}
BENCHMARK(BM_Cont_AppendList);

// --- Walking with the cursor -----------------------------------------------

void BM_Cont_WalkVector(benchmark::State& state) {
    const std::vector<double> v = RandomValues(kCount);
    for (auto _ : state) {
        double sum = 0;
        for (double x : v) sum += x;
        benchmark::DoNotOptimize(sum);
    }
}
BENCHMARK(BM_Cont_WalkVector);

template <typename C>
double WalkSum(C& c) {
    double sum = 0;
    for (c.MoveToFirst(); !c.IsOut(); c.MoveToNext()) sum += c.GetCurData();
    return sum;
}

void BM_Cont_WalkDynArray(benchmark::State& state) {
    QoDynArray<double> a;
    for (double x : RandomValues(kCount)) a.Append(x);
    for (auto _ : state) benchmark::DoNotOptimize(WalkSum(a));
}
BENCHMARK(BM_Cont_WalkDynArray);

// The same walk through the base interface, where every step is a virtual call.
void BM_Cont_WalkDynArrayThroughBase(benchmark::State& state) {
    QoDynArray<double> a;
    for (double x : RandomValues(kCount)) a.Append(x);
    QoDynArrayBase<double>& base = a;
    benchmark::DoNotOptimize(&base);
    for (auto _ : state) benchmark::DoNotOptimize(WalkSum(base));
}
BENCHMARK(BM_Cont_WalkDynArrayThroughBase);

void BM_Cont_WalkStdList(benchmark::State& state) {
    const std::vector<double> v = RandomValues(kCount);
    const std::list<double> l(v.begin(), v.end());
    for (auto _ : state) {
        double sum = 0;
        for (double x : l) sum += x;
        benchmark::DoNotOptimize(sum);
    }
}
BENCHMARK(BM_Cont_WalkStdList);

void BM_Cont_WalkDList(benchmark::State& state) {
    QoDList<double> l;
    for (double x : RandomValues(kCount)) l.Append(x);
    for (auto _ : state) benchmark::DoNotOptimize(WalkSum(l));
}
BENCHMARK(BM_Cont_WalkDList);

// --- Deleting every tenth element while walking ------------------------------

void BM_Cont_DeleteWalkingVector(benchmark::State& state) {
    for (auto _ : state) {
        state.PauseTiming();
        std::vector<double> v(kCount);
        for (int i = 0; i < kCount; ++i) v[i] = i;
        state.ResumeTiming();
        for (auto it = v.begin(); it != v.end();)
            it = static_cast<int>(*it) % 10 == 0 ? v.erase(it) : it + 1;
        benchmark::DoNotOptimize(v.data());
    }
}
BENCHMARK(BM_Cont_DeleteWalkingVector)->Unit(benchmark::kMillisecond);

void BM_Cont_DeleteWalkingDynArray(benchmark::State& state) {
    for (auto _ : state) {
        state.PauseTiming();
        QoDynArray<double> a(kCount);
        Fill(a, kCount);
        state.ResumeTiming();
        for (a.MoveToFirst(); !a.IsOut(); a.MoveToNext())
            if (static_cast<int>(a.GetCurData()) % 10 == 0) a.DelCur();
        benchmark::DoNotOptimize(a.GetFirst());
    }
}
BENCHMARK(BM_Cont_DeleteWalkingDynArray)->Unit(benchmark::kMillisecond);

void BM_Cont_DeleteWalkingStdList(benchmark::State& state) {
    for (auto _ : state) {
        state.PauseTiming();
        std::list<double> l;
        for (int i = 0; i < kCount; ++i) l.push_back(i);
        state.ResumeTiming();
        for (auto it = l.begin(); it != l.end();)
            it = static_cast<int>(*it) % 10 == 0 ? l.erase(it) : std::next(it);
        benchmark::DoNotOptimize(&l.back());
    }
}
BENCHMARK(BM_Cont_DeleteWalkingStdList)->Unit(benchmark::kMillisecond);

void BM_Cont_DeleteWalkingDList(benchmark::State& state) {
    for (auto _ : state) {
        state.PauseTiming();
        QoDList<double> l;
        Fill(l, kCount);
        state.ResumeTiming();
        for (l.MoveToFirst(); !l.IsOut(); l.MoveToNext())
            if (static_cast<int>(l.GetCurData()) % 10 == 0) l.DelCur();
        benchmark::DoNotOptimize(l.GetLast());
    }
}
BENCHMARK(BM_Cont_DeleteWalkingDList)->Unit(benchmark::kMillisecond);

// --- Searching ---------------------------------------------------------------

void BM_Cont_FindVector(benchmark::State& state) {
    const std::vector<double> v = RandomValues(kCount);
    for (auto _ : state) benchmark::DoNotOptimize(std::find(v.begin(), v.end(), -1.0));
}
BENCHMARK(BM_Cont_FindVector);

void BM_Cont_FindDynArray(benchmark::State& state) {
    QoDynArray<double> a;
    for (double x : RandomValues(kCount)) a.Append(x);
    for (auto _ : state) benchmark::DoNotOptimize(a.Find(-1.0));
}
BENCHMARK(BM_Cont_FindDynArray);

void BM_Cont_FindStdList(benchmark::State& state) {
    const std::vector<double> v = RandomValues(kCount);
    const std::list<double> l(v.begin(), v.end());
    for (auto _ : state) benchmark::DoNotOptimize(std::find(l.begin(), l.end(), -1.0));
}
BENCHMARK(BM_Cont_FindStdList);

void BM_Cont_FindDList(benchmark::State& state) {
    QoDList<double> l;
    for (double x : RandomValues(kCount)) l.Append(x);
    for (auto _ : state) benchmark::DoNotOptimize(l.Find(-1.0));
}
BENCHMARK(BM_Cont_FindDList);

// 1000 lookups of present values in 10^5 sorted elements.
void BM_Cont_BFindLowerBound(benchmark::State& state) {
    std::vector<double> v = RandomValues(kCount);
    std::sort(v.begin(), v.end());
    const std::vector<double> probes = RandomValues(1000, 2);
    for (auto _ : state)
        for (double p : probes) benchmark::DoNotOptimize(std::lower_bound(v.begin(), v.end(), v[int(p) * 100]));
}
BENCHMARK(BM_Cont_BFindLowerBound);

void BM_Cont_BFindDynArray(benchmark::State& state) {
    std::vector<double> v = RandomValues(kCount);
    std::sort(v.begin(), v.end());
    QoDynArray<double> a;
    for (double x : v) a.Append(x);
    const std::vector<double> probes = RandomValues(1000, 2);
    for (auto _ : state)
        for (double p : probes) benchmark::DoNotOptimize(a.BFind(v[int(p) * 100]));
}
BENCHMARK(BM_Cont_BFindDynArray);

// --- Sorting -----------------------------------------------------------------

void BM_Cont_SortStableSort(benchmark::State& state) {
    const std::vector<double> input = RandomValues(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        std::vector<double> v = input;
        std::stable_sort(v.begin(), v.end());
        benchmark::DoNotOptimize(v.data());
    }
}
BENCHMARK(BM_Cont_SortStableSort)->Arg(10000)->Arg(kCount);

void BM_Cont_SortDynArray(benchmark::State& state) {
    const std::vector<double> input = RandomValues(static_cast<int>(state.range(0)));
    QoDynArray<double> source;
    for (double x : input) source.Append(x);
    for (auto _ : state) {
        QoDynArray<double> a(source);
        a.Sort(true);
        benchmark::DoNotOptimize(a.GetFirst());
    }
}
BENCHMARK(BM_Cont_SortDynArray)->Arg(10000)->Arg(kCount);

void BM_Cont_SortStdList(benchmark::State& state) {
    const std::vector<double> input = RandomValues(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        std::list<double> l(input.begin(), input.end());
        l.sort();
        benchmark::DoNotOptimize(&l.front());
    }
}
BENCHMARK(BM_Cont_SortStdList)->Arg(1000)->Arg(10000);

// Lists keep their insertion sort: quadratic.
void BM_Cont_SortDList(benchmark::State& state) {
    const std::vector<double> input = RandomValues(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        QoDList<double> l;
        for (double x : input) l.Append(x);
        l.Sort(true);
        benchmark::DoNotOptimize(l.GetFirst());
    }
}
BENCHMARK(BM_Cont_SortDList)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);

// --- Moving the cursor to random indexes -------------------------------------

template <typename ListType>
void MoveToRandomIndexes(benchmark::State& state) {
    const int n = static_cast<int>(state.range(0));
    ListType l;
    Fill(l, n);
    std::mt19937 rng(3);
    std::vector<int> targets(1024);
    for (int& t : targets) t = std::uniform_int_distribution<int>(0, n - 1)(rng);
    size_t k = 0;
    for (auto _ : state) {
        l.MoveTo(targets[k++ & 1023]);
        benchmark::DoNotOptimize(l.GetCurData());
    }
}

void BM_Cont_MoveToXList(benchmark::State& state) { MoveToRandomIndexes<QoXList<double>>(state); }
BENCHMARK(BM_Cont_MoveToXList)->Arg(1000)->Arg(10000)->Arg(100000)->Arg(1000000);

void BM_Cont_MoveToDList(benchmark::State& state) { MoveToRandomIndexes<QoDList<double>>(state); }
BENCHMARK(BM_Cont_MoveToDList)->Arg(1000)->Arg(10000)->Arg(100000)->Arg(1000000);

}  // namespace

// --- Copying -------------------------------------------------------------------
// Every copy goes element by element through the copy hook of the base, so
// that the owning containers can copy their pointees.

void BM_Cont_CopyVector(benchmark::State& state) {
    const std::vector<double> source = RandomValues(kCount);
    for (auto _ : state) {
        std::vector<double> copy(source);
        benchmark::DoNotOptimize(copy.data());
    }
}
BENCHMARK(BM_Cont_CopyVector);

void BM_Cont_CopyDynArray(benchmark::State& state) {
    QoDynArray<double> source(kCount);
    Fill(source, kCount);
    for (auto _ : state) {
        QoDynArray<double> copy(source);
        benchmark::DoNotOptimize(copy.GetFirst());
    }
}
BENCHMARK(BM_Cont_CopyDynArray);

void BM_Cont_CopyStdList(benchmark::State& state) {
    std::list<double> source;
    for (int i = 0; i < kCount; ++i) source.push_back(i);
    for (auto _ : state) {
        std::list<double> copy(source);
        benchmark::DoNotOptimize(&copy.front());
    }
}
BENCHMARK(BM_Cont_CopyStdList);

void BM_Cont_CopyDList(benchmark::State& state) {
    QoDList<double> source;
    Fill(source, kCount);
    for (auto _ : state) {
        QoDList<double> copy(source);
        benchmark::DoNotOptimize(copy.GetFirst());
    }
}
BENCHMARK(BM_Cont_CopyDList);
