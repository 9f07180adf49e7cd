#include "ObjWriter.h"

#include "numbers.h"

namespace translator {

ObjWriter::ObjWriter(KOVAOutputStream& stream, Settings const& settings)
    : TriangleSink(settings.degenerate), out_(stream), digits_(settings.digits) {
    if (settings.weldTolerance > 0)
        grid_.emplace(settings.weldTolerance);
}

/// Vertices that were made one, or left out, are not all that came.
std::optional<std::size_t> ObjWriter::vertices() const {
    return grid_ || dropped() > 0 ? std::nullopt : std::make_optional(shared().size());
}

void ObjWriter::reserve(std::size_t triangles) {
    faces_.reserve(triangles);
    // A closed surface has half as many vertices as triangles.
    table_.reserve(triangles / 2 + 2);
}

void ObjWriter::dropEmptyPart() {
    if (!parts_.empty() && parts_.back().firstFace == faces_.size())
        parts_.pop_back();
}

void ObjWriter::beginPart(std::string_view name) {
    dropEmptyPart();
    parts_.push_back({std::string(name), faces_.size()});
}

void ObjWriter::add(Vertex const& a, Vertex const& b, Vertex const& c) {
    std::size_t const before = shared().size();
    std::uint32_t const first = number(a);
    std::uint32_t const second = number(b);
    Face const face = {first, second, number(c)};
    if (keepsAll() || !dropsFace(face))
        faces_.push_back(face);
    else
        removeFrom(before);
}

bool ObjWriter::dropsFace(Face const& face) {
    std::vector<Vertex> const& vertices = shared();
    return drops(vertices[face[0] - 1], vertices[face[1] - 1], vertices[face[2] - 1]);
}

/// Removes vertices that only a dropped face has.
void ObjWriter::removeFrom(std::size_t vertices) {
    while (shared().size() > vertices)
        grid_ ? grid_->removeLast() : table_.removeLast();
}

void ObjWriter::writeFaces(std::size_t begin, std::size_t end) {
    for (std::size_t i = begin; i < end; ++i) {
        Face const& face = faces_[i];
        char* to = put(out_.room(kLongestRecord), "f");
        to = putNumber(putNumber(putNumber(to, face[0]), face[1]), face[2]);
        out_.use(put(to, "\n"));
    }
}

void ObjWriter::writeName(std::string_view name) {
    out_.write(name.empty() ? "o" : "o ");
    out_.write(name);
    // A backslash at the end would continue the line.
    out_.write(!name.empty() && name.back() == '\\' ? " \n" : "\n");
}

void ObjWriter::finish() {
    dropEmptyPart();
    for (Vertex const& vertex : shared())
        out_.use(putVertex(out_.room(kLongestRecord), "v", vertex, digits_));
    for (std::size_t i = 0; i < parts_.size(); ++i) {
        bool const isLast = i + 1 == parts_.size();
        // What has no name does not belong to the part before.
        if (!parts_[i].name.empty() || (i > 0 && !parts_[i - 1].name.empty()))
            writeName(parts_[i].name);
        writeFaces(parts_[i].firstFace, isLast ? faces_.size() : parts_[i + 1].firstFace);
    }
    out_.flush();
}

std::string ObjWriter::description() const {
    return "OBJ, " + std::to_string(faces_.size()) + " faces, " + std::to_string(shared().size()) + " vertices";
}

} // namespace translator
