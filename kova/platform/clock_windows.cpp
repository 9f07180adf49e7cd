#include <kova/platform/clock.h>

#include <windows.h>

namespace kova::detail {

long processorMilliseconds() noexcept {
    static_assert(CLOCKS_PER_SEC == 1000);
    return static_cast<long>(std::clock());
}

std::int64_t performanceCounter() noexcept {
    LARGE_INTEGER counter;
    return QueryPerformanceCounter(&counter) ? counter.QuadPart : 0;
}

std::int64_t performanceFrequency() noexcept {
    LARGE_INTEGER frequency;
    return QueryPerformanceFrequency(&frequency) ? frequency.QuadPart : 0;
}

std::tm localTime(std::time_t time) noexcept {
    std::tm result = {};
    return localtime_s(&result, &time) == 0 ? result : std::tm();
}

std::tm universalTime(std::time_t time) noexcept {
    std::tm result = {};
    return gmtime_s(&result, &time) == 0 ? result : std::tm();
}

} // namespace kova::detail
