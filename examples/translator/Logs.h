#pragma once

#include <string>
#include <vector>

#include <kova/diagnostics/KOVAJsonLogger.h>
#include <kova/diagnostics/KOVALogger.h>
#include <kova/diagnostics/KOVATaskEvents.h>

#include "files.h"

namespace toolkit {

/// A logger that leaves out how far a translation has come: that is for who waits.
template <class Logger> class WithoutProgress : public Logger {
public:
    void HandleEvent(KOVAEvent& event) override {
        if (!dynamic_cast<KOVAThirdPartyProgressEvent*>(&event))
            Logger::HandleEvent(event);
    }
};

/// The log files of a run, written while this lives, at the level that the environment names.
class Logs {
public:
    /// An empty name for a log that is not wanted. `others` are the files of the run: none of them may be a log. A log
    /// that cannot be written is reported; Invalid Argument or File Open Error.
    KOVIResult open(std::string const& text, std::string const& json, std::vector<std::string> const& others);

private:
    static KOVIResult open(File& file, KOVALogger& logger, std::string const& name,
                           std::vector<std::string> const& others);

    // The files outlive the loggers.
    File textFile_;
    File jsonFile_;
    WithoutProgress<KOVALogger> text_;
    WithoutProgress<KOVAJsonLogger> json_;
};

} // namespace toolkit
