#pragma once
// Shared pieces of the configuration tests: scratch directories, an isolated
// search environment, file helpers and a structural comparison of trees.

#include "zefra/config/QoDtDictBoolItem.h"
#include "zefra/config/QoDtDictDoubleArrayItem.h"
#include "zefra/config/QoDtDictDoubleItem.h"
#include "zefra/config/QoDtDictIntItem.h"
#include "zefra/config/QoDtDictOptionItem.h"
#include "zefra/config/QoDtDictStringItem.h"
#include "zefra/config/QoDtDictionary.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace configtest {

namespace fs = std::filesystem;

// A fresh directory, removed with its content at the end.
class TempDir {
public:
    TempDir() {
        std::string pattern = (fs::temp_directory_path() / "zefra-config-XXXXXX").string();
        m_path = ::mkdtemp(pattern.data());
    }
    ~TempDir() {
        std::error_code ignored;
        fs::remove_all(m_path, ignored);
    }
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;

    const std::string& Path() const { return m_path; }
    std::string File(const std::string& name) const { return m_path + "/" + name; }

private:
    std::string m_path;
};

// Points ZEFRA_CONFIG_DIR at one scratch directory and the current directory
// at another, so that searches see only what a test puts there and the
// shipped data.
class IsolatedSearch {
public:
    IsolatedSearch() : m_oldCwd(fs::current_path()) {
        const char* old = std::getenv("ZEFRA_CONFIG_DIR");
        m_hadOld = old != nullptr;
        if (m_hadOld) m_old = old;
        ::setenv("ZEFRA_CONFIG_DIR", m_configDir.Path().c_str(), 1);
        fs::current_path(m_workDir.Path());
    }
    ~IsolatedSearch() {
        fs::current_path(m_oldCwd);
        if (m_hadOld)
            ::setenv("ZEFRA_CONFIG_DIR", m_old.c_str(), 1);
        else
            ::unsetenv("ZEFRA_CONFIG_DIR");
    }

    const TempDir& ConfigDir() const { return m_configDir; }
    const TempDir& WorkDir() const { return m_workDir; }

private:
    TempDir m_configDir;
    TempDir m_workDir;
    fs::path m_oldCwd;
    bool m_hadOld = false;
    std::string m_old;
};

inline std::string ReadFile(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

inline void WriteFile(const std::string& path, const std::string& text) {
    std::ofstream(path, std::ios::binary) << text;
}

inline CString W(const std::string& utf8) { return CString::FromUtf8(utf8); }

// The temporaries that saves left in a directory.
inline std::vector<std::string> Temporaries(const std::string& directory) {
    std::vector<std::string> found;
    for (const auto& entry : fs::directory_iterator(directory))
        if (entry.path().filename().string().find(".tmp-") != std::string::npos)
            found.push_back(entry.path().filename().string());
    return found;
}

struct CliResult {
    int exitCode;
    std::string out;
    std::string err;
};

inline std::string ShellQuote(const std::string& arg) {
    std::string quoted = "'";
    for (char c : arg) quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return quoted + "'";
}

// Runs the zefra tool through the shell; `prefix` goes before it (e.g.
// "ulimit -f 1;" or "VAR=x").
inline CliResult RunZefra(const std::vector<std::string>& args, const std::string& prefix = "") {
    TempDir output;
    std::string command = prefix + " " + ShellQuote(ZEFRA_CLI_PATH);
    for (const std::string& arg : args) command += " " + ShellQuote(arg);
    command += " >" + output.File("out") + " 2>" + output.File("err");
    const int status = std::system(command.c_str());
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, ReadFile(output.File("out")), ReadFile(output.File("err"))};
}

// Same kind, key, local name, attributes and value, all the way down;
// doubles compared bit for bit.
inline void ExpectSameTree(const QoDtDictItem& a, const QoDtDictItem& b, const std::string& where = "") {
    const std::string here = where + "\\" + a.name.ToUtf8();
    ASSERT_EQ(a.GetType(), b.GetType()) << here;
    EXPECT_EQ(a.name, b.name) << here;
    EXPECT_EQ(a.localname, b.localname) << here;
    EXPECT_TRUE(a.GetAttributes() == b.GetAttributes()) << here;
    const auto sameBits = [](double x, double y) { return std::memcmp(&x, &y, sizeof x) == 0; };
    switch (a.GetType()) {
        case QoDtDictItem::eDtBool:
            EXPECT_EQ(static_cast<const QoDtDictBoolItem&>(a).value, static_cast<const QoDtDictBoolItem&>(b).value) << here;
            break;
        case QoDtDictItem::eDtInt:
            EXPECT_EQ(static_cast<const QoDtDictIntItem&>(a).value, static_cast<const QoDtDictIntItem&>(b).value) << here;
            break;
        case QoDtDictItem::eDtDouble:
            EXPECT_TRUE(sameBits(static_cast<const QoDtDictDoubleItem&>(a).value,
                                 static_cast<const QoDtDictDoubleItem&>(b).value)) << here;
            break;
        case QoDtDictItem::eDtString:
            EXPECT_EQ(static_cast<const QoDtDictStringItem&>(a).value, static_cast<const QoDtDictStringItem&>(b).value)
                << here;
            break;
        case QoDtDictItem::eDtOption: {
            const auto& x = static_cast<const QoDtDictOptionItem&>(a);
            const auto& y = static_cast<const QoDtDictOptionItem&>(b);
            EXPECT_EQ(x.selection, y.selection) << here;
            EXPECT_TRUE(x.options == y.options) << here;
            break;
        }
        case QoDtDictItem::eDtDoubleArray: {
            const auto& x = static_cast<const QoDtDictDoubleArrayItem&>(a).value;
            const auto& y = static_cast<const QoDtDictDoubleArrayItem&>(b).value;
            ASSERT_EQ(x.GetLength(), y.GetLength()) << here;
            for (int i = 0; i < x.GetLength(); ++i) EXPECT_TRUE(sameBits(x.GetAt(i), y.GetAt(i))) << here << "[" << i << "]";
            break;
        }
        case QoDtDictItem::eDtDictionary: {
            const auto& x = static_cast<const QoDtDictionary&>(a).children;
            const auto& y = static_cast<const QoDtDictionary&>(b).children;
            ASSERT_EQ(x.GetLength(), y.GetLength()) << here;
            for (QoDtDictItem *const *p = x.GetFirst(), *const *q = y.GetFirst(); p != nullptr;
                 p = x.GetNext(p), q = y.GetNext(q))
                ExpectSameTree(**p, **q, here);
            break;
        }
        default: break;
    }
}

// The keys of a dictionary's children in list order, joined by ",".
inline std::string ChildKeys(const QoDtDictionary& dict) {
    std::string keys;
    for (QoDtDictItem* const* p = dict.children.GetFirst(); p != nullptr; p = dict.children.GetNext(p))
        keys += (keys.empty() ? "" : ",") + (*p)->name.ToUtf8();
    return keys;
}

}  // namespace configtest
