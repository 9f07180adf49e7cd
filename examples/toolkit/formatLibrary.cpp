// What every format library exports.

#include "Format.h"

namespace {

std::unique_ptr<toolkit::Format> format;

} // namespace

extern "C" {

extern KOVA_EXPORT toolkit::FormatInterface const kovaFormatInterface;
KOVA_EXPORT void kovaFormatInitialize();
KOVA_EXPORT void kovaFormatFinalize();
KOVA_EXPORT toolkit::Format const* kovaFormat();

toolkit::FormatInterface const kovaFormatInterface = {toolkit::kInterfaceVersion};

void kovaFormatInitialize() {
    format = toolkit::makeFormat();
}

void kovaFormatFinalize() {
    format.reset();
}

toolkit::Format const* kovaFormat() {
    return format.get();
}
}
