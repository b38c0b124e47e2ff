// zefra point --batch through the tool: the table's edge cases, refusals
// that name the line and column, safe --out, and progress only on a terminal.

#include <nlohmann/json.hpp>

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <dirent.h>
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

void WriteFile(const std::string& path, const std::string& text) {
    std::ofstream(path, std::ios::binary) << text;
}

bool Exists(const std::string& path) {
    struct stat info {};
    return ::stat(path.c_str(), &info) == 0;
}

// A directory of its own for each test, removed at the end.
class Scratch {
public:
    Scratch() {
        char pattern[] = "/tmp/zefra_batch_XXXXXX";
        m_dir = ::mkdtemp(pattern);
    }
    ~Scratch() { std::system(("rm -rf " + Quote(m_dir)).c_str()); }
    std::string Path(const std::string& name) const { return m_dir + "/" + name; }
    std::vector<std::string> Files() const {
        std::vector<std::string> names;
        if (DIR* dir = ::opendir(m_dir.c_str())) {
            while (const dirent* entry = ::readdir(dir))
                if (entry->d_name[0] != '.' || (std::string(entry->d_name) != "." && std::string(entry->d_name) != ".."))
                    names.push_back(entry->d_name);
            ::closedir(dir);
        }
        return names;
    }

private:
    std::string m_dir;
};

// Runs the tool with `input` on standard input; `prefix` goes before the
// command (environment settings).
Result RunTool(const Scratch& scratch, const std::vector<std::string>& args, const std::string& input,
           const std::string& prefix = "") {
    const std::string in = scratch.Path("stdin");
    const std::string out = scratch.Path("stdout");
    const std::string err = scratch.Path("stderr");
    WriteFile(in, input);
    std::string command = prefix + Quote(ZEFRA_CLI_PATH);
    for (const std::string& arg : args) command += " " + Quote(arg);
    command += " <" + in + " >" + out + " 2>" + err;
    const int status = std::system(command.c_str());
    Result result{WIFEXITED(status) ? WEXITSTATUS(status) : -1, ReadFile(out), ReadFile(err)};
    std::remove(in.c_str());
    std::remove(out.c_str());
    std::remove(err.c_str());
    return result;
}

std::vector<std::string> Lines(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) lines.push_back(line);
    return lines;
}

const char* const kHeader =
    "Tdb [°C],RH [1],H [kJ/kg],D [g/kg],Twb [°C],Tdp [°C],Pv [Pa],Den [kg/m³],SV [m³/kg],Ds [g/kg],Ps [Pa]";

