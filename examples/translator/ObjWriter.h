#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include <kova/stream/KOVAOutputStream.h>

#include "Mesh.h"

namespace translator {

/// Writes a mesh as OBJ: shared vertices with the fewest digits that keep each coordinate exactly, then
/// triangles.
class ObjWriter {
public:
    explicit ObjWriter(KOVAOutputStream& stream) : stream_(stream) {}

    void write(Mesh const& mesh);
    /// Bytes handed to the stream.
    std::int64_t bytes() const noexcept { return bytes_; }

private:
    void add(Vertex const& vertex);
    void add(Mesh::Triangle const& triangle);
    template <class Number> void add(Number value);
    void flush();
    void flushWhenFull();

    KOVAOutputStream& stream_;
    std::string block_;
    std::int64_t bytes_ = 0;
};

} // namespace translator
