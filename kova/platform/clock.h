#pragma once

#include <cstdint>
#include <ctime>

namespace kova::detail {

/// Processor time used by this process, in milliseconds.
long processorMilliseconds() noexcept;

/// A counter that never goes back, and its steps in a second; 0 where there is none.
std::int64_t performanceCounter() noexcept;
std::int64_t performanceFrequency() noexcept;

/// The calendar's date and time of day, here and in Greenwich. All zero for a time that has none.
std::tm localTime(std::time_t time) noexcept;
std::tm universalTime(std::time_t time) noexcept;

} // namespace kova::detail
