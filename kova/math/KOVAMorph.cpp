#include <kova/math/KOVAMorph.h>

#include <kova/math/Gk_Def.h>
#include <kova/math/Gk_Func.h>
#include <kova/math/KOVAMorph2D.h>
#include <kova/math/KOVAMorph3D.h>
#include <kova/math/kernels.h>
#include <kova/stream/KOVAStreamFormatter.h>

static_assert(sizeof(void*) != 4 || sizeof(KOVAMorph) == 24);
static_assert(sizeof(void*) != 4 || sizeof(KOVAMorph2D) == 144);
static_assert(sizeof(void*) != 4 || sizeof(KOVAMorph3D) == 144);

namespace {

void transformPoints(int dimension, kova::detail::PointMap const& map, double* coordinates, long count) noexcept {
    if (dimension == 3)
        kova::detail::transformPoints<kova::detail::Solid>(map, coordinates, count);
    else
        kova::detail::transformPoints<kova::detail::Flat>(map, coordinates, count);
}

} // namespace

// --- what both dimensions share, through the base types of their parts

void KOVAMorph::fixMorphFlags() {
    unitScale_ = scale_ == 1.0;
    affineIdentity_ = GetAffine().IsIdentity();
    zeroTranslation_ = Gk_Func::equal(GetTranslation().Length(), 0.0, Gk_Def::FuzzPos);
}

void KOVAMorph::setScale(double s) {
    GetTranslation().Multiply(s);
    scale_ = s * scale_;
    unitScale_ = Gk_Func::equal(scale_, 1.0, Gk_Def::FuzzReal);
}

void KOVAMorph::transform(double* coordinates, long count, bool noTranslation) const noexcept {
    if (isIdentity())
        return;
    kova::detail::PointMap map;
    if (isAffine())
        map.linear = GetAffine().elements_;
    if (isScale())
        map.factor = &scale_;
    if (isTranslation() && !noTranslation)
        map.translation = GetTranslation().coordinates_;
    transformPoints(GetAffine().GetDimension(), map, coordinates, count);
}

void KOVAMorph::Inverse(KOVAMorph& out) const {
    double const scale = scale_;
    GetAffine().GetTranspose(out.GetAffine());
    GetTranslation().CopyIn(out.GetTranslation());
    out.GetTranslation().Divide(-scale);
    kova::detail::PointMap linear;
    linear.linear = out.GetAffine().elements_;
    transformPoints(out.GetAffine().GetDimension(), linear, out.GetTranslation().coordinates_, 1);
    out.scale_ = 1.0 / scale;
    out.fixMorphFlags();
}

void KOVAMorph::Multiply(KOVAMorph const& other, KOVAMorph& out) const {
    KOVAPoint translation(GetTranslation());
    other.transform(translation.coordinates_, 1, false);
    double const scale = other.scale_ * scale_;
    other.GetAffine().Multiply(GetAffine(), out.GetAffine());
    translation.CopyIn(out.GetTranslation());
    out.scale_ = scale;
    out.fixMorphFlags();
}

bool KOVAMorph::isEqual(KOVAMorph const& other) const {
    return Gk_Func::equal(scale_, other.scale_, Gk_Def::FuzzReal) &&
           GetTranslation().IsWithinTolerance(other.GetTranslation(), Gk_Def::FuzzPos) &&
           GetAffine() == other.GetAffine();
}

bool KOVAMorph::isMirror() const noexcept {
    return GetAffine().Determinant() < 0.0;
}

void KOVAMorph::setToIdentity() {
    GetAffine().MakeIdentity();
    KOVAPoint(GetTranslation().GetDimension()).CopyIn(GetTranslation());
    scale_ = 1.0;
    fixMorphFlags();
}

void KOVAMorph::fixScaleFactor() {
    if (unitScale_)
        return;
    GetTranslation().Multiply(scale_);
    scale_ = 1.0;
    unitScale_ = true;
}

KOVAStreamFormatter& operator<<(KOVAStreamFormatter& out, KOVAMorph const& morph) {
    out.margin->incr();
    out << out.margin << "{ " << out.newline;
    out.margin->incr();
    out << out.margin << "Affine:" << out.newline << morph.GetAffine() << out.newline;
    out << out.margin << "Translation: " << out.newline << morph.GetTranslation() << out.newline;
    out << out.margin << "Scale: " << morph.scale_ << out.newline;
    out.margin->decr();
    out << out.margin << "}" << out.newline;
    out.margin->decr();
    return out;
}

// --- two dimensions

KOVAMorph2D::KOVAMorph2D(KOVAPoint2D const& translation, double scale) : KOVAMorph(scale), translation_(translation) {
    affine_.MakeIdentity();
    fixMorphFlags();
}

KOVAMorph2D::KOVAMorph2D(KOVAAffine2D const& affine, KOVAPoint2D const& translation, double scale)
    : KOVAMorph(scale), affine_(affine), translation_(translation) {
    fixMorphFlags();
}

KOVAMorph2D::KOVAMorph2D(KOVAMorph2D const& other)
    : KOVAMorph2D(other.affine_, other.translation_, other.scaleFactor()) {}

KOVAMorph2D& KOVAMorph2D::operator=(KOVAMorph2D const& other) {
    KOVAMorph::operator=(other);
    affine_ = other.affine_;
    translation_ = other.translation_;
    fixMorphFlags();
    return *this;
}

KOVAMorph2D KOVAMorph2D::inverse() const {
    KOVAMorph2D result;
    Inverse(result);
    return result;
}

KOVAMorph2D KOVAMorph2D::multiply(KOVAMorph2D const& other) const {
    KOVAMorph2D result;
    Multiply(other, result);
    return result;
}

void TransformPoints(KOVAMorph2D const& morph, double* coordinates, long count, bool noTranslation) {
    morph.transform(coordinates, count, noTranslation);
}

// --- three dimensions

KOVAMorph3D::KOVAMorph3D(KOVAPoint3D const& translation, double scale) : KOVAMorph(scale), translation_(translation) {
    affine_.MakeIdentity();
    fixMorphFlags();
}

KOVAMorph3D::KOVAMorph3D(KOVAAffine3D const& affine, KOVAPoint3D const& translation, double scale)
    : KOVAMorph(scale), affine_(affine), translation_(translation) {
    fixMorphFlags();
}

KOVAMorph3D::KOVAMorph3D(KOVAMorph3D const& other)
    : KOVAMorph3D(other.affine_, other.translation_, other.scaleFactor()) {}

KOVAMorph3D& KOVAMorph3D::operator=(KOVAMorph3D const& other) {
    KOVAMorph::operator=(other);
    affine_ = other.affine_;
    translation_ = other.translation_;
    fixMorphFlags();
    return *this;
}

KOVAMorph3D KOVAMorph3D::inverse() const {
    KOVAMorph3D result;
    Inverse(result);
    return result;
}

KOVAMorph3D KOVAMorph3D::multiply(KOVAMorph3D const& other) const {
    KOVAMorph3D result;
    Multiply(other, result);
    return result;
}

void TransformPoints(KOVAMorph3D const& morph, double* coordinates, long count, bool noTranslation) {
    morph.transform(coordinates, count, noTranslation);
}

void Transform(double& x, double& y, double& z, KOVAMorph3D const& morph, bool noTranslation) {
    double p[3] = {x, y, z};
    TransformPoints(morph, p, 1, noTranslation);
    x = p[0];
    y = p[1];
    z = p[2];
}
