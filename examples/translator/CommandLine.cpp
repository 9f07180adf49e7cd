#include "CommandLine.h"

#include <cstddef>
#include <string>
#include <string_view>

#include <kova/diagnostics/KOVAError.h>
#include <kova/diagnostics/KOVAEvent.h>
#include <kova/text/KOVAString.h>

#include "Placement.h"
#include "report.h"

namespace toolkit {

char const* const kUsage =
    "usage: kova-translate INPUT OUTPUT [--options FILE] [--set NAME=VALUE] [--ascii]\n"
    "                      [--from-unit UNIT] [--to-unit UNIT] [--placement PLACEMENT] [--split]\n"
    "                      [--level LEVEL] [--log FILE] [--log-json FILE] [--timing]\n"
    "       kova-translate --list-options | --show-options | --help | --version";

char const* const kHelp =
    "Reads and writes models of triangles. The end of a file's name tells its format, and each format is a\n"
    "library that is loaded when it is needed.\n"
    "\n"
    "  --options FILE    options from the file's lines NAME=VALUE (# begins a comment); may be repeated\n"
    "  --set NAME=VALUE  an option; may be repeated\n"
    "  --ascii           the same as --set /STL/Export/Ascii=On\n"
    "  --list-options    prints the options' names, types, defaults and meanings\n"
    "  --show-options    prints the options' values and where they come from; without file names, no more\n"
    "\n"
    "  --from-unit UNIT  the unit of the input's lengths; without it, what the file says of itself\n"
    "  --to-unit UNIT    the unit of the output: lengths are scaled, if that of the input is known. Units are mm,\n"
    "                    cm, meter, km, inch, ft and so on\n"
    "  --placement PLACEMENT  where the model is put, in units of the input: 'rotate X Y Z DEGREES', about an\n"
    "                    axis through the origin, or twelve numbers, three rows of a matrix with the translation\n"
    "                    behind each. Repeated, it makes an instance for each\n"
    "  --split           a file for each object or group, OUTPUT with its name put in\n"
    "\n"
    "  --level LEVEL     what the console shows: ALL, DEBUG, VERBOSE or INFO, the reports of every task too;\n"
    "                    ERROR, errors; ABORT, failed assertions; NONE, nothing. Without it: what was read and\n"
    "                    written, warnings and errors\n"
    "  --log FILE        writes a log with the reports of every task\n"
    "  --log-json FILE   the same for machines, a JSON object a line\n"
    "  --timing          says how long each task took, and all of them in the end\n"
    "\n"
    "The environment variable KOVANAME (KOVA/XMesh/Export/Digits, for one) wins over --set, that over files,\n"
    "and later ones over earlier ones. A mistake in the options is an error, and nothing is translated.\n"
    "KOVAConsoleTracesLevel wins over --level; KOVALogLevel is the level of both logs, INFO without it.\n"
    "The exit status is 0, or the number of the result that names the failure; 3 when it was ended by Ctrl-C.";

namespace {

/// What has no value behind it; false for anything else.
bool takeFlag(std::string_view option, CommandLine& line) {
    if (option == "--ascii")
        line.assignments.push_back("/STL/Export/Ascii=On");
    else if (option == "--show-options")
        line.showsOptions = true;
    else if (option == "--split")
        line.isSplit = true;
    else if (option == "--timing")
        line.isTimed = true;
    else
        return false;
    return true;
}

bool takeWish(std::string_view option, CommandLine& line) {
    if (option == "--help")
        line.wish = CommandLine::Help;
    else if (option == "--version")
        line.wish = CommandLine::Version;
    else if (option == "--list-options")
        line.wish = CommandLine::ListOptions;
    return line.wish != CommandLine::Translate;
}

/// Stores a value; false where the text is none.
using Take = bool (*)(char const* text, CommandLine& line);

bool takeUnit(char const* text, KOVIUnit& unit) {
    unit = KOVIUnit(text);
    return unit.IsValid();
}

struct ValueOption {
    std::string_view name;
    char const* wanted; ///< what should follow
    Take take;
};

constexpr ValueOption kValueOptions[] = {
    {"--set", "NAME=VALUE", [](char const* text, CommandLine& line) { return line.assignments.push_back(text), true; }},
    {"--options", "a file name",
     [](char const* text, CommandLine& line) { return line.optionFiles.push_back(text), true; }},
    {"--from-unit", "a unit, such as mm or inch,",
     [](char const* text, CommandLine& line) { return takeUnit(text, line.fromUnit); }},
    {"--to-unit", "a unit, such as mm or inch,",
     [](char const* text, CommandLine& line) { return takeUnit(text, line.toUnit); }},
    {"--placement", "'rotate X Y Z DEGREES' or twelve numbers of a matrix that can be inverted",
     [](char const* text, CommandLine& line) { return readPlacement(text, line.placements.emplace_back()); }},
    {"--level", "ALL, DEBUG, VERBOSE, INFO, ERROR, ABORT or NONE",
     [](char const* text, CommandLine& line) {
         line.level = KOVAEvent::GetLevel(KOVAString(text).toUpperCase(), KOVA_LEVEL_UNSET);
         return line.level != KOVA_LEVEL_UNSET;
     }},
    {"--log", "a file name", [](char const* text, CommandLine& line) { return line.log = text, true; }},
    {"--log-json", "a file name", [](char const* text, CommandLine& line) { return line.jsonLog = text, true; }},
};

ValueOption const* findValueOption(std::string_view name) {
    for (ValueOption const& each : kValueOptions) {
        if (each.name == name)
            return &each;
    }
    return nullptr;
}

/// What begins with "--". Its value, where it has one, is taken too.
KOVIResult takeOption(std::vector<char const*> const& arguments, std::size_t& i, CommandLine& line) {
    char const* const name = arguments[i];
    if (takeFlag(name, line))
        return kSuccess;
    ValueOption const* const option = findValueOption(name);
    if (!option)
        return fail(kInvalidArgument, name, kNowhere, "no such option\n%s", kUsage);
    if (++i == arguments.size())
        return fail(kInvalidArgument, name, kNowhere, "%s should follow\n%s", option->wanted, kUsage);
    if (!option->take(arguments[i], line))
        return fail(kInvalidArgument, name, kNowhere, "%s should follow, not '%s'", option->wanted,
                    printable(std::string_view(arguments[i]).substr(0, 80)).c_str());
    return kSuccess;
}

} // namespace

KOVIResult readCommandLine(std::vector<char const*> const& arguments, CommandLine& line) {
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        std::string_view const text = arguments[i];
        if (text.substr(0, 2) != "--") {
            line.names.push_back(arguments[i]);
            continue;
        }
        if (takeWish(text, line))
            return kSuccess;
        KOVIResult const result = takeOption(arguments, i, line);
        if (result.IsFailure())
            return result;
    }
    if (line.names.size() == 2 || (line.names.empty() && line.showsOptions))
        return kSuccess;
    KOVAError::Printf("two file names are wanted\n%s", kUsage);
    return kInvalidArgument;
}

} // namespace toolkit
