#pragma once

#include <vector>

#include <kova/core/KOVIResult.h>
#include <kova/diagnostics/KOVAEventLevel.h>
#include <kova/model/KOVAAssemblyComponentTransform.h>
#include <kova/public/KOVIUnit.h>

namespace toolkit {

/// What the user asks for.
struct CommandLine {
    enum Wish { Translate, Help, Version, ListOptions };

    Wish wish = Translate;
    std::vector<char const*> names;
    std::vector<char const*> optionFiles;
    std::vector<char const*> assignments;
    std::vector<KOVAAssemblyComponentTransform> placements;
    KOVIUnit fromUnit;
    KOVIUnit toUnit;
    char const* log = nullptr;
    char const* jsonLog = nullptr;
    KOVAEventLevel level = KOVA_LEVEL_UNSET;
    bool isTimed = false;
    bool isSplit = false;
    bool showsOptions = false;
};

extern char const* const kUsage;
extern char const* const kHelp;

/// Reads the arguments behind the program's name. A mistake is reported; Invalid Argument. What asks for help or the
/// like ends the reading.
KOVIResult readCommandLine(std::vector<char const*> const& arguments, CommandLine& line);

} // namespace toolkit
