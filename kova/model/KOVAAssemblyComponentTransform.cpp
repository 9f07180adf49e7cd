#include <kova/model/KOVAAssemblyComponentTransform.h>

#include <algorithm>
#include <cmath>

#include <kova/core/results.h>
#include <kova/math/kernels.h>

using kova::detail::kInvalidArgument;
using kova::detail::kSuccess;

static_assert(sizeof(void*) != 4 || sizeof(KOVAAssemblyComponentTransform) == 128);

namespace {

KOVIResult copy(double const* from, double* to, int n) {
    if (!from || !to)
        return kInvalidArgument;
    std::copy_n(from, n, to);
    return kSuccess;
}

} // namespace

KOVAAssemblyComponentTransform::KOVAAssemblyComponentTransform(KOVAAssemblyComponentTransform const& other) noexcept
    : scale_(other.scale_) {
    std::copy_n(other.m_, 12, m_);
}

KOVAAssemblyComponentTransform::~KOVAAssemblyComponentTransform() = default;

void KOVAAssemblyComponentTransform::changed() noexcept {
    determinantKnown_ = false;
    flagsKnown_ = false;
}

KOVIResult KOVAAssemblyComponentTransform::Get(double* m12) const {
    return copy(m_, m12, 12);
}

KOVIResult KOVAAssemblyComponentTransform::Set(double const* m12) {
    changed();
    return copy(m12, m_, 12);
}

KOVIResult KOVAAssemblyComponentTransform::GetRotation(double* m9) const {
    return copy(m_, m9, 9);
}

KOVIResult KOVAAssemblyComponentTransform::SetRotation(double const* m9) {
    changed();
    return copy(m9, m_, 9);
}

KOVIResult KOVAAssemblyComponentTransform::GetTranslation(double* t3) const {
    return copy(m_ + kTranslation, t3, 3);
}

KOVIResult KOVAAssemblyComponentTransform::SetTranslation(double const* t3) {
    changed();
    return copy(t3, m_ + kTranslation, 3);
}

KOVIResult KOVAAssemblyComponentTransform::Set3x4ByRow(float const* m) {
    if (!m)
        return kInvalidArgument;
    changed();
    for (int i = 0; i < 12; ++i)
        m_[i] = m[i % 3 * 4 + i / 3];
    return kSuccess;
}

KOVIResult KOVAAssemblyComponentTransform::Set4x4ByColumn(float const* m) {
    if (!m)
        return kInvalidArgument;
    changed();
    for (int i = 0; i < 12; ++i)
        m_[i] = m[i / 3 * 4 + i % 3];
    return kSuccess;
}

KOVIResult KOVAAssemblyComponentTransform::Get4x4ByRow(float* m) const {
    if (!m)
        return kInvalidArgument;
    for (int i = 0; i < 12; ++i)
        m[i % 3 * 4 + i / 3] = static_cast<float>(m_[i]);
    std::fill_n(m + 12, 3, 0.0F);
    m[15] = 1.0F;
    return kSuccess;
}

KOVIResult KOVAAssemblyComponentTransform::Get4x4ByColumn(float* m) const {
    if (!m)
        return kInvalidArgument;
    for (int i = 0; i < 12; ++i)
        m[i / 3 * 4 + i % 3] = static_cast<float>(m_[i]);
    m[3] = m[7] = m[11] = 0.0F;
    m[15] = 1.0F;
    return kSuccess;
}

KOVIResult KOVAAssemblyComponentTransform::GetScale(double& scale) const {
    scale = scale_;
    return kSuccess;
}

KOVIResult KOVAAssemblyComponentTransform::SetScale(double scale) {
    changed();
    scale_ = scale;
    return kSuccess;
}

KOVIResult KOVAAssemblyComponentTransform::GetDeterminant(double& determinant) const {
    if (!determinantKnown_) {
        double const* const x = m_;
        double const* const y = m_ + 3;
        double const* const z = m_ + 6;
        determinant_ = x[0] * y[1] * z[2] + y[0] * z[1] * x[2] + z[0] * x[1] * y[2] - z[0] * y[1] * x[2] -
                       x[0] * z[1] * y[2] - y[0] * x[1] * z[2];
        determinantKnown_ = true;
    }
    determinant = determinant_;
    return kSuccess;
}

void KOVAAssemblyComponentTransform::classify() const {
    if (flagsKnown_)
        return;
    double determinant = 0.0;
    GetDeterminant(determinant);
    valid_ = determinant != 0.0;
    mirror_ = determinant < 0.0;
    identity_ = true;
    for (int i = 0; i < 12; ++i) {
        double const expected = i < kTranslation && i % 4 == 0 ? 1.0 : 0.0;
        identity_ = identity_ && std::fabs(m_[i] - expected) < 0.000001;
    }
    flagsKnown_ = true;
}

bool KOVAAssemblyComponentTransform::IsValid() const {
    classify();
    return valid_;
}

bool KOVAAssemblyComponentTransform::IsIdentityTransform() const {
    classify();
    return identity_;
}

bool KOVAAssemblyComponentTransform::IsMirrorTransform() const {
    classify();
    return mirror_;
}

KOVIResult KOVAAssemblyComponentTransform::ApplyTransform(float* point) const {
    return apply(point, 1, true);
}

KOVIResult KOVAAssemblyComponentTransform::ApplyRotation(float* vector) const {
    return apply(vector, 1, false);
}

KOVIResult KOVAAssemblyComponentTransform::apply(float* v, long count, bool translate) const {
    if (!v)
        return kInvalidArgument;
    if (IsIdentityTransform())
        return kSuccess;
    double linear[3][3];
    for (int i = 0; i < 3; ++i) {
        for (int j = 0; j < 3; ++j)
            linear[i][j] = m_[3 * j + i];
    }
    kova::detail::PointMap const map{linear, nullptr, translate ? m_ + kTranslation : nullptr};
    kova::detail::transformPoints<kova::detail::Solid>(map, v, count);
    return kSuccess;
}

KOVAAssemblyComponentTransform
KOVAAssemblyComponentTransform::operator*(KOVAAssemblyComponentTransform const& other) const {
    KOVAAssemblyComponentTransform product;
    for (int i = 0; i < 12; ++i) {
        double const image = row(i % 3, other.m_ + (i - i % 3));
        product.m_[i] = i < kTranslation ? image : image + m_[i];
    }
    return product;
}

KOVIResult TransformPoints(KOVAAssemblyComponentTransform const& transform, float* coordinates, long count) {
    return transform.apply(coordinates, count, true);
}

KOVIResult TransformVectors(KOVAAssemblyComponentTransform const& transform, float* coordinates, long count) {
    return transform.apply(coordinates, count, false);
}
