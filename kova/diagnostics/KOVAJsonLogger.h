#pragma once

#include <kova/core/export.h>
#include <kova/diagnostics/KOVALogger.h>
#include <kova/diagnostics/task_pairs.h>

/// A logger for machines that watch conversions: each event at or above its level is one line, a
/// JSON object with always the same members.
///
///     {"time":"2026-11-21T22:30:00.125Z","level":50,"event":"Entity Reading","text":"...",
///      "task":"Read Entities","duration":2.5}
///
/// | member   | what it is                                                                              |
/// |----------|-----------------------------------------------------------------------------------------|
/// | time     | when the event was delivered, in UTC                                                    |
/// | level    | a number, as in KOVAEventLevel                                                          |
/// | event    | the event's name; null when it has none                                                 |
/// | text     | its description without the line end behind it; "" when it has none                     |
/// | task     | the task that it starts or ends; null when there is none                                |
/// | duration | seconds, of the end of a task that was seen to start, measured as by the timing logger; |
/// |          | otherwise null                                                                          |
///
/// Lines are ASCII or UTF-8 whatever the text: a byte that is no part of UTF-8 becomes the character of the same
/// number.
class KOVA_API KOVAJsonLogger : public KOVALogger {
public:
    KOVAJsonLogger() = default;
    ~KOVAJsonLogger() override;

    void HandleEvent(KOVAEvent& event) override;

private:
    kova::detail::TaskPairs tasks_;
};
