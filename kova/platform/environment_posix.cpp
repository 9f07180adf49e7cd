#include <kova/platform/environment.h>

#include <cstdlib>
#include <cstring>
#include <string>

#include <unistd.h>

namespace kova::detail {

char const* const* environmentBlock() noexcept {
    static char const* const none[] = {nullptr};
    return environ ? environ : none;
}

bool putEnvironmentEntry(char const* entry) {
    char const* const separator = std::strchr(entry, '=');
    return separator && setenv(std::string(entry, separator).c_str(), separator + 1, 1) == 0;
}

bool wideArguments(std::vector<std::u16string>& /*arguments*/) {
    return false;
}

} // namespace kova::detail
