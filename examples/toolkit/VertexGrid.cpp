#include "VertexGrid.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "VertexTable.h"
#include "bytes.h"

namespace toolkit {

/// With cells four times as large as the tolerance, what is near a vertex mostly lies in its own cell. They are
/// not made smaller than the smallest float: below that only equal vertices are near each other.
VertexGrid::VertexGrid(double tolerance)
    : tolerance_(tolerance), cellSize_(4 * std::max(tolerance, double{std::numeric_limits<float>::denorm_min()})),
      heads_(1024) {}

/// A whole number; a double, because it may have forty digits.
double VertexGrid::cell(double coordinate) const noexcept {
    return std::floor(coordinate / cellSize_);
}

VertexGrid::Cell VertexGrid::cellOf(Vertex const& v) const noexcept {
    return {cell(v.x), cell(v.y), cell(v.z)};
}

std::uint32_t& VertexGrid::head(Cell const& cell) noexcept {
    std::uint64_t hash = 0;
    for (double const number : cell) {
        hash = (hash ^ bitsOf(number)) * 0x9E3779B97F4A7C15U;
        hash ^= hash >> 32;
    }
    return heads_[static_cast<std::size_t>(hash) & (heads_.size() - 1)];
}

bool VertexGrid::isNear(Vertex const& a, Vertex const& b) const noexcept {
    double const x = double{a.x} - b.x;
    double const y = double{a.y} - b.y;
    double const z = double{a.z} - b.z;
    return x * x + y * y + z * z <= tolerance_ * tolerance_;
}

/// The earliest vertex within the tolerance, 0 where there is none. Such a vertex lies in the vertex's own cell or
/// in one that the tolerance reaches.
std::uint32_t VertexGrid::find(Vertex const& v) {
    std::array<std::array<double, 3>, 3> reached; // on each axis
    std::array<std::size_t, 3> count;
    for (std::size_t axis = 0; axis < 3; ++axis) {
        double const at = axis == 0 ? v.x : axis == 1 ? v.y : v.z;
        reached[axis] = {cell(at - tolerance_), cell(at), cell(at + tolerance_)};
        auto const end = std::unique(reached[axis].begin(), reached[axis].end());
        count[axis] = static_cast<std::size_t>(end - reached[axis].begin());
    }
    std::uint32_t earliest = 0;
    for (std::size_t i = 0; i < count[0] * count[1] * count[2]; ++i) {
        Cell const cell = {reached[0][i % count[0]], reached[1][i / count[0] % count[1]],
                           reached[2][i / count[0] / count[1]]};
        for (std::uint32_t number = head(cell); number != 0; number = earlier_[number - 1]) {
            if (isNear(vertices_[number - 1], v) && (earliest == 0 || number < earliest))
                earliest = number;
        }
    }
    return earliest;
}

std::uint32_t VertexGrid::add(Vertex const& v) {
    std::uint32_t const found = find(v);
    if (found != 0)
        return found;
    requireCountable(vertices_.size());
    if (vertices_.size() == heads_.size())
        grow();
    vertices_.push_back(v);
    std::uint32_t& head = this->head(cellOf(v));
    earlier_.push_back(head);
    head = static_cast<std::uint32_t>(vertices_.size());
    return head;
}

void VertexGrid::removeLast() {
    head(cellOf(vertices_.back())) = earlier_.back();
    earlier_.pop_back();
    vertices_.pop_back();
}

void VertexGrid::grow() {
    heads_.assign(2 * heads_.size(), 0);
    for (std::size_t i = 0; i < vertices_.size(); ++i) {
        std::uint32_t& head = this->head(cellOf(vertices_[i]));
        earlier_[i] = head;
        head = static_cast<std::uint32_t>(i + 1);
    }
}

} // namespace toolkit
