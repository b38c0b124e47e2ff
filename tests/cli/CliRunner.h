#pragma once
// Runs the built zefra binary with arguments and collects its exit code,
// standard output and standard error.

#include <nlohmann/json.hpp>

#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace clitest {

struct CliResult {
    int exitCode;
    std::string out;
    std::string err;

    nlohmann::json Json() const { return nlohmann::json::parse(out); }
};

inline std::string Quote(const std::string& arg) {
    std::string quoted = "'";
    for (char c : arg) quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return quoted + "'";
}

inline std::string TakeFile(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    std::remove(path.c_str());
    return text.str();
}

inline std::string TempPath() {
    char path[] = "/tmp/zefra_cli_XXXXXX";
    const int fd = mkstemp(path);
    if (fd >= 0) close(fd);
    return path;
}

// A file with the given text that lives as long as the object.
class TempFile {
public:
    explicit TempFile(const std::string& text) : m_path(TempPath()) { std::ofstream(m_path) << text; }
    ~TempFile() { std::remove(m_path.c_str()); }
    TempFile(const TempFile&) = delete;
    TempFile& operator=(const TempFile&) = delete;
    const std::string& Path() const { return m_path; }

private:
    std::string m_path;
};

inline CliResult RunCli(const std::vector<std::string>& args) {
    const std::string out = TempPath();
    const std::string err = TempPath();
    std::string command = Quote(ZEFRA_CLI_PATH);
    for (const std::string& arg : args) command += " " + Quote(arg);
    command += " >" + out + " 2>" + err;
    const int status = std::system(command.c_str());
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, TakeFile(out), TakeFile(err)};
}

}  // namespace clitest
