// The habits of the tool as a command-line program: how it answers a
// mistyped command, standard input for files, where messages go, a failed
// write, and what `config set`, `mix`, `ratio` and `--units` refuse.

#include "config/ConfigTestSupport.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <filesystem>
#include <string>
#include <vector>

namespace {

using configtest::CliResult;
using configtest::RunZefra;

const std::string kShipped = ZEFRA_SOURCE_DATA_DIR "/Config.xml";

// Runs a shell command line; what it doesn't redirect itself is collected.
CliResult Shell(const std::string& command) {
    configtest::TempDir output;
    const std::string line = "{ " + command + "; } >" + output.File("out") + " 2>" + output.File("err");
    const int status = std::system(line.c_str());
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, configtest::ReadFile(output.File("out")),
            configtest::ReadFile(output.File("err"))};
}

std::string Zefra(const std::vector<std::string>& args) {
    std::string command = configtest::ShellQuote(ZEFRA_CLI_PATH);
    for (const std::string& arg : args) command += " " + configtest::ShellQuote(arg);
    return command;
}

std::string RatioText(const std::vector<std::string>& args) {
    std::vector<std::string> all = {"ratio"};
    all.insert(all.end(), args.begin(), args.end());
    const CliResult r = RunZefra(all);
    EXPECT_EQ(r.exitCode, 0) << r.err;
    const std::string label = "Heat-humidity ratio: ";
    const size_t at = r.out.find(label);
    if (at == std::string::npos) return "(none)";
    const size_t start = at + label.size();
    return r.out.substr(start, r.out.find(' ', start) - start);
}

TEST(CliHabits, UnknownCommandsAreNamedWithTheNearestOne) {
    struct Case {
        std::vector<std::string> args;
        std::string message;
    };
    const Case cases[] = {
        {{"pont"}, "zefra: unknown command 'pont'; did you mean 'point'?"},
        {{"secondry", "--json"}, "did you mean 'secondary'?"},
        {{"config", "sett", "A", "1"}, "zefra: unknown command 'config sett'; did you mean 'set'?"},
        {{"flange", "ofset", "500"}, "did you mean 'offset'?"},
    };
    for (const Case& c : cases) {
        const CliResult r = RunZefra(c.args);
        EXPECT_EQ(r.exitCode, 2) << c.args[0];
        EXPECT_NE(r.err.find(c.message), std::string::npos) << r.err;
        EXPECT_TRUE(r.out.empty()) << r.out;
    }
    const CliResult far = RunZefra({"xyzzy"});
    EXPECT_EQ(far.exitCode, 2);
    EXPECT_EQ(far.err.find("did you mean"), std::string::npos) << far.err;

    const CliResult bare = RunZefra({});
    EXPECT_EQ(bare.exitCode, 2);
    EXPECT_NE(bare.err.find("Usage: zefra"), std::string::npos) << bare.err;
    EXPECT_NE(bare.err.find("primary"), std::string::npos) << bare.err;
}

TEST(CliHabits, DashReadsStandardInput) {
    configtest::IsolatedSearch search;
    const std::string record = search.WorkDir().File("record.xml");
    ASSERT_EQ(RunZefra({"secondary", "--save", record}).exitCode, 0);
    const CliResult fromFile = RunZefra({"secondary", "--load", record, "--json"});
    const CliResult fromStdin = RunZefra({"secondary", "--load", "-", "--json"}, "cat " + record + " |");
    ASSERT_EQ(fromStdin.exitCode, 0) << fromStdin.err;
    EXPECT_EQ(fromStdin.out, fromFile.out);

    const CliResult junk = RunZefra({"primary", "--load", "-"}, "echo '<not xml' |");
    EXPECT_EQ(junk.exitCode, 2);
    EXPECT_NE(junk.err.find("--load: standard input:"), std::string::npos) << junk.err;
    const CliResult both = RunZefra({"primary", "--load", "-", "--input", "-"}, "true |");
    EXPECT_EQ(both.exitCode, 2);
    EXPECT_NE(both.err.find("only one of them can read standard input"), std::string::npos) << both.err;
}

// A damaged Config.xml found in the current directory makes the library say
// so; the message must not land in the JSON on standard output.
TEST(CliHabits, LibraryMessagesGoToStandardError) {
    configtest::IsolatedSearch search;
    configtest::WriteFile(search.WorkDir().File("Config.xml"), "<?xml version=\"1.0\"?><foreign><broken");
    for (const char* command : {"primary", "secondary"}) {
        const CliResult r = RunZefra({command, "--json"});
        ASSERT_EQ(r.exitCode, 0) << r.err;
        EXPECT_TRUE(nlohmann::json::accept(r.out)) << r.out;
        EXPECT_NE(r.err.find("zefra: " + search.WorkDir().File("Config.xml")), std::string::npos) << r.err;
    }
}

