#include "ObjWriter.h"

#include "numbers.h"

namespace translator {

void ObjWriter::reserve(std::size_t triangles) {
    faces_.reserve(triangles);
    // A closed surface has half as many vertices as triangles.
    table_.reserve(triangles / 2 + 2);
}

void ObjWriter::dropEmptyPart() {
    if (!parts_.empty() && parts_.back().firstFace == faces_.size())
        parts_.pop_back();
}

void ObjWriter::part(std::string_view name) {
    dropEmptyPart();
    parts_.push_back({std::string(name), faces_.size()});
}

void ObjWriter::add(Vertex const& a, Vertex const& b, Vertex const& c) {
    std::uint32_t const first = table_.add(a);
    std::uint32_t const second = table_.add(b);
    faces_.push_back({first, second, table_.add(c)});
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
    for (Vertex const& vertex : table_.vertices())
        out_.use(putVertex(out_.room(kLongestRecord), "v", vertex));
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
    return "OBJ, " + std::to_string(faces_.size()) + " faces, " + std::to_string(table_.vertices().size()) +
           " vertices";
}

} // namespace translator
