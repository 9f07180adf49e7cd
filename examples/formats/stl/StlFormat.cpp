#include "Format.h"

#include "StlReader.h"
#include "StlWriter.h"
#include "report.h"

namespace {

constexpr char kAscii[] = "/STL/Export/Ascii";

class StlFormat : public toolkit::Format {
public:
    char const* name() const override { return "STL"; }
    std::vector<toolkit::OptionDescription> options() const override {
        return {{kAscii, false, "STL is written as text"}};
    }
    std::unique_ptr<toolkit::ModelReader> reader(toolkit::Input& input) const override {
        return std::make_unique<toolkit::StlReader>(input);
    }
    std::unique_ptr<toolkit::ModelWriter> writer(toolkit::OutputFile& output,
                                                 toolkit::Settings const& settings) const override {
        if (toolkit::isOn(settings.options, kAscii))
            return std::make_unique<toolkit::AsciiStlWriter>(output, settings);
        if (output.allowOverwriting())
            return std::make_unique<toolkit::BinaryStlWriter>(output, settings);
        toolkit::fail(toolkit::kFileOpenError, output.name(), toolkit::kNowhere,
                      "binary STL cannot wait in a temporary file until its triangles are counted: %s",
                      output.reason().c_str());
        return nullptr;
    }
};

} // namespace

std::unique_ptr<toolkit::Format> toolkit::makeFormat() {
    return std::make_unique<StlFormat>();
}
