// zefra systems and zefra flange edits on a copy of the shipped
// configuration: what they keep, what they refuse, and a save that fails.

#include "cli/CliRunner.h"
#include "config/ConfigTestSupport.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

using clitest::CliResult;

namespace {

const std::string kShipped = ZEFRA_SOURCE_DATA_DIR "/Config.xml";

class EditCli : public ::testing::Test {
protected:
    void SetUp() override { std::filesystem::copy_file(kShipped, m_config); }

    CliResult Run(std::vector<std::string> args) const {
        args.insert(args.end(), {"--config", m_config});
        return clitest::RunCli(args);
    }
    nlohmann::json Pipe(const std::string& system) const {
        return Run({"layer", "pipe", "--system", system, "--kind", "kt", "--json"}).Json();
    }
    std::string File() const { return configtest::ReadFile(m_config); }

    configtest::IsolatedSearch m_search;
    const std::string m_config = m_search.WorkDir().File("edit.xml");
};

}  // namespace

TEST_F(EditCli, RenamedAndCopiedSystemsKeepTheirLayers) {
    const nlohmann::json before = Pipe("冷冻供水");
    ASSERT_EQ(Run({"systems", "add", "--kind", "kt", "--key", "LG", "--name", "一次冷冻供水"}).exitCode, 0);
    const nlohmann::json after = Pipe("一次冷冻供水");
    for (const char* field : {"key", "layer", "color", "linetype", "lineweight", "comment"})
        EXPECT_EQ(after[field], before[field]) << field;

    const CliResult add = Run({"systems", "add", "--kind", "kt", "--key", "N2", "--name", "二次冷凝水", "--sample", "N",
                               "--comment", "N2", "--color", "1", "--linetype", "DASHED"});
    ASSERT_EQ(add.exitCode, 0) << add.err;
    ASSERT_EQ(Run({"systems", "rename", "--kind", "kt", "--key", "N2", "--new-key", "N4", "--color", "2"}).exitCode, 0);
    EXPECT_EQ(File().find("N2T_"), std::string::npos);
    EXPECT_EQ(File().find("N4T_"), std::string::npos);
    const nlohmann::json copy = Pipe("二次冷凝水");
    EXPECT_EQ(copy["key"], "HVAC-NT_PROJ_KT-NT_CLASS_PLANE-N4-NT_MODEL_PIPE");
    EXPECT_EQ(copy["layer"], "暖通-空调水-水管-二次冷凝水");
    EXPECT_EQ(copy["color"], 2);
    EXPECT_EQ(copy["linetype"], "DASHED");
    EXPECT_EQ(copy["comment"], "N2");
}

TEST_F(EditCli, RefusalsExitWithTwoAndLeaveTheFile) {
    const struct {
        std::vector<std::string> args;
        const char* message;
    } cases[] = {
        {{"systems", "add", "--kind", "kt", "--key", "LG", "--name", "x", "--sample", "LH"}, "new system only"},
        {{"systems", "add", "--kind", "vrv", "--key", "X", "--name", "X", "--sample", "LG"}, "no system 'LG' of kind vrv"},
        {{"systems", "add", "--kind", "kt", "--key", "A-B", "--name", "新"}, "hold '-'"},
        {{"systems", "add", "--kind", "kt", "--key", "Q", "--name", "新", "--color", "300"}, "300"},
        {{"systems", "rename", "--kind", "kt", "--key", "LG"}, "nothing to change"},
        {{"systems", "rename", "--kind", "kt", "--key", "LG", "--name", "冷冻回水"}, "belongs to system 'LH'"},
        {{"flange", "add", "nan", "5"}, "not nan"},
        {{"flange", "set-last", "-1"}, "not -1"},
        {{"flange", "set-start", "1500", "inf"}, "not inf"},
        {{"flange", "pipe", "-25"}, "not -25"},
    };
    for (const auto& c : cases) {
        const CliResult result = Run(c.args);
        EXPECT_EQ(result.exitCode, 2) << c.args[1] << " " << c.args[2];
        EXPECT_NE(result.err.find(c.message), std::string::npos) << result.err;
    }
    EXPECT_EQ(File(), configtest::ReadFile(kShipped));

    // Just below a row's end is its end: no crash, nothing moves.
    const CliResult close = Run({"flange", "set-end", "630", "629.9999999999"});
    EXPECT_EQ(close.exitCode, 0) << close.err;
    EXPECT_EQ(Run({"flange", "offset", "630"}).out, "25\n");
    EXPECT_EQ(Run({"flange", "offset", "631"}).out, "30\n");
}

TEST_F(EditCli, AFailedSaveIsAnError) {
    // Writes beyond 512 bytes fail (the limit's signal ignored), whoever runs
    // the test; the configuration is the one the search finds.
    const std::string found = m_search.ConfigDir().File("Config.xml");
    std::filesystem::copy_file(kShipped, found);
    for (const std::string edit : {"add --kind duct --key BF --name 补风", "rename --kind duct --key SF --name 送风一",
                                   "del --kind duct --key PY"}) {
        const std::string err = clitest::TempPath();
        const std::string command = "trap '' XFSZ; ulimit -f 1; " + clitest::Quote(ZEFRA_CLI_PATH) + " systems " + edit +
                                    " >/dev/null 2>" + err;
        const int status = std::system(("sh -c " + clitest::Quote(command)).c_str());
        const std::string message = clitest::TakeFile(err);
        EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 2) << edit << ": " << message;
        EXPECT_NE(message.find("not saved"), std::string::npos) << message;
        EXPECT_EQ(configtest::ReadFile(found), configtest::ReadFile(kShipped)) << edit;
    }
}
