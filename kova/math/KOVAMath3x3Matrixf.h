#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>

#include <kova/core/export.h>
#include <kova/math/KOVAVectorf.h>

/// A linear map of three by three floats, for column vectors on its right. It remembers what kind of map it
/// is, so that a rotation is inverted by transposing it. Sums of products are formed in double and rounded
/// once.
///
///     KOVAMath3x3Matrixf const turn(KOVAVectorKf, KOVAPIBY2); // about z
///     KOVAVectorf const y = turn * KOVAVectorIf;
///
/// The kind is known of matrices made as the identity, from one number, an axis, or three columns, and of
/// their transposes and inverses; every other operation makes a general one.
class KOVA_API KOVAMath3x3Matrixf {
public:
    /// The identity.
    constexpr KOVAMath3x3Matrixf() noexcept : KOVAMath3x3Matrixf(1.0F) {}
    /// s times the identity.
    explicit constexpr KOVAMath3x3Matrixf(float s) noexcept
        : c_{{s, 0.0F, 0.0F}, {0.0F, s, 0.0F}, {0.0F, 0.0F, s}}, kind_(kindOfMultiple(s)) {}
    /// A diagonal.
    constexpr KOVAMath3x3Matrixf(float a, float b, float c) noexcept
        : c_{{a, 0.0F, 0.0F}, {0.0F, b, 0.0F}, {0.0F, 0.0F, c}}, kind_(kGeneral) {}
    /// Row by row.
    constexpr KOVAMath3x3Matrixf(float c11, float c12, float c13, float c21, float c22, float c23, float c31, float c32,
                                 float c33) noexcept
        : c_{{c11, c12, c13}, {c21, c22, c23}, {c31, c32, c33}}, kind_(kGeneral) {}
    /// From columns. Orthogonal ones of one length are recognised, to a millionth of the square of the length.
    KOVAMath3x3Matrixf(KOVAVectorf const& a, KOVAVectorf const& b, KOVAVectorf const& c) noexcept
        : KOVAMath3x3Matrixf(a.x(), b.x(), c.x(), a.y(), b.y(), c.y(), a.z(), b.z(), c.z()) {
        kind_ = classify();
    }
    /// The cross product with v: this matrix times w is v ^ w.
    explicit constexpr KOVAMath3x3Matrixf(KOVAVectorf const& v) noexcept
        : KOVAMath3x3Matrixf(0.0F, -v.z(), v.y(), v.z(), 0.0F, -v.x(), -v.y(), v.x(), 0.0F) {}
    /// The right-handed rotation about an axis of any length, in radians. A null axis counts as x.
    KOVAMath3x3Matrixf(KOVAVectorf const& axis, double const& angle) noexcept;

    void GetCoef(float& c11, float& c12, float& c13, float& c21, float& c22, float& c23, float& c31, float& c32,
                 float& c33) const noexcept {
        column(0).GetCoord(c11, c21, c31);
        column(1).GetCoord(c12, c22, c32);
        column(2).GetCoord(c13, c23, c33);
    }
    void SetCoef(float c11, float c12, float c13, float c21, float c22, float c23, float c31, float c32,
                 float c33) noexcept {
        *this = KOVAMath3x3Matrixf(c11, c12, c13, c21, c22, c23, c31, c32, c33);
    }
    void GetFirstColumn(KOVAVectorf& v) const noexcept { v = column(0); }
    void GetSecondColumn(KOVAVectorf& v) const noexcept { v = column(1); }
    void GetThirdColumn(KOVAVectorf& v) const noexcept { v = column(2); }
    void SetFirstColumn(KOVAVectorf const& v) noexcept { setColumn(0, v); }
    void SetSecondColumn(KOVAVectorf const& v) noexcept { setColumn(1, v); }
    void SetThirdColumn(KOVAVectorf const& v) noexcept { setColumn(2, v); }
    /// As made from three columns.
    void SetMatrix(KOVAVectorf const& a, KOVAVectorf const& b, KOVAVectorf const& c) noexcept {
        *this = KOVAMath3x3Matrixf(a, b, c);
    }

    /// Known to be a multiple of a rotation, with or without reflection.
    constexpr bool IsScaling() const noexcept { return kind_ != kGeneral; }
    /// Known to keep lengths.
    constexpr bool IsIsometry() const noexcept { return kind_ == kRotation || kind_ == kReflection; }

    constexpr float Determinant() const noexcept { return static_cast<float>(determinant()); }
    constexpr float Trace() const noexcept { return static_cast<float>(double{c_[0][0]} + c_[1][1] + c_[2][2]); }
    /// The largest sum of absolute values of a row.
    float InfiniteNorm() const noexcept {
        double norm = 0.0;
        for (auto const& row : c_)
            norm = std::max(norm, std::fabs(double{row[0]}) + std::fabs(double{row[1]}) + std::fabs(double{row[2]}));
        return static_cast<float>(norm);
    }

    constexpr KOVAMath3x3Matrixf Transpose() const noexcept {
        KOVAMath3x3Matrixf result(c_[0][0], c_[1][0], c_[2][0], c_[0][1], c_[1][1], c_[2][1], c_[0][2], c_[1][2],
                                  c_[2][2]);
        result.kind_ = kind_;
        return result;
    }
    void Transpose(KOVAMath3x3Matrixf& out) const noexcept { out = Transpose(); }

