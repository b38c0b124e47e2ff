// zefra systems add|rename|del and zefra flange, on a copy of the shipped
// configuration: what the edits keep, what they refuse, and a save that
// fails.

#include "cli/CliRunner.h"
#include "config/ConfigTestSupport.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

using clitest::CliResult;
using clitest::RunCli;

namespace {

const std::string kShipped = ZEFRA_SOURCE_DATA_DIR "/Config.xml";

class EditCli : public ::testing::Test {
protected:
    void SetUp() override { std::filesystem::copy_file(kShipped, m_config); }

    CliResult Run(std::vector<std::string> args) const {
        args.push_back("--config");
        args.push_back(m_config);
        return RunCli(args);
    }
    nlohmann::json Layer(const std::string& function, const std::string& system, const std::string& kind) const {
        const CliResult layer = Run({"layer", function, "--system", system, "--kind", kind, "--json"});
        EXPECT_EQ(layer.exitCode, 0) << layer.err;
        return layer.Json();
    }
    std::string File() const { return configtest::ReadFile(m_config); }

    configtest::IsolatedSearch m_search;
    const std::string m_config = m_search.WorkDir().File("edit.xml");
};

}  // namespace

TEST_F(EditCli, RenamingASystemKeepsItsLayers) {
    const nlohmann::json before = Layer("pipe", "冷冻供水", "kt");
    ASSERT_EQ(Run({"systems", "add", "--kind", "kt", "--key", "LG", "--name", "一次冷冻供水"}).exitCode, 0);
    const nlohmann::json after = Layer("pipe", "一次冷冻供水", "kt");
    for (const char* field : {"key", "layer", "color", "linetype", "lineweight", "comment"})
        EXPECT_EQ(after[field], before[field]) << field;

    const CliResult renamed = Run({"systems", "rename", "--kind", "kt", "--key", "N", "--new-key", "N2", "--name", "冷凝"});
    ASSERT_EQ(renamed.exitCode, 0) << renamed.err;
    EXPECT_NE(renamed.out.find("renamed system N (冷凝水) of kind kt to N2 (冷凝)"), std::string::npos) << renamed.out;
    EXPECT_EQ(File().find("N2T_"), std::string::npos);
    const nlohmann::json riser = Layer("riser", "冷凝", "kt");
    EXPECT_EQ(riser["key"], "HVAC-NT_PROJ_KT-NT_CLASS_PLANE-N2-NT_MODEL_RISER");
    EXPECT_EQ(riser["layer"], "暖通-空调水-立管-冷凝水");  // the user's layer, kept
    EXPECT_EQ(riser["linetype"], "DASHDOT");
    const CliResult list = Run({"systems", "list", "--kind", "kt"});
    EXPECT_NE(list.out.find("N2   冷凝 (N)"), std::string::npos) << list.out;
}

TEST_F(EditCli, AddingSetsCodeColourAndLineTypeAndCopiesOnlyTheSameKind) {
    const CliResult add = Run({"systems", "add", "--kind", "kt", "--key", "N2", "--name", "二次冷凝水", "--sample", "N",
                               "--comment", "N2", "--color", "1", "--linetype", "DASHED"});
    ASSERT_EQ(add.exitCode, 0) << add.err;
    EXPECT_EQ(File().find("N2T_"), std::string::npos);
    const nlohmann::json pipe = Layer("pipe", "二次冷凝水", "kt");
    EXPECT_EQ(pipe["key"], "HVAC-NT_PROJ_KT-NT_CLASS_PLANE-N2-NT_MODEL_PIPE");
    EXPECT_EQ(pipe["layer"], "暖通-空调水-水管-二次冷凝水");
    EXPECT_EQ(pipe["color"], 1);
    EXPECT_EQ(pipe["linetype"], "DASHED");
    EXPECT_EQ(pipe["comment"], "N2");

    // Changing an existing one keeps what isn't given.
    ASSERT_EQ(Run({"systems", "add", "--kind", "kt", "--key", "N2", "--name", "冷凝水二", "--color", "2"}).exitCode, 0);
    const nlohmann::json changed = Layer("pipe", "冷凝水二", "kt");
    EXPECT_EQ(changed["color"], 2);
    EXPECT_EQ(changed["linetype"], "DASHED");
    EXPECT_EQ(changed["comment"], "N2");

    // A KT system is no sample for VRV, though VRV may use KT's names and keys.
    const std::string file = File();
    EXPECT_EQ(Run({"systems", "add", "--kind", "vrv", "--key", "X", "--name", "X", "--sample", "LG"}).exitCode, 2);
    EXPECT_EQ(File(), file);
    ASSERT_EQ(Run({"systems", "add", "--kind", "vrv", "--key", "LG", "--name", "冷冻供水", "--sample", "YG"}).exitCode, 0);
    EXPECT_EQ(Layer("pipe", "冷冻供水", "vrv")["color"], 6);
    EXPECT_EQ(Layer("pipe", "冷冻供水", "kt")["color"], 4);
}

