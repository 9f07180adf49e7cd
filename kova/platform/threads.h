#pragma once

#if defined(__has_include)
#  if __has_include(<sys/single_threaded.h>)
#    include <sys/single_threaded.h>
#    define KOVA_KNOWS_SINGLE_THREADED
#  endif
#endif

namespace kova::detail {

/// True only while no second thread can exist, so that a count may be changed without a locked
/// instruction. False where the system cannot tell.
inline bool singleThreaded() noexcept {
#ifdef KOVA_KNOWS_SINGLE_THREADED
    return __libc_single_threaded != 0;
#else
    return false;
#endif
}

} // namespace kova::detail
