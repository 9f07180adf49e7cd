#include "CommandLine.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

#include <kova/diagnostics/KOVAError.h>
#include <kova/diagnostics/KOVAEvent.h>
#include <kova/text/KOVAString.h>

#include "Placement.h"
#include "report.h"

namespace toolkit {

namespace {

using Text = std::string const&;

constexpr char kTryHelp[] = "Try 'kova-translate --help'";

/// Stores a value, or what an argument without one means; false where the text is none.
using Take = bool (*)(Text text, CommandLine& line);

struct Argument {
    char const* name;
    char shortName;     ///< 0 for none
    char const* value;  ///< what stands behind it in the help; null for nothing
    char const* wanted; ///< the same in a mistake's message
    char const* help;   ///< in lines
    Take take;
};

struct Section {
    char const* title;
    std::vector<Argument> arguments;
};

bool takeUnit(Text text, KOVIUnit& unit) {
    unit = KOVIUnit(text.c_str());
    return unit.IsValid();
}

/// An empty text would mean the same as no argument.
bool takeText(Text text, std::string& value) {
    value = text;
    return !text.empty();
}

bool takeLevel(Text text, CommandLine& line) {
    KOVAString const keyword = KOVAString(text.c_str()).toUpperCase();
    line.talk = keyword == KOVAString("BRIEF") ? CommandLine::Brief : CommandLine::AtLevel;
    line.level = KOVAEvent::GetLevel(keyword, KOVA_LEVEL_UNSET);
    return line.talk == CommandLine::Brief || line.level != KOVA_LEVEL_UNSET;
}

std::vector<Section> const& sections() {
    static std::vector<Section> const all = {
        {"Formats and units",
         {{"--from-format", 0, "FORMAT", "a format, such as obj,",
           "the input's format, whatever its name; '-' needs it",
           [](Text text, CommandLine& line) { return takeText(text, line.fromFormat); }},
          {"--to-format", 0, "FORMAT", "a format, such as obj,", "the output's; '-' and a FOLDER need it",
           [](Text text, CommandLine& line) { return takeText(text, line.toFormat); }},
          {"--list-formats", 0, nullptr, nullptr, "print the ends of names, and their formats",
           [](Text, CommandLine& line) { return line.wish = CommandLine::ListFormats, true; }},
          {"--from-unit", 0, "UNIT", "a unit, such as mm or inch,",
           "the unit of the input's lengths: mm, cm, meter, km,\ninch, ft and so on; without it, what the file says",
           [](Text text, CommandLine& line) { return takeUnit(text, line.fromUnit); }},
          {"--to-unit", 0, "UNIT", "a unit, such as mm or inch,",
           "the unit of the output: lengths are scaled, if that of\nthe input is known",
           [](Text text, CommandLine& line) { return takeUnit(text, line.toUnit); }}}},
        {"Model",
         {{"--placement", 0, "PLACEMENT", "'rotate X Y Z DEGREES' or twelve numbers of a matrix that can be inverted",
           "where the model is put, in units of the input:\n'rotate X Y Z DEGREES', about an axis through the\n"
           "origin, or twelve numbers, three rows of a matrix with\nthe translation behind each; repeated, it makes "
           "an\ninstance for each",
           [](Text text, CommandLine& line) { return readPlacement(text.c_str(), line.placements.emplace_back()); }},
          {"--split", 0, nullptr, nullptr, "a file for each object or group, OUTPUT with its name\nput in",
           [](Text, CommandLine& line) { return line.isSplit = true; }},
          {"--options", 0, "FILE", "a file name",
           "options from the file's lines NAME=VALUE (# begins a\ncomment); may be repeated",
           [](Text text, CommandLine& line) { return line.optionFiles.push_back(text), !text.empty(); }},
          {"--set", 0, "NAME=VALUE", "NAME=VALUE", "an option; may be repeated",
           [](Text text, CommandLine& line) { return line.assignments.push_back(text), true; }},
          {"--ascii", 0, nullptr, nullptr, "the same as --set /STL/Export/Ascii=On",
           [](Text, CommandLine& line) { return line.assignments.emplace_back("/STL/Export/Ascii=On"), true; }},
          {"--list-options", 0, nullptr, nullptr, "print the options' names, types, defaults and meanings",
           [](Text, CommandLine& line) { return line.wish = CommandLine::ListOptions, true; }},
          {"--show-options", 0, nullptr, nullptr,
           "print the options' values and where they come from;\nwithout file names, no more",
           [](Text, CommandLine& line) { return line.showsOptions = true; }}}},
        {"Messages",
         {{"--quiet", 'q', nullptr, nullptr, "errors only, the same as --level ERROR",
           [](Text, CommandLine& line) { return takeLevel("ERROR", line); }},
          {"--verbose", 'v', nullptr, nullptr, "the reports of every task too, the same as\n--level VERBOSE",
           [](Text, CommandLine& line) { return takeLevel("VERBOSE", line); }},
          {"--level", 0, "LEVEL", "BRIEF, ALL, DEBUG, VERBOSE, INFO, ERROR, ABORT or NONE",
           "BRIEF: what was read and written, warnings and errors;\nALL, DEBUG, VERBOSE or INFO: the reports of every "
           "task\ntoo; ERROR: errors; ABORT: failed assertions; NONE:\nnothing",
           takeLevel},
          {"--log", 0, "FILE", "a file name", "write a log with the reports of every task",
           [](Text text, CommandLine& line) { return takeText(text, line.log); }},
          {"--log-json", 0, "FILE", "a file name", "the same for machines, a JSON object a line",
           [](Text text, CommandLine& line) { return takeText(text, line.jsonLog); }},
          {"--timing", 0, nullptr, nullptr, "say how long each task took, and all of them at last",
           [](Text, CommandLine& line) { return line.isTimed = true; }},
          {"--help", 'h', nullptr, nullptr, "print this",
           [](Text, CommandLine& line) { return line.wish = CommandLine::Help, true; }},
          {"--version", 'V', nullptr, nullptr, "print the version",
           [](Text, CommandLine& line) { return line.wish = CommandLine::Version, true; }}}},
    };
    return all;
}

constexpr char kIntroduction[] = "Usage: kova-translate [ARGUMENT]... INPUT OUTPUT\n"
                                 "  or:  kova-translate [ARGUMENT]... INPUT... FOLDER\n"
                                 "Read and write models of triangles.\n"
                                 "\n"
                                 "The end of a file's name tells its format. Each format is a library that is\n"
                                 "loaded when it is needed; stl, obj and ply come with the program. '-' is\n"
                                 "standard input or standard output. Into a FOLDER each INPUT goes under its own\n"
                                 "name, with the end of the format that --to-format names.\n";

constexpr char kRest[] = "\n"
                         "Without --quiet, --verbose and --level, a terminal shows what was read and\n"
                         "written, warnings and errors; where standard error is no terminal, it gets\n"
                         "errors only.\n"
                         "\n"
                         "Exit status:\n"
                         "  0   everything was translated, even if it had no triangles\n"
                         "  3   ended by Ctrl-C, SIGTERM or SIGHUP\n"
                         "  4   the format cannot be read\n"
                         "  7   an unexpected error, such as too little memory\n"
                         "  9   the library of a format is damaged, or made for another version\n"
                         "  11  a mistake in the arguments, in an option or in an options file\n"
                         "  13  a file to read is not there\n"
                         "  14  a file cannot be opened or created\n"
                         "  15  an output cannot be written to its end, or replace an older file\n"
                         "  17  the model, placed and scaled, is too large for floating point numbers\n"
                         "  21  an input is not sound\n"
                         "\n"
                         "Of several inputs all are tried, and the status is that of the first that\n"
                         "fails. What fails leaves nothing behind, and older outputs as they were.\n"
                         "\n"
                         "Environment:\n"
                         "  KOVANAME                the option NAME, as in KOVA/XMesh/Export/Digits; wins\n"
                         "                          over --set, that over --options, and later ones over\n"
                         "                          earlier ones\n"
                         "  KOVAConsoleTracesLevel  wins over --level; in capitals, and a text that is no\n"
                         "                          level, such as BRIEF, shows nothing\n"
                         "  KOVALogLevel            the level of both logs; without it, INFO\n"
                         "  NO_COLOR                no colours on terminals, if it is not empty\n"
                         "\n"
                         "Examples:\n"
                         "  kova-translate part.stl part.obj\n"
                         "                          one file\n"
                         "  kova-translate --from-unit=inch --to-unit=mm part.obj part.ply\n"
                         "                          the same with lengths scaled by 25.4\n"
                         "  kova-translate --to-format=obj *.stl converted/\n"
                         "                          all of a folder into another\n"
                         "  unzip -p all.zip part.obj | kova-translate --from-format=obj - part.stl\n"
                         "                          out of an archive\n";

/// A line for each argument, what it means in a column of its own.
void describe(Argument const& argument, std::string& text) {
    constexpr std::size_t kColumn = 26;
    std::string row = argument.shortName ? std::string("  -") + argument.shortName + ", " : "      ";
    row += argument.name;
    if (argument.value)
        row += std::string("=") + argument.value;
    row += row.size() + 2 > kColumn ? "\n" + std::string(kColumn, ' ') : std::string(kColumn - row.size(), ' ');
    for (char const c : std::string_view(argument.help))
        row += c == '\n' ? "\n" + std::string(kColumn, ' ') : std::string(1, c);
    text += row + '\n';
}

template <class Predicate> Argument const* find(Predicate const& isWanted) {
    for (Section const& section : sections()) {
        for (Argument const& each : section.arguments) {
            if (isWanted(each))
                return &each;
        }
    }
    return nullptr;
}

/// "--name" or "--name=value", and where a value is wanted, else the text behind it.
KOVIResult takeLong(std::vector<std::string> const& arguments, std::size_t& i, CommandLine& line) {
    std::string const& text = arguments[i];
    std::size_t const equals = std::min(text.find('='), text.size());
    std::string const name = text.substr(0, equals);
    Argument const* const argument = find([&name](Argument const& each) { return each.name == name; });
    bool const hasValue = equals < text.size();
    if (!argument)
        return fail(kInvalidArgument, printable(name).c_str(), kNowhere, "no such argument\n%s", kTryHelp);
    if (!argument->value && hasValue)
        return fail(kInvalidArgument, argument->name, kNowhere, "takes no value");
    if (argument->value && !hasValue && ++i == arguments.size())
        return fail(kInvalidArgument, argument->name, kNowhere, "%s should follow\n%s", argument->wanted, kTryHelp);
    std::string const value = hasValue ? text.substr(equals + 1) : argument->value ? arguments[i] : "";
    if (!argument->take(value, line))
        return fail(kInvalidArgument, argument->name, kNowhere, "%s should follow, not '%s'", argument->wanted,
                    printable(value.substr(0, 80)).c_str());
    return kSuccess;
}

/// "-q", or "-qv". None of them has a value.
KOVIResult takeShort(std::string const& text, CommandLine& line) {
    for (char const c : text.substr(1)) {
        Argument const* const argument = find([c](Argument const& each) { return each.shortName == c; });
        if (!argument)
            return fail(kInvalidArgument, printable(text).c_str(), kNowhere,
                        "no such argument; a file of this name is ./%s\n%s", printable(text).c_str(), kTryHelp);
        argument->take("", line);
    }
    return kSuccess;
}

KOVIResult checkNames(CommandLine const& line) {
    std::size_t const count = line.names.size();
    if (count > 1 || (count == 0 && line.showsOptions))
        return kSuccess;
    KOVAError::Printf("an input and an output are wanted\n%s", kTryHelp);
    return kInvalidArgument;
}

} // namespace

std::string helpText() {
    std::string text = kIntroduction;
    for (Section const& section : sections()) {
        text += std::string("\n") + section.title + ":\n";
        for (Argument const& argument : section.arguments)
            describe(argument, text);
    }
    return text + kRest;
}

KOVIResult readCommandLine(std::vector<std::string> const& arguments, CommandLine& line) {
    bool areNames = false;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        std::string const& text = arguments[i];
        KOVIResult result = kSuccess;
        if (areNames || text == "-" || text.substr(0, 1) != "-")
            line.names.push_back(text);
        else if (text == "--")
            areNames = true;
        else
            result = text[1] == '-' ? takeLong(arguments, i, line) : takeShort(text, line);
        if (result.IsFailure() || line.wish != CommandLine::Translate)
            return result;
    }
    return checkNames(line);
}

} // namespace toolkit
