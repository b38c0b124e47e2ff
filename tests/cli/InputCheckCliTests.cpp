// The tool's refusals, command family by command family: exit code 2 and a
// message naming the fault, never a crash, a hang or an impossible state.

#include "CliRunner.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

#include <cmath>
#include <cstdio>
#include <fstream>
#include <string>
#include <vector>

using clitest::CliResult;
using clitest::RunCli;

namespace {

struct Refusal {
    std::vector<std::string> args;
    const char* fragment;
};

void ExpectRefusals(const std::vector<Refusal>& refusals) {
    for (const Refusal& r : refusals) {
        const CliResult result = RunCli(r.args);
        std::string line;
        for (const std::string& arg : r.args) line += arg + " ";
        EXPECT_EQ(result.exitCode, 2) << line << "\n" << result.err;
        EXPECT_TRUE(result.out.empty()) << line;
        EXPECT_NE(result.err.find(r.fragment), std::string::npos) << line << "\n" << result.err;
    }
}

TEST(InputCheckCli, PointRefusesImpossibleStatesAndSlipsOfUnits) {
    ExpectRefusals({
        {{"point", "--tdb", "22", "--rh", "0.6", "--pressure", "101.325"}, "101.325 looks like kPa"},
        {{"point", "--tdb", "22", "--rh", "0.6", "--pressure", "1013.25"}, "looks like hPa"},
        {{"point", "--tdb", "20", "--tdp", "25"}, "--tdp = 25 °C is above --tdb = 20 °C"},
        {{"point", "--tdb", "20", "--twb", "25"}, "the wet bulb can't exceed the dry bulb"},
        {{"point", "--tdb", "20", "--d", "20"}, "saturated air holds D = 14.6964 g/kg"},
        {{"point", "--tdb", "20", "--h", "10"}, "is negative"},
        {{"point", "--tdb", "22", "--rh", "55"}, "--rh = 55 looks like a percentage"},
        {{"point", "--tdb", "295.15", "--rh", "0.5"}, "looks like kelvin"},
        {{"point", "--h", "47361", "--d", "9.9"}, "47361 J/kg is 47.361 kJ/kg"},
        {{"point", "--tdb", "20", "--pv", "200000"}, "--pv = 200000 Pa is outside"},
        {{"point", "--tdb", "90", "--rh", "0.5", "--pressure", "60000"}, "boiling point"},
        {{"mix", "--a-tdb", "40", "--a-rh", "1", "--b-tdb", "-20", "--b-rh", "1"}, "the mixed point C"},
        {{"line", "--b-tdb", "22", "--b-rh", "0.6", "--q", "10"}, "same enthalpy"},
        {{"line", "--g", "1e308"}, "--g = 1e308 kg/s is outside the allowed range"},
        {{"line", "--q", "-1e9"}, "--q = -1e9 kW is outside"},
    });
}

TEST(InputCheckCli, SchemesRefuseGivenDataFieldByField) {
    const std::pair<const char*, const char*> inputs[] = {
        {R"({"PointN": {"Tdb": 26, "RH": 55}})", "PointN.RH = 55 looks like a percentage"},
        {R"({"ptL_RH": 90})", "ptL_RH = 90 looks like a percentage"},
        {R"({"FreshAirRatio": 5})", "FreshAirRatio = 5 looks like a percentage"},
        {R"({"FreshAirRatio": -1})", "FreshAirRatio = -1 is outside"},
        {R"({"Mw": 1.4})", "1.4 g/s is 0.0014 kg/s"},
        {R"({"SfWc": 1e9, "CalPriRetAirType": 1})", "SfWc = 1e+09 K is outside"},
        {R"({"Qn": 1e400})", "not valid JSON"},
        {R"({"FreshAirType": 1, "Gw": 5})", "Gn = "},
    };
    for (const auto& [text, fragment] : inputs) {
        const clitest::TempFile input(text);
        ExpectRefusals({{{"primary", "--input", input.Path()}, fragment}});
    }
    const clitest::TempFile flows(R"({"Gr1": 2})");
    // The built-in summer states under a literal winter treatment: W' in fog.
    const clitest::TempFile summerStates(R"({"PointN": {"Tdb": 22, "RH": 0.6}, "PointW": {"Tdb": 33.2, "Twb": 26.4},
                                    "Qn": 11.6, "Mw": 0.0014})");
    ExpectRefusals({{{"secondary", "--type", "1", "--input", flows.Path()}, "together exceed the supply air"},
                    {{"secondary", "--pressure", "101.325"}, "looks like kPa"},
                    {{"primary", "--type", "2", "--literal", "--input", summerStates.Path()},
                     "point W': the state lies above saturation"}});
}

