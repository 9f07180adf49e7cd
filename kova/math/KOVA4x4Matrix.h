#pragma once

#include <kova/core/export.h>
#include <kova/math/KOVADirectionf.h>
#include <kova/math/KOVAPointf.h>
#include <kova/math/KOVAVectorf.h>

/// An affine transform in sixteen floats, row by row, for row vectors on its left: the translation is in
/// row 3. Column 3 is carried along in products and never divides. Sums of products are formed in double and
/// rounded once.
///
///     KOVA4x4Matrix place(KOVAVectorKf, KOVAPointOf, KOVAPIBY2f); // turn about z
///     place *= KOVA4x4Matrix(KOVAVectorf(10, 0, 0), 1.0F);        // then move along x
///     KOVAPointf const p = place * KOVAPointf(1, 0, 0);           // (10, -1, 0)
///
/// The determinant of the upper left block and the scaling that follows from it are kept with it. Callers
/// depend on products multiplying both, on SetElement and SetTranslation leaving both, and on an inverse
/// asking the determinant that is kept.
class KOVA_API KOVA4x4Matrix {
public:
    /// The identity.
    constexpr KOVA4x4Matrix() noexcept : KOVA4x4Matrix(KOVANullVectorf, 1.0F) {}
    /// Row by row. Hazard: the array holds sixteen floats; that is not checked.
    explicit KOVA4x4Matrix(float const* const elements) noexcept;
    /// Scales, then translates.
    constexpr KOVA4x4Matrix(KOVAVectorf const& translation, float s) noexcept
        : m_{{s, 0.0F, 0.0F, 0.0F},
             {0.0F, s, 0.0F, 0.0F},
             {0.0F, 0.0F, s, 0.0F},
             {translation.x(), translation.y(), translation.z(), 1.0F}},
          determinant_(static_cast<float>(double{s} * s * s)), scaling_(s) {}
    /// A rotation in radians about an axis of any length through the centre. Callers depend on its sense: seen
    /// against the axis it turns clockwise, x to -y about z.
    KOVA4x4Matrix(KOVAVectorf const& axis, KOVAPointf const& centre, float angle) noexcept;
    /// The same rotation, then a translation.
    KOVA4x4Matrix(KOVAVectorf const& translation, KOVAVectorf const& axis, KOVAPointf const& centre,
                  float angle) noexcept;
    /// From rows: the images of the axes, and the translation.
    KOVA4x4Matrix(KOVAVectorf const& x, KOVAVectorf const& y, KOVAVectorf const& z,
                  KOVAVectorf const& translation) noexcept;
    /// The same. Hazard: three rows of three floats; that is not checked.
    KOVA4x4Matrix(float const** rows, KOVAVectorf const& translation) noexcept;
    KOVA4x4Matrix(KOVA4x4Matrix const&) = default;
    KOVA4x4Matrix& operator=(KOVA4x4Matrix const&) = default;
    virtual ~KOVA4x4Matrix() = default;

    /// The sixteen elements.
    float const* GetMatrix() const noexcept { return m_[0]; }
    float GetDeterminant() const noexcept { return determinant_; }
    float GetScaling() const noexcept { return scaling_; }
    /// Hazard: neither is checked to be 0 to 3. The determinant and the scaling stay as they were.
    void SetElement(int row, int column, float value) noexcept { m_[row][column] = value; }
    void GetTranslation(KOVAVectorf& translation) const noexcept { translation = KOVAVectorf(m_[3]); }
    /// The second argument is not used.
    void SetTranslation(KOVAVectorf const& translation, float /*unused*/) noexcept { translation.GetCoord(m_[3]); }
    // Rows 0 to 2 are the images of the axes, row 3 that of the origin. Directions come normalised.
    void GetComponents(KOVAVectorf& x, KOVAVectorf& y, KOVAVectorf& z, KOVAPointf& origin) const noexcept;
    void GetComponents(KOVADirectionf& x, KOVADirectionf& y, KOVADirectionf& z, KOVAPointf& origin) const noexcept;
    void SetComponents(KOVAVectorf const& x, KOVAVectorf const& y, KOVAVectorf const& z,
                       KOVAPointf const& origin) noexcept;
    void SetComponents(KOVADirectionf const& x, KOVADirectionf const& y, KOVADirectionf const& z,
                       KOVAPointf const& origin) noexcept {
        SetComponents(KOVAVectorf(x), KOVAVectorf(y), KOVAVectorf(z), origin);
    }

