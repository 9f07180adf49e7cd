#include "report.h"

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <string>

#include <kova/diagnostics/KOVAError.h>
#include <kova/diagnostics/KOVAInfo.h>
#include <kova/diagnostics/KOVAWarning.h>

#include "characters.h"

namespace toolkit {

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

/// A long name loses its middle, so that there is room for what is said of it.
std::string shownName(std::string_view name) {
    constexpr std::size_t kMost = 300;
    if (name.size() <= kMost)
        return printable(name);
    std::string const begin(name.substr(0, kMost / 2));
    return printable(begin + "..." + std::string(name.substr(name.size() - kMost / 2)));
}

/// "FILE: text (line N)".
std::string placed(char const* file, Place place, std::string const& text) {
    std::string result = shownName(file) + ": " + text;
    if (place.kind != Place::Nowhere)
        result += (place.kind == Place::Line ? " (line " : " (byte offset ") + std::to_string(place.number) + ")";
    return protectedPercents(result);
}

} // namespace

KOVIResult fail(KOVIResult result, char const* file, Place place, char const* format, ...) {
    std::va_list arguments;
    va_start(arguments, format);
    std::string const text = placed(file, place, formatted(format, arguments));
    va_end(arguments);
    KOVAError::Printf("%s", text.c_str());
    return result;
}

void warn(char const* file, Place place, char const* format, ...) {
    std::va_list arguments;
    va_start(arguments, format);
    std::string const text = placed(file, place, formatted(format, arguments));
    va_end(arguments);
    KOVAWarning::Printf("%s", text.c_str());
}

KOVIResult failUnexpected(char const* file, Place place, std::string_view word, char const* wanted) {
    if (word.empty())
        return fail(kInvalidFile, file, place, "the %s breaks off where %s should follow",
                    place.kind == Place::Line ? "line" : "file", wanted);
    return fail(kInvalidFile, file, place, "\"%s\" where %s should follow", printable(word.substr(0, 40)).c_str(),
                wanted);
}

std::string printable(std::string_view text) {
    std::string result(text);
    std::replace_if(
        result.begin(), result.end(), [](char c) { return c != '\t' && !isPrintable(c); }, '?');
    return result;
}

void inform(char const* file, char const* format, ...) {
    std::va_list arguments;
    va_start(arguments, format);
    std::string const text = placed(file, kNowhere, formatted(format, arguments));
    va_end(arguments);
    KOVAInfo::PrintfAsItIs("%s", text.c_str());
}

} // namespace toolkit