TEST(InputCheckCli, FilesThatCantBeReadAreRefusedNotCrashedOn) {
    const CliResult saved = RunCli({"primary", "--save", "/tmp/zefra_check_record.xml"});
    ASSERT_EQ(saved.exitCode, 0) << saved.err;
    std::ifstream in("/tmp/zefra_check_record.xml");
    const std::string record((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    std::remove("/tmp/zefra_check_record.xml");
    const std::string typeKey = "<int name=\"计算类型\">0</int>";
    ASSERT_NE(record.find(typeKey), std::string::npos);
    for (const char* type : {"99", "-1", "6"}) {
        std::string edited = record;
        edited.replace(edited.find(typeKey), typeKey.size(), "<int name=\"计算类型\">" + std::string(type) + "</int>");
        const clitest::TempFile file(edited);
        ExpectRefusals({{{"primary", "--load", file.Path()},
                         ("CalPriRetAirType = " + std::string(type) + " is outside").c_str()}});
    }

    const std::string directory = clitest::TempPath();
    std::remove(directory.c_str());
    ASSERT_EQ(::mkdir(directory.c_str(), 0700), 0);
    const std::string fifo = directory + "/fifo";
    ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
    ExpectRefusals({
        {{"primary", "--input", directory}, "is a directory"},
        {{"secondary", "--load", directory}, "is a directory"},
        {{"primary", "--input", fifo}, "is a FIFO"},
        {{"primary", "--load", fifo}, "is a FIFO"},
        {{"label", "--list", "0", "--duct", fifo}, "is a FIFO"},
        {{"label", "--list", "0", "--duct", directory}, "is a directory"},
        {{"primary", "--input", directory + "/missing.json"}, "cannot read"},
    });
    std::remove(fifo.c_str());
    ::rmdir(directory.c_str());
}

// A smaller sweep than the library's, through the tool: every pair with
// values from the ordinary to the absurd gives a refusal or a possible state.
TEST(InputCheckCli, SweepOfPairsPrintsNoImpossibleState) {
    const char* const pairs[][2] = {{"tdb", "rh"}, {"tdb", "h"},  {"tdb", "d"},  {"tdb", "twb"}, {"tdb", "tdp"},
                                    {"tdb", "pv"}, {"rh", "h"},   {"rh", "d"},   {"rh", "twb"},  {"rh", "tdp"},
                                    {"rh", "pv"},  {"h", "d"},    {"h", "tdp"},  {"h", "pv"},    {"d", "twb"},
                                    {"twb", "tdp"}, {"twb", "pv"}};
    const std::pair<const char*, const char*> values[] = {{"20", "0.5"}, {"-80", "30"}, {"99", "3000"},
                                                          {"1e300", "nan"}};
    int printed = 0;
    for (const auto& pair : pairs) {
        for (const auto& [a, b] : values) {
            const CliResult r = RunCli({"point", std::string("--") + pair[0], a, std::string("--") + pair[1], b,
                                        "--json"});
            ASSERT_TRUE(r.exitCode == 0 || r.exitCode == 2) << pair[0] << pair[1] << a << b << r.err;
            if (r.exitCode != 0) continue;
            ++printed;
            const auto json = r.Json().at("point");
            const double rh = json.at("RH").get<double>();
            const double tdb = json.at("Tdb").get<double>();
            EXPECT_TRUE(rh >= 0.0 && rh <= 1.0 + 1e-9) << r.out;
            EXPECT_LE(json.at("Tdp").get<double>(), tdb + 1e-6) << r.out;
            EXPECT_LE(json.at("Twb").get<double>(), tdb + 1e-6) << r.out;
            EXPECT_GE(json.at("D").get<double>(), 0.0) << r.out;
        }
    }
    EXPECT_GT(printed, 10);
}

}  // namespace
