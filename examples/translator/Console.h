#pragma once

#include <kova/diagnostics/KOVAConsoleLogger.h>
#include <kova/diagnostics/KOVAEvent.h>
#include <kova/system/KOVAEnvironment.h>

namespace toolkit {

/// The library's console while it lives. It is brief, messages without the reports of the tasks, until somebody
/// names a level: setLevel, or the environment variable that the library reads.
class Console : public KOVAConsoleLogger {
public:
    Console() {
        KOVAString named;
        isBrief_ = KOVAEnvironment::GetVariable("KOVAConsoleTracesLevel", named).IsFailure();
        Initialize(KOVA_LEVEL_UNSET);
    }

    void HandleEvent(KOVAEvent& event) override {
        // Of all events, those of tasks are timed.
        if (!isBrief_ || !event.IsTimed())
            KOVAConsoleLogger::HandleEvent(event);
    }
    void setLevel(KOVAEventLevel level) {
        isBrief_ = false;
        Finalize();
        Initialize(level);
    }

private:
    bool isBrief_ = true;
};

} // namespace toolkit
