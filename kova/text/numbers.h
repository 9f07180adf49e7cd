#pragma once

#include <charconv>
#include <cmath>
#include <cstdio>
#include <limits>
#include <type_traits>

/// Numbers as printf and strtol have them in the "C" locale, without asking the locale.
namespace kova::detail {

/// Room for what formatFixed writes of any value: sign, digits before the point, point, six digits.
constexpr int kLongestFixed = std::numeric_limits<double>::max_exponent10 + 16;

/// What "%f" prints, not terminated; `buffer` has room for kLongestFixed. Returns the end.
inline char* formatFixed(double value, char* buffer) noexcept {
    if (std::isnan(value)) // C runtimes differ in the sign that they show
        return buffer + std::snprintf(buffer, kLongestFixed, "%f", value);
    return std::to_chars(buffer, buffer + kLongestFixed, value, std::chars_format::fixed, 6).ptr;
}

inline bool isSpace(char c) noexcept {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

/// The value of a digit in bases up to 16; 16 for what is none.
inline unsigned digitValue(char c) noexcept {
    if (c >= '0' && c <= '9')
        return static_cast<unsigned>(c - '0');
    char const lower = static_cast<char>(c | 0x20);
    return lower >= 'a' && lower <= 'f' ? static_cast<unsigned>(lower - 'a') + 10U : 16U;
}

/// The integer that a terminated text begins with, as strtol (strtoul for an unsigned T) reads it, but
/// with the range of T: white space, a sign, digits; what is out of range becomes the nearest limit. Base
/// 0 takes "0x" and "0" for the prefixes of hexadecimal and octal numbers. `end` is set to where the
/// number ends, to the text when there is none.
template <class T> T parseInteger(char const* text, unsigned base, char const*& end) noexcept {
    using Magnitude = std::make_unsigned_t<T>;
    char const* at = text;
    while (isSpace(*at))
        ++at;
    bool const negative = *at == '-';
    if (negative || *at == '+')
        ++at;
    if (base == 0) {
        bool const hexadecimal = at[0] == '0' && (at[1] == 'x' || at[1] == 'X') && digitValue(at[2]) < 16;
        base = hexadecimal ? 16 : at[0] == '0' ? 8 : 10;
        at += hexadecimal ? 2 : 0;
    }
    constexpr Magnitude kMost = std::numeric_limits<T>::max();
    Magnitude const limit = std::is_signed_v<T> && negative ? kMost + Magnitude{1} : kMost;
    Magnitude value = 0;
    bool overflow = false;
    char const* const digits = at;
    for (unsigned digit = digitValue(*at); digit < base; digit = digitValue(*++at)) {
        overflow = overflow || value > (limit - digit) / base;
        value = value * static_cast<Magnitude>(base) + digit;
    }
    end = at == digits ? text : at;
    if (overflow)
        return static_cast<T>(negative && std::is_signed_v<T> ? Magnitude{0} - limit : limit);
    return static_cast<T>(negative ? Magnitude{0} - value : value);
}

} // namespace kova::detail
