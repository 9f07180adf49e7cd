#pragma once

#include <charconv>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "geometry.h"

namespace toolkit {

/// Room that a line of the formats takes at most, names not counted.
constexpr int kLongestRecord = 512;

/// These write at `to` and return the end.
inline char* put(char* to, std::string_view text) noexcept {
    std::memcpy(to, text.data(), text.size());
    return to + text.size();
}

/// With so many significant digits; 0 for the fewest that give the same number again.
inline char* putDigits(char* to, float value, int digits) noexcept {
    return (digits == 0 ? std::to_chars(to, to + 31, value)
                        : std::to_chars(to, to + 31, value, std::chars_format::general, digits))
        .ptr;
}

/// A blank and the number.
inline char* putNumber(char* to, std::uint32_t value) noexcept {
    *to = ' ';
    return std::to_chars(to + 1, to + 32, value).ptr;
}

inline char* putNumber(char* to, float value, int digits) noexcept {
    *to = ' ';
    return putDigits(to + 1, value, digits);
}

/// Three numbers, likewise.
inline char* putNumbers(char* to, Vertex const& v, int digits) noexcept {
    for (float const coordinate : {v.x, v.y, v.z})
        to = putNumber(to, coordinate, digits);
    return to;
}

/// A line: the word and three coordinates.
inline char* putVertex(char* to, std::string_view word, Vertex const& v, int digits) noexcept {
    return put(putNumbers(put(to, word), v, digits), "\n");
}

} // namespace toolkit