TEST(PointBatchCli, TablesOfEveryShape) {
    struct Case {
        const char* name;
        std::string input;
        std::vector<std::string> extra;  // options beyond --batch -
        int code;
        std::vector<std::string> outLines;  // prefixes of the output's lines, in order; empty: not checked
        std::string errPart;                 // in standard error
        int records = -1;                    // lines of output, when checked
    };
    const std::string tail22 = "22,0.6,47.36092568,9.896132101,";
    const std::vector<Case> cases = {
        {"plain", "tdb,rh\n22,0.6\n", {}, 0, {kHeader, tail22}, "", 2},
        {"columns in any order, names in any case, spaces", " RH , Tdb\n0.6,22\n", {}, 0, {kHeader, tail22}, ""},
        {"CRLF and a byte-order mark", "\xEF\xBB\xBFtdb,rh\r\n22,0.6\r\n", {}, 0, {kHeader, tail22}, ""},
        {"empty lines are skipped", "\ntdb,rh\n\n22,0.6\n\r\n\n22,0.6", {}, 0, {kHeader, tail22, tail22}, "", 3},
        {"quoted fields carried as they were",
         "zone,tdb,rh,note\n\"Hall, east\",22,0.6,\"says \"\"hi\"\"\nthere\"\n", {}, 0,
         {std::string("zone,note,") + kHeader, "\"Hall, east\",\"says \"\"hi\"\"\nthere\",22,0.6,"}, ""},
        {"quoted numbers", "tdb,rh\n\"22\",\" 0.6\"\n", {}, 0, {kHeader, tail22}, ""},
        {"extra columns carried", "a,tdb,b,rh,c\n1,22,2,0.6,3\n", {}, 0,
         {std::string("a,b,c,") + kHeader, "1,2,3," + tail22}, ""},
        {"a pressure per row, empty for the default", "tdb,rh,pressure\n22,0.6,80000\n22,0.6,\n", {}, 0,
         {std::string("pressure,") + kHeader, "80000,22,0.6,", "," + tail22}, ""},
        {"other pairs", "twb,tdp\n18,12\n", {}, 0, {kHeader}, ""},
        {"a bad value in the middle stops the run", "tdb,rh\n22,0.6\n22,1.6\n22,0.5\n", {}, 2, {},
         "line 3, column rh: rh = 1.6 is outside"},
        {"a number that isn't one", "tdb,rh\n22,0.6\n2x2,0.6\n", {}, 2, {}, "line 3, column tdb: '2x2' is not a number"},
        {"a state above saturation names both columns", "tdb,d\n20,40\n", {}, 2, {},
         "line 2, columns tdb and d: the point: the state lies above saturation"},
        {"a row short of fields", "tdb,rh,zone\n22,0.6\n", {}, 2, {}, "line 2: 2 fields where the header has 3"},
        {"a row with a field too many", "tdb,rh\n22,0.6,7\n", {}, 2, {}, "line 2: 3 fields where the header has 2"},
        {"line numbers count quoted line breaks", "note,tdb,rh\n\"a\nb\",22,0.6\nx,22,-1\n", {}, 2, {},
         "line 4, column rh"},
        {"a pressure in kPa", "tdb,rh,pressure\n22,0.6,101.3\n", {}, 2, {}, "line 2, column pressure"},
        {"one property column", "tdb,zone\n22,a\n", {}, 2, {}, "exactly two of the columns"},
        {"three property columns", "tdb,rh,d\n22,0.6,7\n", {}, 2, {}, "it names 3 (tdb, rh, d)"},
        {"a pair that isn't independent", "d,tdp\n7,9\n", {}, 2, {}, "d with tdp doesn't define a state"},
        {"a column named twice", "tdb,rh,zone,Zone\n22,0.6,a,b\n", {}, 2, {}, "names the column 'Zone' twice"},
        {"an empty table", "", {}, 2, {}, "the table is empty"},
        {"a quote left open", "tdb,rh\n\"22,0.6\n", {}, 2, {}, "line 2: a quoted field is not closed"},
        {"skip-bad writes the refusal and goes on", "tdb,rh\n22,0.6\n22,1.6\n22,0.6\n", {"--skip-bad"}, 0,
         {std::string(kHeader) + ",error", tail22, ",,,,,,,,,,,\"line 3, column rh: rh = 1.6", tail22}, "", 4},
        {"a pair with the table", "tdb,rh\n22,0.6\n", {"--tdb", "22"}, 2, {}, "--tdb can't be given with --batch"},
    };
    Scratch scratch;
    for (const Case& c : cases) {
        std::vector<std::string> args = {"point", "--batch", "-"};
        args.insert(args.end(), c.extra.begin(), c.extra.end());
        const Result result = RunTool(scratch, args, c.input);
        EXPECT_EQ(result.code, c.code) << c.name << "\n" << result.err;
        const auto lines = Lines(result.out);
        if (!c.outLines.empty()) {
            // A quoted line break splits one record over two lines of text.
            std::string joined;
            for (const auto& line : lines) joined += line + "\n";
            size_t at = 0;
            for (const std::string& expected : c.outLines) {
                const size_t found = joined.find(expected, at);
                ASSERT_NE(found, std::string::npos) << c.name << ": no '" << expected << "' in\n" << result.out;
                EXPECT_TRUE(found == 0 || joined[found - 1] == '\n') << c.name << ": " << expected;
                at = found + expected.size();
            }
            if (c.records >= 0) {
                EXPECT_EQ(static_cast<int>(lines.size()), c.records) << c.name;
            }
        }
        if (!c.errPart.empty()) {
            EXPECT_NE(result.err.find(c.errPart), std::string::npos) << c.name << ":\n" << result.err;
        }
    }
}

TEST(PointBatchCli, JsonLinesCarryThePointAndTheRow) {
    Scratch scratch;
    const Result result =
        RunTool(scratch, {"point", "--batch", "-", "--json", "--pressure", "90000"}, "t,tdb,rh\n08:00,22,0.6\n");
    ASSERT_EQ(result.code, 0) << result.err;
    const auto lines = Lines(result.out);
    ASSERT_EQ(lines.size(), 1u);
    auto json = nlohmann::json::parse(lines[0]);
    // The document of a single run, with the row's line and columns.
    EXPECT_EQ(json["line"], 2);
    EXPECT_EQ(json["columns"]["t"], "08:00");
    json.erase("line");
    json.erase("columns");
    const Result single = RunTool(scratch, {"point", "--tdb", "22", "--rh", "0.6", "--json", "--pressure", "90000"}, "");
    EXPECT_EQ(json, nlohmann::json::parse(single.out));

    // A refused row, written with --skip-bad: its line, its columns, the cause.
    const Result skipped =
        RunTool(scratch, {"point", "--batch", "-", "--json", "--skip-bad"}, "t,tdb,rh\n08:00,22,60\n09:00,22,0.6\n");
    ASSERT_EQ(skipped.code, 0) << skipped.err;
    const auto rows = Lines(skipped.out);
    ASSERT_EQ(rows.size(), 2u);
    const auto refused = nlohmann::json::parse(rows[0]);
    EXPECT_EQ(refused["line"], 2);
    EXPECT_EQ(refused["columns"]["t"], "08:00");
    EXPECT_NE(refused["error"].get<std::string>().find("looks like a percentage"), std::string::npos);
    EXPECT_EQ(refused["command"], "point");
    EXPECT_FALSE(refused.contains("point"));
    EXPECT_EQ(nlohmann::json::parse(rows[1])["line"], 3);
}

