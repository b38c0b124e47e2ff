#include "Progress.h"

#include <cstdio>
#include <cstdlib>

#include <unistd.h>

namespace zefra::cli {

Progress::Progress(size_t total) : m_total(total), m_start(Clock::now()), m_last(m_start) {
    m_enabled = ::isatty(STDERR_FILENO) == 1;
    if (const char* delay = std::getenv("ZEFRA_PROGRESS_DELAY")) {
        char* end = nullptr;
        const double value = std::strtod(delay, &end);
        if (end != delay && value >= 0.0) m_delay = value;
    }
}

Progress::~Progress() {
    if (m_shown) std::fprintf(stderr, "\r\033[K");
}

void Progress::Update(size_t done) {
    if (!m_enabled) return;
    const Clock::time_point now = Clock::now();
    const double elapsed = std::chrono::duration<double>(now - m_start).count();
    if (elapsed < m_delay) return;
    if (m_shown && std::chrono::duration<double>(now - m_last).count() < 0.1) return;
    m_last = now;
    m_shown = true;
    const double rate = elapsed > 0.0 ? static_cast<double>(done) / elapsed : 0.0;
    if (m_total > 0 && done <= m_total) {
        constexpr int kWidth = 30;
        const int filled = static_cast<int>(kWidth * static_cast<double>(done) / static_cast<double>(m_total));
        char bar[kWidth + 1];
        for (int i = 0; i < kWidth; ++i) bar[i] = i < filled ? '#' : '.';
        bar[kWidth] = '\0';
        const double left = rate > 0.0 ? static_cast<double>(m_total - done) / rate : 0.0;
        std::fprintf(stderr, "\r\033[K[%s] %zu/%zu rows, %.0f rows/s, %.0f s left", bar, done, m_total, rate, left);
    } else {
        std::fprintf(stderr, "\r\033[K%zu rows, %.0f rows/s", done, rate);
    }
    std::fflush(stderr);
}

}  // namespace zefra::cli
