#include <kova/platform/clock.h>

#include <chrono>

namespace kova::detail {

namespace {
using Clock = std::chrono::steady_clock;
}

long processorMilliseconds() noexcept {
    return static_cast<long>(std::clock() / (CLOCKS_PER_SEC / 1000));
}

std::int64_t performanceCounter() noexcept {
    return Clock::now().time_since_epoch().count();
}

std::int64_t performanceFrequency() noexcept {
    return Clock::period::den / Clock::period::num;
}

std::tm localTime(std::time_t time) noexcept {
    std::tm result = {};
    return ::localtime_r(&time, &result) ? result : std::tm();
}

std::tm universalTime(std::time_t time) noexcept {
    std::tm result = {};
    return ::gmtime_r(&time, &result) ? result : std::tm();
}

} // namespace kova::detail
