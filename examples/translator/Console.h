#pragma once

#include <filesystem>
#include <system_error>

#include <kova/diagnostics/KOVAConsoleLogger.h>
#include <kova/diagnostics/KOVATaskEvents.h>
#include <kova/system/KOVAEnvironment.h>

#include "ProgressBar.h"
#include "files.h"
#include "report.h"

namespace toolkit {

/// The library's console while it lives, and a progress bar below it. It is brief, messages without the reports of
/// the tasks, until somebody names a level: setLevel, or the environment variable that the library reads.
class Console : public KOVAConsoleLogger {
public:
    Console() {
        KOVAString named;
        isBrief_ = KOVAEnvironment::GetVariable("KOVAConsoleTracesLevel", named).IsFailure();
        isQuiet_ = !isBrief_ && KOVAEvent::GetLevel(named, KOVA_LEVEL_NONE) > KOVA_LEVEL_INFO;
        Initialize(KOVA_LEVEL_UNSET);
    }

    void HandleEvent(KOVAEvent& event) override {
        if (auto const* const progress = dynamic_cast<KOVAThirdPartyProgressEvent*>(&event)) {
            if (!isQuiet_)
                bar_.show(progress->GetProgress());
        } else if (!isBrief_ || isForBriefOnes(event)) {
            bar_.erase();
            KOVAConsoleLogger::HandleEvent(event);
        }
    }
    void setLevel(KOVAEventLevel level) {
        if (isBrief_)
            isQuiet_ = level > KOVA_LEVEL_INFO;
        isBrief_ = false;
        Finalize();
        Initialize(level);
    }
    /// Of the file that is read next.
    void setInputSize(char const* name) {
        std::error_code error;
        auto const size = std::filesystem::file_size(systemPath(name), error);
        bar_.begin(error ? 0 : static_cast<double>(size));
    }

private:
    /// Of all events, those of tasks are timed. That somebody ended the program is news that only such a one brings.
    static bool isForBriefOnes(KOVAEvent& event) {
        auto const* const end = dynamic_cast<KOVAEndProductEvent*>(&event);
        return !event.IsTimed() || (end && end->getTaskResult() == long{kAborted});
    }

    bool isBrief_ = true;
    bool isQuiet_ = false; ///< shows less than messages, so no progress either
    ProgressBar bar_;
};

} // namespace toolkit
