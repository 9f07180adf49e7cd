#pragma once

#include <kova/core/export.h>
#include <kova/math/KOVAPoint.h>

class KOVAAffine3D;
class KOVAMorph3D;

/// A point, or a vector, of three doubles.
///
///     KOVAPoint3D const normal = KOVAPoint3D::VectorProduct(b - a, c - a).Normalize();
///     double const height = (p - a) * normal;
class KOVA_API KOVAPoint3D : public kova::detail::PointArithmetic<KOVAPoint3D, 3> {
public:
    KOVAPoint3D() noexcept = default;
    KOVAPoint3D(double x, double y, double z) noexcept {
        coordinates_[0] = x;
        coordinates_[1] = y;
        coordinates_[2] = z;
    }
    KOVAPoint3D(KOVAPoint3D const&) = default;
    KOVAPoint3D& operator=(KOVAPoint3D const&) = default;

#if KOVA_OVERLOADS_REVERSED
    virtual void Transform(KOVAAffine3D const& affine);
    virtual void Transform(KOVAMorph3D const& morph, bool noTranslation);
#else
    /// The morph's affine part, then its scale, then its translation; without translation the point is a
    /// direction. Callers depend on parts that the morph's flags deny being left out.
    virtual void Transform(KOVAMorph3D const& morph, bool noTranslation);
    virtual void Transform(KOVAAffine3D const& affine);
#endif

    static KOVAPoint3D VectorProduct(KOVAPoint3D const& a, KOVAPoint3D const& b) {
        double const* const p = a.coordinates_;
        double const* const q = b.coordinates_;
        return KOVAPoint3D(p[1] * q[2] - p[2] * q[1], p[2] * q[0] - p[0] * q[2], p[0] * q[1] - p[1] * q[0]);
    }
    /// Of length 1; the x axis for the origin.
    KOVAPoint3D Normalize() const;
    /// Of length 1 and perpendicular to this: the cross product with the axis of the smallest coordinate. The
    /// z axis for the origin.
    KOVAPoint3D Orthogonalize() const;
};
