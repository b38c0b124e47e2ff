#pragma once
// Whole-file reads and writes for the configuration files. A write never
// leaves a half-written file behind: the bytes go to a temporary file in the
// same directory, are flushed to the disk, and only then is the temporary
// renamed over the old file. A crash or a full disk at any moment leaves
// either the old file or the new one.

#include <cstddef>
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

    // Replaces the file's content by `bytes` as described above. A symbolic
    // link is followed, so the link stays and its target gets the content.
    // The file keeps its permissions; a new file gets rw-r--r--.
    static bool WriteAtomically(const std::string& path, std::string_view bytes, std::string& error);

    static bool Exists(const std::string& path);
    // Makes the directory and its missing parents.
    static bool MakeDirectories(const std::string& path, std::string& error);
};
