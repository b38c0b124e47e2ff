// Saves that are killed, interrupted or cut short by a size limit leave the
// old file whole and no temporary for long; targets that must not be
// replaced are refused.

#include "ConfigTestSupport.h"

#include "zefra/config/QoDtDiskFile.h"
#include "zefra/config/QoDtXmlFile.h"

#include <csignal>
#include <algorithm>
#include <chrono>
#include <cstdint>
#include <random>
#include <sys/resource.h>
#include <sys/stat.h>

using configtest::ReadFile;
using configtest::RunZefra;
using configtest::TempDir;
using configtest::Temporaries;
using configtest::W;
using configtest::WriteFile;

namespace {

// A tree whose save takes a while (a few MB of text).
void FillLarge(QoDtDictionary& tree, int generation) {
    for (int d = 0; d < 40; ++d) {
        QoDtDictionary* dict = tree.FindOrAddDict(W("D" + std::to_string(d)));
        for (int i = 0; i < 2000; ++i)
            dict->SetValue(W("K" + std::to_string(i)), W("generation " + std::to_string(generation) + " value " +
                                                         std::to_string(i)));
    }
}

int GenerationOf(const std::string& file) {
    QoDtDictionary tree;
    CString message;
    if (!tree.LoadFromXML(W(file), &message)) return -1;
    CString first;
    CString last;
    if (!tree.GetValue(W("D0\\K0"), first) || !tree.GetValue(W("D39\\K1999"), last)) return -2;
    const std::string a = first.ToUtf8();
    const std::string b = last.ToUtf8();
    const int generation = std::atoi(a.c_str() + std::strlen("generation "));
    // Every value of one file is of one generation: no mix.
    return std::atoi(b.c_str() + std::strlen("generation ")) == generation ? generation : -3;
}

}  // namespace

TEST(ConfigInterruptedSaves, KilledSavesLeaveAWholeFileAndTheNextSaveClearsTheirTemporaries) {
    TempDir dir;
    const std::string file = dir.File("Config.xml");
    {
        QoDtDictionary tree;
        FillLarge(tree, 0);
        ASSERT_TRUE(tree.SaveToXML(W(file)));
    }
    std::mt19937 rng(24);
    int temporariesSeen = 0;
    for (int round = 1; round <= 25; ++round) {
        int pipeEnds[2];
        ASSERT_EQ(::pipe(pipeEnds), 0);
        const pid_t pid = ::fork();
        ASSERT_GE(pid, 0);
        if (pid == 0) {
            // Tells how long one save takes, then saves on and on.
            QoDtDictionary tree;
            FillLarge(tree, round);
            const auto start = std::chrono::steady_clock::now();
            tree.SaveToXML(W(file), nullptr, true);
            const auto took = static_cast<uint32_t>(
                std::chrono::duration_cast<std::chrono::microseconds>(std::chrono::steady_clock::now() - start).count());
            if (::write(pipeEnds[1], &took, sizeof took) != sizeof took) ::_exit(1);
            for (;;) tree.SaveToXML(W(file), nullptr, true);
        }
        uint32_t took = 0;
        ASSERT_EQ(::read(pipeEnds[0], &took, sizeof took), static_cast<ssize_t>(sizeof took));
        ::close(pipeEnds[0]);
        ::close(pipeEnds[1]);
        ::usleep(std::uniform_int_distribution<useconds_t>(0, 2 * took)(rng));
        ::kill(pid, SIGKILL);
        int status = 0;
        ASSERT_EQ(::waitpid(pid, &status, 0), pid);
        const int generation = GenerationOf(file);
        EXPECT_GE(generation, 0) << "round " << round;
        temporariesSeen += static_cast<int>(Temporaries(dir.Path()).size());
    }
    // Kills at random points of a save: most rounds leave a temporary (how
    // many depends on how the time splits between making the text and
    // writing it; the cleaning of a planted one is tested below).
    RecordProperty("temporaries_left_by_kills", temporariesSeen);

    QoDtDictionary tree;
    FillLarge(tree, 99);
    CString message;
    ASSERT_TRUE(tree.SaveToXML(W(file), &message, true)) << message.ToUtf8();
    EXPECT_EQ(Temporaries(dir.Path()), std::vector<std::string>());
    EXPECT_EQ(GenerationOf(file), 99);
}

TEST(ConfigInterruptedSaves, ASignalEndsTheProgramWithoutLeavingItsTemporary) {
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        TempDir dir;
        const std::string file = dir.File("Config.xml");
        int pipeEnds[2];
        ASSERT_EQ(::pipe(pipeEnds), 0);
        const pid_t pid = ::fork();
        ASSERT_GE(pid, 0);
        if (pid == 0) {
            QoDtDiskFile::InstallSignalCleanup();
            QoDtDictionary tree;
            FillLarge(tree, 1);
            if (::write(pipeEnds[1], "r", 1) != 1) ::_exit(1);
            for (;;) tree.SaveToXML(W(file), nullptr, true);
        }
        char ready = 0;
        ASSERT_EQ(::read(pipeEnds[0], &ready, 1), 1);
        ::close(pipeEnds[0]);
        ::close(pipeEnds[1]);
        ::usleep(30000);
        ::kill(pid, signal);
        int status = 0;
        ASSERT_EQ(::waitpid(pid, &status, 0), pid);
        EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == signal) << signal;
        EXPECT_EQ(Temporaries(dir.Path()), std::vector<std::string>()) << signal;
    }
}

