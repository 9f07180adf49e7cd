#pragma once

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
