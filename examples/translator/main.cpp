// kova-translate INPUT OUTPUT: reads STL, writes OBJ.

#include <clocale>
#include <cstring>

#include <kova/diagnostics/KOVAError.h>
#include <kova/diagnostics/KOVAInfo.h>

#include "ConsoleListener.h"
#include "Translation.h"
#include "report.h"

namespace {

constexpr char kUsage[] = "usage: kova-translate INPUT.stl OUTPUT.obj\n"
                          "Reads binary or ASCII STL and writes OBJ with shared vertices.\n"
                          "The exit status is 0, or the number of the result that names the failure.";

bool is(char const* argument, char const* option) {
    return std::strcmp(argument, option) == 0;
}

KOVIResult run(int argc, char** argv) {
    if (argc == 2 && is(argv[1], "--help")) {
        KOVAInfo::PrintfAsItIs("%s", kUsage);
        return translator::kSuccess;
    }
    if (argc == 2 && is(argv[1], "--version")) {
        KOVAInfo::PrintfAsItIs("kova-translate %s", KOVA_TRANSLATE_VERSION);
        return translator::kSuccess;
    }
    if (argc != 3) {
        KOVAError::Printf("two file names are wanted\n%s", kUsage);
        return translator::kInvalidArgument;
    }
    return translator::translate(argv[1], argv[2]);
}

} // namespace

int main(int argc, char** argv) {
    // File names are in the user's encoding; numbers stay in the "C" locale.
    std::setlocale(LC_CTYPE, "");
    translator::ConsoleListener const console;
    return static_cast<int>(run(argc, argv).GetReturnCode());
}
