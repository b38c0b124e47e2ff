#include "cli/CliRunner.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <string>

namespace {

using clitest::RunCli;

// A configuration with a duct flange table of (500, 25), (1000, 30) and a
// water flange table of two steps.
class SettingsCli : public ::testing::Test {
protected:
    void SetUp() override {
        std::ofstream(path) << R"(<?xml version="1.0" encoding="UTF-8"?>
<zefra-config format="1">
  <dict name="">
    <dict name="ZEFRA">
      <dict name="FLANGESET">
        <option name="STYLE"><selection>5</selection><choice>a</choice></option>
        <double name="DEFAULTSIZE">40</double>
        <dict name="SIZESET">
          <item name="0" endrange="500.00" offset="25.00"/>
          <item name="1" endrange="1000.00" offset="30.00"/>
        </dict>
      </dict>
      <dict name="WATER">
        <dict name="FLANGESET">
          <item name="0" EXTRUDE="30" THICKNESS="14" START="15"/>
          <item name="1" EXTRUDE="45" THICKNESS="20" START="50"/>
        </dict>
      </dict>
    </dict>
  </dict>
</zefra-config>
)";
    }
    void TearDown() override { std::remove(path.c_str()); }

    nlohmann::json Sizes() {
        const clitest::CliResult listed = RunCli({"settings", "flange", "--json", "--config", path});
        EXPECT_EQ(listed.exitCode, 0) << listed.err;
        return listed.Json()["flange"]["sizes"];
    }

    const std::string path = clitest::TempPath();
};

}  // namespace

TEST_F(SettingsCli, ListsAndLooksUpWhatTheFileSays) {
    const clitest::CliResult all = RunCli({"settings", "--json", "--config", path});
    ASSERT_EQ(all.exitCode, 0) << all.err;
    const nlohmann::json settings = all.Json();
    for (const char* section : {"flange", "pipe-flange", "vrv", "fittings", "display", "calc", "drawset"})
        EXPECT_TRUE(settings.contains(section)) << section;
    EXPECT_EQ(settings["flange"]["flangeEntity"], "common plate");
    EXPECT_EQ(settings["flange"]["sealed"], true);
    EXPECT_EQ(settings["fittings"]["records"]["RectElbow"]["typeName"], "内圆弧");
    EXPECT_EQ(settings["vrv"]["WT"].size(), 0u);  // no branch: nothing built in

    const clitest::CliResult listing = RunCli({"settings", "pipe-flange", "--config", path});
    EXPECT_NE(listing.out.find("- from: 50, thickness: 20, extrude: 45"), std::string::npos) << listing.out;

    EXPECT_EQ(RunCli({"flange", "offset", "500", "--config", path}).out, "25\n");
    EXPECT_EQ(RunCli({"flange", "offset", "1001", "--config", path}).out, "40\n");
    EXPECT_EQ(RunCli({"flange", "pipe", "49", "--kind", "VRV", "--config", path}).out, "thickness 14\nextrude 30\n");
    EXPECT_EQ(RunCli({"flange", "pipe", "49", "--kind", "czcn", "--config", path}).out, "thickness 1\nextrude 0\n");
    EXPECT_EQ(RunCli({"settings", "nonsense", "--config", path}).exitCode, 2);
}

TEST_F(SettingsCli, EditsSaveTheTableAndRefusalsLeaveTheFileAlone) {
    EXPECT_EQ(RunCli({"flange", "set-end", "500", "1200", "--config", path}).exitCode, 0);
    EXPECT_EQ(Sizes(), nlohmann::json::parse(R"([{"above": 0.0, "upTo": 1200.0, "offset": 25.0}])"));

    EXPECT_EQ(RunCli({"flange", "add", "--config", path}).exitCode, 0);
    EXPECT_EQ(RunCli({"flange", "add", "300", "20", "--config", path}).exitCode, 0);
    EXPECT_EQ(RunCli({"flange", "set-start", "1400", "800", "--config", path}).exitCode, 0);
    EXPECT_EQ(RunCli({"flange", "del", "300", "--config", path}).exitCode, 0);
    EXPECT_EQ(Sizes(), nlohmann::json::parse(R"([{"above": 0.0, "upTo": 800.0, "offset": 25.0},
                                                 {"above": 800.0, "upTo": 1400.0, "offset": 40.0}])"));

    const clitest::CliResult lowered = RunCli({"flange", "set-end", "1400", "700", "--config", path});
    EXPECT_EQ(lowered.exitCode, 2);
    EXPECT_NE(lowered.err.find("starts at 800"), std::string::npos) << lowered.err;
    const clitest::CliResult missing = RunCli({"flange", "set-start", "777", "100", "--config", path});
    EXPECT_EQ(missing.exitCode, 2);
    EXPECT_NE(missing.err.find("no row of the flange table ends at 777"), std::string::npos) << missing.err;
    EXPECT_EQ(RunCli({"flange", "set-start", "800", "900", "--config", path}).exitCode, 2);
    EXPECT_EQ(RunCli({"flange", "add", "300", "--config", path}).exitCode, 2);
    EXPECT_EQ(Sizes().size(), 2u);
}
