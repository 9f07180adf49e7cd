#include <kova/platform/clock.h>

#include <ctime>

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

} // namespace kova::detail
