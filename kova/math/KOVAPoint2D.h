#pragma once

#include <kova/core/export.h>
#include <kova/math/KOVAPoint.h>

class KOVAAffine2D;
class KOVAMorph2D;

/// A point, or a vector, of two doubles.
class KOVA_API KOVAPoint2D : public kova::detail::PointArithmetic<KOVAPoint2D, 2> {
public:
    KOVAPoint2D() noexcept = default;
    KOVAPoint2D(double x, double y) noexcept {
        coordinates_[0] = x;
        coordinates_[1] = y;
    }
    KOVAPoint2D(KOVAPoint2D const&) = default;
    KOVAPoint2D& operator=(KOVAPoint2D const&) = default;

#if KOVA_OVERLOADS_REVERSED
    virtual void Transform(KOVAAffine2D const& affine);
    virtual void Transform(KOVAMorph2D const& morph, bool noTranslation);
#else
    /// The morph's affine part, then its scale, then its translation; without translation the point is a
    /// direction. Callers depend on parts that the morph's flags deny being left out.
    virtual void Transform(KOVAMorph2D const& morph, bool noTranslation);
    virtual void Transform(KOVAAffine2D const& affine);
#endif

    /// What the third coordinate of the vector product would be.
    static double VectorProduct(KOVAPoint2D const& a, KOVAPoint2D const& b) {
        return a.coordinates_[0] * b.coordinates_[1] - a.coordinates_[1] * b.coordinates_[0];
    }
    /// Of length 1; the x axis for the origin.
    KOVAPoint2D Normalize() const;
    /// Of length 1, a quarter turn counter-clockwise from this. The y axis for the origin.
    KOVAPoint2D Orthogonalize() const;
};
