#include <kova/diagnostics/KOVAMessageEvents.h>

#include <cstring>

#include <kova/diagnostics/KOVAError.h>
#include <kova/diagnostics/KOVAEventBus.h>
#include <kova/diagnostics/line_buffer.h>
#include <kova/diagnostics/report.h>
#include <kova/stream/KOVAOutputStream.h>

using kova::detail::libraryNames;

void KOVATextEvent::formatText(char const* format, std::va_list arguments) {
    char buffer[kova::detail::kMessageSize];
    std::size_t const length = format ? kova::detail::formatBounded(buffer, sizeof buffer, format, arguments) : 0;
    if (length == 0)
        return;
    text_ = new char[length + 1];
    std::memcpy(text_, buffer, length + 1);
}

KOVATextEvent::~KOVATextEvent() {
    delete[] text_;
}

void KOVATextEvent::writeLine(KOVAOutputStream* out, char const* prefix) const {
    if (!out)
        return;
    kova::detail::LineBuffer line;
    line.append(prefix);
    if (text_)
        line.append(text_);
    line.append("\n");
    out->write(line.view().data(), static_cast<int>(line.view().size()));
    out->flush();
}

// --- debug

KOVADebugEvent::KOVADebugEvent() : KOVATextEvent(libraryNames.debugEvent, KOVA_LEVEL_DEBUG) {}

KOVADebugEvent::KOVADebugEvent(char const* format, ...) : KOVADebugEvent() {
    std::va_list arguments;
    va_start(arguments, format);
    formatText(format, arguments);
    va_end(arguments);
}

KOVADebugEvent::KOVADebugEvent(std::va_list& arguments, char const* format) : KOVADebugEvent() {
    formatText(format, arguments);
}

void KOVADebugEvent::GetFormattedDescription(KOVAOutputStream* out) {
    writeLine(out, "");
}

// --- verbose

KOVAVerboseEvent::KOVAVerboseEvent() : KOVATextEvent(libraryNames.verboseEvent, KOVA_LEVEL_VERBOSE) {}

KOVAVerboseEvent::KOVAVerboseEvent(char const* format, ...) : KOVAVerboseEvent() {
    std::va_list arguments;
    va_start(arguments, format);
    formatText(format, arguments);
    va_end(arguments);
}

KOVAVerboseEvent::KOVAVerboseEvent(std::va_list& arguments, char const* format) : KOVAVerboseEvent() {
    formatText(format, arguments);
}

void KOVAVerboseEvent::GetFormattedDescription(KOVAOutputStream* out) {
    writeLine(out, "");
}

// --- message

KOVAMessageEvent::KOVAMessageEvent(Prefix withPrefix)
    : KOVATextEvent(libraryNames.messageEvent, KOVA_LEVEL_INFO), withPrefix_(withPrefix.wanted() ? 1 : 0) {}

KOVAMessageEvent::KOVAMessageEvent(char const* format, ...) : KOVAMessageEvent(Prefix(true)) {
    std::va_list arguments;
    va_start(arguments, format);
    formatText(format, arguments);
    va_end(arguments);
}

KOVAMessageEvent::KOVAMessageEvent(char const* format, Prefix withPrefix, ...) : KOVAMessageEvent(withPrefix) {
    std::va_list arguments;
    va_start(arguments, withPrefix);
    formatText(format, arguments);
    va_end(arguments);
}

KOVAMessageEvent::KOVAMessageEvent(std::va_list& arguments, char const* format) : KOVAMessageEvent(Prefix(true)) {
    formatText(format, arguments);
}

void KOVAMessageEvent::GetFormattedDescription(KOVAOutputStream* out) {
    writeLine(out, withPrefix_ ? "Message : " : "");
}

void KOVAMessageEvent::Fire(char const* format, ...) {
    std::va_list arguments;
    va_start(arguments, format);
    KOVAMessageEvent event(arguments, format);
    va_end(arguments);
    KOVAEventBus::Fire(event);
}

// --- warning

KOVAWarningEvent::KOVAWarningEvent() : KOVATextEvent(libraryNames.warningEvent, KOVA_LEVEL_WARNING) {}

KOVAWarningEvent::KOVAWarningEvent(char const* format, ...) : KOVAWarningEvent() {
    std::va_list arguments;
    va_start(arguments, format);
    formatText(format, arguments);
    va_end(arguments);
}

KOVAWarningEvent::KOVAWarningEvent(std::va_list& arguments, char const* format) : KOVAWarningEvent() {
    formatText(format, arguments);
}

void KOVAWarningEvent::GetFormattedDescription(KOVAOutputStream* out) {
    writeLine(out, "Warning : ");
}

// --- error

KOVAErrorEvent::KOVAErrorEvent() : KOVAErrorEvent(KOVAError::FAIL_ERROR) {}

KOVAErrorEvent::KOVAErrorEvent(KOVAError const& error)
    : KOVATextEvent(libraryNames.errorEvent, KOVA_LEVEL_ERROR), error_(&error) {}

KOVAErrorEvent::KOVAErrorEvent(char const* format, ...) : KOVAErrorEvent() {
    std::va_list arguments;
    va_start(arguments, format);
    formatText(format, arguments);
    va_end(arguments);
}

KOVAErrorEvent::KOVAErrorEvent(std::va_list& arguments, char const* format) : KOVAErrorEvent() {
    formatText(format, arguments);
}

void KOVAErrorEvent::GetFormattedDescription(KOVAOutputStream* out) {
    if (GetText())
        writeLine(out, "Error : ");
    else
        error_->GetFormattedDescription(out);
}

KOVAError const& KOVAErrorEvent::GetError() {
    return *error_;
}

void KOVAErrorEvent::Fire(char const* format, ...) {
    std::va_list arguments;
    va_start(arguments, format);
    KOVAErrorEvent event(arguments, format);
    va_end(arguments);
    KOVAEventBus::Fire(event);
}

KOVIResult KOVAErrorEvent::Fire(KOVAError& error, char const* sourceFile, int sourceLine) {
    error.SetSourceFileInfo(sourceFile, sourceLine);
    KOVAErrorEvent event(error);
    KOVAEventBus::Fire(event);
    return error.GetErrorType();
}

// --- assert

KOVAAssertEvent::KOVAAssertEvent() : KOVATextEvent(libraryNames.assertEvent, KOVA_LEVEL_ABORT) {}

KOVAAssertEvent::KOVAAssertEvent(char const* format, ...) : KOVAAssertEvent() {
    std::va_list arguments;
    va_start(arguments, format);
    formatText(format, arguments);
    va_end(arguments);
}

KOVAAssertEvent::KOVAAssertEvent(std::va_list& arguments, char const* format) : KOVAAssertEvent() {
    formatText(format, arguments);
}

void KOVAAssertEvent::GetFormattedDescription(KOVAOutputStream* out) {
    writeLine(out, "Assert : ");
}

void KOVAAssertEvent::Fire(char const* format, ...) {
    std::va_list arguments;
    va_start(arguments, format);
    KOVAAssertEvent event(arguments, format);
    va_end(arguments);
    KOVAEventBus::Fire(event);
}
