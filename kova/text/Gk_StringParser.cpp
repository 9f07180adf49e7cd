#include <kova/text/Gk_StringParser.h>

#include <cstring>

#include <kova/core/Gk_ErrMgr.h>
#include <kova/text/numbers.h>

static_assert(sizeof(void*) != 4 || sizeof(Gk_StringParser) == 12);

int Gk_StringParser::countDigits(int start, unsigned base) {
    if (start < 0 || start >= len())
        return 0;
    int i = start;
    while (kova::detail::digitValue(at(i)) < base)
        ++i;
    end_ = static_cast<char*>(*this) + i;
    return i - start;
}

int Gk_StringParser::countDigits(int start) {
    return countDigits(start, 10);
}

int Gk_StringParser::countHexDigits(int start) {
    return countDigits(start, 16);
}

bool Gk_StringParser::isUnsignedInteger(int start) {
    bool const hexadecimal = at(start) == '0' && at(start + 1) == 'x';
    int const first = start + (hexadecimal ? 2 : 0);
    int const count = hexadecimal ? countHexDigits(first) : countDigits(first);
    return count > 0 && at(first + count) == '\0';
}

bool Gk_StringParser::isInteger(int start) {
    return isUnsignedInteger(start + (at(start) == '+' || at(start) == '-' ? 1 : 0));
}

bool Gk_StringParser::isReal(int start) {
    int i = start + (at(start) == '+' || at(start) == '-' ? 1 : 0);
    int digits = countDigits(i);
    i += digits;
    if (at(i) == '.') {
        int const fraction = countDigits(i + 1);
        digits += fraction;
        i += 1 + fraction;
    }
    if (digits == 0)
        return false;
    return at(i) == 'e' || at(i) == 'E' ? isInteger(i + 1) : true;
}

/// Ends a conversion of the text that ends at `limit`: what stands behind the number is looked at.
void Gk_StringParser::setEnd(char const* end, char const* limit) {
    end_ = const_cast<char*>(end);
    checked_ = false;
    if (end != limit && *end != '\0') {
        Gk_ErrMgr::checkAbort();
        Gk_ErrMgr::doAssert(__FILE__, __LINE__);
    }
    checked_ = true;
}

template <class T> T Gk_StringParser::anyNumber() {
    char const* const text = *this;
    char const* const limit = text + len();
    char const* end = nullptr;
    T value{};
    if constexpr (std::is_integral_v<T>) {
        value = kova::detail::readInteger<T>(text, limit, 0, end);
    } else {
        end = kova::detail::readNumber(text, limit, value);
        if (end != limit && *end == '.') {
            T more{};
            end = kova::detail::readNumber(end, limit, more);
            value += more;
        }
    }
    setEnd(end, limit);
    return value;
}

template KOVA_API long Gk_StringParser::anyNumber<long>();
template KOVA_API unsigned long Gk_StringParser::anyNumber<unsigned long>();
template KOVA_API int Gk_StringParser::anyNumber<int>();
template KOVA_API unsigned int Gk_StringParser::anyNumber<unsigned int>();
template KOVA_API double Gk_StringParser::anyNumber<double>();

bool Gk_StringParser::isString(char const* s) const {
    return s && Gk_ROString(dataStr()).text() == s;
}
