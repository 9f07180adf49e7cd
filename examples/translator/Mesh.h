#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <vector>

namespace translator {

struct Vertex {
    float x, y, z;
};

inline bool operator==(Vertex const& a, Vertex const& b) noexcept {
    return a.x == b.x && a.y == b.y && a.z == b.z;
}

/// Triangles over shared vertices. Corners with exactly the same coordinates are one vertex, in the
/// order of first appearance; nothing is rounded.
class Mesh {
public:
    using Triangle = std::array<std::uint32_t, 3>; ///< indexes of vertices, from 0

    struct Box {
        Vertex low, high;
    };

    void reserve(std::size_t triangles);
    /// The corners must be finite.
    void addTriangle(Vertex const& a, Vertex const& b, Vertex const& c);

    std::vector<Vertex> const& vertices() const noexcept { return vertices_; }
    std::vector<Triangle> const& triangles() const noexcept { return triangles_; }
    /// All zeros for a mesh without triangles.
    Box boundingBox() const noexcept;

private:
    struct Hash {
        std::size_t operator()(Vertex const& v) const noexcept;
    };

    std::uint32_t weld(Vertex const& v);

    std::vector<Vertex> vertices_;
    std::vector<Triangle> triangles_;
    std::unordered_map<Vertex, std::uint32_t, Hash> index_;
};

} // namespace translator
