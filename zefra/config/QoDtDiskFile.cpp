#include "zefra/config/QoDtDiskFile.h"

#include <cerrno>
#include <chrono>
#include <climits>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <map>
#include <mutex>
#include <sys/file.h>
#include <sys/stat.h>
#include <thread>
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

// The temporary of the save under way, for the signal handler: written
// before the handler may look (the flag is set after the path).
char g_pendingTemporary[PATH_MAX + 64];
volatile std::sig_atomic_t g_pendingTemporarySet = 0;

void ForgetPendingTemporary() { g_pendingTemporarySet = 0; }

void NotePendingTemporary(const std::string& path) {
    g_pendingTemporarySet = 0;
    if (path.size() >= sizeof g_pendingTemporary) return;
    std::memcpy(g_pendingTemporary, path.c_str(), path.size() + 1);
    g_pendingTemporarySet = 1;
}

extern "C" void RemovePendingTemporaryAndDie(int signal) {
    if (g_pendingTemporarySet != 0) ::unlink(g_pendingTemporary);
    ::signal(signal, SIG_DFL);
    ::raise(signal);
}

// The locks this process holds: lock file -> descriptor and count.
struct HeldLock {
    int fd = -1;
    int count = 0;
};
std::mutex g_locksMutex;
std::map<std::string, HeldLock>& HeldLocks() {
    static std::map<std::string, HeldLock> locks;
    return locks;
}

}  // namespace

