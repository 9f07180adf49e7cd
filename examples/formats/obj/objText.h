#pragma once

#include <cmath>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include <kova/system/KOVAFloatUtil.h>

#include "characters.h"

namespace toolkit {

// The statements of OBJ files and of their material libraries: words between blanks, and perhaps a comment.

/// A word ends at a blank, a comment or the line's end.
inline bool endsWord(char const* at, char const* end) noexcept {
    return at == end || isSpace(*at) || *at == '#';
}

inline void skipBlanks(std::string_view& text) noexcept {
    while (!text.empty() && isSpace(text.front()))
        text.remove_prefix(1);
}

inline std::string_view firstWord(std::string_view text) noexcept {
    char const* const end = text.data() + text.size();
    char const* stop = text.data();
    while (!endsWord(stop, end))
        ++stop;
    return text.substr(0, static_cast<std::size_t>(stop - text.data()));
}

/// Behind blanks only a comment or nothing is left.
inline bool isDone(std::string_view& text) noexcept {
    skipBlanks(text);
    return text.empty() || text.front() == '#';
}

inline void takeTo(std::string_view& text, char const* at) noexcept {
    text.remove_prefix(static_cast<std::size_t>(at - text.data()));
}

/// Takes the number that the text begins with; false where it is no word of its own. It may be infinite or none.
inline bool takeNumber(std::string_view& text, float& value) noexcept {
    char const* const end = text.data() + text.size();
    char const* const stop = KOVAFloatUtil::read(text.data(), end, value);
    if (stop == text.data() || !endsWord(stop, end))
        return false;
    takeTo(text, stop);
    return true;
}

/// Of a colour: what goes beyond 0 to 1 stays at the end.
inline float clampedShare(float value) noexcept {
    return value > 0 ? std::fmin(value, 1.0F) : 0.0F;
}

/// What a statement names, to the end of its line. A name may contain "#"; a comment stands apart.
std::string nameIn(std::string_view text);

/// The same, each word of it.
std::vector<std::string> namesIn(std::string_view text);

} // namespace toolkit
