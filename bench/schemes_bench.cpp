// Speed of the return-air schemes. E (one std::exp and one std::log) is the
// unit in which the schemes' costs are compared.

#include "zefra/air/HDGPrimarySupplyPointSearch.h"
#include "zefra/air/HDGSecondaryDewPointSearch.h"
#include "zefra/air/ZefraHDGPrimaryReturnAir.h"
#include "zefra/air/ZefraHDGSecondaryReturnAir.h"

#include <benchmark/benchmark.h>

#include <cmath>

namespace {

void BM_Schemes_E(benchmark::State& state) {
    double x = 1.2345;
    for (auto _ : state) {
        benchmark::DoNotOptimize(x);
        const double e = std::exp(x);
        const double l = std::log(x + 1.0);
        benchmark::DoNotOptimize(e);
        benchmark::DoNotOptimize(l);
        x = x < 3.0 ? x + 1e-7 : 1.2345;
    }
}
BENCHMARK(BM_Schemes_E);

SHDGPrimaryReturnAirInfo PrimaryGiven(int type) {
    SHDGPrimaryReturnAirInfo given;
    given.CalPriRetAirType = static_cast<EHDGPriRetAirType>(type);
    given.SfGdWs = 1.0;
    given.HfGdWs = 0.5;
    if (type >= HDGPRI_DJ_ISENTH_HEAT) {
        given.PointN = ZefraHDGPoint(20.0, 0.45, L"N");
        given.PointW = ZefraHDGPoint(-5.0, 0.7, L"W");
    }
    return given;
}

SHDGSecondaryReturnAirInfo SecondaryGiven(int type) {
    SHDGSecondaryReturnAirInfo given;
    given.CalPriRetAirType = static_cast<EHDGSecRetAirType>(type);
    given.SfGdWs = 1.0;
    given.HfGdWs = 0.5;
    if (type >= HDGSEC_DJ_ISENTH_HEAT) {
        given.PointN = ZefraHDGPoint(20.0, 0.45, L"N");
        given.PointW = ZefraHDGPoint(-5.0, 0.7, L"W");
        given.Gr1 = 0.8;
    }
    return given;
}

void BM_Schemes_PrimaryCalculate(benchmark::State& state) {
    const SHDGPrimaryReturnAirInfo given = PrimaryGiven(static_cast<int>(state.range(0)));
    ZefraHDGPrimaryReturnAir scheme;
    for (auto _ : state) {
        scheme.SetGivenData(given);
        benchmark::DoNotOptimize(scheme.Calculate());
    }
}
BENCHMARK(BM_Schemes_PrimaryCalculate)->DenseRange(0, 5);

void BM_Schemes_SecondaryCalculate(benchmark::State& state) {
    const SHDGSecondaryReturnAirInfo given = SecondaryGiven(static_cast<int>(state.range(0)));
    ZefraHDGSecondaryReturnAir scheme;
    for (auto _ : state) {
        scheme.SetGivenData(given);
        benchmark::DoNotOptimize(scheme.Calculate());
    }
}
BENCHMARK(BM_Schemes_SecondaryCalculate)->DenseRange(0, 4);

// Type 0 of both schemes with the full walk in place of the quick search.
void BM_Schemes_PrimaryCalculateFullWalk(benchmark::State& state) {
    const SHDGPrimaryReturnAirInfo given = PrimaryGiven(HDGPRI_XJ_DEWPOINT);
    ZefraHDGPrimaryReturnAir scheme;
    scheme.SetSearchMode(EHDGSearchMode::FullWalk);
    for (auto _ : state) {
        scheme.SetGivenData(given);
        benchmark::DoNotOptimize(scheme.Calculate());
    }
}
BENCHMARK(BM_Schemes_PrimaryCalculateFullWalk);

void BM_Schemes_SecondaryCalculateFullWalk(benchmark::State& state) {
    const SHDGSecondaryReturnAirInfo given = SecondaryGiven(HDGSEC_XJ);
    ZefraHDGSecondaryReturnAir scheme;
    scheme.SetSearchMode(EHDGSearchMode::FullWalk);
    for (auto _ : state) {
        scheme.SetGivenData(given);
        benchmark::DoNotOptimize(scheme.Calculate());
    }
}
BENCHMARK(BM_Schemes_SecondaryCalculateFullWalk);

// The four report texts that Calculate appends, alone, on a calculated
// scheme: the share of Calculate that is text rather than air.
void BM_Schemes_PrimaryReportTexts(benchmark::State& state) {
    ZefraHDGPrimaryReturnAir scheme;
    scheme.SetGivenData(PrimaryGiven(0));
    scheme.Calculate();
    for (auto _ : state) {
        benchmark::DoNotOptimize(scheme.GetAllPointText());
        benchmark::DoNotOptimize(scheme.GetAllText_G());
        benchmark::DoNotOptimize(scheme.GetAllText_Q());
        benchmark::DoNotOptimize(scheme.GetAllText_Mw());
    }
}
BENCHMARK(BM_Schemes_PrimaryReportTexts);

void BM_Schemes_SecondaryReportTexts(benchmark::State& state) {
    ZefraHDGSecondaryReturnAir scheme;
    scheme.SetGivenData(SecondaryGiven(0));
    scheme.Calculate();
    for (auto _ : state) {
        benchmark::DoNotOptimize(scheme.GetAllPointText());
        benchmark::DoNotOptimize(scheme.GetAllText_G());
        benchmark::DoNotOptimize(scheme.GetAllText_Q());
        benchmark::DoNotOptimize(scheme.GetMwText_Mw());
    }
}
BENCHMARK(BM_Schemes_SecondaryReportTexts);

// The two searches alone, as the schemes run them on their given data, and
// the full walks they replace.
struct PrimarySearchCase {
    ZefraHDGPoint Room{22.0, 0.6, L"N"};
    double Epsilon = 11.6 / 0.0014;
};

void BM_Schemes_PrimarySearch(benchmark::State& state) {
    const PrimarySearchCase c;
    for (auto _ : state) {
        HDGPrimarySupplyPointSearch search(c.Room, c.Epsilon, 0.9, 1.0);
        benchmark::DoNotOptimize(search.Find());
    }
}
BENCHMARK(BM_Schemes_PrimarySearch);

void BM_Schemes_PrimarySearchFullScan(benchmark::State& state) {
    const PrimarySearchCase c;
    for (auto _ : state) {
        HDGPrimarySupplyPointSearch search(c.Room, c.Epsilon, 0.9, 1.0);
        benchmark::DoNotOptimize(search.FindByFullScan());
    }
}
BENCHMARK(BM_Schemes_PrimarySearchFullScan);

struct SecondarySearchCase {
    ZefraHDGPoint ReturnAir{22.5, 0.6, L"N'"};
    ZefraHDGPoint Mix;
    SecondarySearchCase() {
        ZefraHDGSecondaryReturnAir scheme;
        SHDGSecondaryReturnAirInfo given = SecondaryGiven(HDGSEC_XJ);
        scheme.SetGivenData(given);
        scheme.Calculate();
        ReturnAir = scheme.GetPointN1();
        Mix = scheme.GetPointM();
    }
};

void BM_Schemes_SecondarySearch(benchmark::State& state) {
    const SecondarySearchCase c;
    for (auto _ : state) {
        HDGSecondaryDewPointSearch search(c.Mix, c.ReturnAir, 0.9);
        benchmark::DoNotOptimize(search.Find());
    }
}
BENCHMARK(BM_Schemes_SecondarySearch);

void BM_Schemes_SecondarySearchFullScan(benchmark::State& state) {
    const SecondarySearchCase c;
    for (auto _ : state) {
        HDGSecondaryDewPointSearch search(c.Mix, c.ReturnAir, 0.9);
        benchmark::DoNotOptimize(search.FindByFullScan());
    }
}
BENCHMARK(BM_Schemes_SecondarySearchFullScan);

}  // namespace
