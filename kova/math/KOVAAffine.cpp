#include <kova/math/KOVAAffine.h>

#include <algorithm>

#include <kova/core/Gk_ErrMgr.h>
#include <kova/math/Gk_Def.h>
#include <kova/math/Gk_Func.h>
#include <kova/math/KOVAAffine2D.h>
#include <kova/math/KOVAAffine3D.h>
#include <kova/math/kernels.h>
#include <kova/stream/KOVAStreamFormatter.h>

static_assert(sizeof(void*) != 4 || sizeof(KOVAAffine) == 80);
static_assert(sizeof(void*) != 4 || sizeof(KOVAAffine2D) == 80);
static_assert(sizeof(void*) != 4 || sizeof(KOVAAffine3D) == 80);

KOVAAffine& KOVAAffine::operator=(KOVAAffine const& other) noexcept {
    if (this != &other)
        std::copy_n(other.elements_[0], 9, elements_[0]);
    return *this;
}

void KOVAAffine::GetRow(int row, double* const values) const noexcept {
    for (int j = 0; j < dimension_; ++j)
        values[j] = elements_[row][j];
}

void KOVAAffine::GetColumn(int column, double* const values) const noexcept {
    for (int i = 0; i < dimension_; ++i)
        values[i] = elements_[i][column];
}

void KOVAAffine::SetRow(int row, double const* const values) noexcept {
    for (int j = 0; j < dimension_; ++j)
        elements_[row][j] = values[j];
}

void KOVAAffine::SetColumn(int column, double const* const values) noexcept {
    for (int i = 0; i < dimension_; ++i)
        elements_[i][column] = values[i];
}

void KOVAAffine::Initialize(double value) noexcept {
    for (int i = 0; i < dimension_; ++i) {
        for (int j = 0; j < dimension_; ++j)
            elements_[i][j] = value;
    }
}

void KOVAAffine::MakeIdentity() noexcept {
    Initialize(0.0);
    for (int i = 0; i < dimension_; ++i)
        elements_[i][i] = 1.0;
}

KOVAAffine& KOVAAffine::Multiply(double factor) noexcept {
    for (auto& row : elements_) { // what is not used too, which compilers do at once
        for (double& element : row)
            element *= factor;
    }
    return *this;
}

namespace {

void assertOn(double divisor) {
    if (!Gk_Func::equal(divisor, 0.0, Gk_Def::FuzzReal))
        Gk_ErrMgr::doAssert(__FILE__, __LINE__);
}

/// 1 / divisor, with what goes before every division.
double reciprocal(double divisor) {
    Gk_ErrMgr::checkAbort();
    assertOn(divisor);
    return 1.0 / divisor;
}

} // namespace

KOVAAffine& KOVAAffine::Divide(double divisor) {
    return Multiply(reciprocal(divisor));
}

void KOVAAffine::Multiply(KOVAAffine const& other, KOVAAffine& out) const noexcept {
    double product[3][3] = {};
    for (int i = 0; i < dimension_; ++i) {
        for (int j = 0; j < dimension_; ++j) {
            product[i][j] = elements_[i][0] * other.elements_[0][j];
            for (int k = 1; k < dimension_; ++k)
                product[i][j] += elements_[i][k] * other.elements_[k][j];
        }
    }
    std::copy_n(product[0], 9, out.elements_[0]);
}

void KOVAAffine::Transpose() noexcept {
    std::swap(elements_[0][1], elements_[1][0]);
    std::swap(elements_[0][2], elements_[2][0]);
    std::swap(elements_[1][2], elements_[2][1]);
}

void KOVAAffine::GetTranspose(KOVAAffine& out) const noexcept {
    out = *this;
    out.Transpose();
}

double KOVAAffine::Determinant() const noexcept {
    if (dimension_ < 2)
        return elements_[0][0];
    double const sum = elements_[0][0] * DeterminantOfCofactor(0, 0) + elements_[1][0] * DeterminantOfCofactor(1, 0);
    return dimension_ < 3 ? sum : sum + elements_[2][0] * DeterminantOfCofactor(2, 0);
}

/// Without the row and the column, and with the sign of their place.
double KOVAAffine::DeterminantOfCofactor(int row, int column) const noexcept {
    if (dimension_ < 2)
        return 1.0;
    int const r = row == 0 ? 1 : 0;
    int const p = column == 0 ? 1 : 0;
    double minor = elements_[r][p];
    if (dimension_ > 2) {
        int const s = row == 2 ? 1 : 2;
        int const q = column == 2 ? 1 : 2;
        minor = elements_[r][p] * elements_[s][q] - elements_[s][p] * elements_[r][q];
    }
    return (row + column) % 2 == 0 ? minor : -minor;
}