TEST(ConfigInterruptedSaves, ASaveOverTheFileSizeLimitIsAnErrorAndLeavesNothing) {
    TempDir dir;
    const std::string file = dir.File("Config.xml");
    const std::string small = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<zefra-config format=\"1\"><dict name=\"\"/>"
                              "</zefra-config>\n";
    WriteFile(file, small);

    // The tool: exit 2 with a message, not a death by SIGXFSZ.
    const std::string big(3000, 'x');
    const configtest::CliResult r = RunZefra({"config", "set", "BIG", big, "--config", file}, "ulimit -f 2;");
    EXPECT_EQ(r.exitCode, 2) << r.err;
    EXPECT_NE(r.err.find("file size limit"), std::string::npos) << r.err;
    EXPECT_EQ(ReadFile(file), small);
    EXPECT_EQ(Temporaries(dir.Path()), std::vector<std::string>());

    // The library, in a process that limits itself.
    const pid_t pid = ::fork();
    ASSERT_GE(pid, 0);
    if (pid == 0) {
        QoDtDiskFile::InstallSignalCleanup();
        rlimit limit{1024, 1024};
        ::setrlimit(RLIMIT_FSIZE, &limit);
        QoDtDictionary tree;
        tree.SetValue(L"BIG", CString::FromUtf8(big));
        CString message;
        const bool saved = tree.SaveToXML(W(file), &message);
        ::_exit(!saved && message.ToUtf8().find("File too large") != std::string::npos ? 0 : 1);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(pid, &status, 0), pid);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
    EXPECT_EQ(ReadFile(file), small);
    EXPECT_EQ(Temporaries(dir.Path()), std::vector<std::string>());
}

TEST(ConfigInterruptedSaves, TargetsThatMustNotBeReplacedAreRefused) {
    const std::string text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<zefra-config format=\"1\"><dict name=\"\"/>"
                             "</zefra-config>\n";
    QoDtDictionary tree;
    tree.SetValue(L"NEW", 1);
    CString message;
    {
        TempDir dir;
        const std::string file = dir.File("Config.xml");
        WriteFile(file, text);
        ::chmod(file.c_str(), 0444);
        EXPECT_FALSE(tree.SaveToXML(W(file), &message));
        EXPECT_NE(message.ToUtf8().find("read-only"), std::string::npos) << message.ToUtf8();
        EXPECT_EQ(ReadFile(file), text);
        struct stat info {};
        ASSERT_EQ(::stat(file.c_str(), &info), 0);
        EXPECT_EQ(info.st_mode & 07777, 0444u);
    }
    {
        // A link whose target doesn't exist yet: the target is written, the
        // link stays a link.
        TempDir dir;
        const std::string link = dir.File("Config.xml");
        configtest::fs::create_symlink("real/Config.xml", link);
        configtest::fs::create_directory(dir.File("real"));
        ASSERT_TRUE(tree.SaveToXML(W(link), &message)) << message.ToUtf8();
        EXPECT_TRUE(configtest::fs::is_symlink(link));
        EXPECT_TRUE(QoDtDiskFile::Exists(dir.File("real/Config.xml")));
        // A link into a directory that isn't there is refused.
        configtest::fs::create_symlink("nowhere/Config.xml", dir.File("broken.xml"));
        EXPECT_FALSE(tree.SaveToXML(W(dir.File("broken.xml")), &message));
        EXPECT_TRUE(configtest::fs::is_symlink(dir.File("broken.xml")));
    }
    {
        // A FIFO is refused before it is opened (opening it would wait for
        // a writer), for loading and for saving.
        TempDir dir;
        const std::string fifo = dir.File("Config.xml");
        ASSERT_EQ(::mkfifo(fifo.c_str(), 0644), 0);
        QoDtDictionary loaded;
        EXPECT_FALSE(loaded.LoadFromXML(W(fifo), &message));
        EXPECT_NE(message.ToUtf8().find("not a regular file"), std::string::npos) << message.ToUtf8();
        EXPECT_FALSE(tree.SaveToXML(W(fifo), &message));
        struct stat info {};
        ASSERT_EQ(::lstat(fifo.c_str(), &info), 0);
        EXPECT_TRUE(S_ISFIFO(info.st_mode));
        const configtest::CliResult r = RunZefra({"config", "dump", "--config", fifo});
        EXPECT_EQ(r.exitCode, 2);
        EXPECT_NE(r.err.find("not a regular file"), std::string::npos) << r.err;
        const configtest::CliResult device = RunZefra({"config", "get", "X", "--config", "/dev/zero"});
        EXPECT_EQ(device.exitCode, 2);
    }
}

TEST(ConfigInterruptedSaves, ASaveRemovesOnlyTheTemporariesOfProcessesThatAreGone) {
    TempDir dir;
    const pid_t dead = ::fork();
    ASSERT_GE(dead, 0);
    if (dead == 0) ::_exit(0);
    ASSERT_EQ(::waitpid(dead, nullptr, 0), dead);
    const std::string ofDead = ".History.xml.tmp-" + std::to_string(dead) + "-a1b2c3";
    const std::string ofLiving = ".History.xml.tmp-" + std::to_string(::getppid()) + "-a1b2c3";
    const std::string notOurs = ".notes.tmp-" + std::to_string(dead) + "-draft";
    for (const std::string& name : {ofDead, ofLiving, notOurs}) WriteFile(dir.File(name), "partial");

    QoDtDictionary tree;
    ASSERT_TRUE(tree.SaveToXML(W(dir.File("Config.xml"))));
    auto left = Temporaries(dir.Path());
    std::sort(left.begin(), left.end());
    std::vector<std::string> expected{ofLiving, notOurs};
    std::sort(expected.begin(), expected.end());
    EXPECT_EQ(left, expected);
}
