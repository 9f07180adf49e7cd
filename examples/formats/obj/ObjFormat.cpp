#include "Format.h"

#include "ObjReader.h"
#include "ObjWriter.h"

namespace {

constexpr char kNormals[] = "/OBJ/Export/Normals";

/// In the order of ObjNormals.
std::vector<std::string> normalsWords() {
    return {"none", "keep", "face", "model"};
}

class ObjFormat : public toolkit::Format {
public:
    char const* name() const override { return "OBJ"; }
    std::vector<toolkit::OptionDescription> options() const override {
        return {{kNormals, "keep",
                 "normals in OBJ: none, those that the model has, those of the faces, or those of the model and of "
                 "faces that have none",
                 normalsWords()}};
    }
    std::unique_ptr<toolkit::ModelReader> reader(toolkit::Input& input) const override {
        return std::make_unique<toolkit::ObjReader>(input);
    }
    std::unique_ptr<toolkit::ModelWriter> writer(toolkit::OutputFile& output,
                                                 toolkit::Settings const& settings) const override {
        std::size_t const word = toolkit::wordAt(settings.options, kNormals, normalsWords());
        return std::make_unique<toolkit::ObjWriter>(output, settings,
                                                    static_cast<toolkit::ObjNormals>(word % normalsWords().size()));
    }
};

} // namespace

std::unique_ptr<toolkit::Format> toolkit::makeFormat() {
    return std::make_unique<ObjFormat>();
}
