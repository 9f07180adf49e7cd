#pragma once

#include <kova/core/export.h>
#include <kova/math/KOVAAffine3D.h>
#include <kova/math/KOVAMorph.h>
#include <kova/math/KOVAPoint3D.h>

/// A placement in three dimensions.
///
///     KOVAMorph3D const place(KOVAPoint3D(1, 0, 0), 2.0); // twice as large, then moved
///     KOVAPoint3D p(1, 1, 1);
///     p.Transform(place, false);                    // (3, 2, 2)
///     p.Transform(place.inverse(), false);          // (1, 1, 1)
class KOVA_API KOVAMorph3D : public KOVAMorph {
public:
    /// The identity.
    KOVAMorph3D() : KOVAMorph3D(1.0) {}
    explicit KOVAMorph3D(double scale) : KOVAMorph3D(KOVAPoint3D(), scale) {}
    explicit KOVAMorph3D(KOVAPoint3D const& translation, double scale = 1.0);
    KOVAMorph3D(KOVAAffine3D const& affine, KOVAPoint3D const& translation, double scale);
    // Copies compute their flags anew.
    KOVAMorph3D(KOVAMorph3D const& other);
    KOVAMorph3D& operator=(KOVAMorph3D const& other);

    void setScale(double s) override { KOVAMorph::setScale(s); }
    void Inverse(KOVAMorph& out) const override { KOVAMorph::Inverse(out); }
    void Multiply(KOVAMorph const& other, KOVAMorph& out) const override { KOVAMorph::Multiply(other, out); }
    bool isEqual(KOVAMorph const& other) const override { return KOVAMorph::isEqual(other); }

    KOVAAffine3D const& affine() const noexcept { return affine_; }
    KOVAPoint3D const& translation() const noexcept { return translation_; }
    void SetToIdentity() { setToIdentity(); }
    KOVAMorph3D inverse() const;
    /// This morph first, then other.
    KOVAMorph3D multiply(KOVAMorph3D const& other) const;
    /// Multiplies the translation by a scale that counts, and makes the scale 1.
    void FixScaleFactor() { fixScaleFactor(); }

    friend KOVA_API void TransformPoints(KOVAMorph3D const& morph, double* coordinates, long count, bool noTranslation);

protected:
    KOVAPoint& GetTranslation() const override { return const_cast<KOVAPoint3D&>(translation_); }
    KOVAAffine& GetAffine() const override { return const_cast<KOVAAffine3D&>(affine_); }

private:
    KOVAAffine3D affine_;
    KOVAPoint3D translation_;
};

/// Each of `count` points, three doubles each, becomes its image, to the last bit as by KOVAPoint3D::Transform.
/// A null array or a count below 1 is nothing to do.
KOVA_API void TransformPoints(KOVAMorph3D const& morph, double* coordinates, long count, bool noTranslation = false);

/// As KOVAPoint3D::Transform, on three loose coordinates.
KOVA_API void Transform(double& x, double& y, double& z, KOVAMorph3D const& morph, bool noTranslation);
