#include "zefra/config/QoDtFileSearch.h"

#include "zefra/config/QoDtConfigStore.h"
#include "zefra/config/QoDtDiskFile.h"
#include "zefra/config/QoDtTextCodec.h"

#include <climits>
#include <cstdlib>
#include <dlfcn.h>
#include <unistd.h>

#ifndef ZEFRA_INSTALLED_DATA_DIR
#define ZEFRA_INSTALLED_DATA_DIR ""
#endif
#ifndef ZEFRA_SOURCE_DATA_DIR
#define ZEFRA_SOURCE_DATA_DIR ""
#endif
#ifndef ZEFRA_BIN_TO_DATA
#define ZEFRA_BIN_TO_DATA "../share/zefra"
#endif
#ifndef ZEFRA_LIB_TO_DATA
#define ZEFRA_LIB_TO_DATA "../share/zefra"
#endif

namespace {

std::string Environment(const char* variable) {
    const char* value = std::getenv(variable);
    return value != nullptr ? std::string(value) : std::string();
}

std::string UserDirectory() {
    const std::string xdg = Environment("XDG_CONFIG_HOME");
    if (!xdg.empty()) return xdg + "/zefra";
    const std::string home = Environment("HOME");
    if (!home.empty()) return home + "/.config/zefra";
    return std::string();
}

std::string CanonicalPath(const std::string& path) {
    char resolved[PATH_MAX];
    return ::realpath(path.c_str(), resolved) != nullptr ? std::string(resolved) : std::string();
}

std::string DirectoryOf(const std::string& path) {
    const size_t slash = path.find_last_of('/');
    if (slash == std::string::npos) return ".";
    return slash == 0 ? "/" : path.substr(0, slash);
}

// The installed data directories, first those found relative to where this
// library and the running program lie (so that a moved installation finds
// its own data), then the one of the configured prefix. Only directories
// that exist, each once.
std::vector<std::string> InstalledDataDirectories() {
    std::vector<std::string> found;
    auto add = [&found](const std::string& directory) {
        const std::string canonical = CanonicalPath(directory);
        if (canonical.empty()) return;
        for (const std::string& known : found)
            if (known == canonical) return;
        found.push_back(canonical);
    };
    const std::string program = CanonicalPath("/proc/self/exe");
    Dl_info info{};
    if (::dladdr(reinterpret_cast<void*>(&InstalledDataDirectories), &info) != 0 && info.dli_fname != nullptr) {
        // Linked statically, this code lies in the program itself.
        const std::string library = CanonicalPath(info.dli_fname);
        if (!library.empty() && library != program) add(DirectoryOf(library) + "/" + ZEFRA_LIB_TO_DATA);
    }
    if (!program.empty()) add(DirectoryOf(program) + "/" + ZEFRA_BIN_TO_DATA);
    add(ZEFRA_INSTALLED_DATA_DIR);
    return found;
}

}  // namespace

std::vector<std::string> QoDtFileSearch::SearchDirectories() {
    std::vector<std::string> directories;
    const std::string configured = Environment("ZEFRA_CONFIG_DIR");
    if (!configured.empty()) directories.push_back(configured);
    char cwd[PATH_MAX];
    if (::getcwd(cwd, sizeof cwd) != nullptr) directories.emplace_back(cwd);
    if (configured.empty()) {
        const std::string user = UserDirectory();
        if (!user.empty()) directories.push_back(user);
    }
    for (const std::string& installed : InstalledDataDirectories()) directories.push_back(installed);
    directories.emplace_back(ZEFRA_SOURCE_DATA_DIR);
    return directories;
}

std::string QoDtFileSearch::WritableDirectory() {
    const std::string configured = Environment("ZEFRA_CONFIG_DIR");
    return configured.empty() ? UserDirectory() : configured;
}

bool QoDtFileSearch::IsShippedData(const std::string& path) {
    const std::string directory = CanonicalPath(DirectoryOf(path));
    if (directory.empty()) return false;
    std::vector<std::string> shipped = InstalledDataDirectories();
    shipped.emplace_back(ZEFRA_SOURCE_DATA_DIR);
    for (const std::string& data : shipped) {
        const std::string canonical = CanonicalPath(data);
        if (!canonical.empty() && canonical == directory) return true;
    }
    return false;
}

bool QoDtFileSearch::Find(const std::string& fileName, std::string& fullPath) {
    if (fileName.empty()) return false;
    if (fileName.front() == '/') {
        if (!QoDtDiskFile::Exists(fileName)) return false;
        fullPath = fileName;
        return true;
    }
    for (const std::string& directory : SearchDirectories()) {
        if (directory.empty()) continue;
        const std::string candidate = directory + "/" + fileName;
        if (QoDtDiskFile::Exists(candidate)) {
            fullPath = candidate;
            return true;
        }
    }
    return false;
}

bool QoDtFileSearch::SavePath(const std::string& found, const std::string& fileName, std::string& target) {
    if (!found.empty() && !IsShippedData(found)) {
        target = found;
        return true;
    }
    const std::string directory = WritableDirectory();
    std::string error;
    if (directory.empty() || !QoDtDiskFile::MakeDirectories(directory, error)) return false;
    target = directory + "/" + fileName;
    return true;
}

bool FindFile(const wchar_t* name, CString& fullPath) {
    if (name == nullptr) return false;
    // The file a global tree came from is the one its saves go back to,
    // whatever a search would find now (the current directory changes).
    if (QoDtConfigStore::SourceOf(name, fullPath)) return true;
    std::string found;
    if (!QoDtFileSearch::Find(QoDtTextCodec::ToUtf8(CString(name)), found)) return false;
    fullPath = QoDtTextCodec::FromUtf8(found);
    return true;
}
