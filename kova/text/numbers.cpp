#include <kova/text/numbers.h>

#include <algorithm>

namespace {

bool isDigit(char c) noexcept {
    return c >= '0' && c <= '9';
}

bool isHexDigit(char c) noexcept {
    return kova::detail::digitValue(c) < 16;
}

/// Whether a number that no floating-point value holds is too large, not too small.
bool isLarge(char const* at, char const* end, bool hexadecimal) noexcept {
    long long exponent = 0; // of the first digit that is not 0
    bool inFraction = false;
    bool counting = false;
    for (; at != end && (*at == '.' || (hexadecimal ? isHexDigit(*at) : isDigit(*at))); ++at) {
        if (*at == '.') {
            inFraction = true;
            continue;
        }
        counting = counting || *at != '0';
        if (counting != inFraction)
            exponent += counting ? 1 : -1;
    }
    if (at != end)
        ++at; // the "e" or "p"
    if (at != end && *at == '+')
        ++at;
    int written = 0;
    if (std::from_chars(at, end, written).ec == std::errc::result_out_of_range)
        return *at != '-';
    return exponent * (hexadecimal ? 4 : 1) + written > 0;
}

/// As std::from_chars, with a "+" before the number too, and with a value also where that is out of range.
template <class Float>
char const* readFloat(char const* begin, char const* end, Float& value, std::chars_format format) noexcept {
    char const* digits = begin;
    if (digits != end && *digits == '+' && digits + 1 != end && digits[1] != '-')
        ++digits;
    auto const result = std::from_chars(digits, end, value, format);
    if (result.ec == std::errc::invalid_argument)
        return begin;
    if (result.ec == std::errc::result_out_of_range) {
        bool const negative = *digits == '-';
        bool const large = isLarge(negative ? digits + 1 : digits, result.ptr, format == std::chars_format::hex);
        Float const magnitude = large ? std::numeric_limits<Float>::infinity() : Float{0};
        value = negative ? -magnitude : magnitude;
    }
    return result.ptr;
}

/// The hexadecimal number at `text`, behind its sign; `text` when there is none.
char const* readHexadecimal(char const* text, char const* end, double& value) noexcept {
    if (end - text < 3 || text[0] != '0' || (text[1] != 'x' && text[1] != 'X'))
        return text;
    char const* const digits = text + 2;
    if (!isHexDigit(*digits) && *digits != '.') // a sign, "inf" or "nan"
        return text;
    // An exponent without a digit behind its one sign is none.
    char const* const exponent = std::find_if(digits, end, [](char c) { return c == 'p' || c == 'P'; });
    if (exponent != end) {
        char const* first = exponent + 1;
        if (first != end && (*first == '+' || *first == '-'))
            ++first;
        if (first == end || !isDigit(*first))
            end = exponent;
    }
    char const* const stop = readFloat(digits, end, value, std::chars_format::hex);
    return stop == digits ? text : stop;
}

} // namespace

namespace kova::detail {

char const* readDecimal(char const* text, char const* limit, double& value) noexcept {
    return readFloat(text, limit, value, std::chars_format::general);
}

char const* readDecimal(char const* text, char const* limit, float& value) noexcept {
    return readFloat(text, limit, value, std::chars_format::general);
}

char const* readNumber(char const* text, char const* limit, double& value) noexcept {
    char const* begin = text;
    while (begin != limit && isSpace(*begin))
        ++begin;
    bool const hasSign = begin != limit && (*begin == '-' || *begin == '+');
    char const* const digits = begin + (hasSign ? 1 : 0);
    char const* end = readHexadecimal(digits, limit, value);
    if (end != digits) {
        value = *begin == '-' ? -value : value;
        return end;
    }
    end = readDecimal(begin, limit, value);
    return end == begin ? text : end;
}

} // namespace kova::detail
