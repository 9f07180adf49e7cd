#include <kova/system/KOVAFloatUtil.h>

#include <kova/text/numbers.h>

namespace {

/// The end of what may belong to a number, with white space before it: a text may be long behind it.
char const* endOfNumber(char const* at) noexcept {
    while (kova::detail::isSpace(*at))
        ++at;
    while ((*at >= '0' && *at <= '9') || (*at >= 'a' && *at <= 'z') || (*at >= 'A' && *at <= 'Z') || *at == '.' ||
           *at == '+' || *at == '-' || *at == '(' || *at == ')' || *at == '_')
        ++at;
    return at;
}

} // namespace

double KOVAFloatUtil::kovastrtod(char const* text, char** end) {
    if (!text)
        text = "";
    double value = 0.0;
    char const* const stop = kova::detail::readNumber(text, endOfNumber(text), value);
    if (end)
        *end = const_cast<char*>(stop);
    return value;
}

char const* KOVAFloatUtil::read(char const* begin, char const* end, double& value) {
    return kova::detail::readDecimal(begin, end, value);
}

char const* KOVAFloatUtil::read(char const* begin, char const* end, float& value) {
    return kova::detail::readDecimal(begin, end, value);
}
