#include <kova/platform/environment.h>

#include <cstdlib>

namespace kova::detail {

char const* const* environmentBlock() noexcept {
    static char const* const none[] = {nullptr};
    return _environ ? _environ : none;
}

bool putEnvironmentEntry(char const* entry) {
    return _putenv(entry) == 0;
}

} // namespace kova::detail
