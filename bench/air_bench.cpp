// Speed of the moist-air services, measured against E: the time of one
// std::exp plus one std::log on varying inputs. Each benchmark cycles over a
// small set of states near a typical one, so that no result can be reused.

#include "zefra/air/ZefraHDGPoint.h"
#include "zefra/platform/airlib/Air.h"

#include <benchmark/benchmark.h>

#include <array>
#include <cmath>

namespace {

constexpr int kStates = 64;

struct State {
    double tdb, rh, B;
    double D, H, Twb, Tdp, Den;
};

// Arg 0: indoor, 22–26 °C at 50–60 %. Arg 1: outdoor winter, about −10 °C at
// 80 %. Arg 2: outdoor summer, about 35 °C at 60 %.
std::array<State, kStates> MakeStates(int kind) {
    std::array<State, kStates> states{};
    for (int i = 0; i < kStates; ++i) {
        const double u = (i % 8) / 7.0;
        const double v = (i / 8) / 7.0;
        State s{};
        switch (kind) {
            case 0: s.tdb = 22.0 + 4.0 * u; s.rh = 0.5 + 0.1 * v; break;
            case 1: s.tdb = -10.5 + u; s.rh = 0.75 + 0.1 * v; break;
            default: s.tdb = 34.5 + u; s.rh = 0.55 + 0.1 * v; break;
        }
        s.B = 101325.0;
        s.D = AIR::GetD(s.tdb, s.rh, s.B);
        s.H = AIR::GetH(s.tdb, s.D);
        s.Twb = AIR::GetTwb(s.H, s.rh, s.B);
        s.Tdp = AIR::GetTdp(s.D, s.B);
        s.Den = AIR::GetDen(s.tdb, s.rh, s.B);
        states[static_cast<size_t>(i)] = s;
    }
    return states;
}

void StateArgs(benchmark::internal::Benchmark* b) { b->ArgName("state")->Arg(0)->Arg(1)->Arg(2); }

template <typename Body>
void RunOverStates(benchmark::State& bench, Body body) {
    const auto states = MakeStates(static_cast<int>(bench.range(0)));
    size_t i = 0;
    for (auto _ : bench) {
        body(states[i]);
        i = (i + 1) % kStates;
    }
}

std::array<double, kStates> VaryingInputs() {
    std::array<double, kStates> x{};
    for (int i = 0; i < kStates; ++i) x[static_cast<size_t>(i)] = 0.5 + 0.037 * i;
    return x;
}

// E: one std::exp and one std::log on varying inputs.
void BM_Air_E(benchmark::State& bench) {
    const auto x = VaryingInputs();
    size_t i = 0;
    for (auto _ : bench) {
        const double e = std::exp(x[i]);
        const double l = std::log(x[i] + 1.0);
        benchmark::DoNotOptimize(e);
        benchmark::DoNotOptimize(l);
        i = (i + 1) % kStates;
    }
}
BENCHMARK(BM_Air_E);

// The log of the exp's result: the log waits for the exp, as each step of
// the solvers waits for the one before. Consecutive iterations still overlap.
void BM_Air_E_Chained(benchmark::State& bench) {
    const auto x = VaryingInputs();
    size_t i = 0;
    for (auto _ : bench) {
        const double l = std::log(std::exp(x[i]) + 1.0);
        benchmark::DoNotOptimize(l);
        i = (i + 1) % kStates;
    }
}
BENCHMARK(BM_Air_E_Chained);

void BM_Air_CalByTdbAndRH(benchmark::State& bench) {
    ZefraHDGPoint point;
    RunOverStates(bench, [&](const State& s) {
        point.CalByTdbAndRH(s.tdb, s.rh);
        benchmark::DoNotOptimize(point);
    });
}
BENCHMARK(BM_Air_CalByTdbAndRH)->Apply(StateArgs);

void BM_Air_CalByTdbAndTwb(benchmark::State& bench) {
    ZefraHDGPoint point;
    RunOverStates(bench, [&](const State& s) {
        point.CalByTdbAndTwb(s.tdb, s.Twb);
        benchmark::DoNotOptimize(point);
    });
}
BENCHMARK(BM_Air_CalByTdbAndTwb)->Apply(StateArgs);

void BM_Air_CalByRHAndD(benchmark::State& bench) {
    ZefraHDGPoint point;
    RunOverStates(bench, [&](const State& s) {
        point.CalByRHAndD(s.rh, s.D);
        benchmark::DoNotOptimize(point);
    });
}
BENCHMARK(BM_Air_CalByRHAndD)->Apply(StateArgs);

void BM_Air_CalByHAndD(benchmark::State& bench) {
    ZefraHDGPoint point;
    RunOverStates(bench, [&](const State& s) {
        point.CalByHAndD(s.H, s.D);
        benchmark::DoNotOptimize(point);
    });
}
BENCHMARK(BM_Air_CalByHAndD)->Apply(StateArgs);

void BM_Air_GetPs(benchmark::State& bench) {
    RunOverStates(bench, [](const State& s) { benchmark::DoNotOptimize(AIR::GetPs(s.tdb)); });
}
BENCHMARK(BM_Air_GetPs)->Apply(StateArgs);

// The many-at-once forms over a walk of 256 steps, per argument: a walk
// across the chart's temperatures, and dew points of a falling moisture content.
void BM_Air_GetPsMany(benchmark::State& bench) {
    double t[256], ps[256];
    for (int k = 0; k < 256; ++k) t[k] = 5.0 + 0.002 * k;
    for (auto _ : bench) {
        AIR::GetPsMany(t, ps, 256);
        benchmark::DoNotOptimize(ps);
    }
    bench.SetItemsProcessed(bench.iterations() * 256);
}
BENCHMARK(BM_Air_GetPsMany);

void BM_Air_GetTdbByDAndRHMany(benchmark::State& bench) {
    double d[256], t[256];
    for (int k = 0; k < 256; ++k) d[k] = 9.9 - 0.002 * k;
    for (auto _ : bench) {
        AIR::GetTdbByDAndRHMany(d, 0.9, 101325.0, t, 256);
        benchmark::DoNotOptimize(t);
    }
    bench.SetItemsProcessed(bench.iterations() * 256);
}
BENCHMARK(BM_Air_GetTdbByDAndRHMany);

void BM_Air_GetTdp(benchmark::State& bench) {
    RunOverStates(bench, [](const State& s) { benchmark::DoNotOptimize(AIR::GetTdp(s.D, s.B)); });
}
BENCHMARK(BM_Air_GetTdp)->Apply(StateArgs);

void BM_Air_GetTwb(benchmark::State& bench) {
    RunOverStates(bench, [](const State& s) { benchmark::DoNotOptimize(AIR::GetTwb(s.H, s.rh, s.B)); });
}
BENCHMARK(BM_Air_GetTwb)->Apply(StateArgs);

void BM_Air_GetTdbByDAndRH(benchmark::State& bench) {
    RunOverStates(bench, [](const State& s) { benchmark::DoNotOptimize(AIR::GetTdbByDAndRH(s.D, s.rh, s.B)); });
}
BENCHMARK(BM_Air_GetTdbByDAndRH)->Apply(StateArgs);

void BM_Air_GetTdbByHAndRH(benchmark::State& bench) {
    RunOverStates(bench, [](const State& s) { benchmark::DoNotOptimize(AIR::GetTdbByHAndRH(s.H, s.rh, s.B)); });
}
BENCHMARK(BM_Air_GetTdbByHAndRH)->Apply(StateArgs);

void BM_Air_GetPvByTdbAndDen(benchmark::State& bench) {
    RunOverStates(bench, [](const State& s) { benchmark::DoNotOptimize(AIR::GetPvByTdbAndDen(s.tdb, s.Den, s.B)); });
}
BENCHMARK(BM_Air_GetPvByTdbAndDen)->Apply(StateArgs);

}  // namespace
