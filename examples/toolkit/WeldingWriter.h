#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

#include "ModelWriter.h"
#include "VertexGrid.h"
#include "VertexTable.h"

namespace toolkit {

/// The base of writers whose formats have vertices first, and then triangles of their numbers. Equal corners are
/// one vertex, and where there is a tolerance, near ones.
class WeldingWriter : public ModelWriter {
public:
    explicit WeldingWriter(Settings const& settings);

    void reserve(std::size_t triangles) override;
    std::optional<std::size_t> vertices() const override;

protected:
    /// Numbers of vertices, from 1.
    using Face = std::array<std::uint32_t, 3>;

    void write(Triangles const& triangles) override;

    std::vector<Vertex> const& shared() const noexcept { return grid_ ? grid_->vertices() : table_.vertices(); }
    std::vector<Face> const& faces() const noexcept { return faces_; }

private:
    std::uint32_t number(Vertex const& corner) { return grid_ ? grid_->add(corner) : table_.add(corner); }
    bool dropsFace(Face const& face);
    void removeFrom(std::size_t vertices);

    VertexTable table_;
    std::optional<VertexGrid> grid_; ///< in place of the table where near vertices are one
    std::vector<Face> faces_;
};

} // namespace toolkit