    /// The identity where there is no inverse.
    KOVAMath3x3Matrixf Inverse() const noexcept {
        KOVAMath3x3Matrixf result;
        Inverse(result);
        return result;
    }
    /// False, and `out` stays, where the determinant is below 1e-14. Isometries are transposed. Callers depend
    /// on known multiples of rotations being transposed and scaled by the determinant to the power of -2/3,
    /// the float: exact it is not. `out` may be this matrix.
    bool Inverse(KOVAMath3x3Matrixf& out) const noexcept;

    friend constexpr KOVAMath3x3Matrixf operator+(KOVAMath3x3Matrixf const& a, KOVAMath3x3Matrixf const& b) noexcept {
        return combine(a, b, [](float x, float y) { return x + y; });
    }
    friend constexpr KOVAMath3x3Matrixf operator-(KOVAMath3x3Matrixf const& a, KOVAMath3x3Matrixf const& b) noexcept {
        return combine(a, b, [](float x, float y) { return x - y; });
    }
    friend constexpr KOVAMath3x3Matrixf operator*(KOVAMath3x3Matrixf const& a, float s) noexcept {
        return combine(a, a, [s](float x, float /*same*/) { return x * s; });
    }
    friend constexpr KOVAMath3x3Matrixf operator*(float s, KOVAMath3x3Matrixf const& a) noexcept { return a * s; }
    friend constexpr KOVAMath3x3Matrixf operator/(KOVAMath3x3Matrixf const& a, float s) noexcept {
        return combine(a, a, [s](float x, float /*same*/) { return x / s; });
    }
    /// Applies b first.
    friend constexpr KOVAMath3x3Matrixf operator*(KOVAMath3x3Matrixf const& a, KOVAMath3x3Matrixf const& b) noexcept {
        KOVAMath3x3Matrixf result(0.0F, 0.0F, 0.0F);
        for (int i = 0; i < 3; ++i) {
            for (int j = 0; j < 3; ++j)
                result.c_[i][j] = static_cast<float>(double{a.c_[i][0]} * b.c_[0][j] + double{a.c_[i][1]} * b.c_[1][j] +
                                                     double{a.c_[i][2]} * b.c_[2][j]);
        }
        return result;
    }
    friend constexpr KOVAVectorf operator*(KOVAMath3x3Matrixf const& m, KOVAVectorf const& v) noexcept {
        return KOVAVectorf(m.row(0, v), m.row(1, v), m.row(2, v));
    }

    friend KOVA_API void TransformVectors(KOVAMath3x3Matrixf const& matrix, float* coordinates, long count) noexcept;

private:
    static constexpr std::int32_t kGeneral = 0;
    static constexpr std::int32_t kRotation = 1;
    static constexpr std::int32_t kReflection = -1;
    static constexpr std::int32_t kPositiveMultiple = 2;
    static constexpr std::int32_t kNegativeMultiple = -2;

    static constexpr std::int32_t kindOfMultiple(float s) noexcept {
        if (s == 1.0F)
            return kRotation;
        if (s == -1.0F)
            return kReflection;
        if (s > 0.0F)
            return kPositiveMultiple;
        return s < 0.0F ? kNegativeMultiple : kGeneral;
    }

    std::int32_t classify() const noexcept;

    constexpr KOVAVectorf column(int j) const noexcept { return KOVAVectorf(c_[0][j], c_[1][j], c_[2][j]); }
    void setColumn(int j, KOVAVectorf const& v) noexcept {
        v.GetCoord(c_[0][j], c_[1][j], c_[2][j]);
        kind_ = kGeneral;
    }
    constexpr float row(int i, KOVAVectorf const& v) const noexcept {
        return static_cast<float>(double{c_[i][0]} * v.x() + double{c_[i][1]} * v.y() + double{c_[i][2]} * v.z());
    }
    constexpr double determinant() const noexcept {
        return c_[0][0] * minor(1, 1, 2, 2) - c_[1][0] * minor(0, 1, 2, 2) + c_[2][0] * minor(0, 1, 1, 2);
    }
    /// Of rows r < s and columns p < q; the products of floats are exact in double.
    constexpr double minor(int r, int p, int s, int q) const noexcept {
        return double{c_[r][p]} * c_[s][q] - double{c_[s][p]} * c_[r][q];
    }
    template <class Operation> static constexpr KOVAMath3x3Matrixf
    combine(KOVAMath3x3Matrixf const& a, KOVAMath3x3Matrixf const& b, Operation const& operation) noexcept {
        KOVAMath3x3Matrixf result(0.0F, 0.0F, 0.0F);
        for (int i = 0; i < 3; ++i) {
            for (int j = 0; j < 3; ++j)
                result.c_[i][j] = operation(a.c_[i][j], b.c_[i][j]);
        }
        return result;
    }

    float c_[3][3];
    std::int32_t kind_;
};

/// The outer product: row i, column j is a's i times b's j.
constexpr KOVAMath3x3Matrixf operator%(KOVAVectorf const& a, KOVAVectorf const& b) noexcept {
    return KOVAMath3x3Matrixf(a.x() * b.x(), a.x() * b.y(), a.x() * b.z(), a.y() * b.x(), a.y() * b.y(), a.y() * b.z(),
                              a.z() * b.x(), a.z() * b.y(), a.z() * b.z());
}

/// Replaces each of `count` vectors, three floats each, by the matrix times it, to the last bit as one by
/// one. A null array or a count below 1 is nothing to do.
KOVA_API void TransformVectors(KOVAMath3x3Matrixf const& matrix, float* coordinates, long count) noexcept;
