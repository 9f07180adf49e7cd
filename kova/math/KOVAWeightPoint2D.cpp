#include <kova/math/KOVAWeightPoint2D.h>

#include <kova/math/KOVAAffine2D.h>
#include <kova/math/KOVAMorph2D.h>

static_assert(sizeof(void*) != 4 || sizeof(KOVAWeightPoint2D) == 48);

void KOVAWeightPoint2D::Transform(KOVAMorph2D const& morph, bool noTranslation) {
    TransformPoints(morph, coordinates_, 1, noTranslation);
}

void KOVAWeightPoint2D::Transform(KOVAAffine2D const& affine) {
    TransformPoints(affine, coordinates_, 1);
}
