#pragma once

#include <filesystem>
#include <string>
#include <system_error>

#include <kova/diagnostics/KOVAConsoleLogger.h>
#include <kova/diagnostics/KOVATaskEvents.h>
#include <kova/system/KOVAEnvironment.h>

#include "CommandLine.h"
#include "ProgressBar.h"
#include "files.h"
#include "report.h"

namespace toolkit {

/// The library's console while it lives, on standard error alone, and a progress bar below it. The environment
/// variable that the library reads has the last word.
class Console : public KOVAConsoleLogger {
public:
    Console() {
        KOVAString named;
        isNamed_ = KOVAEnvironment::GetVariable("KOVAConsoleTracesLevel", named).IsSuccess();
        isQuiet_ = isNamed_ && KOVAEvent::GetLevel(named, KOVA_LEVEL_NONE) > KOVA_LEVEL_INFO;
        show(IsTerminal() ? CommandLine::Brief : CommandLine::AtLevel, KOVA_LEVEL_ERROR);
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
    /// The level matters for AtLevel alone.
    void show(CommandLine::Talk talk, KOVAEventLevel level) {
        if (talk == CommandLine::ByTerminal)
            return;
        isBrief_ = talk == CommandLine::Brief && !isNamed_;
        if (!isNamed_)
            isQuiet_ = !isBrief_ && level > KOVA_LEVEL_INFO;
        Finalize();
        Initialize(isBrief_ ? KOVA_LEVEL_INFO : level);
        FreeStandardOutput();
    }
    /// Of the file that is read next; "-" has none.
    void setInputSize(std::string const& name) {
        std::error_code error;
        auto const size = name == "-" ? 0 : std::filesystem::file_size(systemPath(name.c_str()), error);
        bar_.begin(error ? 0 : static_cast<double>(size));
    }

private:
    /// Of all events, those of tasks are timed. That somebody ended the program is news that only such a one brings.
    static bool isForBriefOnes(KOVAEvent& event) {
        auto const* const end = dynamic_cast<KOVAEndProductEvent*>(&event);
        return !event.IsTimed() || (end && end->getTaskResult() == long{kAborted});
    }

    bool isNamed_ = false; ///< the variable is there
    bool isBrief_ = false; ///< messages without the reports of the tasks
    bool isQuiet_ = false; ///< shows less than messages, so no progress either
    ProgressBar bar_;
};

} // namespace toolkit
