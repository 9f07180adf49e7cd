#include <kova/platform/terminal.h>

#include <cstdlib>
#include <cstring>

#include <unistd.h>

namespace kova::detail {

bool isTerminal(int file) noexcept {
    return ::isatty(file) == 1;
}

bool showsColour(int file) noexcept {
    char const* const kind = std::getenv("TERM");
    return kind && std::strcmp(kind, "dumb") != 0 && isTerminal(file);
}

} // namespace kova::detail
