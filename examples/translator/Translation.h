#pragma once

#include <string>
#include <vector>

#include <kova/core/KOVIResult.h>
#include <kova/model/KOVAAssemblyComponentTransform.h>
#include <kova/public/KOVIFile.h>
#include <kova/public/KOVIOptions.h>
#include <kova/public/KOVIUnit.h>

#include "Formats.h"
#include "TakenFiles.h"

namespace toolkit {

/// What is to be translated, and how.
struct Job {
    KOVIFile input;           ///< by its path, or an open stream
    KOVIFile output;          ///< likewise
    KOVIOptions options = {}; ///< those that are not as by default
    KOVIUnit fromUnit = {};   ///< of the input; unknown for what the file itself says
    KOVIUnit toUnit = {};     ///< of the output; unknown for that of the input
    /// Where the model is put, in units of the input: one instance for each, in this order. None for as it is.
    std::vector<KOVAAssemblyComponentTransform> placements = {};
    bool isSplit = false;        ///< each part becomes a file of its own
    std::string fromFormat = {}; ///< "obj"; empty for what the input's name says
    std::string toFormat = {};   ///< of the output
};

/// Translates a file to another. Reports what was read and written as messages, and the tasks of the conversion as
/// their events. A failure is reported as one error and leaves every output file as it was. Ends early with Aborted,
/// and in the same way, when KOVACallbackShared says so.
/// What it reads and writes joins the files that are taken, and no output takes the place of one of these.
KOVIResult translate(Formats& formats, Job const& job, TakenFiles& taken);
KOVIResult translate(Formats& formats, Job const& job);

} // namespace toolkit
