#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "geometry.h"

namespace toolkit {

/// Vertices that lie further from each other than a tolerance, in the order of first appearance.
class VertexGrid {
public:
    /// The tolerance is above 0.
    explicit VertexGrid(double tolerance);

    /// The number, from 1, of the earliest vertex within the tolerance, or of this one, which is then added.
    /// The earliest, not the nearest: so equal corners are one vertex, whatever was added between them. Throws
    /// std::length_error where 32 bits cannot count any further.
    std::uint32_t add(Vertex const& v);
    void removeLast();

    std::vector<Vertex> const& vertices() const noexcept { return vertices_; }

private:
    using Cell = std::array<double, 3>;

    double cell(double coordinate) const noexcept;
    Cell cellOf(Vertex const& v) const noexcept;
    std::uint32_t& head(Cell const& cell) noexcept;
    bool isNear(Vertex const& a, Vertex const& b) const noexcept;
    std::uint32_t find(Vertex const& v);
    void grow();

    double tolerance_;
    double cellSize_;
    std::vector<Vertex> vertices_;
    /// By a cell's hash code, the number of the vertex that was added last, 0 where there is none.
    std::vector<std::uint32_t> heads_;
    /// By a vertex, the number of the one added before it under the same hash code.
    std::vector<std::uint32_t> earlier_;
};

} // namespace toolkit
