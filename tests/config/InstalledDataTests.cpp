// An installation that was moved still finds its own shipped data: the
// installed zefra looks for share/zefra relative to where it lies, and never
// writes there.
#include <gtest/gtest.h>

#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

namespace fs = std::filesystem;

namespace {

std::string Read(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

void Write(const fs::path& file, const std::string& text) {
    fs::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << text;
}

class MovedInstallation : public ::testing::Test {
protected:
    void SetUp() override {
        char pattern[] = "/tmp/zefra_installed_XXXXXX";
        ASSERT_NE(::mkdtemp(pattern), nullptr);
        root = pattern;
        for (const char* dir : {"user", "home", "elsewhere"}) fs::create_directories(root / dir);
        // An installation of the tool and a shipped Config.xml with a value
        // of its own, so that the test sees which file was read.
        const fs::path bin = root / "installed" / "bin";
        fs::create_directories(bin);
        fs::copy_file(ZEFRA_CLI_PATH, bin / "zefra");
        std::string config = Read(fs::path(ZEFRA_SOURCE_DATA_DIR) / "Config.xml");
        const std::string shipped = ">101325</double>";
        const size_t at = config.find(shipped);
        ASSERT_NE(at, std::string::npos);
        config.replace(at, shipped.size(), ">99876</double>");
        Write(bin / ZEFRA_BIN_TO_DATA / "Config.xml", config);
    }
    void TearDown() override { fs::remove_all(root); }

    // Runs the installed tool from a directory of no interest, with an empty
    // configuration directory and no user's directory.
    std::string Run(const fs::path& prefix, const std::string& args, int& exitCode) const {
        const fs::path out = root / "out.txt";
        const std::string command = "cd '" + (root / "elsewhere").string() + "' && env -u XDG_CONFIG_HOME HOME='" +
                                    (root / "home").string() + "' ZEFRA_CONFIG_DIR='" + (root / "user").string() +
                                    "' '" + (prefix / "bin" / "zefra").string() + "' " + args + " >'" +
                                    out.string() + "' 2>&1";
        const int status = std::system(command.c_str());
        exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
        return Read(out);
    }

    fs::path root;
};

const char* const kGetPressure = "config get 'ZEFRA\\CALCONDITION\\Pressure'";

TEST_F(MovedInstallation, ReadsItsOwnShippedDataBeforeAndAfterTheMove) {
    int exitCode = -1;
    EXPECT_EQ(Run(root / "installed", kGetPressure, exitCode), "99876\n");
    EXPECT_EQ(exitCode, 0);

    fs::rename(root / "installed", root / "moved");
    EXPECT_EQ(Run(root / "moved", kGetPressure, exitCode), "99876\n");
    EXPECT_EQ(exitCode, 0);
}

TEST_F(MovedInstallation, SavesIntoTheConfigurationDirectoryNotIntoShippedData) {
    fs::rename(root / "installed", root / "moved");
    const fs::path shipped = root / "moved" / "bin" / ZEFRA_BIN_TO_DATA / "Config.xml";
    const std::string before = Read(shipped);

    int exitCode = -1;
    Run(root / "moved", "config set 'ZEFRA\\CALCONDITION\\Pressure' 90000", exitCode);
    EXPECT_EQ(exitCode, 0);
    EXPECT_EQ(Read(shipped), before);
    EXPECT_NE(Read(root / "user" / "Config.xml").find(">90000<"), std::string::npos);
    EXPECT_EQ(Run(root / "moved", kGetPressure, exitCode), "90000\n");
}

TEST_F(MovedInstallation, WithoutDataBesideItFallsBackToTheSourceTree) {
    fs::remove_all(root / "installed" / "bin" / ZEFRA_BIN_TO_DATA);
    int exitCode = -1;
    EXPECT_EQ(Run(root / "installed", kGetPressure, exitCode), "101325\n");
    EXPECT_EQ(exitCode, 0);
}

}  // namespace
