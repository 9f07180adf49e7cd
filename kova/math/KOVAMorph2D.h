#pragma once

#include <kova/core/export.h>
#include <kova/math/KOVAAffine2D.h>
#include <kova/math/KOVAMorph.h>
#include <kova/math/KOVAPoint2D.h>

/// A placement in two dimensions.
///
///     KOVAMorph2D const place(KOVAPoint2D(1, 0), 2.0); // twice as large, then moved
///     KOVAPoint2D p(1, 1);
///     p.Transform(place, false);                    // (3, 2)
///     p.Transform(place.inverse(), false);          // (1, 1)
class KOVA_API KOVAMorph2D : public KOVAMorph {
public:
    /// The identity.
    KOVAMorph2D() : KOVAMorph2D(1.0) {}
    explicit KOVAMorph2D(double scale) : KOVAMorph2D(KOVAPoint2D(), scale) {}
    explicit KOVAMorph2D(KOVAPoint2D const& translation, double scale = 1.0);
    KOVAMorph2D(KOVAAffine2D const& affine, KOVAPoint2D const& translation, double scale);
    // Copies compute their flags anew.
    KOVAMorph2D(KOVAMorph2D const& other);
    KOVAMorph2D& operator=(KOVAMorph2D const& other);

    void setScale(double s) override { KOVAMorph::setScale(s); }
    void Inverse(KOVAMorph& out) const override { KOVAMorph::Inverse(out); }
    void Multiply(KOVAMorph const& other, KOVAMorph& out) const override { KOVAMorph::Multiply(other, out); }
    bool isEqual(KOVAMorph const& other) const override { return KOVAMorph::isEqual(other); }

    KOVAAffine2D const& affine() const noexcept { return affine_; }
    KOVAPoint2D const& translation() const noexcept { return translation_; }
    void SetToIdentity() { setToIdentity(); }
    KOVAMorph2D inverse() const;
    /// This morph first, then other.
    KOVAMorph2D multiply(KOVAMorph2D const& other) const;
    /// Multiplies the translation by a scale that counts, and makes the scale 1.
    void FixScaleFactor() { fixScaleFactor(); }

    friend KOVA_API void TransformPoints(KOVAMorph2D const& morph, double* coordinates, long count, bool noTranslation);

protected:
    KOVAPoint& GetTranslation() const override { return const_cast<KOVAPoint2D&>(translation_); }
    KOVAAffine& GetAffine() const override { return const_cast<KOVAAffine2D&>(affine_); }

private:
    KOVAAffine2D affine_;
    KOVAPoint2D translation_;
};

/// Each of `count` points, two doubles each, becomes its image, to the last bit as by KOVAPoint2D::Transform.
/// A null array or a count below 1 is nothing to do.
KOVA_API void TransformPoints(KOVAMorph2D const& morph, double* coordinates, long count, bool noTranslation = false);
