#pragma once

#include <cstddef>
#include <vector>

/// Conversion between 8-bit texts of the current locale and 16-bit units. Plain ASCII is the same in
/// both and takes a short way.
namespace kova::detail {

bool isAscii(char const* text, std::size_t count) noexcept;
bool isAscii(unsigned short const* units, std::size_t count) noexcept;

/// The conversion of a text that isAscii.
void widenAscii(char const* text, std::size_t count, unsigned short* out) noexcept;
void narrowAscii(unsigned short const* units, std::size_t count, char* out) noexcept;

/// The units of a text. A byte that the locale cannot convert becomes the unit of the same value;
/// a character above 0xFFFF becomes a surrogate pair.
std::vector<unsigned short> decode(char const* text, std::size_t count);

constexpr std::size_t kUnconvertible = static_cast<std::size_t>(-1);

/// Writes at most `limit` bytes of whole characters to `out` (none when it is null: measuring only)
/// and returns how many. kUnconvertible when the locale has no text for a character met before that.
std::size_t encode(unsigned short const* units, std::size_t count, char* out, std::size_t limit) noexcept;

/// The bytes that encode would write without a limit; the number of units when it cannot.
std::size_t encodedLength(unsigned short const* units, std::size_t count) noexcept;

} // namespace kova::detail
