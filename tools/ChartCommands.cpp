// zefra chart FILE: the enthalpy-humidity chart as the chart settings describe
// it, at the current pressure, as SVG, PNG or PDF. zefra primary|secondary
// --chart FILE draws the scheme's process over it through WriteChart.

#include "Cli.h"
#include "PointIO.h"

#include "zefra/air/HDGCurB.h"
#include "zefra/chart/HDGChartBuilder.h"
#include "zefra/chart/HDGChartFile.h"
#include "zefra/chart/QoHvacHDGSysSetManager.h"
#include "zefra/config/QoDtConfigStore.h"
#include "zefra/config/QoDtDictionary.h"
#include "zefra/config/QoDtTextCodec.h"
#include "zefra/layers/HDGChartLayerNames.h"
#include "zefra/layers/QoHvacDuctLayerManager.h"

#include <nlohmann/json.hpp>

#include <iostream>
#include <memory>
#include <string>

namespace zefra::cli {
namespace {

struct ChartOptions {
    std::string file;
    std::string config;
    PressureArgument pressure;
    bool json = false;
};

const char* FormatName(EHDGChartFormat format) {
    switch (format) {
        case EHDGChartFormat::Svg: return "SVG";
        case EHDGChartFormat::Png: return "PNG";
        case EHDGChartFormat::Pdf: return "PDF";
    }
    return "";
}

// The chart settings and the layer standard come from the file of --config,
// or from Config.xml as the system finds it; without one, the built-in
// settings draw the chart and the layers are named after their keys.
void LoadChartConfig(const std::string& chosen) {
    if (!chosen.empty()) {
        CString message;
        if (!g_dictCfg.LoadFromXML(QoDtTextCodec::FromUtf8(chosen), &message))
            throw UsageError(QoDtTextCodec::ToUtf8(message));
        // Either manager may have read the tree before this load.
        QoHvacHDGSysSetManager::GetInstance()->ReadData();
        QoHvacDuctLayerManager::GetInstance()->ReRead();
        QoHvacDuctLayerManager::GetInstance()->ReReadSysUserComparison();
        return;
    }
    if (QoDtConfigStore::GetLoadState(QoDtConfigStore::eConfig) == QoDtConfigStore::eNotLoaded) LoadConfigData();
    if (QoDtConfigStore::GetLoadState(QoDtConfigStore::eConfig) == QoDtConfigStore::eLoadFailed)
        throw UsageError("Config.xml could not be read");
}

struct ChartMade {
    EHDGChartFormat format = EHDGChartFormat::Svg;
    HDGChartScene scene;
};

ChartMade MakeChart(const std::string& file, const SHDGChartOverlay* overlay) {
    CheckChartFile(file);
    ChartMade made;
    HDGChartFile::FormatOf(file, made.format);
    const SHvacHDGDrawSet drawSet = QoHvacHDGSysSetManager::GetInstance()->GetDrawSet();
    std::string error;
    if (!HDGChartBuilder::Build(drawSet, GetHDGCurB(), HVAC::GetHDGChartLayerNames(), overlay, made.scene, error))
        throw UsageError("cannot draw the chart: " + error);
    for (const std::string& note : made.scene.notes) std::cerr << "zefra: note: " << note << "\n";
    if (!HDGChartFile::Write(made.scene, file, error)) throw UsageError(error);
    return made;
}

void RunChart(const ChartOptions& options) {
    CheckChartFile(options.file);
    options.pressure.Apply();
    LoadChartConfig(options.config);
    const ChartMade made = MakeChart(options.file, nullptr);
    const SHDGChartBox& page = made.scene.page;
    if (options.json) {
        nlohmann::ordered_json groups = nlohmann::ordered_json::array();
        for (const SHDGChartGroup& group : made.scene.groups)
            if (!group.Empty()) groups.push_back({{"id", group.id}, {"layer", group.layer}});
        const nlohmann::ordered_json out = {{"file", options.file},
                                            {"format", FormatName(made.format)},
                                            {"pressure", GetHDGCurB()},
                                            {"width_mm", page.Width()},
                                            {"height_mm", page.Height()},
                                            {"groups", groups}};
        PrintJson(std::cout, "chart", out);
        return;
    }
    std::cout << "chart written to " << options.file << " (" << FormatName(made.format) << ", "
              << static_cast<long long>(page.Width() + 0.5) << " x " << static_cast<long long>(page.Height() + 0.5)
              << " mm, B = " << static_cast<long long>(GetHDGCurB() + 0.5) << " Pa)\n";
}

}  // namespace

void CheckChartFile(const std::string& file) {
    EHDGChartFormat format = EHDGChartFormat::Svg;
    if (!HDGChartFile::FormatOf(file, format))
        throw UsageError(file + ": the chart's file must end in .svg, .png or .pdf");
}

void WriteChart(const std::string& file, const SHDGChartOverlay* overlay) { MakeChart(file, overlay); }

void RegisterChartCommands(CLI::App& app) {
    auto options = std::make_shared<ChartOptions>();
    CLI::App* chart = app.add_subcommand(
        "chart", "draw the enthalpy-humidity chart of the chart settings at the current pressure, as SVG, PNG or PDF");
    chart->add_option("FILE", options->file, "the chart's file; its ending (.svg, .png, .pdf) gives the format")
        ->required();
    options->pressure.Register(*chart);
    chart->add_option("--config", options->config, "use this configuration file instead of searching for Config.xml");
    chart->add_flag("--json", options->json, "print what was written as JSON: format, size, groups and their layers");
    chart->callback([options]() { RunChart(*options); });
}

}  // namespace zefra::cli
