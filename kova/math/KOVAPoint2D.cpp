#include <kova/math/KOVAPoint2D.h>

#include <kova/math/KOVAAffine2D.h>
#include <kova/math/KOVAMorph2D.h>

static_assert(sizeof(void*) != 4 || sizeof(KOVAPoint2D) == 40);

void KOVAPoint2D::Transform(KOVAMorph2D const& morph, bool noTranslation) {
    TransformPoints(morph, coordinates_, 1, noTranslation);
}

void KOVAPoint2D::Transform(KOVAAffine2D const& affine) {
    TransformPoints(affine, coordinates_, 1);
}

KOVAPoint2D KOVAPoint2D::Normalize() const {
    double const length = KOVAPoint::Length();
    return length > 0.0 ? *this / length : KOVAPoint2D(1.0, 0.0);
}

KOVAPoint2D KOVAPoint2D::Orthogonalize() const {
    KOVAPoint2D const unit = Normalize();
    return KOVAPoint2D(-unit.coordinates_[1], unit.coordinates_[0]);
}
