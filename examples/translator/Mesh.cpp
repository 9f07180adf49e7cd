#include "Mesh.h"

#include <algorithm>
#include <cstring>

namespace translator {

namespace {

std::uint32_t bits(float value) noexcept {
    std::uint32_t result;
    static_assert(sizeof result == sizeof value);
    std::memcpy(&result, &value, sizeof result);
    return result;
}

/// 0 and -0 are one coordinate.
Vertex withoutNegativeZero(Vertex const& v) noexcept {
    return {v.x + 0.0F, v.y + 0.0F, v.z + 0.0F};
}

} // namespace

std::size_t Mesh::Hash::operator()(Vertex const& v) const noexcept {
    std::uint64_t hash = bits(v.x);
    hash = hash * 0x9E3779B97F4A7C15U + bits(v.y);
    hash = hash * 0x9E3779B97F4A7C15U + bits(v.z);
    hash *= 0x9E3779B97F4A7C15U;
    return static_cast<std::size_t>(hash >> 32);
}

void Mesh::reserve(std::size_t triangles) {
    // A closed surface has half as many vertices as triangles.
    triangles_.reserve(triangles);
    vertices_.reserve(triangles / 2 + 2);
    index_.reserve(triangles / 2 + 2);
}

std::uint32_t Mesh::weld(Vertex const& v) {
    Vertex const vertex = withoutNegativeZero(v);
    auto const [entry, isNew] = index_.try_emplace(vertex, static_cast<std::uint32_t>(vertices_.size()));
    if (isNew)
        vertices_.push_back(vertex);
    return entry->second;
}

void Mesh::addTriangle(Vertex const& a, Vertex const& b, Vertex const& c) {
    std::uint32_t const first = weld(a);
    std::uint32_t const second = weld(b);
    triangles_.push_back({first, second, weld(c)});
}

Mesh::Box Mesh::boundingBox() const noexcept {
    if (vertices_.empty())
        return {};
    Box box{vertices_.front(), vertices_.front()};
    for (Vertex const& v : vertices_) {
        box.low = {std::min(box.low.x, v.x), std::min(box.low.y, v.y), std::min(box.low.z, v.z)};
        box.high = {std::max(box.high.x, v.x), std::max(box.high.y, v.y), std::max(box.high.z, v.z)};
    }
    return box;
}

} // namespace translator
