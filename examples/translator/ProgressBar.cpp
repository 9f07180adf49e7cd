#include "ProgressBar.h"

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <string>

#include <kova/diagnostics/KOVAConsoleLogger.h>

namespace toolkit {

ProgressBar::ProgressBar() : isDrawn_(KOVAConsoleLogger::CanErase()) {}

void ProgressBar::begin(double size) {
    erase();
    size_ = size;
    start_ = Clock::now();
}

void ProgressBar::show(double percent) {
    if (!isDrawn_)
        return;
    constexpr std::size_t kWidth = 40;
    double const done = std::clamp(percent / 100, 0.0, 1.0);
    std::size_t const filled = static_cast<std::size_t>(done * kWidth);
    std::string const bar = std::string(filled, '#') + std::string(kWidth - filled, '.');
    double const seconds = std::chrono::duration<double>(Clock::now() - start_).count();
    std::fprintf(stderr, "\r[%s] %3.0f %%", bar.c_str(), 100 * done);
    if (size_ > 0)
        std::fprintf(stderr, "  %.1f MB/s", done * size_ / 1e6 / std::max(seconds, 1e-3));
    std::fputs("\033[K", stderr);
    std::fflush(stderr);
    isVisible_ = true;
}

void ProgressBar::erase() {
    if (!isVisible_)
        return;
    std::fputs("\r\033[K", stderr);
    std::fflush(stderr);
    isVisible_ = false;
}

} // namespace toolkit
