// kova-translate INPUT OUTPUT [--ascii]: reads STL or OBJ, writes OBJ or STL.

#include <clocale>
#include <string_view>
#include <vector>

#include <kova/diagnostics/KOVAError.h>
#include <kova/diagnostics/KOVAInfo.h>

#include "ConsoleListener.h"
#include "Translation.h"
#include "report.h"

namespace {

constexpr char kUsage[] =
    "usage: kova-translate INPUT OUTPUT [--ascii]\n"
    "Reads STL (binary or ASCII) or OBJ, and writes OBJ with shared vertices or STL, by the names' ends\n"
    "(.stl, .obj). STL is written in binary, with --ascii as text; its normals are computed anew.\n"
    "The exit status is 0, or the number of the result that names the failure.";

KOVIResult run(std::vector<char const*> const& arguments) {
    std::vector<char const*> names;
    translator::StlEncoding encoding = translator::StlEncoding::Binary;
    for (char const* const argument : arguments) {
        std::string_view const text = argument;
        if (text == "--help") {
            KOVAInfo::PrintfAsItIs("%s", kUsage);
            return translator::kSuccess;
        }
        if (text == "--version") {
            KOVAInfo::PrintfAsItIs("kova-translate %s", KOVA_TRANSLATE_VERSION);
            return translator::kSuccess;
        }
        if (text == "--ascii")
            encoding = translator::StlEncoding::Ascii;
        else if (text.substr(0, 2) == "--")
            return translator::fail(translator::kInvalidArgument, argument, translator::kNowhere, "no such option\n%s",
                                    kUsage);
        else
            names.push_back(argument);
    }
    if (names.size() != 2) {
        KOVAError::Printf("two file names are wanted\n%s", kUsage);
        return translator::kInvalidArgument;
    }
    return translator::translate(names[0], names[1], encoding);
}

} // namespace

int main(int argc, char** argv) {
    // File names are in the user's encoding; numbers stay in the "C" locale.
    std::setlocale(LC_CTYPE, "");
    translator::ConsoleListener const console;
    return static_cast<int>(run({argv + 1, argv + argc}).GetReturnCode());
}
