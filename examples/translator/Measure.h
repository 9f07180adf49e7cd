#pragma once

#include <limits>

#include "Triangles.h"

namespace toolkit {

/// Measures a model while it passes.
class Measure {
public:
    void add(Triangles const& triangles);

    struct Box {
        Vertex low;
        Vertex high;
    };
    /// The smallest one around the corners; all zeros without any.
    Box box() const noexcept;
    /// Whether every corner so far is a number.
    bool isFinite() const noexcept;
    double area() const noexcept { return area_; }
    /// Of what the surface encloses, below 0 where it is inside out. It has a meaning only for a closed surface.
    double volume() const noexcept { return volume_; }
    /// The areas, each as a vector square to its triangle, add up to nothing. They do so on every closed surface,
    /// and on an open one only by chance.
    bool looksClosed() const noexcept;
    /// Triangles whose normals, taken together, point to the side from which the corners turn right.
    long long facingAway() const noexcept { return facingAway_; }

private:
    static constexpr float kFar = std::numeric_limits<float>::infinity();
    Vertex low_{kFar, kFar, kFar};
    Vertex high_{-kFar, -kFar, -kFar};
    Vertex origin_{}; ///< the first corner: volumes are seen from there, and so lose no digits far out
    Vector areaSum_{};
    double area_ = 0;
    double volume_ = 0;
    long long triangles_ = 0;
    long long facingAway_ = 0;
};

} // namespace toolkit
