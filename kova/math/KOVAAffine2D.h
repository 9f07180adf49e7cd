#pragma once

#include <kova/core/export.h>
#include <kova/math/KOVAAffine.h>
#include <kova/math/KOVAPoint2D.h>

/// A linear map of two dimensions.
///
///     KOVAAffine2D mirror;      // all zeros
///     mirror.MakeIdentity();
///     mirror.SetElement(0, 0, -1.0);
///     KOVAPoint2D p(1, 2);
///     p.Transform(mirror);     // (-1, 2)
class KOVA_API KOVAAffine2D : public KOVAAffine {
public:
    KOVAAffine2D() noexcept : KOVAAffine(2) {}
    /// Row by row.
    KOVAAffine2D(double a00, double a01, double a10, double a11) noexcept;
    KOVAAffine2D(KOVAAffine2D const&) = default;
    KOVAAffine2D& operator=(KOVAAffine2D const&) = default;

    using KOVAAffine::SetColumn;
    void SetColumn(int column, KOVAPoint2D const& p) noexcept;

    friend KOVA_API void TransformPoints(KOVAAffine2D const& affine, double* coordinates, long count) noexcept;
};

/// Each of `count` points, two doubles each, becomes its image, to the last bit as by KOVAPoint2D::Transform.
/// A null array or a count below 1 is nothing to do.
KOVA_API void TransformPoints(KOVAAffine2D const& affine, double* coordinates, long count) noexcept;
