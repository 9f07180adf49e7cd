#include "Measure.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace toolkit {

namespace {

double dot(Vector const& a, Vector const& b) noexcept {
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

double length(Vector const& v) noexcept {
    return std::sqrt(dot(v, v));
}

Vector normalSum(Triangles const& triangles, std::size_t triangle) noexcept {
    Vector sum{};
    for (int corner = 0; corner < 3; ++corner) {
        Vertex const n = triangles.normal(triangle, corner);
        sum = {sum.x + n.x, sum.y + n.y, sum.z + n.z};
    }
    return sum;
}

} // namespace

void Measure::add(Triangles const& triangles) {
    if (triangles.size() == 0)
        return;
    if (triangles_ == 0)
        origin_ = triangles.position(0, 0);
    triangles_ += static_cast<long long>(triangles.size());
    for (std::size_t i = 0; i < triangles.size(); ++i) {
        Vertex const a = triangles.position(i, 0);
        Vertex const b = triangles.position(i, 1);
        Vertex const c = triangles.position(i, 2);
        low_ = {std::min({low_.x, a.x, b.x, c.x}), std::min({low_.y, a.y, b.y, c.y}),
                std::min({low_.z, a.z, b.z, c.z})};
        high_ = {std::max({high_.x, a.x, b.x, c.x}), std::max({high_.y, a.y, b.y, c.y}),
                 std::max({high_.z, a.z, b.z, c.z})};
        Vector const twice = areaVector(a, b, c);
        areaSum_ = {areaSum_.x + twice.x, areaSum_.y + twice.y, areaSum_.z + twice.z};
        area_ += length(twice) / 2;
        // The tetrahedron over the triangle: a sixth of the product of its height vector and twice the area.
        volume_ += ((double{a.x} - origin_.x) * twice.x + (double{a.y} - origin_.y) * twice.y +
                    (double{a.z} - origin_.z) * twice.z) /
                   6;
        facingAway_ += triangles.hasNormals() && dot(normalSum(triangles, i), twice) < 0 ? 1 : 0;
    }
}

Measure::Box Measure::box() const noexcept {
    return triangles_ == 0 ? Box{{}, {}} : Box{low_, high_};
}

bool Measure::isFinite() const noexcept {
    Box const all = box();
    float const extremes[] = {all.low.x, all.low.y, all.low.z, all.high.x, all.high.y, all.high.z};
    // A corner that is no number is left out of the box, but not of the area.
    return std::isfinite(area_) &&
           std::all_of(std::begin(extremes), std::end(extremes), [](float value) { return std::isfinite(value); });
}

bool Measure::looksClosed() const noexcept {
    constexpr double kRounding = 1e-6;
    return triangles_ > 0 && length(areaSum_) <= kRounding * area_;
}

} // namespace toolkit
