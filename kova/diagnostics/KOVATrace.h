#pragma once

#include <kova/core/export.h>

/// What a trace is sent as.
enum KOVATraceLevel { KOVA_TRACE_DEBUG = 1, KOVA_TRACE_MESSAGE = 2, KOVA_TRACE_ERROR = 3 };

/// A component's own traces, sent only when the user names the component in the environment variable
/// "KOVALoggers".
///
///     static KOVATrace trace("Reader");
///     if (trace.IsEnabled())
///         trace.Printf(KOVA_TRACE_DEBUG, "%d rows", rows);
class KOVA_API KOVATrace {
public:
    /// Decides once: enabled when the name occurs anywhere in the variable, told apart by case.
    [[gnu::cold]] explicit KOVATrace(char const* component); // at load: among other code that runs once
    virtual ~KOVATrace();

    bool IsEnabled() const noexcept { return enabled_; }
    /// Sends the text as a debug event (1), message (2) or error (3); nothing at another level. The text is
    /// cut at 1023 characters, and "%%" that it still contains becomes "%". A null format is an empty text.
    void Printf(int level, char const* format, ...) KOVA_PRINTF(3, 4);

private:
    bool enabled_ = false;
};
