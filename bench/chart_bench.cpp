// Speed of drawing the enthalpy-humidity chart: the layout of the default
// chart with a process of 100 points, and its SVG and PNG.

#include "zefra/chart/HDGChartBuilder.h"
#include "zefra/chart/HDGChartFile.h"
#include "zefra/platform/airlib/Air.h"

#include <benchmark/benchmark.h>

#include <cmath>
#include <string>

namespace {

// 100 states wandering over the usual range of rooms and outdoor air, each
// joined to the next.
SHDGChartOverlay HundredPoints() {
    SHDGChartOverlay overlay;
    overlay.title = "100 个状态点";
    for (int i = 0; i < 100; ++i) {
        const double t = 20.0 + 15.0 * std::sin(0.37 * i);
        const double rh = 0.55 + 0.35 * std::cos(0.23 * i);
        overlay.points.push_back({"P" + std::to_string(i + 1), t, AIR::GetD(t, rh, 101325.0)});
        if (i) overlay.segments.push_back({i - 1, i, i % 10 == 0 ? "混合" : ""});
    }
    overlay.ratioLine = {true, 0, 1, 8000.0};
    return overlay;
}

HDGChartScene Scene(const SHDGChartOverlay* overlay) {
    HDGChartScene scene;
    std::string error;
    HDGChartBuilder::Build(SHvacHDGDrawSet(), 101325.0, SHDGChartLayerNames(), overlay, scene, error);
    return scene;
}

void BM_Chart_LayoutNoProcess(benchmark::State& state) {
    for (auto _ : state) benchmark::DoNotOptimize(Scene(nullptr).groups.data());
}
BENCHMARK(BM_Chart_LayoutNoProcess)->Unit(benchmark::kMillisecond);

void BM_Chart_Layout100Points(benchmark::State& state) {
    const SHDGChartOverlay overlay = HundredPoints();
    for (auto _ : state) benchmark::DoNotOptimize(Scene(&overlay).groups.data());
}
BENCHMARK(BM_Chart_Layout100Points)->Unit(benchmark::kMillisecond);

// Layout and file bytes together, as `zefra primary --chart` makes them.
void Render(benchmark::State& state, EHDGChartFormat format) {
    const SHDGChartOverlay overlay = HundredPoints();
    std::string bytes, error;
    for (auto _ : state) {
        const HDGChartScene scene = Scene(&overlay);
        HDGChartFile::Render(scene, format, bytes, error);
        benchmark::DoNotOptimize(bytes.data());
    }
    state.counters["bytes"] = static_cast<double>(bytes.size());
}

void BM_Chart_Svg100Points(benchmark::State& state) { Render(state, EHDGChartFormat::Svg); }
BENCHMARK(BM_Chart_Svg100Points)->Unit(benchmark::kMillisecond);

void BM_Chart_Png100Points(benchmark::State& state) { Render(state, EHDGChartFormat::Png); }
BENCHMARK(BM_Chart_Png100Points)->Unit(benchmark::kMillisecond);

void BM_Chart_Pdf100Points(benchmark::State& state) { Render(state, EHDGChartFormat::Pdf); }
BENCHMARK(BM_Chart_Pdf100Points)->Unit(benchmark::kMillisecond);

}  // namespace