TEST_F(EditCli, RefusedSystemEditsExitWithTwoAndLeaveTheFile) {
    const std::vector<std::vector<std::string>> bad = {
        {"systems", "add", "--kind", "kt", "--key", "LG", "--name", "x", "--sample", "LH"},  // exists
        {"systems", "add", "--kind", "kt", "--key", "A-B", "--name", "新"},
        {"systems", "add", "--kind", "kt", "--key", "LG9", "--name", "新", "--color", "300"},
        {"systems", "add", "--kind", "kt", "--key", "LG9", "--name", "新", "--linetype", ""},
        {"systems", "add", "--kind", "kt", "--key", "LG", "--name", ""},
        {"systems", "rename", "--kind", "kt", "--key", "LG"},  // nothing to change
        {"systems", "rename", "--kind", "kt", "--key", "LG", "--name", "冷冻回水"},
        {"systems", "rename", "--kind", "kt", "--key", "LG", "--new-key", "LH"},
        {"systems", "rename", "--kind", "kt", "--key", "LG", "--new-key", ""},
        {"systems", "rename", "--kind", "kt", "--key", "NOPE", "--name", "新"},
        {"systems", "rename", "--kind", "vrv", "--key", "LG", "--name", "新"},  // a KT key
    };
    for (const std::vector<std::string>& args : bad) {
        const CliResult result = Run(args);
        EXPECT_EQ(result.exitCode, 2) << args[1] << " " << args[5] << ": " << result.out;
        EXPECT_EQ(result.err.rfind("zefra: ", 0), 0u) << result.err;
    }
    EXPECT_EQ(File(), configtest::ReadFile(kShipped));
}

TEST_F(EditCli, AFailedSaveIsAnError) {
    // The configuration the search finds; writes beyond 512 bytes fail (the
    // limit's signal ignored), whoever runs the test.
    const std::string found = m_search.ConfigDir().File("Config.xml");
    std::filesystem::copy_file(kShipped, found);
    const std::vector<std::string> edits = {
        "systems add --kind duct --key BF --name 补风",
        "systems rename --kind duct --key SF --name 送风一",
        "systems del --kind duct --key PY",
    };
    for (const std::string& edit : edits) {
        const std::string err = clitest::TempPath();
        const std::string command = "trap '' XFSZ; ulimit -f 1; " + clitest::Quote(ZEFRA_CLI_PATH) + " " + edit +
                                    " >/dev/null 2>" + err;
        const int status = std::system(("sh -c " + clitest::Quote(command)).c_str());
        const std::string message = clitest::TakeFile(err);
        ASSERT_TRUE(WIFEXITED(status)) << edit;
        EXPECT_EQ(WEXITSTATUS(status), 2) << edit << ": " << message;
        EXPECT_NE(message.find("not saved"), std::string::npos) << message;
        EXPECT_EQ(configtest::ReadFile(found), configtest::ReadFile(kShipped)) << edit;
    }
}

TEST_F(EditCli, FlangeEditsRefuseWhatTheTableCanNotHold) {
    const auto sizes = [this] { return Run({"settings", "flange", "--json"}).Json()["flange"]["sizes"]; };
    const nlohmann::json shipped = sizes();
    ASSERT_EQ(shipped[0]["up to"], 630.0);

    struct Case {
        std::vector<std::string> args;
        const char* named;  // the value the message names
    };
    const std::vector<Case> bad = {
        {{"flange", "add", "nan", "5"}, "not nan"},        {{"flange", "add", "700", "inf"}, "not inf"},
        {{"flange", "add", "-700", "5"}, "not -700"},      {{"flange", "set-last", "-1"}, "not -1"},
        {{"flange", "set-end", "630", "nan"}, "not nan"},  {{"flange", "set-start", "1500", "-3"}, "not -3"},
        {{"flange", "set-offset", "630", "-1"}, "not -1"}, {{"flange", "del", "nan"}, "not nan"},
        {{"flange", "offset", "nan"}, "not nan"},          {{"flange", "pipe", "-25"}, "not -25"},
    };
    for (const Case& c : bad) {
        const CliResult result = Run(c.args);
        EXPECT_EQ(result.exitCode, 2) << c.args[1] << " " << c.args[2];
        EXPECT_NE(result.err.find(c.named), std::string::npos) << result.err;
    }
    EXPECT_EQ(File(), configtest::ReadFile(kShipped));

    // Just below the row's end is its end: no crash, nothing moves.
    const CliResult close = Run({"flange", "set-end", "630", "629.9999999999"});
    EXPECT_EQ(close.exitCode, 0) << close.err;
    EXPECT_EQ(sizes(), shipped);
}
