#include "ObjWriter.h"

#include <charconv>

namespace translator {

namespace {
constexpr std::size_t kBlockSize = 65536;
}

template <class Number> void ObjWriter::add(Number value) {
    char digits[32];
    auto const result = std::to_chars(digits, digits + sizeof digits, value);
    block_ += ' ';
    block_.append(digits, result.ptr);
}

void ObjWriter::add(Vertex const& vertex) {
    block_ += 'v';
    add(vertex.x);
    add(vertex.y);
    add(vertex.z);
    block_ += '\n';
}

void ObjWriter::add(Mesh::Triangle const& triangle) {
    block_ += 'f';
    for (std::uint32_t const vertex : triangle)
        add(std::uint64_t{vertex} + 1);
    block_ += '\n';
}

void ObjWriter::flush() {
    stream_.write(block_.data(), static_cast<int>(block_.size()));
    bytes_ += static_cast<std::int64_t>(block_.size());
    block_.clear();
}

void ObjWriter::flushWhenFull() {
    if (block_.size() >= kBlockSize)
        flush();
}

void ObjWriter::write(Mesh const& mesh) {
    block_.reserve(kBlockSize + 256);
    for (Vertex const& vertex : mesh.vertices()) {
        add(vertex);
        flushWhenFull();
    }
    for (Mesh::Triangle const& triangle : mesh.triangles()) {
        add(triangle);
        flushWhenFull();
    }
    flush();
    stream_.flush();
}

} // namespace translator
