// Writers in separate processes: each edit applies its change to what the
// other saved, and a writer that can't get the lock says so.

#include "ConfigTestSupport.h"

#include "zefra/config/QoDtConfigEdit.h"
#include "zefra/config/QoDtDiskFile.h"

using configtest::ReadFile;
using configtest::RunZefra;
using configtest::ShellQuote;
using configtest::TempDir;
using configtest::W;
using configtest::WriteFile;

namespace {

const char kConfig[] = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                       "<zefra-config format=\"1\"><dict name=\"\"><dict name=\"ZEFRA\"><dict name=\"SPACE\">"
                       "<int name=\"COUNT\">0</int></dict></dict></dict></zefra-config>\n";

}  // namespace

TEST(ConfigLocking, TwoToolsSettingAHundredValuesEachLoseNone) {
    TempDir dir;
    const std::string file = dir.File("Config.xml");
    WriteFile(file, kConfig);
    std::string script;
    for (const char* writer : {"A", "B"}) {
        script += "(i=0; while [ $i -lt 100 ]; do " + ShellQuote(ZEFRA_CLI_PATH) + " config set 'ZEFRA\\SPACE\\" +
                  writer + "'$i v$i --config " + ShellQuote(file) + " || echo failed; i=$((i+1)); done) & ";
    }
    script += "wait";
    TempDir output;
    ASSERT_EQ(std::system(("(" + script + ") >" + output.File("out") + " 2>&1").c_str()), 0);
    EXPECT_EQ(ReadFile(output.File("out")), "");

    QoDtDictionary tree;
    CString message;
    ASSERT_TRUE(tree.LoadFromXML(W(file), &message)) << message.ToUtf8();
    int lost = 0;
    for (const char* writer : {"A", "B"}) {
        for (int i = 0; i < 100; ++i) {
            CString value;
            if (!tree.GetValue(W("ZEFRA\\SPACE\\" + std::string(writer) + std::to_string(i)), value) ||
                value.ToUtf8() != "v" + std::to_string(i))
                ++lost;
        }
    }
    EXPECT_EQ(lost, 0);
    EXPECT_TRUE(configtest::Temporaries(dir.Path()).empty());
}

TEST(ConfigLocking, TwoProcessesIncrementingOneValueThroughEditsCountEveryStep) {
    TempDir dir;
    const std::string file = dir.File("Config.xml");
    WriteFile(file, kConfig);
    std::vector<pid_t> children;
    for (int writer = 0; writer < 2; ++writer) {
        const pid_t pid = ::fork();
        ASSERT_GE(pid, 0);
        if (pid == 0) {
            int failures = 0;
            for (int step = 0; step < 100; ++step) {
                std::string error;
                const bool ok = QoDtConfigEdit::Run(
                    file,
                    [](QoDtDictionary& tree, std::string&) {
                        int count = -1;
                        return tree.GetValue(W("ZEFRA\\SPACE\\COUNT"), count) &&
                               tree.SetValue(W("ZEFRA\\SPACE\\COUNT"), count + 1);
                    },
                    error);
                if (!ok) ++failures;
            }
            ::_exit(failures == 0 ? 0 : 1);
        }
        children.push_back(pid);
    }
    for (const pid_t pid : children) {
        int status = 0;
        ASSERT_EQ(::waitpid(pid, &status, 0), pid);
        EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
    }
    QoDtDictionary tree;
    ASSERT_TRUE(tree.LoadFromXML(W(file)));
    int count = 0;
    EXPECT_TRUE(tree.GetValue(W("ZEFRA\\SPACE\\COUNT"), count));
    EXPECT_EQ(count, 200);
}

TEST(ConfigLocking, AWriterThatCannotGetTheLockInTimeSaysSoAndChangesNothing) {
    TempDir dir;
    const std::string file = dir.File("Config.xml");
    WriteFile(file, kConfig);
    QoDtFileLock held;
    std::string error;
    ASSERT_TRUE(held.Acquire(file, error)) << error;
    EXPECT_EQ(held.LockPath(), file + ".lock");

    const configtest::CliResult r =
        RunZefra({"config", "set", "ZEFRA\\SPACE\\COUNT", "7", "--config", file}, "ZEFRA_LOCK_TIMEOUT_MS=300");
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_NE(r.err.find("was not free within 0.3 s"), std::string::npos) << r.err;
    EXPECT_EQ(ReadFile(file), kConfig);

    // Within this process the lock is taken again while held, so an edit
    // can call a save that locks too; another process can't.
    QoDtDictionary tree;
    ASSERT_TRUE(tree.LoadFromXML(W(file)));
    EXPECT_TRUE(tree.SaveToXML(W(file)));
    held.Release();
    const configtest::CliResult after = RunZefra({"config", "set", "ZEFRA\\SPACE\\COUNT", "7", "--config", file});
    EXPECT_EQ(after.exitCode, 0) << after.err;
}

TEST(ConfigLocking, ALinkAndItsTargetShareOneLock) {
    TempDir dir;
    const std::string file = dir.File("Config.xml");
    WriteFile(file, kConfig);
    configtest::fs::create_symlink(file, dir.File("link.xml"));
    QoDtFileLock viaLink;
    std::string error;
    ASSERT_TRUE(viaLink.Acquire(dir.File("link.xml"), error)) << error;
    EXPECT_EQ(viaLink.LockPath(), file + ".lock");
}

TEST(ConfigLocking, EveryEditingCommandWaitsForTheLockAndGivesUpWithExitCodeTwo) {
    TempDir dir;
    const std::string file = dir.File("Config.xml");
    const std::string shipped = ReadFile(std::string(ZEFRA_SOURCE_DATA_DIR) + "/Config.xml");
    WriteFile(file, shipped);
    QoDtFileLock held;
    std::string error;
    ASSERT_TRUE(held.Acquire(file, error)) << error;
    const std::vector<std::vector<std::string>> commands = {
        {"config", "set", "ZEFRA\\SPACE\\TEXTSIZE", "4"},
        {"systems", "add", "--kind", "kt", "--key", "NEW", "--name", "新系统"},
        {"systems", "del", "--kind", "kt", "--key", "NEW"},
        {"flange", "add", "700", "45"},
        {"flange", "del", "630"},
    };
    for (std::vector<std::string> command : commands) {
        command.push_back("--config");
        command.push_back(file);
        const configtest::CliResult r = RunZefra(command, "ZEFRA_LOCK_TIMEOUT_MS=200");
        EXPECT_EQ(r.exitCode, 2) << command[0] << " " << command[1] << ": " << r.err;
        EXPECT_NE(r.err.find("its lock"), std::string::npos) << command[0] << " " << command[1] << ": " << r.err;
    }
    EXPECT_EQ(ReadFile(file), shipped);
}
