#pragma once

#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdio>
#include <limits>
#include <string>
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

/// What "%.*f" prints, for a precision of up to six digits.
inline std::string fixedText(double value, int precision) {
    char text[kLongestFixed];
    return {text, std::to_chars(text, text + sizeof text, value, std::chars_format::fixed, precision).ptr};
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

/// The number that [text, limit) begins with, as strtod reads it: white space, a sign, then decimal or
/// hexadecimal digits, "inf" or "nan". Returns where it ends; `text` when there is none, and the value is
/// then left alone.
char const* readNumber(char const* text, char const* limit, double& value) noexcept;

/// The decimal number, "inf" or "nan" at `text`, with or without a sign; otherwise the same.
char const* readDecimal(char const* text, char const* limit, double& value) noexcept;
char const* readDecimal(char const* text, char const* limit, float& value) noexcept;

/// The integer that [text, limit) begins with, as strtol (strtoul for an unsigned T) reads it, but with the
/// range of T: white space, a sign, digits; what is out of range becomes the nearest limit. Base 10, or 0,
/// which takes "0x" and "0" for the prefixes of hexadecimal and octal numbers. `end` is set to where the
/// number ends, to `text` when there is none.
template <class T> T readInteger(char const* text, char const* limit, unsigned base, char const*& end) noexcept {
    using Magnitude = std::make_unsigned_t<T>;
    char const* at = text;
    while (at != limit && isSpace(*at))
        ++at;
    bool const negative = at != limit && *at == '-';
    if (negative || (at != limit && *at == '+'))
        ++at;
    constexpr Magnitude kMost = static_cast<Magnitude>(std::numeric_limits<T>::max());
    Magnitude const most = std::is_signed_v<T> && negative ? kMost + Magnitude{1} : kMost;
    if (base == 0) {
        bool const octal = at != limit && *at == '0';
        bool const hexadecimal = octal && limit - at > 2 && (at[1] | 0x20) == 'x' && digitValue(at[2]) < 16;
        at += hexadecimal ? 2 : 0;
        base = hexadecimal ? 16 : octal ? 8 : 10;
    }
    // So many digits fit always; only those behind them are checked.
    constexpr std::ptrdiff_t kSafe = std::numeric_limits<Magnitude>::digits / 4 - 1;
    char const* const digits = at;
    char const* const safeLimit = limit - at > kSafe ? at + kSafe : limit;
    Magnitude value = 0;
    unsigned digit = 0;
    for (; at != safeLimit && (digit = digitValue(*at)) < base; ++at)
        value = value * base + digit;
    bool overflow = false;
    for (; at != limit && (digit = digitValue(*at)) < base; ++at) {
        overflow = overflow || value > (most - digit) / base;
        value = value * base + digit;
    }
    end = at == digits ? text : at;
    if (overflow || value > most)
        value = most;
    bool const negated = negative && (std::is_signed_v<T> || !overflow);
    return static_cast<T>(negated ? Magnitude{0} - value : value);
}

} // namespace kova::detail
