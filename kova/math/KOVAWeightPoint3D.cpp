#include <kova/math/KOVAWeightPoint3D.h>

#include <kova/math/KOVAAffine3D.h>
#include <kova/math/KOVAMorph3D.h>

static_assert(sizeof(void*) != 4 || sizeof(KOVAWeightPoint3D) == 48);

void KOVAWeightPoint3D::Transform(KOVAMorph3D const& morph, bool noTranslation) {
    TransformPoints(morph, coordinates_, 1, noTranslation);
}

void KOVAWeightPoint3D::Transform(KOVAAffine3D const& affine) {
    TransformPoints(affine, coordinates_, 1);
}
