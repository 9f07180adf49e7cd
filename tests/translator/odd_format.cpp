// A format that cannot be read, and whose writer gives up in a way that nobody expects.

#include <stdexcept>

#include "Format.h"

namespace {

class OddFormat : public toolkit::Format {
public:
    char const* name() const override { return "ODD"; }
    std::unique_ptr<toolkit::ModelReader> reader(toolkit::Input&) const override { return nullptr; }
    std::unique_ptr<toolkit::ModelWriter> writer(toolkit::OutputFile&, toolkit::Settings const&) const override {
        throw std::runtime_error("an odd day");
    }
};

} // namespace

std::unique_ptr<toolkit::Format> toolkit::makeFormat() { return std::make_unique<OddFormat>(); }