TEST(CliHabits, AFailedWriteToStandardOutputIsAnError) {
    if (!std::filesystem::exists("/dev/full")) GTEST_SKIP() << "no /dev/full";
    for (const std::vector<std::string>& args :
         {std::vector<std::string>{"point", "--tdb", "22", "--rh", "0.5"}, {"primary", "--json"}, {"point", "--help"}}) {
        const CliResult r = Shell(Zefra(args) + " >/dev/full");
        EXPECT_EQ(r.exitCode, 1) << args[0];
        EXPECT_NE(r.err.find("zefra: cannot write to standard output"), std::string::npos) << r.err;
    }
}

TEST(CliHabits, MixTakesBothFlowsOrNeither) {
    for (const std::vector<std::string>& args : {std::vector<std::string>{"mix", "--gb", "0.5"}, {"mix", "--ga", "2"}}) {
        const CliResult r = RunZefra(args);
        EXPECT_EQ(r.exitCode, 2);
        EXPECT_NE(r.err.find("give both --ga and --gb, or neither (then 3000 and 1000)"), std::string::npos) << r.err;
    }
}

// The two modes print the same sign for the same process: Q/Mw, the heat
// over the moisture the air takes up from A to B.
TEST(CliHabits, RatioModesAgreeOnTheSign) {
    struct Case {
        std::vector<std::string> points;
        std::vector<std::string> loads;
        std::string value;
    };
    const Case cases[] = {
        {{"--a-h", "40", "--a-d", "8", "--b-h", "50", "--b-d", "10"}, {"--q", "10", "--mw", "0.002"}, "5000.00"},
        {{"--a-h", "50", "--a-d", "10", "--b-h", "40", "--b-d", "8"}, {"--q", "-10", "--mw", "-0.002"}, "5000.00"},
        {{"--a-h", "40", "--a-d", "10", "--b-h", "50", "--b-d", "8"}, {"--q", "10", "--mw", "-0.002"}, "-5000.00"},
        {{"--a-h", "40", "--a-d", "8", "--b-h", "50", "--b-d", "8"}, {"--q", "10", "--mw", "0"}, "+∞"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(RatioText(c.points), c.value);
        EXPECT_EQ(RatioText(c.loads), c.value);
    }
    EXPECT_NE(RunZefra({"ratio", "--help"}).out.find("Q/Mw"), std::string::npos);
}

class ConfigSetCli : public ::testing::Test {
protected:
    void SetUp() override { std::filesystem::copy_file(kShipped, m_config); }

    CliResult Set(const std::vector<std::string>& args) {
        std::vector<std::string> all = {"config", "set"};
        all.insert(all.end(), args.begin(), args.end());
        all.insert(all.end(), {"--config", m_config});
        return RunZefra(all);
    }
    std::string Get(const std::string& path) { return RunZefra({"config", "get", path, "--config", m_config}).out; }

    configtest::IsolatedSearch m_search;
    const std::string m_config = m_search.WorkDir().File("edit.xml");
};

TEST_F(ConfigSetCli, AddsMissingDictionaries) {
    ASSERT_EQ(Set({"ZEFRA\\NEW\\DEEPER\\count", "3", "--type", "int"}).exitCode, 0);
    EXPECT_EQ(Get("ZEFRA\\NEW\\DEEPER\\count"), "3\n");
    const CliResult throughValue = Set({"ZEFRA\\NEW\\DEEPER\\count\\x", "1"});
    EXPECT_EQ(throughValue.exitCode, 2);
    EXPECT_NE(throughValue.err.find("a part of the path is a value"), std::string::npos) << throughValue.err;
}

TEST_F(ConfigSetCli, RefusesWhatItsReaderWouldIgnore) {
    const std::string before = configtest::ReadFile(m_config);
    struct Case {
        std::vector<std::string> args;
        std::string message;
    };
    const Case cases[] = {
        {{"ZEFRA\\LABELSET\\AUTOPOS", "3"}, "option index 3 is out of range"},
        {{"ZEFRA\\LABELSET\\AUTOPOS", "-1"}, "out of range"},
        {{"ZEFRA\\HDG\\DrawSet\\大气压力", "high", "--type", "string"}, "its reader would ignore a <string>"},
        {{"ZEFRA\\HDG\\DrawSet\\温度间距", "1.5", "--type", "double"}, "holds a value of kind <int>"},
        {{"ZEFRA\\HDG\\UnitsItemSet\\2", "Btu/lb"}, "'Btu/lb' isn't a unit of 焓 (row 2); use kJ/kg, kJ/kg.干空气"},
        {{"ZEFRA\\HDG\\UnitsItemSet\\5", "hp"}, "use W, kW, kcal/h"},
    };
    for (const Case& c : cases) {
        const CliResult r = Set(c.args);
        EXPECT_EQ(r.exitCode, 2) << c.args[0];
        EXPECT_NE(r.err.find(c.message), std::string::npos) << r.err;
    }
    EXPECT_EQ(configtest::ReadFile(m_config), before);

    // What the readers take: an int where a double is read, an option's last
    // index, a converter's other name, any text where no converter reads.
    EXPECT_EQ(Set({"ZEFRA\\HDG\\DrawSet\\大气压力", "95000", "--type", "int"}).exitCode, 0);
    EXPECT_EQ(Set({"ZEFRA\\LABELSET\\AUTOPOS", "2"}).exitCode, 0);
    EXPECT_EQ(Set({"ZEFRA\\HDG\\UnitsItemSet\\2", "kcal/kg.干空气"}).exitCode, 0);
    EXPECT_EQ(Set({"ZEFRA\\HDG\\UnitsItemSet\\0", "K"}).exitCode, 0);
    EXPECT_EQ(Get("ZEFRA\\HDG\\UnitsItemSet\\2"), "kcal/kg.干空气\n");
}

TEST(UnitsCli, OnlyItemsWithAConverterAndNamesItKnows) {
    struct Case {
        std::string units;
        std::string message;
    };
    const Case cases[] = {
        {"T=K", "\"T\" has no converter"},
        {"压力=kPa", "\"压力\" has no converter"},
        {"D=g/kg", "\"D\" has no converter"},
        {"Q=hp", "\"hp\" isn't a unit of 冷热负荷; use W, kW, kcal/h, Btu/h"},
        {"H=Btu/lb", "isn't a unit of 焓; use kJ/kg"},
        {"X=1", "unknown key \"X\""},
    };
    for (const Case& c : cases) {
        const CliResult r = RunZefra({"primary", "--units", c.units});
        EXPECT_EQ(r.exitCode, 2) << c.units;
        EXPECT_NE(r.err.find(c.message), std::string::npos) << r.err;
    }
    const CliResult r = RunZefra({"primary", "--units", "Q=kW,H=kcal/kg"});
    ASSERT_EQ(r.exitCode, 0) << r.err;
    EXPECT_NE(r.out.find("焓:11.31kcal/kg"), std::string::npos) << r.out;
}

// A name no converter knows, stored in the configuration the search finds:
// a warning naming the file and the item, and figures labelled with the unit
// they are in.
TEST(UnitsCli, UnknownStoredNamesAreReportedAndReplaced) {
    configtest::IsolatedSearch search;
    std::string text = configtest::ReadFile(kShipped);
    for (const auto& [from, to] : {std::pair<std::string, std::string>{">kJ/kg.干空气<", ">Btu/lb<"},
                                  {">g/s<", "><"}}) {
        const size_t at = text.find(from);
        ASSERT_NE(at, std::string::npos) << from;
        text.replace(at, from.size(), to);
    }
    const std::string file = search.ConfigDir().File("Config.xml");
    configtest::WriteFile(file, text);

    const CliResult r = RunZefra({"primary"});
    ASSERT_EQ(r.exitCode, 0) << r.err;
    EXPECT_NE(r.err.find("zefra: warning: " + file + ": unit name \"Btu/lb\" of 焓 is unknown"), std::string::npos)
        << r.err;
    EXPECT_NE(r.err.find("no unit name for 湿负荷"), std::string::npos) << r.err;
    EXPECT_EQ(r.out.find("Btu/lb"), std::string::npos);
    EXPECT_NE(r.out.find("焓:47.36kJ/kg\t"), std::string::npos) << r.out;
    EXPECT_NE(r.out.find("g/s"), std::string::npos);
}

TEST(CliHabits, BashCompletionAsksTheToolItself) {
    const std::string library = "/usr/share/bash-completion/bash_completion";
    if (!std::filesystem::exists(library)) GTEST_SKIP() << "bash-completion is not installed";
    const std::string script = ZEFRA_SOURCE_DATA_DIR "/../tools/zefra.bash-completion";
    const std::string tool = std::filesystem::path(ZEFRA_CLI_PATH).parent_path().string();
    const auto complete = [&](const std::string& line) {
        const std::string program = "source " + library + "; source " + script + "; PATH=" + tool +
                                    ":$PATH; COMP_WORDS=(" + line + "); COMP_CWORD=$((${#COMP_WORDS[@]}-1)); " +
                                    "COMP_LINE=\"${COMP_WORDS[*]}\"; COMP_POINT=${#COMP_LINE}; _zefra; " +
                                    "echo \"${COMPREPLY[*]}\"";
        return Shell("bash -c " + configtest::ShellQuote(program)).out;
    };
    EXPECT_EQ(complete("zefra po"), "point\n");
    EXPECT_EQ(complete("zefra config s"), "set\n");
    EXPECT_EQ(complete("zefra point --tw"), "--twb\n");
}

}  // namespace
