#include "Format.h"

#include "ObjReader.h"
#include "ObjWriter.h"

namespace {

class ObjFormat : public toolkit::Format {
public:
    char const* name() const override { return "OBJ"; }
    std::unique_ptr<toolkit::ModelReader> reader(toolkit::Input& input) const override {
        return std::make_unique<toolkit::ObjReader>(input);
    }
    std::unique_ptr<toolkit::ModelWriter> writer(toolkit::OutputFile& output,
                                                 toolkit::Settings const& settings) const override {
        return std::make_unique<toolkit::ObjWriter>(output, settings);
    }
};

} // namespace

std::unique_ptr<toolkit::Format> toolkit::makeFormat() {
    return std::make_unique<ObjFormat>();
}
