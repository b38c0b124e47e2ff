// The chart's files: the format from the file's ending, and the command line.

#include "cli/CliRunner.h"

#include "zefra/chart/HDGChartBuilder.h"
#include "zefra/chart/HDGChartFile.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <string>

using clitest::CliResult;
using clitest::RunCli;

namespace {

const std::string kPng = "\x89PNG\r\n\x1a\n";

std::string Slurp(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

bool Exists(const std::string& path) { return std::ifstream(path).good(); }

// The number in the first attribute `name="..."` after `from` in the text.
double NumberAfter(const std::string& text, size_t from, const std::string& name) {
    const size_t at = text.find(" " + name + "=\"", from);
    return at == std::string::npos ? -1.0 : std::stod(text.substr(at + name.size() + 3));
}

HDGChartScene DefaultScene() {
    HDGChartScene scene;
    std::string error;
    EXPECT_TRUE(HDGChartBuilder::Build(SHvacHDGDrawSet(), 101325.0, SHDGChartLayerNames(), nullptr, scene, error));
    return scene;
}

TEST(ChartFile, TheEndingChoosesTheFormat) {
    EHDGChartFormat format = EHDGChartFormat::Pdf;
    EXPECT_TRUE(HDGChartFile::FormatOf("a/b.svg", format));
    EXPECT_EQ(format, EHDGChartFormat::Svg);
    EXPECT_TRUE(HDGChartFile::FormatOf("chart.PNG", format));
    EXPECT_EQ(format, EHDGChartFormat::Png);
    EXPECT_TRUE(HDGChartFile::FormatOf("x.y.pdf", format));
    EXPECT_EQ(format, EHDGChartFormat::Pdf);
    for (const char* other : {"chart.jpg", "chart", "chart.", "dir.png/chart", "chart.svgz", ".pdf.txt"})
        EXPECT_FALSE(HDGChartFile::FormatOf(other, format)) << other;
}

TEST(ChartFile, WritesEachFormatWithItsSignatureAndRefusesOtherEndings) {
    const HDGChartScene scene = DefaultScene();
    const std::string base = clitest::TempPath();
    std::string error;
    for (const auto& [ending, magic] : {std::pair<std::string, std::string>{".png", kPng}, {".pdf", "%PDF-"},
                                        {".svg", "<?xml"}}) {
        const std::string path = base + ending;
        ASSERT_TRUE(HDGChartFile::Write(scene, path, error)) << error;
        const std::string bytes = clitest::TakeFile(path);
        EXPECT_GT(bytes.size(), 10000u) << ending;
        EXPECT_EQ(bytes.compare(0, magic.size(), magic), 0) << ending;
        EXPECT_FALSE(Exists(path + ".part"));
    }
    EXPECT_FALSE(HDGChartFile::Write(scene, base + ".gif", error));
    EXPECT_NE(error.find("must end in .svg, .png or .pdf"), std::string::npos) << error;
    EXPECT_FALSE(Exists(base + ".gif"));
    EXPECT_FALSE(HDGChartFile::Write(scene, "/no/such/directory/chart.svg", error));
    EXPECT_NE(error.find("cannot write"), std::string::npos) << error;
    std::remove(base.c_str());
}

TEST(ChartFile, SvgPlacesTheSceneOnItsPageInMillimetres) {
    SHDGChartOverlay overlay;
    overlay.points = {{"N", 22.0, 9.9}};
    HDGChartScene scene;
    std::string error;
    ASSERT_TRUE(HDGChartBuilder::Build(SHvacHDGDrawSet(), 84000.0, SHDGChartLayerNames(), &overlay, scene, error));
    std::string svg;
    ASSERT_TRUE(HDGChartFile::Render(scene, EHDGChartFormat::Svg, svg, error));
    const std::string viewBox = "viewBox=\"0 0 ";
    ASSERT_NE(svg.find(viewBox), std::string::npos);
    EXPECT_NEAR(std::stod(svg.substr(svg.find(viewBox) + viewBox.size())), scene.page.Width(), 0.01);
    const size_t points = svg.find("<g id=\"HDG_Point\"");
    ASSERT_NE(points, std::string::npos);
    const size_t circle = svg.find("<circle", points);
    const SHDGChartXY at = HDGChartAxes(SHvacHDGDrawSet(), 84000.0).ToChart(22.0, 9.9);
    EXPECT_NEAR(NumberAfter(svg, circle, "cx"), at.x - scene.page.minX, 0.006);
    EXPECT_NEAR(NumberAfter(svg, circle, "cy"), scene.page.maxY - at.y, 0.006);
}

// ---- Command line -----------------------------------------------------------

TEST(ChartCli, DrawsTheChartInTheFormatOfTheEnding) {
    const std::string base = clitest::TempPath();
    for (const auto& [ending, magic] : {std::pair<std::string, std::string>{".png", kPng}, {".pdf", "%PDF-"}}) {
        const CliResult r = RunCli({"chart", base + ending, "--pressure", "84000"});
        ASSERT_EQ(r.exitCode, 0) << r.err;
        EXPECT_NE(r.out.find("B = 84000 Pa"), std::string::npos) << r.out;
        EXPECT_EQ(clitest::TakeFile(base + ending).compare(0, magic.size(), magic), 0);
    }
    const CliResult json = RunCli({"chart", base + ".svg", "--json"});
    ASSERT_EQ(json.exitCode, 0) << json.err;
    const nlohmann::json out = json.Json();
    EXPECT_EQ(out["format"], "SVG");
    ASSERT_EQ(out["groups"].size(), 6u);  // the chart alone: no process groups
    EXPECT_EQ(out["groups"][1]["id"], "HDG_t");
    EXPECT_EQ(out["groups"][1]["layer"], "暖通-焓湿图-等温线");
    EXPECT_NE(clitest::TakeFile(base + ".svg").find("data-layer=\"暖通-焓湿图-等温线\""), std::string::npos);
    std::remove(base.c_str());
}

TEST(ChartCli, UnknownEndingsAreRefusedBeforeAnythingRuns) {
    const std::string base = clitest::TempPath();
    for (const std::vector<std::string>& args :
         {std::vector<std::string>{"chart", base + ".jpg"}, {"primary", "--chart", base + ".gif"},
          {"secondary", "--json", "--chart", base}}) {
        const CliResult r = RunCli(args);
        EXPECT_EQ(r.exitCode, 2) << r.out;
        EXPECT_TRUE(r.out.empty()) << r.out;
        EXPECT_NE(r.err.find("must end in .svg, .png or .pdf"), std::string::npos) << r.err;
    }
    EXPECT_FALSE(Exists(base + ".jpg"));
    const CliResult r = RunCli({"chart", "/no/such/directory/chart.png"});
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_NE(r.err.find("cannot write"), std::string::npos) << r.err;
    std::remove(base.c_str());
}

TEST(ChartCli, SchemesDrawTheirProcessAndKeepTheirListing) {
    const std::string file = clitest::TempPath() + ".svg";
    const CliResult plain = RunCli({"secondary", "--json"});
    const CliResult r = RunCli({"secondary", "--json", "--chart", file});
    ASSERT_EQ(r.exitCode, 0) << r.err;
    EXPECT_EQ(r.out, plain.out);
    const std::string svg = clitest::TakeFile(file);
    for (const char* id : {"HDG_Point", "HDG_Point_Label", "HDG_Line", "HDG_Hhr"})
        EXPECT_NE(svg.find(std::string("<g id=\"") + id + "\""), std::string::npos) << id;
    // Without a supply-duct rise M and O are one place and share a label.
    for (const char* name : {">N<", ">W<", ">C<", ">L<", ">M,O<"}) EXPECT_NE(svg.find(name), std::string::npos) << name;
    EXPECT_NE(svg.find("二次回风夏季处理过程"), std::string::npos);
}

TEST(ChartCli, LayerNamesFollowTheConfiguration) {
    std::string config = Slurp(ZEFRA_SOURCE_DATA_DIR "/Config.xml");
    const std::string from = ">暖通-焓湿图-等温线<";
    ASSERT_NE(config.find(from), std::string::npos);
    config.replace(config.find(from), from.size(), ">我的等温线<");
    const std::string path = clitest::TempPath() + ".xml";
    std::ofstream(path) << config;
    const std::string file = clitest::TempPath() + ".svg";
    const CliResult r = RunCli({"chart", file, "--config", path, "--json"});
    std::remove(path.c_str());
    ASSERT_EQ(r.exitCode, 0) << r.err;
    EXPECT_EQ(r.Json()["groups"][1]["layer"], "我的等温线");
    EXPECT_EQ(r.Json()["groups"][0]["layer"], "暖通-焓湿图-等含湿量线");
    EXPECT_NE(clitest::TakeFile(file).find("<g id=\"HDG_t\" data-layer=\"我的等温线\""), std::string::npos);
}

}  // namespace
