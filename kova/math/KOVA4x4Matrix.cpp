#include <kova/math/KOVA4x4Matrix.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>

#include <kova/math/kernels.h>

static_assert(sizeof(void*) != 4 || sizeof(KOVA4x4Matrix) == 76);
static_assert(sizeof(KOVAPointf) == 12);
static_assert(sizeof(KOVADirectionf) == 12);

namespace {

/// The cube root of a normal number, to some 4e-13.
double cubeRootByHalley(float size) noexcept {
    // A third of the exponent, to 5 percent; each of Halley's steps triples the digits.
    std::uint32_t bits = 0;
    std::memcpy(&bits, &size, sizeof bits);
    bits = bits / 3 + 0x2A5119F2U;
    float guess = 0.0F;
    std::memcpy(&guess, &bits, sizeof bits);
    double const a = double{size};
    double root = double{guess};
    for (int step = 0; step < 2; ++step) {
        double const cube = root * root * root;
        root *= (cube + a + a) / (cube + cube + a);
    }
    return root;
}

/// The float nearest to size to the power of 1/3, which pow takes too long for. The root is exact to some 4e-13;
/// where that does not settle the float, pow does. An estimate that is good for a float's digits is quicker: one
/// of Newton's steps, which doubles the digits, and what it divides by does not wait for the size.
float cubeRoot(float size, double estimate) noexcept {
    double const a = double{size};
    if (size >= std::numeric_limits<float>::min() && size <= std::numeric_limits<float>::max()) {
        double const step = (a - estimate * estimate * estimate) * (1.0 / (3.0 * estimate * estimate));
        double const root = std::fabs(step) < 5e-7 * estimate ? estimate + step : cubeRootByHalley(size);
        constexpr double kMargin = 1e-12;
        float const low = static_cast<float>(root * (1.0 - kMargin));
        if (low == static_cast<float>(root * (1.0 + kMargin)))
            return low;
    }
    return static_cast<float>(std::pow(a, 1.0 / 3.0));
}

/// Of a matrix of this determinant; the estimate only makes it quicker.
float scalingOf(float determinant, double estimate = 0.0) noexcept {
    float const size = std::fabs(determinant);
    return size >= 0.999999F && size <= 1.000001F ? 1.0F : cubeRoot(size, estimate);
}

} // namespace

KOVA4x4Matrix::KOVA4x4Matrix(float const* const elements) noexcept {
    std::copy_n(elements, 16, m_[0]);
    ComputeDeterminant();
    ComputeScaling();
}

KOVA4x4Matrix::KOVA4x4Matrix(KOVAVectorf const& axis, KOVAPointf const& centre, float angle) noexcept
    : KOVA4x4Matrix() {
    SetRotation(KOVADirectionf(axis), centre, angle);
}

KOVA4x4Matrix::KOVA4x4Matrix(KOVAVectorf const& translation, KOVAVectorf const& axis, KOVAPointf const& centre,
                             float angle) noexcept
    : KOVA4x4Matrix(axis, centre, angle) {
    *this *= KOVA4x4Matrix(translation, 1.0F);
}

KOVA4x4Matrix::KOVA4x4Matrix(KOVAVectorf const& x, KOVAVectorf const& y, KOVAVectorf const& z,
                             KOVAVectorf const& translation) noexcept
    : KOVA4x4Matrix() {
    SetComponents(x, y, z, KOVAPointOf + translation);
}

KOVA4x4Matrix::KOVA4x4Matrix(float const** rows, KOVAVectorf const& translation) noexcept
    : KOVA4x4Matrix(KOVAVectorf(rows[0]), KOVAVectorf(rows[1]), KOVAVectorf(rows[2]), translation) {}

void KOVA4x4Matrix::GetComponents(KOVAVectorf& x, KOVAVectorf& y, KOVAVectorf& z, KOVAPointf& origin) const noexcept {
    x.SetCoord(m_[0]);
    y.SetCoord(m_[1]);
    z.SetCoord(m_[2]);
    origin = KOVAPointf(m_[3]);
}

void KOVA4x4Matrix::GetComponents(KOVADirectionf& x, KOVADirectionf& y, KOVADirectionf& z,
                                  KOVAPointf& origin) const noexcept {
    x = KOVADirectionf(m_[0]);
    y = KOVADirectionf(m_[1]);
    z = KOVADirectionf(m_[2]);
    origin = KOVAPointf(m_[3]);
}

void KOVA4x4Matrix::SetComponents(KOVAVectorf const& x, KOVAVectorf const& y, KOVAVectorf const& z,
                                  KOVAPointf const& origin) noexcept {
    x.GetCoord(m_[0]);
    y.GetCoord(m_[1]);
    z.GetCoord(m_[2]);
    origin.GetValue(m_[3]);
    ComputeDeterminant();
    ComputeScaling();
}

bool KOVA4x4Matrix::operator==(KOVA4x4Matrix const& other) const noexcept {
    return std::equal(m_[0], m_[0] + 16, other.m_[0]);
}

bool KOVA4x4Matrix::IsIdentity() const noexcept {
    return *this == KOVA4x4MatrixI;
}

/// Signed, of the upper left block.
double KOVA4x4Matrix::cofactor(int i, int j) const noexcept {
    int const r = i == 0 ? 1 : 0;
    int const s = i == 2 ? 1 : 2;
    int const p = j == 0 ? 1 : 0;
    int const q = j == 2 ? 1 : 2;
    double const minor = double{m_[r][p]} * m_[s][q] - double{m_[s][p]} * m_[r][q];
    return (i + j) % 2 == 0 ? minor : -minor;
}

