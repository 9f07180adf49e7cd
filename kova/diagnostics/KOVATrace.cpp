#include <kova/diagnostics/KOVATrace.h>

#include <cstdarg>

#include <kova/diagnostics/report.h>
#include <kova/system/KOVAEnvironment.h>
#include <kova/text/KOVAString.h>

static_assert(sizeof(void*) != 4 || sizeof(KOVATrace) == 8);

KOVATrace::KOVATrace(char const* component) : enabled_(false) {
    KOVAString components;
    if (component && KOVAEnvironment::GetVariable("KOVALoggers", components).IsSuccess())
        enabled_ = components.indexOf(KOVAString(component)) >= 0;
}

KOVATrace::~KOVATrace() = default;

void KOVATrace::Printf(int level, char const* format, ...) {
    if (!enabled_)
        return;
    if (!format)
        format = "";
    std::va_list arguments;
    va_start(arguments, format);
    kova::detail::ReportText const text(0, format, arguments);
    va_end(arguments);
    switch (level) {
    case KOVA_TRACE_DEBUG: text.fire<KOVADebugEvent>(); break;
    case KOVA_TRACE_MESSAGE: text.fire<KOVAMessageEvent>(KOVAMessageEvent::Prefix(true)); break;
    case KOVA_TRACE_ERROR: text.fire<KOVAErrorEvent>(); break;
    default: break;
    }
}
