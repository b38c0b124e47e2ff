#pragma once
// Reading the files that the tool is given: "-" is standard input; anything
// but a regular file (a directory, a FIFO, a device) is refused before it is
// opened, so that the tool never blocks on it, and so is a file larger than
// the tool will read.

#include <string>

namespace zefra::cli {

constexpr size_t kLargestInputFile = 64u << 20;  // bytes

// The whole text of `path`, or of standard input for "-". Throws UsageError
// naming `option` and the path when it can't be read.
std::string ReadInputText(const std::string& option, const std::string& path,
                          size_t largest = kLargestInputFile);

// Throws UsageError unless `path` is an existing regular file of at most
// `largest` bytes.
void RequireRegularFile(const std::string& option, const std::string& path, size_t largest = kLargestInputFile);

}  // namespace zefra::cli
