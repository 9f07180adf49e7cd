#include <kova/platform/terminal.h>

#include <io.h>
#include <windows.h>

#ifndef ENABLE_VIRTUAL_TERMINAL_PROCESSING
#  define ENABLE_VIRTUAL_TERMINAL_PROCESSING 0x0004
#endif

namespace kova::detail {

namespace {

/// The null device counts as a terminal for the C runtime, but has no mode.
bool getMode(int file, HANDLE& terminal, DWORD& mode) noexcept {
    terminal = _isatty(file) ? reinterpret_cast<HANDLE>(_get_osfhandle(file)) : INVALID_HANDLE_VALUE;
    return terminal != INVALID_HANDLE_VALUE && GetConsoleMode(terminal, &mode);
}

} // namespace

bool isTerminal(int file) noexcept {
    HANDLE terminal = nullptr;
    DWORD mode = 0;
    return getMode(file, terminal, mode);
}

bool showsColour(int file) noexcept {
    HANDLE terminal = nullptr;
    DWORD mode = 0;
    return getMode(file, terminal, mode) && SetConsoleMode(terminal, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING);
}

} // namespace kova::detail
