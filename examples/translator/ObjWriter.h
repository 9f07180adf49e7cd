#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include <kova/stream/KOVABlockWriter.h>

#include "TriangleSink.h"
#include "VertexGrid.h"
#include "VertexTable.h"

namespace translator {

/// Writes OBJ: shared vertices, then triangles, each named part's behind its name.
class ObjWriter : public TriangleSink {
public:
    ObjWriter(KOVAOutputStream& stream, Settings const& settings);

    void reserve(std::size_t triangles) override;
    void finish() override;
    std::string description() const override;
    std::optional<std::size_t> vertices() const override;
    long long bytes() const noexcept override { return out_.offset(); }

protected:
    void beginPart(std::string_view name) override;
    void add(Vertex const& a, Vertex const& b, Vertex const& c) override;

private:
    using Face = std::array<std::uint32_t, 3>;

    struct Part {
        std::string name;
        std::size_t firstFace;
    };

    /// Those that are written.
    std::vector<Vertex> const& shared() const noexcept { return grid_ ? grid_->vertices() : table_.vertices(); }
    std::uint32_t number(Vertex const& corner) { return grid_ ? grid_->add(corner) : table_.add(corner); }
    bool dropsFace(Face const& face);
    void removeFrom(std::size_t vertices);
    void dropEmptyPart();
    void writeName(std::string_view name);
    void writeFaces(std::size_t begin, std::size_t end);

    KOVABlockWriter out_;
    int digits_;
    VertexTable table_;
    std::optional<VertexGrid> grid_; ///< in place of the table where near vertices are one
    std::vector<Face> faces_;
    std::vector<Part> parts_{{"", 0}};
};

} // namespace translator
