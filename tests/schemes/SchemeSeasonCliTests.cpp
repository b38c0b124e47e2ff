// Both seasons from the tool: the built-in winter designs, engineering and
// literal mode, warnings as data, and JSON output that runs again as input.

#include "cli/CliRunner.h"

#include "zefra/air/ZefraHDGPrimaryReturnAir.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <string>

using clitest::CliResult;
using clitest::RunCli;

namespace {

TEST(SchemeSeasons, BuiltInWinterDesignsAreSoundInEveryType) {
    for (const auto& [scheme, types] : {std::pair<std::string, std::vector<std::string>>{"primary", {"2", "3", "4", "5"}},
                                        {"secondary", {"1", "2", "3", "4"}}}) {
        for (const std::string& type : types) {
            const CliResult r = RunCli({scheme, "--type", type, "--json", "--strict"});
            ASSERT_EQ(r.exitCode, 0) << scheme << " " << type << "\n" << r.err;
            EXPECT_EQ(r.err, "") << scheme << " " << type;
            const auto json = r.Json();
            EXPECT_EQ(json["season"], "winter");
            EXPECT_EQ(json["mode"], "engineering");
            EXPECT_TRUE(json["warnings"].empty()) << json["warnings"];
            for (const auto& text : json["reportTexts"])
                EXPECT_EQ(text.get<std::string>().find("不守恒"), std::string::npos) << scheme << " " << type;
        }
    }
}

TEST(SchemeSeasons, LiteralModeGivesTheSystemsTextsAndWarnsOfItsBalances) {
    // The literal winter treatment of a new object mixes at the summer ratio of 1.0.
    const CliResult literal = RunCli({"primary", "--type", "2", "--literal", "--json"});
    ASSERT_EQ(literal.exitCode, 0) << literal.err;
    const auto json = literal.Json();
    EXPECT_EQ(json["mode"], "literal");
    ASSERT_FALSE(json["warnings"].empty());
    EXPECT_EQ(json["warnings"][0]["code"], "heat-balance");
    EXPECT_EQ(json["warnings"][0]["text"], "冷热负荷不守恒，计算有误。");
    EXPECT_NE(literal.err.find("zefra: warning: the heat loads don't balance"), std::string::npos) << literal.err;

    // The texts are the library's own in its default (literal) mode, byte for byte.
    ZefraHDGPrimaryReturnAir scheme;
    SHDGPrimaryReturnAirInfo info;
    info.CalPriRetAirType = HDGPRI_DJ_ISENTH_HEAT;
    info.PointN = ZefraHDGPoint(20.0, 0.45, L"N");
    info.PointW = ZefraHDGPoint(-10.0, 0.7, L"W");
    info.Qn = 20.0;
    info.Mw = 0.0004;
    info.Go = 1.35;
    info.FreshAirRatio = 0.3;
    info.Gw = 0.3 * 1.35;
    scheme.SetGivenData(info);
    scheme.Calculate();
    ASSERT_EQ(json["reportTexts"].size(), static_cast<size_t>(scheme.GetResultInfo().GetSize()));
    for (int i = 0; i < scheme.GetResultInfo().GetSize(); ++i)
        EXPECT_EQ(json["reportTexts"][i], scheme.GetResultInfo().GetAt(i).ToUtf8());

    EXPECT_EQ(RunCli({"primary", "--type", "2", "--literal", "--strict"}).exitCode, 3);
}

TEST(SchemeSeasons, JsonOutputRunsAgainAsInput) {
    const clitest::TempFile both(R"({"summer": {"FreshAirRatio": 0.2}, "winter": {"Qn": 25, "PointW": {"Tdb": -12, "RH": 0.6}}})");
    for (const std::vector<std::string>& run : std::vector<std::vector<std::string>>{
             {"primary", "--json"},
             {"primary", "--json", "--type", "1"},
             {"secondary", "--json"},
             {"secondary", "--json", "--type", "4"},
             {"primary", "--json", "--input", both.Path()},
             {"secondary", "--json", "--input", both.Path()}}) {
        const CliResult first = RunCli(run);
        ASSERT_EQ(first.exitCode, 0) << first.err;
        const clitest::TempFile output(first.out);
        const CliResult again = RunCli({run[0], "--json", "--input", output.Path()});
        ASSERT_EQ(again.exitCode, 0) << again.err;
        EXPECT_EQ(again.out, first.out) << run[0];
    }
    const auto json = RunCli({"primary", "--json", "--input", both.Path()}).Json();
    EXPECT_EQ(json["summer"]["input"]["FreshAirRatio"], 0.2);
    EXPECT_EQ(json["winter"]["input"]["PointW"], nlohmann::json({{"Tdb", -12}, {"RH", 0.6}}));
    // Winter after summer on one object: the supply flow that summer found.
    EXPECT_EQ(json["winter"]["input"]["Go"], json["summer"]["flows"]["Go"]);
}

TEST(SchemeSeasons, TemplateHoldsEveryFieldAndRunsAsIs) {
    for (const char* scheme : {"primary", "secondary"}) {
        for (const char* type : {"0", "2"}) {
            const CliResult t = RunCli({scheme, "--template", "--type", type});
            ASSERT_EQ(t.exitCode, 0) << t.err;
            const auto fields = t.Json();
            for (const char* field : {"CalPriRetAirType", "PointN", "PointW", "Qn", "Mw", "SfGdWs", "HfGdWs", "ptL_RH",
                                      "FreshAirType", "FreshAirRatio", "Gw", "Go", "SfWc"})
                EXPECT_TRUE(fields.contains(field)) << scheme << " " << field;
            const clitest::TempFile input(t.out);
            const CliResult run = RunCli({scheme, "--input", input.Path(), "--json"});
            EXPECT_EQ(run.exitCode, 0) << run.err;
        }
    }
    const CliResult help = RunCli({"secondary", "--help"});
    for (const char* part : {"Input fields", "Gr1", "kg/s", "ptL_RH", "Exit codes"})
        EXPECT_NE(help.out.find(part), std::string::npos) << part;
}

}  // namespace
