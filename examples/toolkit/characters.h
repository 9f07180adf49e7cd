#pragma once

#include <algorithm>
#include <string>
#include <cstddef>
#include <string_view>

namespace toolkit {

/// The characters of text files, the same in every locale; what is not ASCII is some encoding's letter.
inline bool isSpace(char c) noexcept {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

inline bool isPrintable(char c) noexcept {
    return static_cast<unsigned char>(c) >= 0x20 && c != 0x7F;
}

inline bool isText(std::string_view bytes) noexcept {
    return std::all_of(bytes.begin(), bytes.end(), [](char c) { return isSpace(c) || isPrintable(c); });
}

/// With small letters.
inline std::string lowered(std::string_view text) {
    std::string result(text);
    std::transform(result.begin(), result.end(), result.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c | 0x20) : c; });
    return result;
}

inline std::string_view trimmed(std::string_view text) noexcept {
    while (!text.empty() && isSpace(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isSpace(text.back()))
        text.remove_suffix(1);
    return text;
}

/// Takes the first word; empty where there is none.
inline std::string_view takeWord(std::string_view& text) noexcept {
    text = trimmed(text);
    char const* const end = std::find_if(text.data(), text.data() + text.size(), isSpace);
    std::string_view const word = text.substr(0, static_cast<std::size_t>(end - text.data()));
    text.remove_prefix(word.size());
    return word;
}

/// Which editors put in front of a text in UTF-8.
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

inline bool beginsWithMark(std::string_view text) noexcept {
    return text.substr(0, kByteOrderMark.size()) == kByteOrderMark;
}

inline void skipByteOrderMark(std::string_view& text) noexcept {
    if (beginsWithMark(text))
        text.remove_prefix(kByteOrderMark.size());
}

/// `wanted` is made of small letters.
inline bool equalsIgnoringCase(std::string_view text, std::string_view wanted) noexcept {
    return text.size() == wanted.size() &&
           std::equal(text.begin(), text.end(), wanted.begin(), [](char a, char b) { return (a | 0x20) == b; });
}

} // namespace toolkit
