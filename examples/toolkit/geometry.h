#pragma once

#include <cmath>
#include <stdexcept>
#include <string>

namespace toolkit {

struct Vertex {
    float x, y, z;
};

/// 0 and -0 are equal.
inline bool operator==(Vertex const& a, Vertex const& b) noexcept {
    return a.x == b.x && a.y == b.y && a.z == b.z;
}

struct Vector {
    double x, y, z;
};

/// The cross product of two sides: square to the triangle, to the side from which its corners turn left, and
/// twice as long as its area is large.
inline Vector areaVector(Vertex const& a, Vertex const& b, Vertex const& c) noexcept {
    double const ux = double{b.x} - a.x;
    double const uy = double{b.y} - a.y;
    double const uz = double{b.z} - a.z;
    double const vx = double{c.x} - a.x;
    double const vy = double{c.y} - a.y;
    double const vz = double{c.z} - a.z;
    return {uy * vz - uz * vy, uz * vx - ux * vz, ux * vy - uy * vx};
}

/// With 0 in place of -0, and otherwise the same bits.
inline Vertex withoutMinusZero(Vertex const& v) noexcept {
    return {v.x + 0.0F, v.y + 0.0F, v.z + 0.0F};
}

/// Of length 1 in the same direction; all zeros for a vector without length.
inline Vertex unit(Vector const& v) noexcept {
    double const length = std::sqrt(v.x * v.x + v.y * v.y + v.z * v.z);
    if (length == 0)
        return {};
    return withoutMinusZero(
        {static_cast<float>(v.x / length), static_cast<float>(v.y / length), static_cast<float>(v.z / length)});
}

/// The same. What has this length already, but for rounding, keeps its bits, except that -0 becomes 0.
inline Vertex unit(Vertex const& v) noexcept {
    constexpr double kRounding = 1e-6;
    Vector const wide = {v.x, v.y, v.z};
    double const square = wide.x * wide.x + wide.y * wide.y + wide.z * wide.z;
    return std::fabs(square - 1) <= kRounding ? withoutMinusZero(v) : unit(wide);
}

/// Of length 1, to the side from which the corners turn left; all zeros for a triangle without area.
inline Vertex unitNormal(Vertex const& a, Vertex const& b, Vertex const& c) noexcept {
    return unit(areaVector(a, b, c));
}

/// Two corners are equal, or all lie on a line.
inline bool hasNoArea(Vertex const& a, Vertex const& b, Vertex const& c) noexcept {
    Vector const area = areaVector(a, b, c);
    return area.x == 0 && area.y == 0 && area.z == 0;
}

class TriangleWithoutArea : public std::runtime_error {
public:
    /// Triangles count from 1.
    explicit TriangleWithoutArea(long long triangle)
        : std::runtime_error("triangle " + std::to_string(triangle) + " has no area") {}
};

} // namespace toolkit
