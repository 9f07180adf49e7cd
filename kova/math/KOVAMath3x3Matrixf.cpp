#include <kova/math/KOVAMath3x3Matrixf.h>

#include <kova/math/kernels.h>

static_assert(sizeof(KOVAVectorf) == 12);
static_assert(sizeof(KOVAMath3x3Matrixf) == 40);

KOVAMath3x3Matrixf::KOVAMath3x3Matrixf(KOVAVectorf const& axis, double const& angle) noexcept : KOVAMath3x3Matrixf() {
    KOVAVectorf unit = axis;
    unit.Normalize();
    double const n[3] = {unit.x(), unit.y(), unit.z()};
    double const sine = std::sin(angle);
    double const cosine = std::cos(angle);
    for (int i = 0; i < 3; ++i) {
        int const j = (i + 1) % 3;
        int const k = (i + 2) % 3;
        c_[i][i] = static_cast<float>(cosine + n[i] * n[i] * (1.0 - cosine));
        c_[i][j] = static_cast<float>(n[i] * n[j] * (1.0 - cosine) - n[k] * sine);
        c_[j][i] = static_cast<float>(n[i] * n[j] * (1.0 - cosine) + n[k] * sine);
    }
}

std::int32_t KOVAMath3x3Matrixf::classify() const noexcept {
    constexpr double kTolerance = 1e-6;
    double products[3][3] = {};
    for (int i = 0; i < 3; ++i) {
        for (int j = 0; j < 3; ++j) {
            for (auto const& row : c_)
                products[i][j] += double{row[i]} * row[j];
        }
    }
    double const square = products[0][0];
    bool isSimilarity = square > 0.0;
    for (int i = 0; i < 3; ++i) {
        for (int j = 0; j < 3; ++j)
            isSimilarity = isSimilarity && std::fabs(products[i][j] - (i == j ? square : 0.0)) <= kTolerance * square;
    }
    if (!isSimilarity)
        return kGeneral;
    bool const isIsometry = std::fabs(square - 1.0) <= kTolerance;
    if (determinant() > 0.0)
        return isIsometry ? kRotation : kPositiveMultiple;
    return isIsometry ? kReflection : kNegativeMultiple;
}

bool KOVAMath3x3Matrixf::Inverse(KOVAMath3x3Matrixf& out) const noexcept {
    constexpr double kSmallest = 1e-14F;
    constexpr double kTwoThirds = 2.0F / 3.0F;
    if (IsIsometry()) {
        out = Transpose();
        return true;
    }
    using namespace kova::detail;
    Adjugate const adjugate(c_);
    double const d = adjugate.determinant;
    if (std::fabs(d) < kSmallest)
        return false;
    if (IsScaling()) {
        double const factor = std::pow(std::fabs(1.0 / d), kTwoThirds);
        std::int32_t const kind = kind_;
        out = combine(Transpose(), *this, [factor](float x, float) { return static_cast<float>(x * factor); });
        out.kind_ = kind;
        return true;
    }
    adjugate.put([d](Pair cofactors) { return cofactors / both(d); }, out.c_);
    out.kind_ = kGeneral;
    return true;
}

void TransformVectors(KOVAMath3x3Matrixf const& matrix, float* coordinates, long count) noexcept {
    double linear[3][3];
    for (int i = 0; i < 3; ++i) {
        for (int j = 0; j < 3; ++j)
            linear[i][j] = matrix.c_[i][j];
    }
    kova::detail::transformPoints<kova::detail::Solid>({linear, nullptr, nullptr}, coordinates, count);
}
