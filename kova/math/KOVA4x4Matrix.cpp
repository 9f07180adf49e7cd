#include <kova/math/KOVA4x4Matrix.h>

#include <algorithm>
#include <cmath>

static_assert(sizeof(void*) != 4 || sizeof(KOVA4x4Matrix) == 76);
static_assert(sizeof(KOVAPointf) == 12);
static_assert(sizeof(KOVADirectionf) == 12);

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
    float const size = std::fabs(determinant_);
    if (size >= 0.999999F && size <= 1.000001F)
        scaling_ = 1.0F;
    else
        scaling_ = static_cast<float>(std::pow(double{size}, 1.0 / 3.0));
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
    KOVA4x4Matrix result;
    double const factor = 1.0 / determinant_;
    for (int i = 0; i < 3; ++i) {
        for (int j = 0; j < 3; ++j)
            result.m_[i][j] = static_cast<float>(cofactor(j, i) * factor);
    }
    KOVAVectorf back(m_[3]);
    result.multiply(back);
    (-back).GetCoord(result.m_[3]);
    result.ComputeDeterminant();
    result.ComputeScaling();
    out = result;
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
    float product[4][4];
    for (int i = 0; i < 4; ++i) {
        for (int j = 0; j < 4; ++j)
            product[i][j] = static_cast<float>(double{a.m_[i][0]} * b.m_[0][j] + double{a.m_[i][1]} * b.m_[1][j] +
                                               double{a.m_[i][2]} * b.m_[2][j] + double{a.m_[i][3]} * b.m_[3][j]);
    }
    determinant_ = a.determinant_ * b.determinant_;
    scaling_ = a.scaling_ * b.scaling_;
    std::copy_n(product[0], 16, m_[0]);
}

// --- arrays

namespace {

/// One by one, with a copy of the matrix, which writing the coordinates cannot change.
template <class T, class Get> void transformArray(KOVA4x4Matrix const& matrix, float* at, long count, Get get) {
    if (!at)
        return;
    KOVA4x4Matrix const m(matrix);
    for (long i = 0; i < count; ++i, at += 3) {
        T t(at);
        m.multiply(t);
        get(t, at);
    }
}

} // namespace

void TransformPoints(KOVA4x4Matrix const& matrix, float* coordinates, long count) noexcept {
    transformArray<KOVAPointf>(matrix, coordinates, count, [](KOVAPointf const& p, float* at) { p.GetValue(at); });
}

void TransformVectors(KOVA4x4Matrix const& matrix, float* coordinates, long count) noexcept {
    transformArray<KOVAVectorf>(matrix, coordinates, count, [](KOVAVectorf const& v, float* at) { v.GetCoord(at); });
}
