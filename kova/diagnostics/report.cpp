#include <kova/diagnostics/report.h>

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <limits>
#include <memory>

#include <kova/diagnostics/KOVAAssert.h>
#include <kova/diagnostics/KOVADebug.h>
#include <kova/diagnostics/KOVAError.h>
#include <kova/diagnostics/KOVAInfo.h>
#include <kova/diagnostics/KOVAVerbose.h>
#include <kova/diagnostics/KOVAWarning.h>
#include <kova/platform/clock.h>

namespace kova::detail {

namespace {

/// Formats as vsnprintf does where the format holds only the conversions of most messages, "%s", "%d"
/// and "%%". False otherwise, with the buffer half filled. With vsnprintf such a message takes twice as
/// long from its call to its delivery.
bool formatPlain(char* buffer, std::size_t size, char const* format, std::va_list arguments, std::size_t& length) {
    std::size_t used = 0;
    auto const append = [&](char const* text, std::size_t count) {
        count = std::min(count, size - 1 - used);
        std::memcpy(buffer + used, text, count);
        used += count;
    };
    while (char const* const percent = std::strchr(format, '%')) {
        append(format, static_cast<std::size_t>(percent - format));
        format = percent + 2;
        if (percent[1] == 's') {
            char const* const text = va_arg(arguments, char const*);
            if (!text)
                return false;
            append(text, std::strlen(text));
        } else if (percent[1] == 'd') {
            char digits[std::numeric_limits<int>::digits10 + 2];
            char const* const end = std::to_chars(digits, digits + sizeof digits, va_arg(arguments, int)).ptr;
            append(digits, static_cast<std::size_t>(end - digits));
        } else if (percent[1] == '%') {
            append(percent, 1);
        } else {
            return false;
        }
    }
    append(format, std::strlen(format));
    buffer[used] = '\0';
    length = used;
    return true;
}

} // namespace

void collapsePercentPairs(char* text) {
    char* out = std::strchr(text, '%');
    if (!out)
        return;
    for (char const* in = out; *in; ++in) {
        if (in[0] == '%' && in[1] == '%')
            ++in;
        *out++ = *in;
    }
    *out = '\0';
}

std::size_t formatBounded(char* buffer, std::size_t size, char const* format, std::va_list arguments) {
    std::va_list again;
    va_copy(again, arguments);
    std::size_t length = 0;
    bool const plain = formatPlain(buffer, size, format, again, length);
    va_end(again);
    if (plain)
        return length;
    std::memset(buffer, 0, size);
    int const wanted = std::vsnprintf(buffer, size, format, arguments);
    if (wanted < 0) {
        // Something could not be converted; what came before it counts.
        buffer[size - 1] = '\0';
        return std::strlen(buffer);
    }
    return static_cast<std::size_t>(wanted) < size ? static_cast<std::size_t>(wanted) : size - 1;
}

ReportText::ReportText(int indentation, char const* format, std::va_list arguments) : text_(local_) {
    std::size_t const blanks = indentation > 0 ? 3 * static_cast<std::size_t>(indentation) : 0;
    if (blanks > sizeof local_ - kMessageSize) {
        deep_.resize(blanks + kMessageSize);
        text_ = deep_.data();
    }
    std::memset(text_, ' ', blanks);
    formatBounded(text_ + blanks, kMessageSize, format, arguments);
    collapsePercentPairs(text_ + blanks);
}

} // namespace kova::detail

namespace {

using kova::detail::ReportText;

template <class Reporter> void printPoints(float const* points, int count) {
    for (int i = 0; points && i < count; ++i, points += 3)
        Reporter::Printf("{%6.3f, %6.3f, %6.3f}\n", static_cast<double>(points[0]), static_cast<double>(points[1]),
                         static_cast<double>(points[2]));
}

template <class Reporter> void print3x4(double const* m) {
    for (int i = 0; m && i < 3; ++i)
        Reporter::Printf("[%05.3f, %05.3f, %05.3f, %05.3f]\n", m[i], m[i + 3], m[i + 6], m[i + 9]);
}

template <class Reporter> void print4x4(float const* m) {
    for (int i = 0; m && i < 4; ++i, m += 4)
        Reporter::Printf("[%6.3f, %6.3f, %6.3f, %6.3f]\n", static_cast<double>(m[0]), static_cast<double>(m[1]),
                         static_cast<double>(m[2]), static_cast<double>(m[3]));
}

/// The frequency of the debug timer, as last asked for.
std::int64_t timerFrequency = 0;

} // namespace

std::int32_t KOVADebug::indentation_ = 0;
std::int32_t KOVAVerbose::indentation_ = 0;
std::int32_t KOVAInfo::indentation_ = 0;
std::int32_t KOVAWarning::indentation_ = 0;

void KOVADebug::Tab() noexcept {
    ++indentation_;
}

void KOVADebug::Untab() noexcept {
    --indentation_;
}

void KOVADebug::Printf(char const* format, ...) {
    std::va_list arguments;
    va_start(arguments, format);
    if (format)
        ReportText(indentation_, format, arguments).fire<KOVADebugEvent>();
    va_end(arguments);
}

void KOVADebug::NoTabPrintf(char const* format, ...) {
    std::va_list arguments;
    va_start(arguments, format);
    if (format)
        ReportText(0, format, arguments).fire<KOVADebugEvent>();
    va_end(arguments);
}

