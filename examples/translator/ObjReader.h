#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <kova/stream/KOVAInputStream.h>

#include "LineReader.h"
#include "ModelReader.h"

namespace translator {

/// Reads the vertices, the faces and the names of objects and groups of OBJ. Faces become fans of
/// triangles around their first corner; other statements are left out.
class ObjReader : public ModelReader {
public:
    /// `size` is the stream's length in bytes, negative where it is not known.
    ObjReader(KOVAInputStream& stream, long long size, char const* file)
        : in_(stream, kReadBlock), lines_(in_), size_(size), file_(file) {}

    KOVIResult read(TriangleSink& sink) override;
    std::string format() const override { return "OBJ"; }
    std::string description(TriangleSink const& sink) const override;

private:
    KOVIResult readStatement(std::string_view statement, TriangleSink& sink);
    KOVIResult readVertex(std::string_view numbers);
    KOVIResult readFace(std::string_view corners, TriangleSink& sink);
    static void readName(std::string_view name, TriangleSink& sink);
    KOVIResult unexpected(std::string_view statement, char const* wanted);

    KOVABlockReader in_;
    LineReader lines_;
    long long size_;
    char const* file_;
    std::vector<Vertex> vertices_;
    long long faces_ = 0;
};

} // namespace translator
