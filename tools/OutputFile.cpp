#include "OutputFile.h"

#include "Cli.h"

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace zefra::cli {

namespace {

std::string DirectoryOf(const std::string& path) {
    const size_t slash = path.rfind('/');
    if (slash == std::string::npos) return ".";
    return slash == 0 ? "/" : path.substr(0, slash);
}

}  // namespace

OutputFile::OutputFile(const std::string& option, const std::string& path) : m_option(option) {
    if (path.empty() || path == "-") return;
    // Through a symbolic link, the file it names is replaced.
    m_target = path;
    char resolved[PATH_MAX];
    if (::realpath(path.c_str(), resolved)) m_target = resolved;
    struct stat old {};
    const bool exists = ::stat(m_target.c_str(), &old) == 0;
    if (exists && !S_ISREG(old.st_mode)) throw UsageError(option + ": " + path + " exists and is not a regular file");
    const std::string directory = DirectoryOf(m_target);
    const size_t slash = m_target.rfind('/');
    std::string pattern = directory + "/." + m_target.substr(slash == std::string::npos ? 0 : slash + 1) +
                          ".tmp-XXXXXX";
    std::vector<char> name(pattern.begin(), pattern.end());
    name.push_back('\0');
    m_fd = ::mkostemp(name.data(), O_CLOEXEC);
    if (m_fd < 0)
        throw UsageError(option + ": cannot create a temporary file in " + directory + ": " + std::strerror(errno));
    m_temp.assign(name.data());
    if (::fchmod(m_fd, exists ? (old.st_mode & 07777) : 0644) != 0) Fail("cannot set the permissions of", m_temp);
}

OutputFile::~OutputFile() {
    if (m_temp.empty() || m_committed) return;
    if (m_fd >= 0) ::close(m_fd);
    ::unlink(m_temp.c_str());
}

void OutputFile::Fail(const std::string& what, const std::string& where) {
    const std::string cause = std::strerror(errno);
    if (!m_temp.empty()) {
        if (m_fd >= 0) ::close(m_fd);
        m_fd = -1;
        ::unlink(m_temp.c_str());
        m_temp.clear();
    }
    throw UsageError(m_option + ": " + what + " " + where + ": " + cause);
}

void OutputFile::Write(std::string& text) {
    const char* data = text.data();
    size_t left = text.size();
    while (left > 0) {
        const ssize_t written = ::write(m_fd, data, left);
        if (written < 0) {
            if (errno == EINTR) continue;
            Fail("cannot write", m_temp.empty() ? std::string("standard output") : m_temp);
        }
        data += written;
        left -= static_cast<size_t>(written);
    }
    text.clear();
}

void OutputFile::Commit() {
    if (m_temp.empty()) return;
    if (::fsync(m_fd) != 0) Fail("cannot flush", m_temp);
    const int fd = m_fd;
    m_fd = -1;
    if (::close(fd) != 0) Fail("cannot close", m_temp);
    if (::rename(m_temp.c_str(), m_target.c_str()) != 0) Fail("cannot replace", m_target);
    m_committed = true;
    // Make the rename itself durable; a failure here no longer risks the data.
    const int dir = ::open(DirectoryOf(m_target).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (dir >= 0) {
        ::fsync(dir);
        ::close(dir);
    }
}

}  // namespace zefra::cli