    /// Exactly, without tolerance.
    bool IsIdentity() const noexcept;
    /// Callers depend on a determinant of up to 1e-15 leaving `out` as it is, silently. `out` may be this.
    void GetInvertedMatrix(KOVA4x4Matrix& out) const noexcept;
    /// Three floats: what turns the z component of normals; nothing for null. Of a singular matrix it is the
    /// direction of the cofactors, and the x axis where these are null.
    void ComputeInverseTransposeThirdColumnNormalized(float* out) const noexcept;

    // Transforms in place; vectors and directions are not translated, directions not normalised.
    void multiply(KOVAPointf& p) const noexcept {
        p = KOVAPointf(static_cast<float>(image(0, p) + m_[3][0]), static_cast<float>(image(1, p) + m_[3][1]),
                       static_cast<float>(image(2, p) + m_[3][2]));
    }
    void multiply(KOVAVectorf& v) const noexcept {
        v = KOVAVectorf(static_cast<float>(image(0, v)), static_cast<float>(image(1, v)),
                        static_cast<float>(image(2, v)));
    }
    void multiply(KOVADirectionf& d) const noexcept { multiply(d.v_); }
    KOVAPointf operator*(KOVAPointf p) const noexcept { return transformed(p); }
    KOVAVectorf operator*(KOVAVectorf v) const noexcept { return transformed(v); }
    KOVADirectionf operator*(KOVADirectionf d) const noexcept { return transformed(d); }

    /// Becomes the transform that applies a, then b; either may be this.
    void multiply(KOVA4x4Matrix const& a, KOVA4x4Matrix const& b) noexcept;
    KOVA4x4Matrix& operator*=(KOVA4x4Matrix const& b) noexcept {
        multiply(*this, b);
        return *this;
    }
    KOVA4x4Matrix operator*(KOVA4x4Matrix const& b) const noexcept {
        KOVA4x4Matrix result;
        result.multiply(*this, b);
        return result;
    }

    /// The sixteen elements exactly; the determinants and scalings are not compared.
    bool operator==(KOVA4x4Matrix const& other) const noexcept;
    bool operator!=(KOVA4x4Matrix const& other) const noexcept { return !(*this == other); }

    friend KOVA_API void TransformPoints(KOVA4x4Matrix const& matrix, float* coordinates, long count) noexcept;
    friend KOVA_API void TransformVectors(KOVA4x4Matrix const& matrix, float* coordinates, long count) noexcept;

private:
    template <class T> double image(int j, T const& t) const noexcept {
        return double{t.x()} * m_[0][j] + double{t.y()} * m_[1][j] + double{t.z()} * m_[2][j];
    }
    template <class T> T transformed(T t) const noexcept {
        multiply(t);
        return t;
    }
    double cofactor(int i, int j) const noexcept;
    void transform(float* coordinates, long count, bool translate) const noexcept;
    void ComputeDeterminant() noexcept;
    void ComputeScaling() noexcept;
    void SetScaling(float s) noexcept;
    void SetRotation(KOVADirectionf const& axis, KOVAPointf const& centre, float const& angle) noexcept;

    float m_[4][4];
    float determinant_;
    float scaling_;
};

/// The identity.
extern KOVA_API KOVA4x4Matrix const KOVA4x4MatrixI;

// Each of `count` points or vectors, three floats each, is transformed in place, to the last bit as one by
// one. A null array or a count below 1 is nothing to do.
KOVA_API void TransformPoints(KOVA4x4Matrix const& matrix, float* coordinates, long count) noexcept;
KOVA_API void TransformVectors(KOVA4x4Matrix const& matrix, float* coordinates, long count) noexcept;
