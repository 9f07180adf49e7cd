#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "Input.h"
#include "LineReader.h"
#include "ModelReader.h"
#include "ShellBuilder.h"
#include "geometry.h"

namespace toolkit {

/// Reads the vertices, the faces and the names of objects and groups of OBJ. Faces become fans of
/// triangles around their first corner; other statements are left out.
class ObjReader : public ModelReader {
public:
    explicit ObjReader(Input const& input)
        : in_(input.stream, kReadBlock), lines_(in_), size_(input.size), file_(input.name) {}

    KOVIResult read(ModelSink& sink) override;
    std::string format() const override { return "OBJ"; }
    std::string description(Found const& found) const override;

private:
    KOVIResult readStatement(std::string_view statement, ModelSink& sink, ShellBuilder& shells);
    KOVIResult readVertex(std::string_view numbers);
    KOVIResult readFace(std::string_view corners, ShellBuilder& shells);
    void readName(std::string_view name, ModelSink& sink, ShellBuilder& shells);
    KOVIResult unexpected(std::string_view statement, char const* wanted);

    KOVABlockReader in_;
    LineReader lines_;
    long long size_;
    char const* file_;
    std::vector<Vertex> vertices_;
    std::unordered_map<std::string, Part*> parts_; ///< by name
    long long faces_ = 0;
};

} // namespace toolkit
