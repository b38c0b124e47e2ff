// The umbrella header offers exactly the public headers, and compiles on its
// own in a translation unit that includes nothing else first.
#include "zefra/zefra.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace fs = std::filesystem;

namespace {

const fs::path kRoot = fs::path(ZEFRA_SOURCE_DATA_DIR).parent_path();

std::vector<std::string> Lines(const fs::path& file) {
    std::ifstream in(file);
    EXPECT_TRUE(in) << file << " not found";
    std::vector<std::string> lines;
    for (std::string line; std::getline(in, line);) lines.push_back(line);
    return lines;
}

}  // namespace

TEST(UmbrellaHeader, IncludesExactlyThePublicHeaders) {
    std::vector<std::string> listed;
    for (const std::string& line : Lines(kRoot / "cmake" / "public-headers.txt"))
        if (line.rfind("zefra/", 0) == 0) listed.push_back("#include \"" + line + "\"");
    std::vector<std::string> included;
    for (const std::string& line : Lines(kRoot / "zefra" / "zefra.h"))
        if (line.rfind("#include", 0) == 0) included.push_back(line);
    EXPECT_EQ(included, listed) << "zefra/zefra.h is out of date: run .ci/umbrella";
    for (const std::string& line : listed) {
        const std::string header = line.substr(10, line.size() - 11);
        if (header == "zefra/ZefraVersion.h") continue;  // written by CMake
        EXPECT_TRUE(fs::exists(kRoot / header)) << header;
    }
}

TEST(UmbrellaHeader, OffersTheMainEntryPoints) {
    ZefraHDGPoint point(22.0, 0.6, CString(L"N"));
    EXPECT_GT(point.GetH(), 0.0);
    EXPECT_EQ(GetHDGCurB(), 101325.0);
    const std::string version = std::to_string(ZEFRA_VERSION_MAJOR) + "." + std::to_string(ZEFRA_VERSION_MINOR) +
                                "." + std::to_string(ZEFRA_VERSION_PATCH);
    EXPECT_EQ(version, ZEFRA_VERSION_STRING);
}
