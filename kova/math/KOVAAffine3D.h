#pragma once

#include <kova/core/export.h>
#include <kova/math/KOVAAffine.h>
#include <kova/math/KOVAPoint3D.h>

/// A linear map of three dimensions.
///
///     KOVAAffine3D mirror;      // all zeros
///     mirror.MakeIdentity();
///     mirror.SetElement(0, 0, -1.0);
///     KOVAPoint3D p(1, 2, 3);
///     p.Transform(mirror);     // (-1, 2, 3)
class KOVA_API KOVAAffine3D : public KOVAAffine {
public:
    KOVAAffine3D() noexcept : KOVAAffine(3) {}
    /// Row by row.
    KOVAAffine3D(double a00, double a01, double a02, double a10, double a11, double a12, double a20, double a21,
                 double a22) noexcept;
    KOVAAffine3D(KOVAAffine3D const&) = default;
    KOVAAffine3D& operator=(KOVAAffine3D const&) = default;

    using KOVAAffine::SetColumn;
    void SetColumn(int column, KOVAPoint3D const& p) noexcept;

    friend KOVA_API void TransformPoints(KOVAAffine3D const& affine, double* coordinates, long count) noexcept;
};

/// Each of `count` points, three doubles each, becomes its image, to the last bit as by KOVAPoint3D::Transform.
/// A null array or a count below 1 is nothing to do.
KOVA_API void TransformPoints(KOVAAffine3D const& affine, double* coordinates, long count) noexcept;