void KOVADebug::PrintPointArray(float const* points, int count) {
    printPoints<KOVADebug>(points, count);
}

void KOVADebug::Print3x4Matrix(double const* m) {
    print3x4<KOVADebug>(m);
}

void KOVADebug::Print4x4Matrix(float const* m) {
    print4x4<KOVADebug>(m);
}

void* KOVADebug::StartTimer() {
    timerFrequency = kova::detail::performanceFrequency();
    if (timerFrequency != 0)
        return new std::int64_t(kova::detail::performanceCounter());
    return new std::time_t(std::time(nullptr));
}

float KOVADebug::StopTimer(void* token) {
    if (!token)
        return 0.0F;
    if (timerFrequency != 0) {
        std::unique_ptr<std::int64_t> const start(static_cast<std::int64_t*>(token));
        std::int64_t const elapsed = kova::detail::performanceCounter() - *start;
        return static_cast<float>(static_cast<double>(elapsed) * 1000.0 / static_cast<double>(timerFrequency));
    }
    std::unique_ptr<std::time_t> const start(static_cast<std::time_t*>(token));
    return static_cast<float>(std::difftime(std::time(nullptr), *start) * 1000.0);
}

void KOVAVerbose::Tab() noexcept {
    ++indentation_;
}

void KOVAVerbose::Untab() noexcept {
    --indentation_;
}

void KOVAVerbose::Printf(char const* format, ...) {
    std::va_list arguments;
    va_start(arguments, format);
    if (format)
        ReportText(indentation_, format, arguments).fire<KOVAVerboseEvent>();
    va_end(arguments);
}

void KOVAVerbose::NoTabPrintf(char const* format, ...) {
    std::va_list arguments;
    va_start(arguments, format);
    if (format)
        ReportText(0, format, arguments).fire<KOVAVerboseEvent>();
    va_end(arguments);
}

void KOVAVerbose::PrintPointArray(float const* points, int count) {
    printPoints<KOVAVerbose>(points, count);
}

void KOVAVerbose::Print3x4Matrix(double const* m) {
    print3x4<KOVAVerbose>(m);
}

void KOVAVerbose::Print4x4Matrix(float const* m) {
    print4x4<KOVAVerbose>(m);
}

void KOVAInfo::Tab() noexcept {
    ++indentation_;
}

void KOVAInfo::Untab() noexcept {
    --indentation_;
}

void KOVAInfo::Printf(char const* format, ...) {
    std::va_list arguments;
    va_start(arguments, format);
    if (format)
        ReportText(indentation_, format, arguments).fire<KOVAMessageEvent>(true);
    va_end(arguments);
}

void KOVAInfo::PrintfAsItIs(char const* format, ...) {
    std::va_list arguments;
    va_start(arguments, format);
    if (format)
        ReportText(indentation_, format, arguments).fire<KOVAMessageEvent>(false);
    va_end(arguments);
}

void KOVAInfo::NoTabPrintf(char const* format, ...) {
    std::va_list arguments;
    va_start(arguments, format);
    if (format)
        ReportText(0, format, arguments).fire<KOVAMessageEvent>(true);
    va_end(arguments);
}

void KOVAInfo::PrintPointArray(float const* points, int count) {
    printPoints<KOVAInfo>(points, count);
}

void KOVAInfo::Print3x3Matrix(float const* m) {
    for (int i = 0; m && i < 3; ++i, m += 3)
        Printf("[%05.3f, %05.3f, %05.3f]\n", static_cast<double>(m[0]), static_cast<double>(m[1]),
               static_cast<double>(m[2]));
}

void KOVAInfo::Print3x4Matrix(double const* m) {
    print3x4<KOVAInfo>(m);
}

void KOVAInfo::Print4x4Matrix(float const* m) {
    print4x4<KOVAInfo>(m);
}

void KOVAWarning::Tab() noexcept {
    ++indentation_;
}

void KOVAWarning::Untab() noexcept {
    --indentation_;
}

void KOVAWarning::Printf(char const* format, ...) {
    std::va_list arguments;
    va_start(arguments, format);
    if (format)
        ReportText(indentation_, format, arguments).fire<KOVAWarningEvent>();
    va_end(arguments);
}

void KOVAWarning::NoTabPrintf(char const* format, ...) {
    std::va_list arguments;
    va_start(arguments, format);
    if (format)
        ReportText(0, format, arguments).fire<KOVAWarningEvent>();
    va_end(arguments);
}

void KOVAWarning::PrintPointArray(float const* points, int count) {
    printPoints<KOVAWarning>(points, count);
}

void KOVAWarning::Print3x4Matrix(double const* m) {
    print3x4<KOVAWarning>(m);
}

void KOVAWarning::Print4x4Matrix(float const* m) {
    print4x4<KOVAWarning>(m);
}

void KOVAError::Printf(char const* format, ...) {
    std::va_list arguments;
    va_start(arguments, format);
    if (format)
        ReportText(0, format, arguments).fire<KOVAErrorEvent>();
    va_end(arguments);
}

void KOVAAssert::Printf(char const* format, ...) {
    std::va_list arguments;
    va_start(arguments, format);
    if (format)
        ReportText(0, format, arguments).fire<KOVAAssertEvent>();
    va_end(arguments);
}
