#pragma once

#include <kova/core/export.h>
#include <kova/diagnostics/KOVAEventListener.h>

/// Measures the tasks of a conversion: says after each how long it took, and at the end how long each kind took
/// in all, in the order in which they were first completed.
///
///     KOVATimingLogger::SetUp();   // on, if the user set the environment variable "KOVATaskTiming"
///     ...
///     KOVATimingLogger::Stop();    // or at unload
///
/// Everything is said as messages (KOVAInfo). A task's time is the processor's, but the calendar's for tasks
/// that took more than 600 seconds.
class KOVA_API KOVATimingLogger : public KOVAEventListener {
public:
    /// Off.
    constexpr KOVATimingLogger() noexcept = default;
    KOVATimingLogger(KOVATimingLogger const&) = delete;
    KOVATimingLogger& operator=(KOVATimingLogger const&) = delete;

    /// Times the events of tasks and ignores the rest.
    void HandleEvent(KOVAEvent& event) override;
    ~KOVATimingLogger() override;

    /// Says "Task Timing On" and goes on the bus; nothing when it is on.
    void Initialize();
    /// Prints the report, unless no task was completed, and leaves the bus; nothing when it is off. The totals
    /// stay: a later report includes them.
    void Finalize();

    /// The same for the logger of the process; SetUp only if "KOVATaskTiming" is "True", "Yes" or "On".
    static void SetUp();
    static void Stop();

    static KOVATimingLogger _timing;

private:
    struct KOVA_LOCAL Tasks;

    void report() const;

    bool on_ = false;
    Tasks* tasks_ = nullptr; ///< made for the first event
};
