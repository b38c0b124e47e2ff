// zefra primary|secondary --batch and --weather against single runs of the
// same given data.

#include <nlohmann/json.hpp>

#include <gtest/gtest.h>

#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace {

struct Result {
    int code;
    std::string out;
    std::string err;
};

std::string Quote(const std::string& arg) {
    std::string quoted = "'";
    for (char c : arg) quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return quoted + "'";
}

std::string ReadFile(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

class Scratch {
public:
    Scratch() {
        char pattern[] = "/tmp/zefra_schemebatch_XXXXXX";
        m_dir = ::mkdtemp(pattern);
    }
    ~Scratch() { std::system(("rm -rf " + Quote(m_dir)).c_str()); }
    std::string Write(const std::string& name, const std::string& text) const {
        const std::string path = m_dir + "/" + name;
        std::ofstream(path, std::ios::binary) << text;
        return path;
    }
    std::string Path(const std::string& name) const { return m_dir + "/" + name; }

private:
    std::string m_dir;
};

Result RunTool(const Scratch& scratch, const std::vector<std::string>& args) {
    std::string command = Quote(ZEFRA_CLI_PATH);
    for (const std::string& arg : args) command += " " + Quote(arg);
    command += " </dev/null >" + scratch.Path("out") + " 2>" + scratch.Path("err");
    const int status = std::system(command.c_str());
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, ReadFile(scratch.Path("out")),
            ReadFile(scratch.Path("err"))};
}

std::vector<std::string> Lines(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) lines.push_back(line);
    return lines;
}

// Each line of a batch is what a single run of that line gives.
TEST(SchemeBatchCli, EveryLineAsASingleRun) {
    Scratch scratch;
    const std::vector<std::pair<std::string, std::string>> runs = {
        {"primary", "{}"},
        {"primary", R"({"Qn": 20, "PointW": {"Tdb": 35, "RH": 0.5}})"},
        {"primary", R"({"CalPriRetAirType": 3})"},
        {"primary", R"({"summer": {"Qn": 15}, "winter": {"Qn": 25}})"},
        {"secondary", "{}"},
        {"secondary", R"({"CalPriRetAirType": 1, "PointW": {"Tdb": -12, "RH": 0.6}})"},
    };
    for (const std::string scheme : {"primary", "secondary"}) {
        std::string batch = "\n";  // an empty line is skipped
        std::vector<std::string> documents;
        for (const auto& [which, document] : runs)
            if (which == scheme) {
                batch += document + "\r\n";
                documents.push_back(document);
            }
        const std::string file = scratch.Write(scheme + ".jsonl", batch);
        const Result result = RunTool(scratch, {scheme, "--batch", file, "--pressure", "95000"});
        ASSERT_EQ(result.code, 0) << result.err;
        const auto lines = Lines(result.out);
        ASSERT_EQ(lines.size(), documents.size());
        for (size_t i = 0; i < documents.size(); ++i) {
            auto line = nlohmann::json::parse(lines[i]);
            EXPECT_EQ(line["line"], i + 2);
            line.erase("line");
            const std::string input = scratch.Write("input.json", documents[i]);
            const Result single = RunTool(scratch, {scheme, "--input", input, "--json", "--pressure", "95000"});
            ASSERT_EQ(single.code, 0) << single.err;
            EXPECT_EQ(line, nlohmann::json::parse(single.out)) << scheme << " " << documents[i];
        }
    }
}

TEST(SchemeBatchCli, ABadLineStopsOrIsSkipped) {
    Scratch scratch;
    const std::string file = scratch.Write("bad.jsonl", "{}\n{\"Qn\": \n{\"Nonsense\": 1}\n");
    Result result = RunTool(scratch, {"primary", "--batch", file, "--out", scratch.Path("out.jsonl")});
    EXPECT_EQ(result.code, 2);
    EXPECT_NE(result.err.find("line 2"), std::string::npos) << result.err;
    EXPECT_EQ(ReadFile(scratch.Path("out.jsonl")), "");  // no file

    result = RunTool(scratch, {"primary", "--batch", file, "--skip-bad"});
    ASSERT_EQ(result.code, 0) << result.err;
    const auto lines = Lines(result.out);
    ASSERT_EQ(lines.size(), 3u);
    EXPECT_TRUE(nlohmann::json::parse(lines[0]).contains("flows"));
    for (const int bad : {1, 2}) {
        const auto line = nlohmann::json::parse(lines[static_cast<size_t>(bad)]);
        EXPECT_EQ(line["line"], bad + 1);
        EXPECT_TRUE(line.contains("error"));
    }
    EXPECT_NE(nlohmann::json::parse(lines[2])["error"].get<std::string>().find("Nonsense"), std::string::npos);
}

