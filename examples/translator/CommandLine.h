#pragma once

#include <string>
#include <vector>

#include <kova/core/KOVIResult.h>
#include <kova/diagnostics/KOVAEventLevel.h>
#include <kova/model/KOVAAssemblyComponentTransform.h>
#include <kova/public/KOVIUnit.h>

namespace toolkit {

/// What the user asks for.
struct CommandLine {
    enum Wish { Translate, Help, Version, ListFormats, ListOptions };
    /// What the console shows: what was read and written, warnings and errors, if somebody sits there, else errors
    /// alone; the former in any case; or what is at a level.
    enum Talk { ByTerminal, Brief, AtLevel };

    Wish wish = Translate;
    std::vector<std::string> names; ///< inputs, and behind them the output
    std::vector<std::string> optionFiles;
    std::vector<std::string> assignments;
    std::vector<KOVAAssemblyComponentTransform> placements;
    std::string fromFormat; ///< empty for what names say
    std::string toFormat;
    KOVIUnit fromUnit;
    KOVIUnit toUnit;
    std::string log; ///< empty for none
    std::string jsonLog;
    Talk talk = ByTerminal;
    KOVAEventLevel level = KOVA_LEVEL_UNSET; ///< of AtLevel
    bool isTimed = false;
    bool isSplit = false;
    bool showsOptions = false;
};

/// What --help prints.
std::string helpText();

/// Reads the arguments behind the program's name. A mistake is reported; Invalid Argument. What asks for help or the
/// like ends the reading.
KOVIResult readCommandLine(std::vector<std::string> const& arguments, CommandLine& line);

} // namespace toolkit
