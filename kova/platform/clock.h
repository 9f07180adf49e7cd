#pragma once

#include <cstdint>

namespace kova::detail {

/// Processor time used by this process, in milliseconds.
long processorMilliseconds() noexcept;

/// A counter that never goes back, and its steps in a second; 0 where there is none.
std::int64_t performanceCounter() noexcept;
std::int64_t performanceFrequency() noexcept;

} // namespace kova::detail
