// The scheme commands of the zefra tool, run as a user runs them.

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <sys/wait.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <unistd.h>

namespace {

struct RunResult {
    int exitCode;
    std::string output;  // stdout and stderr together
};

RunResult RunCli(const std::string& arguments) {
    const std::string command = std::string(ZEFRA_CLI_PATH) + " " + arguments + " 2>&1";
    FILE* pipe = popen(command.c_str(), "r");
    if (!pipe) return {-1, ""};
    std::string output;
    std::array<char, 4096> buffer{};
    size_t read = 0;
    while ((read = fread(buffer.data(), 1, buffer.size(), pipe)) > 0) output.append(buffer.data(), read);
    const int status = pclose(pipe);
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, output};
}

// An input file that lives as long as the test.
class InputFile {
public:
    explicit InputFile(const std::string& content) {
        static int counter = 0;
        m_path = std::filesystem::temp_directory_path() /
                 ("zefra_scheme_" + std::to_string(getpid()) + "_" + std::to_string(counter++) + ".json");
        std::ofstream(m_path) << content;
    }
    ~InputFile() { std::filesystem::remove(m_path); }
    std::string Path() const { return m_path.string(); }

private:
    std::filesystem::path m_path;
};

double Value(const nlohmann::json& group, const char* symbol) { return group.at(symbol).get<double>(); }

void ExpectRefused(const std::string& arguments, const std::string& expected) {
    const RunResult run = RunCli(arguments);
    EXPECT_EQ(run.exitCode, 2) << arguments << "\n" << run.output;
    EXPECT_NE(run.output.find(expected), std::string::npos) << arguments << "\n" << run.output;
}

}  // namespace

TEST(SchemeCli, PrimaryDefaultsPrintEveryPointFlowAndLoad) {
    const RunResult run = RunCli("primary");
    ASSERT_EQ(run.exitCode, 0) << run.output;
    for (const char* part : {"Tdb/°C", "RH/%", "\nW'", "\nK ", "Go", "kg/s", "Qp", "kW", "Mwp"})
        EXPECT_NE(run.output.find(part), std::string::npos) << part;
}

TEST(SchemeCli, JsonInputOfADesignGivesBalancedResults) {
    const InputFile input(R"({"PointN": {"Tdb": 26, "RH": 0.55}, "PointW": {"Tdb": 35, "Twb": 28},
                              "Qn": 48, "Mw": 0.0052, "SfGdWs": 1.2, "HfGdWs": 0.8, "FreshAirRatio": 0.2})");
    for (const char* type : {"0", "1"}) {
        const RunResult run = RunCli("primary --json --type " + std::string(type) + " --input " + input.Path());
        ASSERT_EQ(run.exitCode, 0) << run.output;
        const auto result = nlohmann::json::parse(run.output);
        EXPECT_EQ(result.at("points").size(), 8u);
        EXPECT_EQ(result.at("points").at(0).at("name"), "N");
        EXPECT_NEAR(result.at("points").at(0).at("Tdb").get<double>(), 26.0, 1e-9);
        EXPECT_NEAR(result.at("points").at(0).at("RH").get<double>(), 0.55, 1e-12);
        const auto& loads = result.at("loads");
        EXPECT_NEAR(Value(loads, "Qp"),
                    Value(loads, "Qn") + Value(loads, "Qw") + Value(loads, "Qr") + Value(loads, "Qo") + Value(loads, "Qk"),
                    1e-9);
    }
    const InputFile winter(R"({"PointN": {"Tdb": 20, "RH": 0.5}, "PointW": {"Tdb": -12, "RH": 0.8}, "Qn": 20,
                               "Mw": 0.001, "Go": 1.35, "Gr1": 0.5, "FreshAirRatio": 0.3})");
    const RunResult secondary = RunCli("secondary --json --type 3 --pressure 90000 --input " + winter.Path());
    ASSERT_EQ(secondary.exitCode, 0) << secondary.output;
    const auto result = nlohmann::json::parse(secondary.output);
    EXPECT_EQ(result.at("points").size(), 9u);
    EXPECT_EQ(result.at("pressure").get<double>(), 90000.0);
    const auto& loads = result.at("loads");
    EXPECT_NEAR(Value(loads, "Qp") + Value(loads, "Qw1"),
                Value(loads, "Qn") + Value(loads, "Qw") + Value(loads, "Qr") + Value(loads, "Qo"), 1e-9);
}

