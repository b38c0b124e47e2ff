#include "ConfigTestSupport.h"

#include <csignal>
#include <sys/resource.h>
#include <sys/wait.h>

using configtest::ReadFile;
using configtest::TempDir;
using configtest::W;

namespace {

void FillLargeTree(QoDtDictionary& tree, int marker) {
    for (int i = 0; i < 20000; ++i) tree.SetValue(W("k" + std::to_string(i)), marker);
}

int MarkerOf(const std::string& file) {
    QoDtDictionary tree;
    int marker = -1;
    if (!tree.LoadFromXML(W(file))) return -1;
    if (tree.children.GetLength() != 20000 || !tree.GetValue(L"k19999", marker)) return -2;
    return marker;
}

int TemporaryFilesIn(const std::string& directory) {
    int count = 0;
    for (const auto& entry : configtest::fs::directory_iterator(directory))
        if (entry.path().filename().string().find(".tmp-") != std::string::npos) ++count;
    return count;
}

}  // namespace

TEST(AtomicSave, ASaverKilledAtAnyMomentLeavesTheOldFileOrTheNewOne) {
    TempDir dir;
    const std::string file = dir.File("Config.xml");
    QoDtDictionary old;
    FillLargeTree(old, 1);
    ASSERT_TRUE(old.SaveToXML(W(file)));

    QoDtDictionary fresh;
    FillLargeTree(fresh, 2);
    for (int attempt = 0; attempt < 12; ++attempt) {
        const pid_t child = ::fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            for (;;) fresh.SaveToXML(W(file));
        }
        ::usleep(static_cast<useconds_t>(3000 + attempt * 2500));
        ::kill(child, SIGKILL);
        int status = 0;
        ::waitpid(child, &status, 0);
        const int marker = MarkerOf(file);
        EXPECT_TRUE(marker == 1 || marker == 2) << "attempt " << attempt << ": " << marker;
    }
}

TEST(AtomicSave, AFailedWriteKeepsTheOldFileAndLeavesNoTemporary) {
    TempDir dir;
    const std::string file = dir.File("Config.xml");
    QoDtDictionary old;
    FillLargeTree(old, 1);
    ASSERT_TRUE(old.SaveToXML(W(file)));
    const std::string before = ReadFile(file);

    // A disk that fills up halfway: the file size limit makes write() fail.
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{64 * 1024, 64 * 1024};
        ::setrlimit(RLIMIT_FSIZE, &limit);
        QoDtDictionary fresh;
        FillLargeTree(fresh, 2);
        CString message;
        const bool saved = fresh.SaveToXML(W(file), &message);
        const bool named = message.ToUtf8().find("cannot write") != std::string::npos;
        ::_exit(!saved && named ? 0 : 1);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    ASSERT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 0);
    EXPECT_EQ(ReadFile(file), before);
    EXPECT_EQ(MarkerOf(file), 1);
    EXPECT_EQ(TemporaryFilesIn(dir.Path()), 0);
}

TEST(AtomicSave, KeepsPermissionsAndWritesThroughASymbolicLink) {
    TempDir dir;
    const std::string real = dir.File("real.xml");
    const std::string link = dir.File("Config.xml");
    QoDtDictionary tree;
    tree.SetValue(L"v", 1);
    ASSERT_TRUE(tree.SaveToXML(W(real)));
    configtest::fs::permissions(real, configtest::fs::perms(0640));
    configtest::fs::create_symlink(real, link);

    tree.SetValue(L"v", 2);
    ASSERT_TRUE(tree.SaveToXML(W(link)));
    EXPECT_TRUE(configtest::fs::is_symlink(link));
    EXPECT_EQ(configtest::fs::status(real).permissions(), configtest::fs::perms(0640));
    QoDtDictionary loaded;
    int v = 0;
    ASSERT_TRUE(loaded.LoadFromXML(W(real)));
    EXPECT_TRUE(loaded.GetValue(L"v", v));
    EXPECT_EQ(v, 2);
}
