// The umbrella header must offer every header of the library, and compile on
// its own in a translation unit that includes nothing else first.
#include "zefra/zefra.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>

namespace fs = std::filesystem;

TEST(UmbrellaHeader, IncludesEveryHeaderOfTheLibrary) {
    const fs::path root = fs::path(ZEFRA_SOURCE_DATA_DIR).parent_path();
    std::ifstream in(root / "zefra" / "zefra.h");
    ASSERT_TRUE(in) << "zefra/zefra.h not found";
    std::stringstream text;
    text << in.rdbuf();
    std::set<std::string> missing;
    for (const auto& entry : fs::recursive_directory_iterator(root / "zefra")) {
        if (entry.path().extension() != ".h" || entry.path().filename() == "zefra.h") continue;
        const std::string rel = fs::relative(entry.path(), root).generic_string();
        if (text.str().find("#include \"" + rel + "\"") == std::string::npos) missing.insert(rel);
    }
    std::string list;
    for (const auto& m : missing) list += "\n  " + m;
    EXPECT_TRUE(missing.empty()) << "headers missing from zefra/zefra.h:" << list;
}

TEST(UmbrellaHeader, OffersTheMainEntryPoints) {
    ZefraHDGPoint point(22.0, 0.6, CString(L"N"));
    EXPECT_GT(point.GetH(), 0.0);
    EXPECT_EQ(GetHDGCurB(), 101325.0);
}
