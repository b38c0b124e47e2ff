#pragma once
// Output of the batch commands: standard output, or a file written safely.
// A file's text goes to a temporary file beside it, which is flushed to disk
// and renamed over the target only when the whole output is written; a run
// that fails leaves no partial file and the old file, if any, as it was.

#include <string>
#include <string_view>

namespace zefra::cli {

class OutputFile {
public:
    // path empty or "-": standard output. `option` names the option in errors.
    OutputFile(const std::string& option, const std::string& path);
    ~OutputFile();  // without Commit, the temporary file is removed
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    // Writes and empties `text`. Throws UsageError when it can't be written.
    void Write(std::string& text);

    // Flushes, and for a file renames it into place. Throws UsageError.
    void Commit();

private:
    void Fail(const std::string& what, const std::string& where);

    std::string m_option;
    std::string m_target;
    std::string m_temp;
    int m_fd = 1;
    bool m_committed = false;
};

}  // namespace zefra::cli
