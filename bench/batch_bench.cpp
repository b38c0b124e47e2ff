// Speed of the batch state points, per point in batches of 4,096, to be read
// against BM_Air_E of the same run. The states spread over the chart's usual
// range, -10 … 40 °C at 20 … 95 %, so that the tables' pieces vary.

#include "zefra/air/HDGCurB.h"
#include "zefra/air/HDGPointBatch.h"
#include "zefra/air/ZefraHDGPoint.h"

#include <benchmark/benchmark.h>

#include <random>
#include <vector>

namespace {

constexpr int kBatch = 4096;

struct Inputs {
    std::vector<double> values[11];
    std::vector<double> pressures;
};

const Inputs& MakeInputs() {
    static const Inputs inputs = [] {
        Inputs in;
        std::mt19937_64 random(11);
        std::uniform_real_distribution<double> tdb(-10.0, 40.0);
        std::uniform_real_distribution<double> rh(0.2, 0.95);
        // A weather station's pressures in whole hectopascals.
        std::uniform_int_distribution<int> pressure(990, 1020);
        for (auto& column : in.values) column.resize(kBatch);
        ZefraHDGPoint point;
        for (int k = 0; k < kBatch; ++k) {
            point.CalByTdbAndRH(tdb(random), rh(random));
            for (int kind = 0; kind < 11; ++kind)
                in.values[kind][static_cast<size_t>(k)] =
                    point.GetCalParaValue(static_cast<EHvacHDGPointCalItemType>(kind));
            in.pressures.push_back(100.0 * pressure(random));
        }
        return in;
    }();
    return inputs;
}

struct Outputs {
    std::vector<double> values[11];
    SHDGPointColumns columns;

    Outputs() {
        for (int kind = 0; kind < 11; ++kind) {
            values[kind].resize(kBatch);
            columns.Values[kind] = values[kind].data();
        }
    }
};

void RunBatch(benchmark::State& bench, EHvacHDGPointCalItemType kind1, EHvacHDGPointCalItemType kind2,
              bool perElementPressure) {
    const Inputs& in = MakeInputs();
    Outputs out;
    for (auto _ : bench) {
        HDGPointBatch::Calculate(kind1, in.values[kind1].data(), kind2, in.values[kind2].data(), kBatch,
                                 out.columns, perElementPressure ? in.pressures.data() : nullptr);
        benchmark::DoNotOptimize(out.values[HDGPT_TWB].data());
        benchmark::ClobberMemory();
    }
    bench.SetItemsProcessed(static_cast<int64_t>(bench.iterations()) * kBatch);
}

#define ZEFRA_BATCH_BENCH(NAME, K1, K2)                                                   \
    void BM_Batch_##NAME(benchmark::State& bench) { RunBatch(bench, K1, K2, false); }     \
    BENCHMARK(BM_Batch_##NAME)

ZEFRA_BATCH_BENCH(TdbAndRH, HDGPT_TDB, HDGPT_RH);
ZEFRA_BATCH_BENCH(TdbAndH, HDGPT_TDB, HDGPT_H);
ZEFRA_BATCH_BENCH(TdbAndD, HDGPT_TDB, HDGPT_D);
ZEFRA_BATCH_BENCH(TdbAndTwb, HDGPT_TDB, HDGPT_TWB);
ZEFRA_BATCH_BENCH(TdbAndTdp, HDGPT_TDB, HDGPT_TDP);
ZEFRA_BATCH_BENCH(TdbAndPv, HDGPT_TDB, HDGPT_PV);
ZEFRA_BATCH_BENCH(RHAndH, HDGPT_RH, HDGPT_H);
ZEFRA_BATCH_BENCH(RHAndD, HDGPT_RH, HDGPT_D);
ZEFRA_BATCH_BENCH(RHAndTwb, HDGPT_RH, HDGPT_TWB);
ZEFRA_BATCH_BENCH(RHAndTdp, HDGPT_RH, HDGPT_TDP);
ZEFRA_BATCH_BENCH(RHAndPv, HDGPT_RH, HDGPT_PV);
ZEFRA_BATCH_BENCH(HAndD, HDGPT_H, HDGPT_D);
ZEFRA_BATCH_BENCH(HAndTdp, HDGPT_H, HDGPT_TDP);
ZEFRA_BATCH_BENCH(HAndPv, HDGPT_H, HDGPT_PV);
ZEFRA_BATCH_BENCH(DAndTwb, HDGPT_D, HDGPT_TWB);
ZEFRA_BATCH_BENCH(TwbAndTdp, HDGPT_TWB, HDGPT_TDP);
ZEFRA_BATCH_BENCH(TwbAndPv, HDGPT_TWB, HDGPT_PV);

// A pressure per element, 31 pressures in no order: the elements are taken
// a pressure at a time, and each pressure's wet-bulb curve is built once per
// batch.
void BM_Batch_TdbAndRH_PressureEach(benchmark::State& bench) { RunBatch(bench, HDGPT_TDB, HDGPT_RH, true); }
BENCHMARK(BM_Batch_TdbAndRH_PressureEach);

// The same states one at a time, for comparison.
void BM_Batch_OneAtATime_TdbAndRH(benchmark::State& bench) {
    const Inputs& in = MakeInputs();
    ZefraHDGPoint point;
    for (auto _ : bench) {
        for (int k = 0; k < kBatch; ++k) {
            point.CalByTdbAndRH(in.values[HDGPT_TDB][static_cast<size_t>(k)], in.values[HDGPT_RH][static_cast<size_t>(k)]);
            benchmark::DoNotOptimize(point);
        }
    }
    bench.SetItemsProcessed(static_cast<int64_t>(bench.iterations()) * kBatch);
}
BENCHMARK(BM_Batch_OneAtATime_TdbAndRH);

}  // namespace

namespace {

// (RH, H) along one relative humidity, as a sweep gives it: after the first
// thousand calls the curve's pieces answer instead of the exact solve.
void BM_Batch_RHAndH_OneRH(benchmark::State& bench) {
    const Inputs& in = MakeInputs();
    const std::vector<double> rh(kBatch, 0.55);
    Outputs out;
    for (auto _ : bench) {
        HDGPointBatch::Calculate(HDGPT_RH, rh.data(), HDGPT_H, in.values[HDGPT_H].data(), kBatch, out.columns);
        benchmark::DoNotOptimize(out.values[HDGPT_TWB].data());
        benchmark::ClobberMemory();
    }
    bench.SetItemsProcessed(static_cast<int64_t>(bench.iterations()) * kBatch);
}
BENCHMARK(BM_Batch_RHAndH_OneRH);

}  // namespace
