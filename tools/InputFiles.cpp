#include "InputFiles.h"

#include "Cli.h"

#include <cerrno>
#include <cstring>
#include <fstream>
#include <iostream>
#include <iterator>
#include <sstream>

#include <sys/stat.h>

namespace zefra::cli {

namespace {

std::string KindOf(mode_t mode) {
    if (S_ISDIR(mode)) return "a directory";
    if (S_ISFIFO(mode)) return "a FIFO";
    if (S_ISCHR(mode) || S_ISBLK(mode)) return "a device";
    if (S_ISSOCK(mode)) return "a socket";
    return "not a regular file";
}

}  // namespace

void RequireRegularFile(const std::string& option, const std::string& path, size_t largest) {
    struct stat info {};
    if (::stat(path.c_str(), &info) != 0)
        throw UsageError(option + ": cannot read " + path + ": " + std::strerror(errno));
    if (!S_ISREG(info.st_mode)) throw UsageError(option + ": " + path + " is " + KindOf(info.st_mode) + ", not a file");
    if (static_cast<unsigned long long>(info.st_size) > largest)
        throw UsageError(option + ": " + path + " is larger than " + std::to_string(largest >> 20) + " MiB");
}

std::string ReadInputText(const std::string& option, const std::string& path, size_t largest) {
    if (path == "-") {
        std::string text;
        char buffer[65536];
        while (std::cin.read(buffer, sizeof buffer) || std::cin.gcount() > 0) {
            text.append(buffer, static_cast<size_t>(std::cin.gcount()));
            if (text.size() > largest)
                throw UsageError(option + ": standard input is larger than " + std::to_string(largest >> 20) +
                                 " MiB");
        }
        return text;
    }
    RequireRegularFile(option, path, largest);
    std::ifstream in(path, std::ios::binary);
    if (!in) throw UsageError(option + ": cannot open " + path);
    std::ostringstream text;
    text << in.rdbuf();
    if (in.bad()) throw UsageError(option + ": cannot read " + path);
    return text.str();
}

}  // namespace zefra::cli