TEST(PointBatchCli, OutIsWholeOrNotThere) {
    Scratch scratch;
    const std::string target = scratch.Path("states.csv");
    // A bad row after several blocks' worth of good ones.
    std::string table = "tdb,rh\n";
    for (int k = 0; k < 9000; ++k) table += "21.5,0.45\n";
    table += "21.5,4.5\n";
    Result result = RunTool(scratch, {"point", "--batch", "-", "--out", target}, table);
    EXPECT_EQ(result.code, 2);
    EXPECT_NE(result.err.find("line 9002, column rh"), std::string::npos) << result.err;
    EXPECT_FALSE(Exists(target));
    EXPECT_TRUE(scratch.Files().empty()) << scratch.Files().front();  // no temporary file left

    // An old file stays as it was; a good run replaces it whole.
    WriteFile(target, "old\n");
    result = RunTool(scratch, {"point", "--batch", "-", "--out", target}, table);
    EXPECT_EQ(result.code, 2);
    EXPECT_EQ(ReadFile(target), "old\n");
    result = RunTool(scratch, {"point", "--batch", "-", "--out", target}, "tdb,rh\n22,0.6\n");
    EXPECT_EQ(result.code, 0) << result.err;
    EXPECT_TRUE(result.out.empty());
    EXPECT_EQ(Lines(ReadFile(target)).size(), 2u);
    EXPECT_EQ(scratch.Files().size(), 1u);

    result = RunTool(scratch, {"point", "--tdb", "22", "--rh", "0.6", "--out", target}, "");
    EXPECT_EQ(result.code, 2);
    EXPECT_NE(result.err.find("--out goes with --batch"), std::string::npos);
}

TEST(PointBatchCli, TheSampleWeatherYear) {
    Scratch scratch;
    const std::string weather = std::string(ZEFRA_SOURCE_DATA_DIR) + "/weather-sample.csv";
    const Result result = RunTool(scratch, {"point", "--batch", weather}, "");
    ASSERT_EQ(result.code, 0) << result.err;
    const auto lines = Lines(result.out);
    ASSERT_EQ(lines.size(), 8761u);
    EXPECT_EQ(lines[0], std::string("timestamp,") + kHeader);
    EXPECT_EQ(lines[1].rfind("2025-01-01T00:00,", 0), 0u);
    EXPECT_EQ(lines[8760].rfind("2025-12-31T23:00,", 0), 0u);
}

TEST(PointBatchCli, NoProgressOnAPipe) {
    Scratch scratch;
    std::string table = "tdb,rh\n";
    for (int k = 0; k < 20000; ++k) table += "21.5,0.45\n";
    WriteFile(scratch.Path("big.csv"), table);
    // Standard error into a pipe, with the progress asked for at once.
    const std::string err = scratch.Path("err");
    const std::string command = "ZEFRA_PROGRESS_DELAY=0 " + Quote(ZEFRA_CLI_PATH) + " point --batch " +
                                Quote(scratch.Path("big.csv")) + " 2>&1 >/dev/null | cat >" + Quote(err);
    ASSERT_EQ(std::system(command.c_str()), 0);
    EXPECT_EQ(ReadFile(err), "");

    // On a terminal it shows (when script(1) can give the tool one).
    if (std::system("command -v script >/dev/null 2>&1") != 0) GTEST_SKIP() << "no script(1) for a terminal";
    const std::string typescript = scratch.Path("typescript");
    const std::string onTerminal = "ZEFRA_PROGRESS_DELAY=0 script -qec " +
                                   Quote(Quote(ZEFRA_CLI_PATH) + " point --batch " + Quote(scratch.Path("big.csv")) +
                                         " --out " + Quote(scratch.Path("out.csv"))) +
                                   " " + Quote(typescript) + " >/dev/null 2>&1 </dev/null";
    ASSERT_EQ(std::system(onTerminal.c_str()), 0);
    EXPECT_NE(ReadFile(typescript).find("rows/s"), std::string::npos) << ReadFile(typescript);
}

}  // namespace
