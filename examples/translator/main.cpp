// kova-translate INPUT OUTPUT: reads STL or OBJ, writes OBJ or STL.

#include <clocale>
#include <cstddef>
#include <string_view>
#include <vector>

#include <kova/diagnostics/KOVAError.h>

#include "ConsoleListener.h"
#include "OptionTable.h"
#include "Translation.h"
#include "report.h"

using translator::fail;
using translator::kInvalidArgument;
using translator::kNowhere;
using translator::kSuccess;

namespace {

constexpr char kUsage[] = "usage: kova-translate INPUT OUTPUT [--options FILE] [--set NAME=VALUE] [--ascii]\n"
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
    "The environment variable KOVANAME (KOVA/XMesh/Export/Digits, for one) wins over --set, that over files,\n"
    "and later ones over earlier ones. A mistake in the options is an error, and nothing is translated.\n"
    "The exit status is 0, or the number of the result that names the failure.";

struct CommandLine {
    std::vector<char const*> names;
    std::vector<char const*> optionFiles;
    std::vector<char const*> assignments;
    bool showsOptions = false;
};

/// What begins with "--". Its value, where it has one, is taken too.
KOVIResult takeOption(std::vector<char const*> const& arguments, std::size_t& i, CommandLine& line) {
    std::string_view const option = arguments[i];
    bool const isAssignment = option == "--set";
    if (option == "--ascii") {
        line.assignments.push_back("/STL/Export/Ascii=On");
    } else if (option == "--show-options") {
        line.showsOptions = true;
    } else if (!isAssignment && option != "--options") {
        return fail(kInvalidArgument, arguments[i], kNowhere, "no such option\n%s", kUsage);
    } else if (++i == arguments.size()) {
        return fail(kInvalidArgument, arguments[i - 1], kNowhere, "%s should follow\n%s",
                    isAssignment ? "NAME=VALUE" : "a file name", kUsage);
    } else {
        (isAssignment ? line.assignments : line.optionFiles).push_back(arguments[i]);
    }
    return kSuccess;
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

KOVIResult run(CommandLine const& line) {
    if (line.names.size() != 2 && !(line.names.empty() && line.showsOptions)) {
        KOVAError::Printf("two file names are wanted\n%s", kUsage);
        return kInvalidArgument;
    }
    translator::OptionTable options;
    KOVIResult const result = readOptions(line, options);
    if (result.IsFailure())
        return result;
    if (line.showsOptions)
        options.show();
    return line.names.empty() ? kSuccess : translator::translate(line.names[0], line.names[1], options.settings());
}

KOVIResult run(std::vector<char const*> const& arguments) {
    CommandLine line;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        std::string_view const text = arguments[i];
        if (text == "--help") {
            translator::print(kUsage);
            translator::print(kHelp);
            return kSuccess;
        }
        if (text == "--version") {
            translator::print("kova-translate " KOVA_TRANSLATE_VERSION);
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
    return run(line);
}

} // namespace

int main(int argc, char** argv) {
    // File names are in the user's encoding; numbers stay in the "C" locale.
    std::setlocale(LC_CTYPE, "");
    translator::ConsoleListener const console;
    return static_cast<int>(run({argv + 1, argv + argc}).GetReturnCode());
}
