#pragma once

#include <kova/core/export.h>
#include <kova/math/KOVAPoint2D.h>
#include <kova/math/KOVAWeightPoint.h>

/// A control point of a rational curve or surface: two coordinates, stored multiplied by the weight, and the
/// weight itself.
///
///     KOVAWeightPoint2D const p(KOVAPoint2D(1, 2), 2.0, true); // stores (2, 4) and 2
class KOVA_API KOVAWeightPoint2D : public kova::detail::WeightPointArithmetic<KOVAWeightPoint2D, KOVAPoint2D, 2> {
public:
    /// At the origin.
    explicit KOVAWeightPoint2D(double weight = 1.0) noexcept : WeightPointArithmetic(weight) {}
    /// The point is taken as weighted already, unless it is to be multiplied.
    KOVAWeightPoint2D(KOVAPoint2D const& p, double weight, bool multiply)
        : WeightPointArithmetic(p, weight, multiply) {}
    KOVAWeightPoint2D(KOVAWeightPoint2D const&) = default;
    KOVAWeightPoint2D& operator=(KOVAWeightPoint2D const&) = default;

    // As for a point, on the stored coordinates; the weight stays.
#if KOVA_OVERLOADS_REVERSED
    virtual void Transform(KOVAAffine2D const& affine);
    virtual void Transform(KOVAMorph2D const& morph, bool noTranslation);
#else
    virtual void Transform(KOVAMorph2D const& morph, bool noTranslation);
    virtual void Transform(KOVAAffine2D const& affine);
#endif
};
