#pragma once
// Whole-file reads and writes for the configuration files. A write never
// leaves a half-written file behind: the bytes go to a temporary file in the
// same directory, are flushed to the disk, and only then is the temporary
// renamed over the old file. A crash or a full disk at any moment leaves
// either the old file or the new one.

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

class QoDtDiskFile {
public:
    // Reads the file into `bytes`. False, with the cause in `error`, when it
    // can't be opened or read, isn't a regular file, or is over `limit` bytes.
    static bool Read(const std::string& path, size_t limit, std::string& bytes, std::string& error);
    // The same into a buffer that a parser may change in place, reusing the
    // buffer's room. A file that grows while it is read is refused.
    static bool Read(const std::string& path, size_t limit, std::vector<char>& bytes, std::string& error);

    // What tells one state of a file from another: a save replaces the
    // file, so its inode changes with every save, whoever made it.
    struct Identity {
        bool exists = false;
        uint64_t device = 0;
        uint64_t inode = 0;
        int64_t size = 0;
        int64_t modifiedSeconds = 0;
        int64_t modifiedNanoseconds = 0;
        friend bool operator==(const Identity& a, const Identity& b) {
            return a.exists == b.exists && a.device == b.device && a.inode == b.inode && a.size == b.size &&
                   a.modifiedSeconds == b.modifiedSeconds && a.modifiedNanoseconds == b.modifiedNanoseconds;
        }
        friend bool operator!=(const Identity& a, const Identity& b) { return !(a == b); }
    };
    static Identity IdentityOf(const std::string& path);

    // Runs while the write lock is held, before anything is written; false
    // (with the cause in the error) stops the write. Given the file that
    // will be replaced, symbolic links resolved.
    using Check = std::function<bool(const std::string& target, std::string& error)>;

    // Replaces the file's content by `bytes` as described above, holding the
    // file's write lock (QoDtFileLock) throughout. A symbolic link is
    // followed, so the link stays and its target gets the content (also a
    // link whose target doesn't exist yet). The file keeps its permissions; a
    // new file gets rw-r--r--. A read-only file, or a target that isn't a
    // regular file, is refused. Temporaries left in the directory by dead
    // processes are removed first.
    static bool WriteAtomically(const std::string& path, std::string_view bytes, std::string& error,
                                const Check& check = Check());
    // Writes a new file, which must not exist yet, and flushes it; on a
    // failure nothing is left. No lock: the name is the caller's alone.
    static bool WriteNew(const std::string& path, std::string_view bytes, std::string& error);
    // The file a write to `path` replaces: the end of a chain of symbolic
    // links (which need not exist yet), else the path itself. False for a
    // loop or a chain too long.
    static bool ResolveTarget(const std::string& path, std::string& target, std::string& error);
    // "/dir/.Config.xml.tmp-<pid>-": how the temporaries of a write to
    // `target` by the process `pid` begin.
    static std::string TemporaryPrefix(const std::string& target, long pid);
    // Removes the temporaries in the directory of `target` (of any file)
    // whose process is gone; gives how many were removed.
    static int RemoveStaleTemporaries(const std::string& target);

    // For programs: on SIGINT, SIGTERM and SIGHUP the temporary of a save
    // under way is removed before the process ends as the signal says, and
    // SIGXFSZ is ignored, so that a save over the file size limit fails
    // with an error instead of killing the process.
    static void InstallSignalCleanup();

    static bool Exists(const std::string& path);
    static std::string DirectoryOf(const std::string& path);
    static std::string BaseNameOf(const std::string& path);
    // `path` made absolute against the current directory (not resolved).
    static std::string Absolute(const std::string& path);
    // Makes the directory and its missing parents.
    static bool MakeDirectories(const std::string& path, std::string& error);
};

// The advisory lock (flock) that guards the writes of one file: the file
// "<name>.lock" beside it, which is made when missing and never removed.
// Saves, and the edits that load, change and save a file, hold it, so no two
// of them interleave. Within one process the lock may be taken again while
// it is held (it is counted), so an edit can call a save that locks too.
class QoDtFileLock {
public:
    QoDtFileLock() = default;
    QoDtFileLock(const QoDtFileLock&) = delete;
    QoDtFileLock& operator=(const QoDtFileLock&) = delete;
    ~QoDtFileLock() { Release(); }

    // Takes the lock of the file `path` resolves to, waiting at most
    // `timeoutMs` (default: DefaultTimeoutMs). False, with the cause, when
    // the lock file can't be made or another process holds the lock so long.
    bool Acquire(const std::string& path, std::string& error, int timeoutMs = -1);
    void Release();
    bool IsHeld() const { return !m_lockPath.empty(); }
    const std::string& LockPath() const { return m_lockPath; }

    // 10 s, or the milliseconds in ZEFRA_LOCK_TIMEOUT_MS.
    static int DefaultTimeoutMs();
    static std::string LockPathOf(const std::string& target) { return target + ".lock"; }

private:
    std::string m_lockPath;
    std::string m_key;
};
