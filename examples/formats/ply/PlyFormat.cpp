#include "Format.h"

#include "PlyReader.h"
#include "PlyWriter.h"

namespace {

constexpr char kEncoding[] = "/PLY/Export/Encoding";

/// In the order of PlyEncoding.
std::vector<std::string> encodings() {
    return {"little", "big", "ascii"};
}

class PlyFormat : public toolkit::Format {
public:
    char const* name() const override { return "PLY"; }
    std::vector<toolkit::OptionDescription> options() const override {
        return {{kEncoding, "little", "PLY is written binary with this end of numbers first, or as text", encodings()}};
    }
    std::unique_ptr<toolkit::ModelReader> reader(toolkit::Input& input) const override {
        return std::make_unique<toolkit::PlyReader>(input);
    }
    std::unique_ptr<toolkit::ModelWriter> writer(toolkit::OutputFile& output,
                                                 toolkit::Settings const& settings) const override {
        std::size_t const word = toolkit::wordAt(settings.options, kEncoding, encodings()) % encodings().size();
        return std::make_unique<toolkit::PlyWriter>(output, settings, static_cast<toolkit::PlyEncoding>(word));
    }
};

} // namespace

std::unique_ptr<toolkit::Format> toolkit::makeFormat() {
    return std::make_unique<PlyFormat>();
}
