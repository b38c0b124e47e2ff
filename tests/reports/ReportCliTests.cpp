#include "cli/CliRunner.h"
#include "reports/ReportGolden.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

namespace {

using clitest::RunCli;

// Runs the tool against the shipped configuration, with a directory of its
// own for anything it saves.
class ReportCli : public ::testing::Test {
protected:
    void SetUp() override {
        char dir[] = "/tmp/zefra_report_cli_XXXXXX";
        ASSERT_NE(mkdtemp(dir), nullptr);
        m_dir = dir;
        setenv("ZEFRA_CONFIG_DIR", m_dir.c_str(), 1);
    }
    void TearDown() override {
        std::system(("rm -rf " + clitest::Quote(m_dir)).c_str());
        unsetenv("ZEFRA_CONFIG_DIR");
    }
    std::string Path(const char* name) const { return m_dir + "/" + name; }

    std::string m_dir;
};

std::string Joined(const char* const (&texts)[4]) {
    return std::string(texts[0]) + texts[1] + texts[2] + texts[3];
}

}  // namespace

TEST_F(ReportCli, PrimaryPrintsTheFourTextsAsWrittenBeforeTheTable) {
    const auto run = RunCli({"primary"});
    ASSERT_EQ(run.exitCode, 0) << run.err;
    // The shipped settings give the built-in texts; into a pipe the line ends stay "\r\n".
    EXPECT_EQ(run.out.substr(0, run.out.find("\n\nPrimary return air")), Joined(kPrimarySummer));
    EXPECT_EQ(run.out.find("不守恒"), std::string::npos);

    const auto json = RunCli({"secondary", "--json"}).Json();
    EXPECT_EQ(json.at("reportTexts").at(2), kSecondarySummer[2]);
}

TEST_F(ReportCli, UnitsFollowTheOptionAndTheConfiguration) {
    auto run = RunCli({"primary", "--units", "Q=kW,风量=kg/h"});
    ASSERT_EQ(run.exitCode, 0) << run.err;
    EXPECT_NE(run.out.find("室内负荷：11.60kW"), std::string::npos);
    EXPECT_NE(run.out.find("送风量：3050.847kg/h"), std::string::npos);

    run = RunCli({"primary", "--units", "Q=MW"});
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_NE(run.err.find("\"MW\" isn't a unit of 冷热负荷"), std::string::npos) << run.err;
    EXPECT_EQ(RunCli({"primary", "--units", "Z=kW"}).exitCode, 2);

    ASSERT_EQ(RunCli({"config", "set", "ZEFRA\\HDG\\UnitsItemSet\\5", "kW"}).exitCode, 0);
    ASSERT_EQ(RunCli({"config", "set", "ZEFRA\\HDG\\PrecisionSet\\5", "1"}).exitCode, 0);
    EXPECT_NE(RunCli({"primary"}).out.find("室内负荷：11.6kW"), std::string::npos);
    EXPECT_NE(RunCli({"primary", "--units", "Q=W"}).out.find("室内负荷：11600.0W"), std::string::npos);
}

TEST_F(ReportCli, SavedRecordsLoadBackAndForeignOnesAreRefused) {
    const std::string record = Path("record.xml");
    const auto saved = RunCli({"secondary", "--type", "0", "--pressure", "95000", "--save", record});
    ASSERT_EQ(saved.exitCode, 0) << saved.err;
    const auto loaded = RunCli({"secondary", "--pressure", "95000", "--load", record});
    ASSERT_EQ(loaded.exitCode, 0) << loaded.err;
    EXPECT_EQ(loaded.out, saved.out);

    auto refused = RunCli({"primary", "--load", record});
    EXPECT_EQ(refused.exitCode, 2);
    EXPECT_NE(refused.err.find("holds no primary return-air record (\"一次回风处理过程\")"), std::string::npos)
        << refused.err;
    refused = RunCli({"primary", "--load", Path("missing.xml")});
    EXPECT_EQ(refused.exitCode, 2);
    EXPECT_NE(refused.err.find("missing.xml"), std::string::npos) << refused.err;
}
