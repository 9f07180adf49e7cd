#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include <kova/stream/KOVABlockWriter.h>

#include "TriangleSink.h"
#include "VertexTable.h"

namespace translator {

/// Writes OBJ: shared vertices with the fewest digits that keep each coordinate exactly, then triangles,
/// each named part's behind its name.
class ObjWriter : public TriangleSink {
public:
    explicit ObjWriter(KOVAOutputStream& stream) : out_(stream) {}

    void reserve(std::size_t triangles) override;
    void part(std::string_view name) override;
    void finish() override;
    std::string description() const override;
    std::optional<std::size_t> vertices() const override { return table_.vertices().size(); }
    long long bytes() const noexcept override { return out_.offset(); }

protected:
    void add(Vertex const& a, Vertex const& b, Vertex const& c) override;

private:
    using Face = std::array<std::uint32_t, 3>;

    struct Part {
        std::string name;
        std::size_t firstFace;
    };

    void dropEmptyPart();
    void writeName(std::string_view name);
    void writeFaces(std::size_t begin, std::size_t end);

    KOVABlockWriter out_;
    VertexTable table_;
    std::vector<Face> faces_;
    std::vector<Part> parts_{{"", 0}};
};

} // namespace translator
