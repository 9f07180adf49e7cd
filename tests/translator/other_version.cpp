// A format library for the next version of the interface. A function of it that is called leaves a file.

#include <fstream>

#include "Format.h"

namespace {

void leaveFile() { std::ofstream("called") << "called\n"; }

} // namespace

extern "C" {

extern KOVA_EXPORT toolkit::FormatInterface const kovaFormatInterface;
KOVA_EXPORT void kovaFormatInitialize();
KOVA_EXPORT void kovaFormatFinalize();
KOVA_EXPORT toolkit::Format const* kovaFormat();

toolkit::FormatInterface const kovaFormatInterface = {toolkit::kInterfaceVersion + 1};

void kovaFormatInitialize() { leaveFile(); }

void kovaFormatFinalize() { leaveFile(); }

toolkit::Format const* kovaFormat() {
    leaveFile();
    return nullptr;
}
}