TEST(SchemeCli, FullWalkPrintsTheSameScheme) {
    for (const char* scheme : {"primary", "secondary"}) {
        const RunResult quick = RunCli(std::string(scheme) + " --json");
        const RunResult full = RunCli(std::string(scheme) + " --json --full-walk");
        ASSERT_EQ(full.exitCode, 0) << full.output;
        EXPECT_EQ(quick.output, full.output) << scheme;
    }
}

TEST(SchemeCli, BadInputNamesTheFieldAndTheReason) {
    const InputFile malformed(R"({"Qn": 12,)");
    ExpectRefused("primary --input " + malformed.Path(), "not valid JSON");
    const InputFile unknown(R"({"Qx": 12})");
    ExpectRefused("primary --input " + unknown.Path(), "unknown field \"Qx\"");
    const InputFile wrongType(R"({"Qn": "large"})");
    ExpectRefused("primary --input " + wrongType.Path(), "field \"Qn\": expected a number, got string");
    const InputFile badPoint(R"({"PointN": {"Tdb": 26, "Humidity": 0.5}})");
    ExpectRefused("secondary --input " + badPoint.Path(), "field \"PointN\": unknown property \"Humidity\"");
    const InputFile threeProperties(R"({"PointW": {"Tdb": 26, "RH": 0.5, "H": 50}})");
    ExpectRefused("primary --input " + threeProperties.Path(), "field \"PointW\": expected an object with two");
    const InputFile dependentPair(R"({"PointW": {"H": 50, "Twb": 20}})");
    ExpectRefused("primary --input " + dependentPair.Path(), "doesn't define a state");
    const InputFile typeInFile(R"({"CalPriRetAirType": 5})");
    ExpectRefused("secondary --input " + typeInFile.Path(), "type 5 is outside 0..4");
    const InputFile notAnInteger(R"({"FreshAirType": 0.5})");
    ExpectRefused("secondary --input " + notAnInteger.Path(), "field \"FreshAirType\": expected an integer");
    ExpectRefused("primary --type 6", "--type: type 6 is outside 0..5");
    ExpectRefused("primary --type -1", "--type: type -1 is outside 0..5");
    ExpectRefused("primary --pressure -3", "--pressure");
    ExpectRefused("primary --input /no/such/file.json", "cannot read /no/such/file.json");
}

TEST(SchemeCli, CalculationsThatCannotBeCarriedOutAreRefused) {
    const InputFile noMoisture(R"({"Mw": 0})");
    ExpectRefused("primary --input " + noMoisture.Path(), "Mw = 0 kg/s is outside the allowed range, above 0");
    ExpectRefused("secondary --input " + noMoisture.Path(), "Mw = 0 kg/s is outside");
    const InputFile noLoad(R"({"Qn": 0})");
    ExpectRefused("primary --type 1 --input " + noLoad.Path(), "Qn = 0 kW is outside");
    const InputFile noSupplyDifference(R"({"SfWc": 0})");
    ExpectRefused("secondary --input " + noSupplyDifference.Path(), "SfWc = 0 K is outside");
    const InputFile noSupplyFlow(R"({"Go": 0})");
    ExpectRefused("primary --type 4 --input " + noSupplyFlow.Path(), "Go = 0 kg/s is outside");
    ExpectRefused("secondary --type 2 --input " + noSupplyFlow.Path(), "Go = 0 kg/s is outside");
    const InputFile noFreshAir(R"({"FreshAirRatio": 0})");
    ExpectRefused("secondary --type 1 --input " + noFreshAir.Path(), "the fresh-air flow is 0");
    // A literal winter treatment of the built-in summer states gives states that can't exist.
    const InputFile summerStates(R"({"PointN": {"Tdb": 22, "RH": 0.6}, "PointW": {"Tdb": 33.2, "Twb": 26.4},
                                     "Qn": 11.6, "Mw": 0.0014})");
    ExpectRefused("primary --literal --type 2 --input " + summerStates.Path(), "point W': the state lies above saturation");
}
