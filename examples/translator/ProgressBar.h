#pragma once

#include <chrono>

namespace toolkit {

/// One line on standard error, where that is a terminal: how much of a file is behind, and how fast that went. It is
/// erased before anything else is written there.
class ProgressBar {
public:
    ProgressBar();
    ProgressBar(ProgressBar const&) = delete;
    ProgressBar& operator=(ProgressBar const&) = delete;
    ~ProgressBar() { erase(); }

    /// A new file begins, of so many bytes; 0 where that is not known.
    void begin(double size);
    void show(double percent);
    void erase();

private:
    using Clock = std::chrono::steady_clock;

    bool isDrawn_;
    bool isVisible_ = false;
    double size_ = 0;
    Clock::time_point start_ = Clock::now();
};

} // namespace toolkit
