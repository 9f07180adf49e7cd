#include "report.h"

#include <cstdarg>
#include <cstdio>
#include <string>

#include <kova/diagnostics/KOVAError.h>
#include <kova/diagnostics/KOVAInfo.h>

namespace translator {

namespace {

std::string formatted(char const* format, std::va_list arguments) KOVA_PRINTF(1, 0);

std::string formatted(char const* format, std::va_list arguments) {
    char text[512];
    std::vsnprintf(text, sizeof text, format, arguments);
    return text;
}

/// A message's text is formatted once more on its way; doubled percent signs come out single.
std::string protectedPercents(std::string const& text) {
    std::string result;
    for (char const c : text)
        result.append(c == '%' ? 2 : 1, c);
    return result;
}

} // namespace

KOVIResult fail(KOVIResult result, char const* file, std::int64_t byteOffset, char const* format, ...) {
    std::va_list arguments;
    va_start(arguments, format);
    std::string text = std::string(file) + ": " + formatted(format, arguments);
    va_end(arguments);
    if (byteOffset >= 0)
        text += " (byte offset " + std::to_string(byteOffset) + ")";
    KOVAError::Printf("%s", protectedPercents(text).c_str());
    return result;
}

void inform(char const* file, char const* format, ...) {
    std::va_list arguments;
    va_start(arguments, format);
    std::string const text = std::string(file) + ": " + formatted(format, arguments);
    va_end(arguments);
    KOVAInfo::PrintfAsItIs("%s", protectedPercents(text).c_str());
}

} // namespace translator
