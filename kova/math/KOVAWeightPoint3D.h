#pragma once

#include <kova/core/export.h>
#include <kova/math/KOVAPoint3D.h>
#include <kova/math/KOVAWeightPoint.h>

/// A control point of a rational curve or surface: three coordinates, stored multiplied by the weight, and the
/// weight itself.
///
///     KOVAWeightPoint3D const p(KOVAPoint3D(1, 2, 3), 2.0, true); // stores (2, 4, 6) and 2
class KOVA_API KOVAWeightPoint3D : public kova::detail::WeightPointArithmetic<KOVAWeightPoint3D, KOVAPoint3D, 3> {
public:
    /// At the origin.
    explicit KOVAWeightPoint3D(double weight = 1.0) noexcept : WeightPointArithmetic(weight) {}
    /// The point is taken as weighted already, unless it is to be multiplied.
    KOVAWeightPoint3D(KOVAPoint3D const& p, double weight, bool multiply)
        : WeightPointArithmetic(p, weight, multiply) {}
    KOVAWeightPoint3D(KOVAWeightPoint3D const&) = default;
    KOVAWeightPoint3D& operator=(KOVAWeightPoint3D const&) = default;

    // As for a point, on the stored coordinates; the weight stays.
#if KOVA_OVERLOADS_REVERSED
    virtual void Transform(KOVAAffine3D const& affine);
    virtual void Transform(KOVAMorph3D const& morph, bool noTranslation);
#else
    virtual void Transform(KOVAMorph3D const& morph, bool noTranslation);
    virtual void Transform(KOVAAffine3D const& affine);
#endif
};
