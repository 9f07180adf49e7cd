#include <kova/math/KOVAPoint3D.h>

#include <kova/math/KOVAAffine3D.h>
#include <kova/math/KOVAMorph3D.h>

static_assert(sizeof(void*) != 4 || sizeof(KOVAPoint3D) == 40);

void KOVAPoint3D::Transform(KOVAMorph3D const& morph, bool noTranslation) {
    TransformPoints(morph, coordinates_, 1, noTranslation);
}

void KOVAPoint3D::Transform(KOVAAffine3D const& affine) {
    TransformPoints(affine, coordinates_, 1);
}

KOVAPoint3D KOVAPoint3D::Normalize() const {
    double const length = KOVAPoint::Length();
    return length > 0.0 ? *this / length : KOVAPoint3D(1.0, 0.0, 0.0);
}

KOVAPoint3D KOVAPoint3D::Orthogonalize() const {
    KOVAPoint3D const unit = Normalize();
    int smallest = 0;
    for (int i = 1; i < 3; ++i) {
        if (std::fabs(unit.coordinates_[i]) < std::fabs(unit.coordinates_[smallest]))
            smallest = i;
    }
    KOVAPoint3D axis;
    axis.coordinates_[smallest] = 1.0;
    return VectorProduct(unit, axis).Normalize();
}