namespace {

/// The signed cofactors of a row, from the other two. Callers compare results bit for bit: each minor is formed
/// first, then its sign turned, so that a zero keeps the sign that this gives it.
kova::detail::Cross cofactors(double const (&r)[3], double const (&s)[3], bool isMiddle) noexcept {
    using namespace kova::detail;
    Pair const minors = Pair{r[1], r[0]} * both(s[2]) - Pair{s[1], s[0]} * both(r[2]);
    Pair const turned = -minors;
    double const third = r[0] * s[1] - s[0] * r[1];
    if (isMiddle)
        return {Pair{turned[0], minors[1]}, -third};
    return {Pair{minors[0], turned[1]}, third};
}

} // namespace

void KOVAAffine::GetInverse(KOVAAffine& out) const {
    if (dimension_ == 3) {
        using namespace kova::detail;
        auto const& a = elements_;
        // What goes with a division is called around the arithmetic: within, all numbers would leave their
        // registers for it.
        Gk_ErrMgr::checkAbort();
        Adjugate const adjugate(cofactors(a[1], a[2], false), cofactors(a[0], a[2], true), cofactors(a[0], a[1], false),
                                {a[0][0], a[1][0], a[2][0]});
        double const factor = 1.0 / adjugate.determinant;
        adjugate.put([factor](Pair elements) { return elements * both(factor); }, out.elements_);
        assertOn(adjugate.determinant);
        return;
    }
    double const factor = reciprocal(Determinant());
    if (dimension_ == 2) {
        double const a = elements_[0][0]; // `out` may be this
        out.elements_[0][0] = elements_[1][1] * factor;
        out.elements_[0][1] = -elements_[0][1] * factor;
        out.elements_[1][0] = -elements_[1][0] * factor;
        out.elements_[1][1] = a * factor;
    } else {
        out.elements_[0][0] = factor;
    }
}

bool KOVAAffine::IsIdentity() const noexcept {
    for (int i = 0; i < dimension_; ++i) {
        for (int j = 0; j < dimension_; ++j) {
            if (!Gk_Func::equal(elements_[i][j], i == j ? 1.0 : 0.0, Gk_Def::FuzzReal))
                return false;
        }
    }
    return true;
}

bool KOVAAffine::operator==(KOVAAffine const& other) const noexcept {
    for (int i = 0; i < dimension_; ++i) {
        for (int j = 0; j < dimension_; ++j) {
            if (!Gk_Func::equal(elements_[i][j], other.elements_[i][j], Gk_Def::FuzzPos))
                return false;
        }
    }
    return true;
}

KOVAStreamFormatter& operator<<(KOVAStreamFormatter& out, KOVAAffine const& affine) {
    for (int i = 0; i < affine.dimension_; ++i) {
        out << out.margin;
        for (int j = 0; j < affine.dimension_; ++j)
            out << affine.elements_[i][j] << "\t";
        out << out.newline;
    }
    return out;
}

// --- two and three dimensions

KOVAAffine2D::KOVAAffine2D(double a00, double a01, double a10, double a11) noexcept : KOVAAffine(2) {
    double rows[2][2] = {{a00, a01}, {a10, a11}};
    for (int i = 0; i < 2; ++i)
        SetRow(i, rows[i]);
}

void KOVAAffine2D::SetColumn(int column, KOVAPoint2D const& p) noexcept {
    for (int i = 0; i < 2; ++i)
        elements_[i][column] = p[i];
}

KOVAAffine3D::KOVAAffine3D(double a00, double a01, double a02, double a10, double a11, double a12, double a20,
                           double a21, double a22) noexcept
    : KOVAAffine(3) {
    double rows[3][3] = {{a00, a01, a02}, {a10, a11, a12}, {a20, a21, a22}};
    for (int i = 0; i < 3; ++i)
        SetRow(i, rows[i]);
}

void KOVAAffine3D::SetColumn(int column, KOVAPoint3D const& p) noexcept {
    for (int i = 0; i < 3; ++i)
        elements_[i][column] = p[i];
}

void TransformPoints(KOVAAffine2D const& affine, double* coordinates, long count) noexcept {
    kova::detail::transformPoints<kova::detail::Flat>({affine.elements_, nullptr, nullptr}, coordinates, count);
}

void TransformPoints(KOVAAffine3D const& affine, double* coordinates, long count) noexcept {
    kova::detail::transformPoints<kova::detail::Solid>({affine.elements_, nullptr, nullptr}, coordinates, count);
}
