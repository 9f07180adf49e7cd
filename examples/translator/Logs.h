#pragma once

#include <vector>

#include <kova/diagnostics/KOVAJsonLogger.h>
#include <kova/diagnostics/KOVALogger.h>

#include "files.h"

namespace toolkit {

/// The log files of a run, written while this lives, at the level that the environment names.
class Logs {
public:
    /// Null for a log that is not wanted. `others` are the files of the run: none of them may be a log. A log that
    /// cannot be written is reported; Invalid Argument or File Open Error.
    KOVIResult open(char const* text, char const* json, std::vector<char const*> const& others);

private:
    static KOVIResult open(File& file, KOVALogger& logger, char const* name, std::vector<char const*> const& others);

    // The files outlive the loggers.
    File textFile_;
    File jsonFile_;
    KOVALogger text_;
    KOVAJsonLogger json_;
};

} // namespace toolkit
