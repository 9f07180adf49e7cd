#pragma once

#include <charconv>
#include <cstring>
#include <string_view>

#include "TriangleSink.h"

namespace translator {

/// Room that a line of the formats takes at most, names not counted.
constexpr int kLongestRecord = 512;

/// These write at `to` and return the end.
inline char* put(char* to, std::string_view text) noexcept {
    std::memcpy(to, text.data(), text.size());
    return to + text.size();
}

/// A blank and the number, with the fewest digits that give the same number again.
template <class Number> char* putNumber(char* to, Number value) noexcept {
    *to = ' ';
    return std::to_chars(to + 1, to + 32, value).ptr;
}

/// A line: the word and three coordinates.
inline char* putVertex(char* to, std::string_view word, Vertex const& v) noexcept {
    to = putNumber(putNumber(putNumber(put(to, word), v.x), v.y), v.z);
    return put(to, "\n");
}

} // namespace translator