void KOVA4x4Matrix::ComputeDeterminant() noexcept {
    determinant_ =
        static_cast<float>(m_[0][0] * cofactor(0, 0) + m_[1][0] * cofactor(1, 0) + m_[2][0] * cofactor(2, 0));
}

void KOVA4x4Matrix::ComputeScaling() noexcept {
    scaling_ = scalingOf(determinant_);
}

void KOVA4x4Matrix::SetScaling(float s) noexcept {
    for (int i = 0; i < 3; ++i) {
        for (int j = 0; j < 3; ++j)
            m_[i][j] *= s;
    }
    ComputeDeterminant();
    ComputeScaling();
}

void KOVA4x4Matrix::SetRotation(KOVADirectionf const& axis, KOVAPointf const& centre, float const& angle) noexcept {
    double const ax = axis.x();
    double const ay = axis.y();
    double const az = axis.z();
    double const d = std::sqrt(ax * ax + ay * ay);
    double turn = double{angle};
    KOVA4x4Matrix frame;
    if (d < 1e-15) {
        turn = az > 0.0 ? turn : -turn;
        frame.SetTranslation(centre - KOVAPointOf, 1.0F);
    } else {
        frame.SetComponents(
            KOVAVectorf(static_cast<float>(-ay / d), static_cast<float>(ax / d), 0.0F),
            KOVAVectorf(static_cast<float>(-az * ax / d), static_cast<float>(-az * ay / d), static_cast<float>(d)),
            KOVAVectorf(axis), centre);
    }
    float const cosine = static_cast<float>(std::cos(turn));
    float const sine = static_cast<float>(std::sin(turn));
    KOVA4x4Matrix rotation;
    rotation.SetComponents(KOVAVectorf(cosine, -sine, 0.0F), KOVAVectorf(sine, cosine, 0.0F), KOVAVectorKf,
                           KOVAPointOf);
    frame.GetInvertedMatrix(*this);
    multiply(*this, rotation);
    multiply(*this, frame);
    ComputeDeterminant();
    ComputeScaling();
}

void KOVA4x4Matrix::GetInvertedMatrix(KOVA4x4Matrix& out) const noexcept {
    if (!(std::fabs(determinant_) > 1e-15))
        return;
    using namespace kova::detail;
    double const factor = 1.0 / determinant_;
    double const scaling = 1.0 / scaling_; // of `out`, but for rounding
    double const t[3] = {m_[3][0], m_[3][1], m_[3][2]};
    Adjugate(m_).put([factor](Pair cofactors) { return cofactors * both(factor); }, out.m_);
    for (int i = 0; i < 3; ++i)
        out.m_[i][3] = 0.0F;
    store(-(both(t[0]) * load(out.m_[0]) + both(t[1]) * load(out.m_[1]) + both(t[2]) * load(out.m_[2])), out.m_[3]);
    out.m_[3][2] = static_cast<float>(-(t[0] * out.m_[0][2] + t[1] * out.m_[1][2] + t[2] * out.m_[2][2]));
    out.m_[3][3] = 1.0F;
    out.ComputeDeterminant();
    out.scaling_ = scalingOf(out.determinant_, scaling);
}

void KOVA4x4Matrix::ComputeInverseTransposeThirdColumnNormalized(float* out) const noexcept {
    if (!out)
        return;
    // The cofactors are the inverse transpose times the determinant, of which only the sign is left.
    KOVAVectorf column(static_cast<float>(cofactor(0, 2)), static_cast<float>(cofactor(1, 2)),
                       static_cast<float>(cofactor(2, 2)));
    if (determinant_ < 0.0F)
        column = -column;
    column.Normalize();
    column.GetCoord(out);
}

void KOVA4x4Matrix::multiply(KOVA4x4Matrix const& a, KOVA4x4Matrix const& b) noexcept {
    using namespace kova::detail;
    Pair left[4];
    Pair right[4];
    for (int k = 0; k < 4; ++k) {
        left[k] = load(b.m_[k]);
        right[k] = load(b.m_[k] + 2);
    }
    determinant_ = a.determinant_ * b.determinant_;
    scaling_ = a.scaling_ * b.scaling_;
    for (int i = 0; i < 4; ++i) {
        Pair const low = load(a.m_[i]);
        Pair const high = load(a.m_[i] + 2);
        Pair const row[4] = {both(low[0]), both(low[1]), both(high[0]), both(high[1])};
        store(row[0] * left[0] + row[1] * left[1] + row[2] * left[2] + row[3] * left[3], m_[i]);
        store(row[0] * right[0] + row[1] * right[1] + row[2] * right[2] + row[3] * right[3], m_[i] + 2);
    }
}

// --- arrays

void KOVA4x4Matrix::transform(float* coordinates, long count, bool translate) const noexcept {
    double linear[3][3];
    double translation[3];
    for (int i = 0; i < 3; ++i) {
        for (int j = 0; j < 3; ++j)
            linear[i][j] = m_[j][i];
        translation[i] = m_[3][i];
    }
    kova::detail::PointMap const map{linear, nullptr, translate ? translation : nullptr};
    kova::detail::transformPoints<kova::detail::Solid>(map, coordinates, count);
}

void TransformPoints(KOVA4x4Matrix const& matrix, float* coordinates, long count) noexcept {
    matrix.transform(coordinates, count, true);
}

void TransformVectors(KOVA4x4Matrix const& matrix, float* coordinates, long count) noexcept {
    matrix.transform(coordinates, count, false);
}
