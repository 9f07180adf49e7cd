// kova-translate INPUT OUTPUT: reads STL or OBJ, writes OBJ or STL.

#include <clocale>
#include <cstddef>
#include <string_view>
#include <vector>

#include <kova/diagnostics/KOVAError.h>
#include <kova/diagnostics/KOVATimingLogger.h>

#include "Console.h"
#include "Logs.h"
#include "OptionTable.h"
#include "Translation.h"
#include "report.h"
#include "tasks.h"

using translator::fail;
using translator::fire;
using translator::kInvalidArgument;
using translator::kNowhere;
using translator::kSuccess;

namespace {

constexpr char kProgram[] = "kova-translate " KOVA_TRANSLATE_VERSION;

constexpr char kUsage[] = "usage: kova-translate INPUT OUTPUT [--options FILE] [--set NAME=VALUE] [--ascii]\n"
                          "                      [--level LEVEL] [--log FILE] [--log-json FILE] [--timing]\n"
                          "       kova-translate --list-options | --show-options | --help | --version";

constexpr char kHelp[] =
    "Reads STL (binary or ASCII) or OBJ, and writes OBJ with shared vertices or STL, by the names' ends\n"
    "(.stl, .obj). STL is written in binary, with --ascii as text; its normals are computed anew.\n"
    "\n"
    "  --options FILE    options from the file's lines NAME=VALUE (# begins a comment); may be repeated\n"
    "  --set NAME=VALUE  an option; may be repeated\n"
    "  --ascii           the same as --set /STL/Export/Ascii=On\n"
    "  --list-options    prints the options' names, types, defaults and meanings\n"
    "  --show-options    prints the options' values and where they come from; without file names, no more\n"
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
    "The exit status is 0, or the number of the result that names the failure.";

struct CommandLine {
    std::vector<char const*> names;
    std::vector<char const*> optionFiles;
    std::vector<char const*> assignments;
    char const* log = nullptr;
    char const* jsonLog = nullptr;
    KOVAEventLevel level = KOVA_LEVEL_UNSET;
    bool isTimed = false;
    bool showsOptions = false;
};

/// What has no value behind it; false for anything else.
bool takeFlag(std::string_view option, CommandLine& line) {
    if (option == "--ascii")
        line.assignments.push_back("/STL/Export/Ascii=On");
    else if (option == "--show-options")
        line.showsOptions = true;
    else if (option == "--timing")
        line.isTimed = true;
    else
        return false;
    return true;
}

/// What should follow an option; null where there is no such option.
char const* valueOf(std::string_view option) {
    if (option == "--set")
        return "NAME=VALUE";
    if (option == "--level")
        return "ALL, DEBUG, VERBOSE, INFO, ERROR, ABORT or NONE";
    return option == "--options" || option == "--log" || option == "--log-json" ? "a file name" : nullptr;
}

KOVIResult takeValue(std::string_view option, char const* value, CommandLine& line) {
    if (option == "--set") {
        line.assignments.push_back(value);
    } else if (option == "--options") {
        line.optionFiles.push_back(value);
    } else if (option == "--level") {
        line.level = KOVAEvent::GetLevel(KOVAString(value).toUpperCase(), KOVA_LEVEL_UNSET);
        if (line.level == KOVA_LEVEL_UNSET)
            return fail(kInvalidArgument, "--level", kNowhere, "%s should follow, not '%s'", valueOf(option),
                        translator::printable(std::string_view(value).substr(0, 80)).c_str());
    } else {
        (option == "--log" ? line.log : line.jsonLog) = value;
    }
    return kSuccess;
}

/// What begins with "--". Its value, where it has one, is taken too.
KOVIResult takeOption(std::vector<char const*> const& arguments, std::size_t& i, CommandLine& line) {
    char const* const option = arguments[i];
    if (takeFlag(option, line))
        return kSuccess;
    char const* const wanted = valueOf(option);
    if (!wanted)
        return fail(kInvalidArgument, option, kNowhere, "no such option\n%s", kUsage);
    if (++i == arguments.size())
        return fail(kInvalidArgument, option, kNowhere, "%s should follow\n%s", wanted, kUsage);
    return takeValue(option, arguments[i], line);
}

/// All sources are looked at, so that every mistake is reported at once. The result is that of the first.
KOVIResult readOptions(CommandLine const& line, translator::OptionTable& options) {
    KOVIResult result = kSuccess;
    auto const join = [&result](KOVIResult next) { result = result.IsFailure() ? result : next; };
    for (char const* const file : line.optionFiles)
        join(options.readFile(file));
    for (char const* const assignment : line.assignments)
        join(options.set(assignment));
    join(options.readEnvironment());
    return result;
}

/// Everything between the program's start and end that a log shows.
KOVIResult runProduct(CommandLine const& line) {
    translator::OptionTable options;
    KOVIResult const result = readOptions(line, options);
    KOVAOptions given = options.given();
    KOVATaskEvent::SetRunOptions(&given);
    fire<KOVAStartOptionsTaskEvent>();
    KOVATaskEvent::SetRunOptions(nullptr);
    fire<KOVAEndOptionsTaskEvent>(result);
    if (result.IsFailure())
        return result;
    if (line.showsOptions)
        options.show();
    return line.names.empty() ? kSuccess : translator::translate(line.names[0], line.names[1], options.settings());
}

KOVIResult run(CommandLine const& line, translator::Console& console) {
    if (line.names.size() != 2 && !(line.names.empty() && line.showsOptions)) {
        KOVAError::Printf("two file names are wanted\n%s", kUsage);
        return kInvalidArgument;
    }
    std::vector<char const*> files = line.optionFiles;
    files.insert(files.end(), line.names.begin(), line.names.end());
    translator::Logs logs;
    KOVIResult result = logs.open(line.log, line.jsonLog, files);
    if (result.IsFailure())
        return result;
    if (line.level != KOVA_LEVEL_UNSET)
        console.setLevel(line.level);
    // Behind console and logs, so that a duration follows the report of its task.
    if (line.isTimed)
        KOVATimingLogger::_timing.Initialize();
    KOVATimingLogger::SetUp();
    fire<KOVAStartProductEvent>("KOVA", kProgram);
    result = runProduct(line);
    fire<KOVAEndProductEvent>(result);
    KOVATimingLogger::Stop();
    return result;
}

KOVIResult run(std::vector<char const*> const& arguments, translator::Console& console) {
    CommandLine line;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        std::string_view const text = arguments[i];
        if (text == "--help") {
            translator::print(kUsage);
            translator::print(kHelp);
            return kSuccess;
        }
        if (text == "--version") {
            translator::print(kProgram);
            return kSuccess;
        }
        if (text == "--list-options") {
            translator::OptionTable().list();
            return kSuccess;
        }
        KOVIResult result = kSuccess;
        if (text.substr(0, 2) == "--")
            result = takeOption(arguments, i, line);
        else
            line.names.push_back(arguments[i]);
        if (result.IsFailure())
            return result;
    }
    return run(line, console);
}

} // namespace

int main(int argc, char** argv) {
    // File names are in the user's encoding; numbers stay in the "C" locale.
    std::setlocale(LC_CTYPE, "");
    translator::Console console;
    return static_cast<int>(run({argv + 1, argv + argc}, console).GetReturnCode());
}
