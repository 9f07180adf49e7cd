#include <kova/platform/terminal.h>

#include <io.h>
#include <windows.h>

#ifndef ENABLE_VIRTUAL_TERMINAL_PROCESSING
#  define ENABLE_VIRTUAL_TERMINAL_PROCESSING 0x0004
#endif

namespace kova::detail {

bool showsColour(int file) noexcept {
    if (!_isatty(file))
        return false;
    HANDLE const terminal = reinterpret_cast<HANDLE>(_get_osfhandle(file));
    DWORD mode = 0;
    // The null device counts as a terminal for the C runtime, but has no mode.
    return GetConsoleMode(terminal, &mode) && SetConsoleMode(terminal, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING);
}

} // namespace kova::detail
