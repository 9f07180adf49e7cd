#include "WeldingWriter.h"

namespace toolkit {

WeldingWriter::WeldingWriter(Settings const& settings) : ModelWriter(settings.degenerate) {
    if (settings.weldTolerance > 0)
        grid_.emplace(settings.weldTolerance);
}

/// Vertices that were made one, or left out, are not all that came.
std::optional<std::size_t> WeldingWriter::vertices() const {
    return grid_ || dropped() > 0 ? std::nullopt : std::make_optional(shared().size());
}

void WeldingWriter::reserve(std::size_t triangles) {
    faces_.reserve(triangles);
    // A closed surface has half as many vertices as triangles.
    table_.reserve(triangles / 2 + 2);
}

void WeldingWriter::write(Triangles const& triangles) {
    for (std::size_t i = 0; i < triangles.size(); ++i) {
        std::size_t const before = shared().size();
        Face face;
        for (int corner = 0; corner < 3; ++corner)
            face[static_cast<std::size_t>(corner)] = number(triangles.position(i, corner));
        if (dropsFace(face))
            removeFrom(before);
        else
            faces_.push_back(face);
    }
}

bool WeldingWriter::dropsFace(Face const& face) {
    std::vector<Vertex> const& vertices = shared();
    return drops(vertices[face[0] - 1], vertices[face[1] - 1], vertices[face[2] - 1]);
}

/// Removes vertices that only a dropped face has.
void WeldingWriter::removeFrom(std::size_t vertices) {
    while (shared().size() > vertices)
        grid_ ? grid_->removeLast() : table_.removeLast();
}

} // namespace toolkit
