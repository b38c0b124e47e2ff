// zefra label, run as a user runs it, on the shipped configuration; and the
// label settings as the shipped configuration gives them.

#include "LabelTestKit.h"
#include "cli/CliRunner.h"

#include "zefra/config/QoDtDictOptionItem.h"
#include "zefra/labels/QoHvacDuctLabelManager.h"

#include <cstdio>
#include <fstream>

using clitest::RunCli;

namespace {

const std::string kShipped = ZEFRA_SOURCE_DATA_DIR "/Config.xml";

class LabelCliTest : public ::testing::Test {
protected:
    void TearDown() override { std::remove(m_duct.c_str()); }

    std::string DuctFile(const std::string& json) {
        std::ofstream(m_duct) << json;
        return m_duct;
    }

    const std::string m_duct = clitest::TempPath();
};

}  // namespace

using ShippedLabelSettings = LabelTest;

TEST_F(ShippedLabelSettings, ListsHoldNineNamedLinesAndOptionsTheirChoices) {
    CString message;
    ASSERT_TRUE(g_dictCfg.LoadFromXML(CString(kShipped.c_str()), &message)) << U(message);
    const QoHvacDuctLabelManager* labels = QoHvacDuctLabelManager::GetInstance();
    for (const auto& list : labels->m_labelItems) {
        ASSERT_EQ(list.GetLength(), 9);
        for (int row = 0; row < 9; ++row) EXPECT_FALSE(list[row].labelname.IsEmpty()) << row;
    }
    for (const wchar_t* key : {L"AUTOPOS", L"ARROWTYPE", L"LENGTHUNIT"}) {
        const auto* option = dynamic_cast<const QoDtDictOptionItem*>(labels->m_labelDict->FindItem(key));
        ASSERT_NE(option, nullptr) << U(CString(key));
        EXPECT_GE(option->options.GetLength(), 2);
    }
}

TEST_F(LabelCliTest, PrintsTheLinesOfADuctOrOfTheStoredContents) {
    const std::string duct = DuctFile(R"({"width": 1000, "height": 400, "alignment": "bottom",
        "start": [0, 0, 4500], "end": [0, 8000, 4500], "flow": 7200, "velocity": 5, "specific_friction": 0.6,
        "system": "送风"})");
    const auto lead = RunCli({"label", "--list", "2", "--duct", duct, "--config", kShipped});
    ASSERT_EQ(lead.exitCode, 0) << lead.err;
    EXPECT_NE(lead.out.find("风量\tL=\t7200\tm³/h\n"), std::string::npos) << lead.out;
    EXPECT_NE(lead.out.find("风速\tV=\t5.0\tm/s\n"), std::string::npos) << lead.out;
    EXPECT_NE(lead.out.find("沿程阻力\tΔPm=\t4.8\tPa\n"), std::string::npos) << lead.out;  // 0.6 Pa/m over 8 m

    const auto automatic = RunCli({"label", "--auto", "--duct", duct, "--json", "--config", kShipped});
    ASSERT_EQ(automatic.exitCode, 0) << automatic.err;
    const auto lines = automatic.Json()["lines"];
    ASSERT_EQ(lines.size(), 2u) << automatic.out;  // a rectangular duct: no round size
    EXPECT_EQ(lines[0]["value"], "1000×400");
    EXPECT_EQ(lines[1]["prefix"], "B");
    EXPECT_EQ(lines[1]["value"], "4.300");

    const auto stored = RunCli({"label", "--list", "2", "--config", kShipped});
    ASSERT_EQ(stored.exitCode, 0) << stored.err;
    EXPECT_NE(stored.out.find("沿程阻力\tΔPm=\t-\tPa\n"), std::string::npos) << stored.out;
}

TEST_F(LabelCliTest, BadRequestsNameTheirFaultAndExitWithTwo) {
    const std::vector<std::pair<std::string, std::string>> badDucts = {
        {R"({"height": 300})", "'width' is missing"},
        {R"({"width": -5, "height": 300})", "'width' must be greater than 0"},
        {R"({"width": 500, "height": 300, "start": [0, 0]})", "'start' must be a list of three numbers"},
        {R"({"width": 500, "height": 300, "lenght": 10})", "'lenght' is not a field of a duct"},
        {R"({"width": 500,)", "not valid JSON"},
    };
    for (const auto& [json, message] : badDucts) {
        const auto result = RunCli({"label", "--list", "0", "--duct", DuctFile(json), "--config", kShipped});
        EXPECT_EQ(result.exitCode, 2) << json;
        EXPECT_NE(result.err.find(message), std::string::npos) << json << ": " << result.err;
    }
    EXPECT_EQ(RunCli({"label", "--list", "4", "--config", kShipped}).exitCode, 2);
    EXPECT_EQ(RunCli({"label", "--config", kShipped}).exitCode, 2);
    EXPECT_EQ(RunCli({"label", "--list", "0", "--config", "/nonexistent/Config.xml"}).exitCode, 2);
}
