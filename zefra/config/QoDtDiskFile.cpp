#include "zefra/config/QoDtDiskFile.h"

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace {

std::string Cause(const char* what, const std::string& path) {
    return std::string(what) + " " + path + ": " + std::strerror(errno);
}

// Closes a descriptor on every way out of a scope.
class FileDescriptor {
public:
    explicit FileDescriptor(int fd) : m_fd(fd) {}
    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;
    ~FileDescriptor() { Close(); }
    int Get() const { return m_fd; }
    bool Close() {
        if (m_fd < 0) return true;
        const int result = ::close(m_fd);
        m_fd = -1;
        return result == 0;
    }

private:
    int m_fd;
};

bool WriteAll(int fd, std::string_view bytes) {
    const char* p = bytes.data();
    size_t left = bytes.size();
    while (left > 0) {
        const ssize_t n = ::write(fd, p, left);
        if (n < 0) {
            if (errno == EINTR) continue;
            return false;
        }
        if (n == 0) {
            errno = EIO;
            return false;
        }
        p += n;
        left -= static_cast<size_t>(n);
    }
    return true;
}

std::string DirectoryOf(const std::string& path) {
    const size_t slash = path.find_last_of('/');
    if (slash == std::string::npos) return ".";
    if (slash == 0) return "/";
    return path.substr(0, slash);
}

std::string BaseNameOf(const std::string& path) {
    const size_t slash = path.find_last_of('/');
    return slash == std::string::npos ? path : path.substr(slash + 1);
}

// The file that a write to `path` should replace: the target of a symbolic
// link, else the path itself.
std::string ResolveTarget(const std::string& path) {
    struct stat info {};
    if (::lstat(path.c_str(), &info) != 0 || !S_ISLNK(info.st_mode)) return path;
    char resolved[PATH_MAX];
    if (::realpath(path.c_str(), resolved) == nullptr) return path;
    return resolved;
}

}  // namespace

bool QoDtDiskFile::Read(const std::string& path, size_t limit, std::vector<char>& bytes, std::string& error) {
    const std::string tooLarge = "file is larger than " + std::to_string(limit >> 20) + " MiB";
    FileDescriptor fd(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    if (fd.Get() < 0) {
        error = std::string("cannot open: ") + std::strerror(errno);
        return false;
    }
    struct stat info {};
    if (::fstat(fd.Get(), &info) != 0) {
        error = std::string("cannot read: ") + std::strerror(errno);
        return false;
    }
    if (!S_ISREG(info.st_mode)) {
        error = "not a regular file";
        return false;
    }
    if (static_cast<unsigned long long>(info.st_size) > limit) {
        error = tooLarge;
        return false;
    }
    const auto expected = static_cast<size_t>(info.st_size);
    // One byte of room beyond the size tells a file that grew meanwhile.
    bytes.resize(expected + 1);
    size_t filled = 0;
    while (filled <= expected) {
        const ssize_t n = ::read(fd.Get(), bytes.data() + filled, expected + 1 - filled);
        if (n < 0) {
            if (errno == EINTR) continue;
            error = std::string("cannot read: ") + std::strerror(errno);
            return false;
        }
        if (n == 0) break;
        filled += static_cast<size_t>(n);
    }
    if (filled > expected) {
        error = "the file changed while it was read";
        return false;
    }
    bytes.resize(filled);
    return true;
}

bool QoDtDiskFile::Read(const std::string& path, size_t limit, std::string& bytes, std::string& error) {
    std::vector<char> content;
    if (!Read(path, limit, content, error)) return false;
    bytes.assign(content.data(), content.size());
    return true;
}

bool QoDtDiskFile::WriteAtomically(const std::string& path, std::string_view bytes, std::string& error) {
    const std::string target = ResolveTarget(path);
    const std::string directory = DirectoryOf(target);
    std::string temp = directory + "/." + BaseNameOf(target) + ".tmp-XXXXXX";
    std::vector<char> pattern(temp.begin(), temp.end());
    pattern.push_back('\0');
    FileDescriptor fd(::mkostemp(pattern.data(), O_CLOEXEC));
    if (fd.Get() < 0) {
        error = Cause("cannot create a temporary file in", directory);
        return false;
    }
    temp.assign(pattern.data());

    struct stat old {};
    const mode_t mode = ::stat(target.c_str(), &old) == 0 ? (old.st_mode & 07777) : 0644;
    const auto fail = [&error](const char* what, const std::string& where) {
        error = Cause(what, where);
        return false;
    };
    bool ok = ::fchmod(fd.Get(), mode) == 0 || fail("cannot set the permissions of", temp);
    ok = ok && (WriteAll(fd.Get(), bytes) || fail("cannot write", temp));
    ok = ok && (::fsync(fd.Get()) == 0 || fail("cannot flush", temp));
    if (!fd.Close() && ok) ok = fail("cannot close", temp);
    ok = ok && (::rename(temp.c_str(), target.c_str()) == 0 || fail("cannot replace", target));
    if (!ok) {
        ::unlink(temp.c_str());
        return false;
    }
    // Make the rename itself durable; a failure here no longer risks the data.
    FileDescriptor dir(::open(directory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (dir.Get() >= 0) ::fsync(dir.Get());
    return true;
}

bool QoDtDiskFile::Exists(const std::string& path) {
    struct stat info {};
    return ::stat(path.c_str(), &info) == 0 && S_ISREG(info.st_mode);
}

bool QoDtDiskFile::MakeDirectories(const std::string& path, std::string& error) {
    if (path.empty()) {
        error = "no directory given";
        return false;
    }
    for (size_t slash = path.find('/', 1);; slash = path.find('/', slash + 1)) {
        const std::string part = slash == std::string::npos ? path : path.substr(0, slash);
        if (::mkdir(part.c_str(), 0755) != 0 && errno != EEXIST) {
            error = Cause("cannot create the directory", part);
            return false;
        }
        if (slash == std::string::npos) break;
    }
    struct stat info {};
    if (::stat(path.c_str(), &info) != 0 || !S_ISDIR(info.st_mode)) {
        error = "not a directory: " + path;
        return false;
    }
    return true;
}
