// zefra systems and zefra layer, run as a user runs them.

#include "cli/CliRunner.h"
#include "config/ConfigTestSupport.h"

#include <gtest/gtest.h>

#include <filesystem>

using clitest::RunCli;

namespace {

const std::string kShipped = ZEFRA_SOURCE_DATA_DIR "/Config.xml";

class LayerCliTest : public ::testing::Test {
protected:
    void SetUp() override { std::filesystem::copy_file(kShipped, m_config); }

    configtest::IsolatedSearch m_search;
    const std::string m_config = m_search.WorkDir().File("layers.xml");
};

}  // namespace

TEST_F(LayerCliTest, ListsSystemsAndResolvesLayers) {
    const auto list = RunCli({"systems", "list", "--kind", "KT", "--config", m_config});
    ASSERT_EQ(list.exitCode, 0) << list.err;
    EXPECT_NE(list.out.find("LG   冷冻供水 (LG)"), std::string::npos) << list.out;
    EXPECT_NE(list.out.find("N    冷凝水 (N)"), std::string::npos) << list.out;

    const auto json = RunCli({"systems", "list", "--kind", "vrv", "--config", m_config, "--json"});
    ASSERT_EQ(json.exitCode, 0) << json.err;
    EXPECT_EQ(json.Json()["systems"][1]["name"], "气管");

    const auto layer = RunCli({"layer", "pipe", "--system", "冷冻供水", "--kind", "kt", "--plan", "--config", m_config});
    ASSERT_EQ(layer.exitCode, 0) << layer.err;
    EXPECT_NE(layer.out.find("key:        HVAC-NT_PROJ_KT-NT_CLASS_PLANE-LG-NT_MODEL_PIPE"), std::string::npos);
    EXPECT_NE(layer.out.find("layer:      暖通-空调水-水管-冷冻供水"), std::string::npos) << layer.out;
    EXPECT_NE(layer.out.find("comment:    LG"), std::string::npos);

    // An unknown system drops out of the key, and the tool says so.
    const auto unknown = RunCli({"layer", "GetPropValveLayer", "--system", "热水", "--kind", "kt", "--location", "1",
                                 "--diagram", "--json", "--config", m_config});
    ASSERT_EQ(unknown.exitCode, 0) << unknown.err;
    EXPECT_EQ(unknown.Json()["key"], "HVAC-NT_PROJ_KT-NT_CLASS_SYS-NT_MODEL_PIPEEQUIPMENT");
    EXPECT_EQ(unknown.Json()["systemKnown"], false);
    EXPECT_NE(unknown.err.find("'热水' is not a system of kind kt"), std::string::npos) << unknown.err;

    const auto fixed = RunCli({"layer", "hdg-hst", "--json", "--config", m_config});
    ASSERT_EQ(fixed.exitCode, 0) << fixed.err;
    EXPECT_EQ(fixed.Json()["layer"], "暖通-焓湿图");
}

TEST_F(LayerCliTest, BadRequestsExitWithTwo) {
    const std::vector<std::vector<std::string>> bad = {
        {"systems", "list", "--kind", "steam"},
        {"layer", "pipes", "--kind", "kt"},
        {"layer", "pipe", "--system", "冷冻供水"},  // needs a kind
        {"layer", "kt-pipe", "--kind", "kt"},       // its kind is fixed
        {"layer", "insulation", "--system", "送风"},
        {"systems", "del", "--kind", "kt", "--key", "冷冻供水"},  // a name, not a key
        {"systems", "add", "--kind", "kt", "--key", "LG9", "--name", "冷冻回水"},
        {"systems", "add", "--kind", "kt", "--key", "LG9", "--name", "新系统", "--sample", "NOPE"},
        {"systems", "list", "--kind", "kt", "--config", "/nonexistent/Config.xml"},
    };
    for (std::vector<std::string> args : bad) {
        if (args.back() != "/nonexistent/Config.xml") {
            args.push_back("--config");
            args.push_back(m_config);
        }
        const auto result = RunCli(args);
        EXPECT_EQ(result.exitCode, 2) << args[1] << " " << args[2] << ": " << result.out;
        EXPECT_EQ(result.err.rfind("zefra: ", 0), 0u) << result.err;
    }
    EXPECT_EQ(configtest::ReadFile(m_config), configtest::ReadFile(kShipped));
}

TEST_F(LayerCliTest, AddAndDeleteSaveTheFile) {
    const auto add = RunCli({"systems", "add", "--kind", "kt", "--key", "RSG", "--name", "二次热水", "--sample", "LG",
                             "--flag", "rsg", "--config", m_config});
    ASSERT_EQ(add.exitCode, 0) << add.err;
    const auto list = RunCli({"systems", "list", "--kind", "kt", "--config", m_config});
    EXPECT_NE(list.out.find("RSG  二次热水 (RSG)"), std::string::npos) << list.out;
    const auto layer = RunCli({"layer", "riser", "--system", "二次热水", "--kind", "kt", "--json", "--config", m_config});
    EXPECT_EQ(layer.Json()["layer"], "暖通-空调水-立管-二次热水");
    EXPECT_EQ(layer.Json()["color"], 4);

    const auto del = RunCli({"systems", "del", "--kind", "kt", "--key", "RSG", "--config", m_config});
    ASSERT_EQ(del.exitCode, 0) << del.err;
    // System, layer group and flag are all gone from the file.
    const std::string saved = configtest::ReadFile(m_config);
    EXPECT_EQ(saved.find("RSG"), std::string::npos);
    EXPECT_EQ(saved.find("二次热水"), std::string::npos);
}

TEST_F(LayerCliTest, WithoutConfigTheSearchedFileIsSavedWhereTheSystemSavesIt) {
    std::filesystem::copy_file(kShipped, m_search.ConfigDir().File("Config.xml"));
    const auto add = RunCli({"systems", "add", "--kind", "duct", "--key", "BF", "--name", "补风"});
    ASSERT_EQ(add.exitCode, 0) << add.err;
    EXPECT_NE(configtest::ReadFile(m_search.ConfigDir().File("Config.xml")).find("补风"), std::string::npos);
}