// A design over outdoor states: each row is the single run of the design with
// that outdoor state, in the season the row's enthalpy picks.
TEST(SchemeBatchCli, WeatherRowsAsSingleRuns) {
    Scratch scratch;
    const std::string table = scratch.Write("weather.csv", "hour,tdb,rh\nnoon,34,0.5\nnight,-8,0.75\nfrost,0,0.8\n");
    const std::string design = scratch.Write(
        "design.json", R"({"summer": {"Qn": 14, "PointN": {"Tdb": 25, "RH": 0.5}}, "winter": {"Qn": 18}})");
    for (const std::string scheme : {"primary", "secondary"}) {
        const Result result =
            RunTool(scratch, {scheme, "--weather", table, "--input", design, "--season", "auto", "--json"});
        ASSERT_EQ(result.code, 0) << result.err;
        const auto lines = Lines(result.out);
        ASSERT_EQ(lines.size(), 3u);
        const char* seasons[] = {"summer", "winter", "winter"};
        const char* outdoor[] = {R"({"Tdb": 34, "RH": 0.5})", R"({"Tdb": -8, "RH": 0.75})", R"({"Tdb": 0, "RH": 0.8})"};
        for (size_t i = 0; i < 3; ++i) {
            const auto row = nlohmann::json::parse(lines[i]);
            EXPECT_EQ(row["line"], i + 2);
            EXPECT_EQ(row["season"], seasons[i]) << scheme << " row " << i;
            const bool winter = std::string(seasons[i]) == "winter";
            const std::string fields = winter ? std::string(R"({"Qn": 18, "PointW": )") + outdoor[i] + "}"
                                              : std::string(R"({"Qn": 14, "PointN": {"Tdb": 25, "RH": 0.5}, "PointW": )") +
                                                    outdoor[i] + "}";
            const std::string input = scratch.Write("row.json", fields);
            const std::string type = winter ? (scheme == "primary" ? "2" : "1") : "0";
            const Result single = RunTool(scratch, {scheme, "--input", input, "--type", type, "--json"});
            ASSERT_EQ(single.code, 0) << single.err;
            auto whole = row;
            whole.erase("line");
            whole.erase("columns");
            EXPECT_EQ(whole, nlohmann::json::parse(single.out)) << scheme << " row " << i;
            EXPECT_EQ(row["columns"]["hour"], Lines("noon\nnight\nfrost")[i]);
        }
    }

    // CSV: the carried column, the season, the loads and the points by name.
    const Result csv = RunTool(scratch, {"primary", "--weather", table, "--type", "0"});
    ASSERT_EQ(csv.code, 0) << csv.err;
    const auto lines = Lines(csv.out);
    ASSERT_EQ(lines.size(), 4u);
    EXPECT_EQ(lines[0].rfind("hour,season,type,Go [kg/s],", 0), 0u) << lines[0];
    EXPECT_NE(lines[0].find("Qp [kW]"), std::string::npos);
    EXPECT_NE(lines[0].find("O Tdb [°C],O RH [1]"), std::string::npos);
    EXPECT_EQ(lines[1].rfind("noon,summer,0,", 0), 0u) << lines[1];
}

TEST(SchemeBatchCli, WeatherRefusals) {
    Scratch scratch;
    const std::string table = scratch.Write("weather.csv", "tdb,rh\n30,0.5\n30,50\n");
    Result result = RunTool(scratch, {"primary", "--weather", table});
    EXPECT_EQ(result.code, 2);
    EXPECT_NE(result.err.find("line 3, column rh"), std::string::npos) << result.err;
    result = RunTool(scratch, {"primary", "--weather", table, "--season", "auto", "--type", "1"});
    EXPECT_EQ(result.code, 2);
    EXPECT_NE(result.err.find("--type can't be given"), std::string::npos) << result.err;
    result = RunTool(scratch, {"primary", "--weather", table, "--season", "spring"});
    EXPECT_EQ(result.code, 2);
    result = RunTool(scratch, {"primary", "--season", "auto"});
    EXPECT_EQ(result.code, 2);
    EXPECT_NE(result.err.find("--season goes with --weather"), std::string::npos) << result.err;
    const std::string summerOnly = scratch.Write("summer.json", R"({"Qn": 14})");
    result = RunTool(scratch, {"primary", "--weather", table, "--input", summerOnly, "--season", "auto"});
    EXPECT_EQ(result.code, 2);
    EXPECT_NE(result.err.find("both seasons"), std::string::npos) << result.err;
}

}  // namespace
