#include "CliRunner.h"

#include "zefra/air/ZefraHDGPoint.h"
#include "zefra/platform/airlib/Air.h"

#include <gtest/gtest.h>

using clitest::CliResult;
using clitest::RunCli;

namespace {

void ExpectUsageError(const std::vector<std::string>& args, const std::string& fragment) {
    const CliResult r = RunCli(args);
    EXPECT_EQ(r.exitCode, 2) << r.out;
    EXPECT_TRUE(r.out.empty()) << r.out;
    EXPECT_NE(r.err.find(fragment), std::string::npos) << r.err;
    EXPECT_EQ(r.err.rfind("zefra: ", 0), 0u) << r.err;
}

TEST(PointCli, PrintsAllElevenPropertiesAsAnAlignedTable) {
    const CliResult r = RunCli({"point", "--tdb", "22", "--rh", "0.6"});
    ASSERT_EQ(r.exitCode, 0) << r.err;
    EXPECT_EQ(r.out,
              "Atmospheric pressure: 101325 Pa\n"
              "State point (from Tdb and RH)\n"
              "  Dry-bulb temperature        Tdb   22.00 °C\n"
              "  Relative humidity           RH    60.00 %\n"
              "  Enthalpy                    H    47.361 kJ/kg\n"
              "  Moisture content            D     9.896 g/kg\n"
              "  Wet-bulb temperature        Twb   16.83 °C\n"
              "  Dew-point temperature       Tdp   13.89 °C\n"
              "  Vapour pressure             Pv   1586.9 Pa\n"
              "  Density                     Den  1.1889 kg/m³\n"
              "  Specific volume             SV   0.8494 m³/kg\n"
              "  Saturated moisture content  Ds   16.670 g/kg\n"
              "  Saturated vapour pressure   Ps   2644.8 Pa\n");
}

TEST(PointCli, JsonHoldsTheLibrarysValuesForAnyPairAndPressure) {
    const CliResult r = RunCli({"point", "--twb", "18", "--tdp", "12.5", "--pressure", "90000", "--json"});
    ASSERT_EQ(r.exitCode, 0) << r.err;
    const nlohmann::json document = r.Json();
    EXPECT_EQ(document["command"], "point");
    EXPECT_EQ(document["units"]["RH"], "1");
    EXPECT_EQ(document["pressure"], 90000.0);
    const nlohmann::json& json = document["point"];
    const double saved = GetHDGCurB();
    SetHDGCurB(90000.0);
    ZefraHDGPoint expected;
    expected.CalByTwbAndTdp(18.0, 12.5);
    SetHDGCurB(saved);
    EXPECT_EQ(json["pair"], nlohmann::json::array({"Twb", "Tdp"}));
    EXPECT_DOUBLE_EQ(json["Tdb"].get<double>(), expected.GetTdb());
    EXPECT_DOUBLE_EQ(json["H"].get<double>(), expected.GetH());
    EXPECT_DOUBLE_EQ(json["SV"].get<double>(), expected.GetSV());
    EXPECT_NEAR(json["Twb"].get<double>(), 18.0, 1e-9);
}

TEST(PointCli, RefusesBadInputWithExitCodeTwoAndNamesThePairs) {
    const std::string pairs = "supported pairs: --tdb with --rh, --tdb with --h";
    ExpectUsageError({"point", "--h", "45", "--twb", "16"}, "--h with --twb doesn't define a state");
    ExpectUsageError({"point", "--h", "45", "--twb", "16"}, pairs);
    ExpectUsageError({"point", "--tdb", "22"}, "needs exactly two properties, 1 given; " + pairs);
    ExpectUsageError({"point", "--tdb", "22", "--rh", "0.5", "--d", "8"}, "3 given");
    ExpectUsageError({"point"}, "0 given");
    ExpectUsageError({"point", "--tdb", "warm", "--rh", "0.5"}, "--tdb: 'warm' is not a number; " + pairs);
    ExpectUsageError({"point", "--tdb", "22", "--rh", "60"}, "--rh = 60 looks like a percentage");
    ExpectUsageError({"point", "--tdb", "22", "--rh", "-0.1"}, "--rh = -0.1 is outside the allowed range, 0 … 1");
    ExpectUsageError({"point", "--tdb", "22", "--rh", "0.5", "--pressure", "0"}, "--pressure");
    ExpectUsageError({"point", "--tdb", "1e999", "--rh", "0.5"}, "is not a number");
    EXPECT_EQ(RunCli({"point", "--tdb", "22", "--rh", "1"}).exitCode, 0);
    EXPECT_EQ(RunCli({"point", "--tdb", "22", "--rh", "0.5", "--colour"}).exitCode, 2);
}

TEST(ProcessCli, MixUsesFlowsOrARatio) {
    CliResult r = RunCli({"mix", "--json"});
    ASSERT_EQ(r.exitCode, 0) << r.err;
    nlohmann::json json = r.Json();
    EXPECT_EQ(json["ratio"], 3.0);
    EXPECT_EQ(json["points"][2]["name"], "C");
    EXPECT_DOUBLE_EQ(json["points"][2]["H"].get<double>(),
                     (3.0 * json["points"][0]["H"].get<double>() + json["points"][1]["H"].get<double>()) / 4.0);

    r = RunCli({"mix", "--a-tdb", "30", "--a-d", "12", "--b-tdb", "5", "--b-rh", "0.8", "--ratio", "1", "--json"});
    ASSERT_EQ(r.exitCode, 0) << r.err;
    json = r.Json();
    EXPECT_EQ(json["points"][0]["pair"], nlohmann::json::array({"Tdb", "D"}));
    EXPECT_DOUBLE_EQ(json["points"][2]["D"].get<double>(), 0.5 * (12.0 + json["points"][1]["D"].get<double>()));

    r = RunCli({"mix", "--ga", "1", "--gb", "3"});
    ASSERT_EQ(r.exitCode, 0) << r.err;
    EXPECT_NE(r.out.find("Mixing ratio A:B = 0.3333 : 1"), std::string::npos) << r.out;
    EXPECT_NE(r.out.find("Point C (from Tdb and D)"), std::string::npos) << r.out;

    ExpectUsageError({"mix", "--ratio", "2", "--ga", "5"}, "--ratio can't be combined");
    ExpectUsageError({"mix", "--ga", "1", "--gb", "0"}, "--gb must be above 0");
    ExpectUsageError({"mix", "--a-tdb", "30"}, "point A needs exactly two properties");
    ExpectUsageError({"mix", "--b-d", "8", "--b-tdp", "10"}, "point B: --b-d with --b-tdp doesn't define a state");
}

TEST(ProcessCli, LineComputesTheLoadOrTheFlow) {
    CliResult r = RunCli({"line", "--json"});
    ASSERT_EQ(r.exitCode, 0) << r.err;
    nlohmann::json json = r.Json();
    EXPECT_EQ(json["computed"], "Q");
    EXPECT_DOUBLE_EQ(json["Q"].get<double>(), 1.35 * json["dH"].get<double>());

    r = RunCli({"line", "--q", "-20", "--a-tdb", "26", "--a-rh", "0.55", "--b-tdb", "14", "--b-rh", "0.95", "--json"});
    ASSERT_EQ(r.exitCode, 0) << r.err;
    json = r.Json();
    EXPECT_EQ(json["computed"], "G");
    EXPECT_GT(json["G"].get<double>(), 0.0);
    EXPECT_DOUBLE_EQ(json["G"].get<double>(), -20.0 / json["dH"].get<double>());

    r = RunCli({"line", "--g", "2"});
    EXPECT_NE(r.out.find("Heat load Q: 12.6270 kW (computed)"), std::string::npos) << r.out;
    ExpectUsageError({"line", "--g", "1", "--q", "1"}, "not both");
}

TEST(ProcessCli, RatioFromLoadsOrFromPoints) {
    CliResult r = RunCli({"ratio", "--q", "12000", "--mw", "4"});
    ASSERT_EQ(r.exitCode, 0) << r.err;
    EXPECT_NE(r.out.find("Heat-humidity ratio: 3000.00 kJ/kg"), std::string::npos) << r.out;

    r = RunCli({"ratio", "--q", "-5", "--mw", "0", "--json"});
    ASSERT_EQ(r.exitCode, 0) << r.err;
    EXPECT_EQ(r.Json()["value"], nullptr);
    EXPECT_EQ(r.Json()["text"], "-∞");

    r = RunCli({"ratio", "--a-tdb", "20", "--a-d", "8", "--b-tdb", "30", "--b-d", "8", "--json"});
    ASSERT_EQ(r.exitCode, 0) << r.err;
    EXPECT_EQ(r.Json()["from"], "points");
    EXPECT_EQ(r.Json()["value"], nullptr);
    EXPECT_EQ(r.Json()["text"], "+∞");

    ExpectUsageError({"ratio", "--q", "5"}, "--q and --mw go together");
    ExpectUsageError({"ratio", "--q", "5", "--mw", "1", "--a-tdb", "20", "--a-rh", "0.5"}, "not both");
}

}  // namespace
