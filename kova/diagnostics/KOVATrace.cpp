#include <kova/diagnostics/KOVATrace.h>

#include <cstdarg>

#include <kova/diagnostics/report.h>
#include <kova/platform/environment.h>
#include <kova/text/KOVAString.h>

static_assert(sizeof(void*) != 4 || sizeof(KOVATrace) == 8);

namespace {

constexpr char kNoText[] = {'\0'}; // no literal: clang warns of an empty format

} // namespace

KOVATrace::KOVATrace(char const* component) {
    char const* const components = component ? kova::detail::environmentValue("KOVALoggers") : nullptr;
    enabled_ = components && KOVAString(components).indexOf(KOVAString(component)) >= 0;
}

KOVATrace::~KOVATrace() = default;

void KOVATrace::Printf(int level, char const* format, ...) {
    if (!enabled_)
        return;
    std::va_list arguments;
    va_start(arguments, format);
    kova::detail::ReportText const text(0, format ? format : kNoText, arguments);
    va_end(arguments);
    switch (level) {
    case KOVA_TRACE_DEBUG: text.fire<KOVADebugEvent>(); break;
    case KOVA_TRACE_MESSAGE: text.fire<KOVAMessageEvent>(KOVAMessageEvent::Prefix(true)); break;
    case KOVA_TRACE_ERROR: text.fire<KOVAErrorEvent>(); break;
    default: break;
    }
}
