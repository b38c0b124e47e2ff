#pragma once
// A progress line on standard error for long batch runs: rows done, rate and
// time left, redrawn in place. It shows only when standard error is a
// terminal and the run has gone on for a second (ZEFRA_PROGRESS_DELAY, in
// seconds, changes that); on a pipe or in a file it writes nothing.

#include <chrono>
#include <cstddef>

namespace zefra::cli {

class Progress {
public:
    // total: the rows expected, 0 when unknown.
    explicit Progress(size_t total);
    ~Progress();  // clears the line
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    void Update(size_t done);

private:
    using Clock = std::chrono::steady_clock;

    bool m_enabled = false;
    bool m_shown = false;
    size_t m_total = 0;
    double m_delay = 1.0;
    Clock::time_point m_start;
    Clock::time_point m_last;
};

}  // namespace zefra::cli
