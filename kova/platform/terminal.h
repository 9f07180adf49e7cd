#pragma once

namespace kova::detail {

bool isTerminal(int file) noexcept;

/// The file is a terminal that shows colours when it is sent their escape sequences. On Windows it is told
/// to, which lasts as long as the terminal.
bool showsColour(int file) noexcept;

} // namespace kova::detail
