#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "geometry.h"

namespace toolkit {

/// Different vertices in the order of first appearance. Only exactly equal ones are one; nothing is
/// rounded, and a vertex keeps the bits of the first that was added.
class VertexTable {
public:
    VertexTable();

    void reserve(std::size_t vertices) { vertices_.reserve(vertices); }
    /// The vertex's number, from 1. Throws std::length_error where 32 bits cannot count any further.
    std::uint32_t add(Vertex const& v);
    void removeLast();

    std::vector<Vertex> const& vertices() const noexcept { return vertices_; }

private:
    std::size_t firstSlot(Vertex const& v) const noexcept;
    std::size_t nextSlot(std::size_t slot) const noexcept { return (slot + 1) & (slots_.size() - 1); }
    void grow();

    std::vector<Vertex> vertices_;
    /// Numbers of vertices, 0 where there is none: a power of two of them, at most half of them taken.
    std::vector<std::uint32_t> slots_;
};

} // namespace toolkit
