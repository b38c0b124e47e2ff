#include "ConfigTestSupport.h"

#include <nlohmann/json.hpp>

#include <sys/wait.h>

using configtest::IsolatedSearch;
using configtest::ReadFile;
using configtest::TempDir;
using configtest::WriteFile;

namespace {

struct CliResult {
    int exitCode;
    std::string out;
    std::string err;
};

std::string Quote(const std::string& arg) {
    std::string quoted = "'";
    for (char c : arg) quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return quoted + "'";
}

CliResult RunCli(const std::vector<std::string>& args) {
    TempDir output;
    std::string command = Quote(ZEFRA_CLI_PATH);
    for (const std::string& arg : args) command += " " + Quote(arg);
    command += " >" + output.File("out") + " 2>" + output.File("err");
    const int status = std::system(command.c_str());
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, ReadFile(output.File("out")), ReadFile(output.File("err"))};
}

const char kConfig[] = R"(<?xml version="1.0" encoding="UTF-8"?>
<zefra-config format="1">
  <dict name="">
    <dict name="ZEFRA">
      <dict name="SPACE" localname="房间标注">
        <double name="TEXTSIZE">3.5</double>
        <string name="VISIBLE_FIELD">名称</string>
        <option name="STYLE"><selection>1</selection><choice>实线</choice><choice>虚线</choice></option>
        <item name="0" endrange="630" />
      </dict>
    </dict>
  </dict>
</zefra-config>
)";

}  // namespace

TEST(ConfigCli, DumpAndGetShowKeysLocalNamesKindsAndValues) {
    TempDir dir;
    const std::string file = dir.File("c.xml");
    WriteFile(file, kConfig);

    CliResult r = RunCli({"config", "dump", "--config", file});
    EXPECT_EQ(r.exitCode, 0) << r.err;
    EXPECT_EQ(r.out,
              "ZEFRA <dict>\n"
              "  SPACE \"房间标注\" <dict>\n"
              "    TEXTSIZE <double> = 3.5\n"
              "    VISIBLE_FIELD <string> = \"名称\"\n"
              "    STYLE <option> = 1 [\"实线\", \"虚线\"]\n"
              "    0 <item> endrange=\"630\"\n");

    r = RunCli({"config", "dump", "ZEFRA\\SPACE", "--json", "--config", file});
    ASSERT_EQ(r.exitCode, 0) << r.err;
    const auto json = nlohmann::json::parse(r.out);
    EXPECT_EQ(json["localname"], "房间标注");
    EXPECT_EQ(json["children"][0]["value"], 3.5);
    EXPECT_EQ(json["children"][2]["value"]["options"][1], "虚线");

    r = RunCli({"config", "get", "ZEFRA\\SPACE\\STYLE", "--config", file});
    EXPECT_EQ(r.out, "虚线\n");
    r = RunCli({"config", "get", "ZEFRA\\SPACE\\VISIBLE_FIELD", "--config", file});
    EXPECT_EQ(r.out, "名称\n");
}

TEST(ConfigCli, SetSavesTypedValuesAndRefusesBadInputWithoutTouchingTheFile) {
    TempDir dir;
    const std::string file = dir.File("c.xml");
    WriteFile(file, kConfig);

    CliResult r = RunCli({"config", "set", "ZEFRA\\SPACE\\TEXTSIZE", "4.25", "--config", file});
    EXPECT_EQ(r.exitCode, 0) << r.err;
    r = RunCli({"config", "set", "ZEFRA\\SPACE\\N", "7", "--type", "int", "--config", file});
    EXPECT_EQ(r.exitCode, 0) << r.err;
    EXPECT_NE(ReadFile(file).find("<double name=\"TEXTSIZE\">4.25</double>"), std::string::npos);
    EXPECT_NE(ReadFile(file).find("<int name=\"N\">7</int>"), std::string::npos);
    const std::string saved = ReadFile(file);

    const std::vector<std::vector<std::string>> refused = {
        {"set", "ZEFRA\\SPACE\\TEXTSIZE", "abc"},
        {"set", "ZEFRA\\SPACE\\N", "1.5"},
        {"set", "ZEFRA\\SPACE\\N\\X", "1"},  // through a value
        {"set", "ZEFRA\\SPACE", "1"},
        {"set", "ZEFRA\\SPACE\\B", "maybe", "--type", "bool"},
        {"get", "ZEFRA\\SPACE\\MISSING"},
        {"get", "ZEFRA\\SPACE"},
        {"dump", "NOPE"},
    };
    for (std::vector<std::string> args : refused) {
        args.insert(args.begin(), "config");
        args.insert(args.end(), {"--config", file});
        r = RunCli(args);
        EXPECT_EQ(r.exitCode, 2) << args[2];
        EXPECT_EQ(r.err.rfind("zefra: ", 0), 0u) << r.err;
        EXPECT_EQ(ReadFile(file), saved);
    }

    WriteFile(file, "<broken");
    r = RunCli({"config", "dump", "--config", file});
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_NE(r.err.find(file + ": line 1, column"), std::string::npos) << r.err;
}

TEST(ConfigCli, SetWithoutAFileSavesBesideTheUsersFilesNotIntoShippedData) {
    IsolatedSearch search;
    const std::string shipped = ReadFile(std::string(ZEFRA_SOURCE_DATA_DIR) + "/Config.xml");
    CliResult r = RunCli({"config", "set", "ZEFRA\\SPACE\\TEXTSIZE", "5"});
    EXPECT_EQ(r.exitCode, 0) << r.err;
    EXPECT_EQ(ReadFile(std::string(ZEFRA_SOURCE_DATA_DIR) + "/Config.xml"), shipped);
    r = RunCli({"config", "get", "ZEFRA\\SPACE\\TEXTSIZE"});
    EXPECT_EQ(r.out, "5\n");
}