bool QoDtDiskFile::Read(const std::string& path, size_t limit, std::vector<char>& bytes, std::string& error) {
    const std::string tooLarge = "file is larger than " + std::to_string(limit >> 20) + " MiB";
    // A FIFO or a device is refused before it is opened: opening a FIFO for
    // reading waits for a writer. O_NONBLOCK covers a swap after the check.
    struct stat before {};
    if (::stat(path.c_str(), &before) != 0) {
        error = std::string("cannot open: ") + std::strerror(errno);
        return false;
    }
    if (!S_ISREG(before.st_mode)) {
        error = "not a regular file";
        return false;
    }
    FileDescriptor fd(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
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

std::string QoDtDiskFile::DirectoryOf(const std::string& path) {
    const size_t slash = path.find_last_of('/');
    if (slash == std::string::npos) return ".";
    if (slash == 0) return "/";
    return path.substr(0, slash);
}

std::string QoDtDiskFile::BaseNameOf(const std::string& path) {
    const size_t slash = path.find_last_of('/');
    return slash == std::string::npos ? path : path.substr(slash + 1);
}

std::string QoDtDiskFile::Absolute(const std::string& path) {
    if (path.empty() || path.front() == '/') return path;
    char cwd[PATH_MAX];
    if (::getcwd(cwd, sizeof cwd) == nullptr) return path;
    std::string absolute(cwd);
    std::string rest = path;
    while (rest.compare(0, 2, "./") == 0) rest.erase(0, 2);
    return absolute + (absolute.back() == '/' ? "" : "/") + rest;
}

bool QoDtDiskFile::ResolveTarget(const std::string& path, std::string& target, std::string& error) {
    std::string current = path;
    for (int hops = 0; hops < 40; ++hops) {
        struct stat info {};
        if (::lstat(current.c_str(), &info) != 0 || !S_ISLNK(info.st_mode)) {
            target = current;
            return true;
        }
        std::vector<char> link(static_cast<size_t>(info.st_size > 0 ? info.st_size : PATH_MAX) + 1);
        const ssize_t n = ::readlink(current.c_str(), link.data(), link.size());
        if (n < 0 || static_cast<size_t>(n) >= link.size()) {
            error = Cause("cannot read the symbolic link", current);
            return false;
        }
        std::string next(link.data(), static_cast<size_t>(n));
        if (next.empty() || next.front() != '/') next = DirectoryOf(current) + "/" + next;
        current = next;
    }
    error = "too many levels of symbolic links: " + path;
    return false;
}

std::string QoDtDiskFile::TemporaryPrefix(const std::string& target, long pid) {
    return DirectoryOf(target) + "/." + BaseNameOf(target) + ".tmp-" + std::to_string(pid) + "-";
}

int QoDtDiskFile::RemoveStaleTemporaries(const std::string& target) {
    const std::string directory = DirectoryOf(target);
    DIR* dir = ::opendir(directory.c_str());
    if (dir == nullptr) return 0;
    int removed = 0;
    while (const dirent* entry = ::readdir(dir)) {
        // .<name>.tmp-<pid>-XXXXXX, of any file in the directory
        const std::string name = entry->d_name;
        const size_t mark = name.rfind(".tmp-");
        if (name.empty() || name.front() != '.' || mark == std::string::npos || mark == 0) continue;
        char* end = nullptr;
        const long pid = std::strtol(name.c_str() + mark + 5, &end, 10);
        if (pid <= 0 || end == nullptr || *end != '-' || std::strlen(end + 1) != 6) continue;
        if (pid == static_cast<long>(::getpid())) continue;
        if (::kill(static_cast<pid_t>(pid), 0) == 0 || errno != ESRCH) continue;
        if (::unlink((directory + "/" + name).c_str()) == 0) ++removed;
    }
    ::closedir(dir);
    return removed;
}

QoDtDiskFile::Identity QoDtDiskFile::IdentityOf(const std::string& path) {
    Identity identity;
    struct stat info {};
    if (::stat(path.c_str(), &info) != 0) return identity;
    identity.exists = true;
    identity.device = static_cast<uint64_t>(info.st_dev);
    identity.inode = static_cast<uint64_t>(info.st_ino);
    identity.size = static_cast<int64_t>(info.st_size);
    identity.modifiedSeconds = static_cast<int64_t>(info.st_mtim.tv_sec);
    identity.modifiedNanoseconds = static_cast<int64_t>(info.st_mtim.tv_nsec);
    return identity;
}

bool QoDtDiskFile::WriteAtomically(const std::string& path, std::string_view bytes, std::string& error,
                                   const Check& check) {
    std::string target;
    if (!ResolveTarget(path, target, error)) return false;
    QoDtFileLock lock;
    if (!lock.Acquire(target, error)) return false;

    struct stat old {};
    const bool exists = ::stat(target.c_str(), &old) == 0;
    if (exists && !S_ISREG(old.st_mode)) {
        error = "not a regular file, not replaced: " + target;
        return false;
    }
    // Permissions don't stop the owner's rename, nor root: look at the bits.
    if (exists && ((old.st_mode & 0222) == 0 || ::access(target.c_str(), W_OK) != 0)) {
        error = "the file is read-only, not replaced: " + target;
        return false;
    }
    if (check && !check(target, error)) return false;
    RemoveStaleTemporaries(target);

    const std::string directory = DirectoryOf(target);
    std::string temp = TemporaryPrefix(target, static_cast<long>(::getpid())) + "XXXXXX";
    std::vector<char> pattern(temp.begin(), temp.end());
    pattern.push_back('\0');
    FileDescriptor fd(::mkostemp(pattern.data(), O_CLOEXEC));
    if (fd.Get() < 0) {
        error = Cause("cannot create a temporary file in", directory);
        return false;
    }
    temp.assign(pattern.data());
    NotePendingTemporary(temp);

    const mode_t mode = exists ? (old.st_mode & 07777) : 0644;
    const auto fail = [&error](const char* what, const std::string& where) {
        error = Cause(what, where);
        if (errno == EFBIG) error += " (the file size limit was reached)";
        return false;
    };
    bool ok = ::fchmod(fd.Get(), mode) == 0 || fail("cannot set the permissions of", temp);
    ok = ok && (WriteAll(fd.Get(), bytes) || fail("cannot write", temp));
    ok = ok && (::fsync(fd.Get()) == 0 || fail("cannot flush", temp));
    if (!fd.Close() && ok) ok = fail("cannot close", temp);
    ok = ok && (::rename(temp.c_str(), target.c_str()) == 0 || fail("cannot replace", target));
    if (!ok) ::unlink(temp.c_str());
    ForgetPendingTemporary();
    if (!ok) return false;
    // Make the rename itself durable; a failure here no longer risks the data.
    FileDescriptor dir(::open(directory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (dir.Get() >= 0) ::fsync(dir.Get());
    return true;
}

bool QoDtDiskFile::WriteNew(const std::string& path, std::string_view bytes, std::string& error) {
    FileDescriptor fd(::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0644));
    if (fd.Get() < 0) {
        error = Cause("cannot create", path);
        return false;
    }
    bool ok = WriteAll(fd.Get(), bytes) && ::fsync(fd.Get()) == 0;
    if (!ok) error = Cause("cannot write", path);
    if (!fd.Close() && ok) {
        error = Cause("cannot close", path);
        ok = false;
    }
    if (!ok) ::unlink(path.c_str());
    return ok;
}

void QoDtDiskFile::InstallSignalCleanup() {
    struct sigaction action {};
    action.sa_handler = RemovePendingTemporaryAndDie;
    sigemptyset(&action.sa_mask);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) ::sigaction(signal, &action, nullptr);
    ::signal(SIGXFSZ, SIG_IGN);
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

// ---- the write lock -----------------------------------------------------------

int QoDtFileLock::DefaultTimeoutMs() {
    const char* text = std::getenv("ZEFRA_LOCK_TIMEOUT_MS");
    if (text != nullptr && *text != '\0') {
        char* end = nullptr;
        const long value = std::strtol(text, &end, 10);
        if (end != nullptr && *end == '\0' && value >= 0 && value <= 3600 * 1000) return static_cast<int>(value);
    }
    return 10 * 1000;
}

bool QoDtFileLock::Acquire(const std::string& path, std::string& error, int timeoutMs) {
    Release();
    std::string target;
    if (!QoDtDiskFile::ResolveTarget(QoDtDiskFile::Absolute(path), target, error)) return false;
    const std::string lockPath = LockPathOf(target);
    if (timeoutMs < 0) timeoutMs = DefaultTimeoutMs();

    const int fd = ::open(lockPath.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0644);
    struct stat info {};
    if (fd < 0 || ::fstat(fd, &info) != 0) {
        error = Cause("cannot open the lock file", lockPath);
        if (fd >= 0) ::close(fd);
        return false;
    }
    // Held locks are known by the lock file itself, however it was named.
    const std::string key = std::to_string(info.st_dev) + ":" + std::to_string(info.st_ino);
    std::lock_guard<std::mutex> guard(g_locksMutex);
    HeldLock& held = HeldLocks()[key];
    if (held.count > 0) {
        ::close(fd);
        ++held.count;
        m_lockPath = lockPath;
        m_key = key;
        return true;
    }
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::milliseconds(timeoutMs);
    for (;;) {
        if (::flock(fd, LOCK_EX | LOCK_NB) == 0) break;
        if (errno != EWOULDBLOCK && errno != EINTR) {
            error = Cause("cannot lock", lockPath);
            ::close(fd);
            HeldLocks().erase(key);
            return false;
        }
        if (std::chrono::steady_clock::now() >= deadline) {
            const std::string seconds = std::to_string(timeoutMs / 1000) + "." + std::to_string(timeoutMs % 1000 / 100);
            error = "another program is writing " + target + ": its lock (" + lockPath + ") was not free within " +
                    seconds + " s";
            ::close(fd);
            HeldLocks().erase(key);
            return false;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    held.fd = fd;
    held.count = 1;
    m_lockPath = lockPath;
    m_key = key;
    return true;
}

void QoDtFileLock::Release() {
    if (m_lockPath.empty()) return;
    std::lock_guard<std::mutex> guard(g_locksMutex);
    auto found = HeldLocks().find(m_key);
    if (found != HeldLocks().end() && --found->second.count <= 0) {
        ::flock(found->second.fd, LOCK_UN);
        ::close(found->second.fd);
        HeldLocks().erase(found);
    }
    m_lockPath.clear();
    m_key.clear();
}
