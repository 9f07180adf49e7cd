#pragma once

#include <cstdint>

#include <kova/core/export.h>

class KOVAMorph;
class KOVAStreamFormatter;

/// A linear map of two or three dimensions, for points as column vectors on its right.
///
/// Callers depend on a map being all zeros until it is set: the identity takes MakeIdentity. Hazard: rows,
/// columns and the arrays that are passed are not checked.
class KOVA_API KOVAAffine {
public:
    /// All elements; the dimension of the copy is that of the original.
    KOVAAffine(KOVAAffine const&) = default;
    /// The elements, not the dimension.
    KOVAAffine& operator=(KOVAAffine const& other) noexcept;
    virtual ~KOVAAffine() = default;
    void SetTo(KOVAAffine const& other) noexcept { *this = other; }

    int GetDimension() const noexcept { return dimension_; }
    double GetElement(int row, int column) const noexcept { return elements_[row][column]; }
    void SetElement(int row, int column, double value) noexcept { elements_[row][column] = value; }
    // As many values as there are dimensions.
    void GetRow(int row, double* const values) const noexcept;
    void GetColumn(int column, double* const values) const noexcept;
    void SetRow(int row, double const* const values) noexcept;
    void SetColumn(int column, double const* const values) noexcept;

    /// Every element becomes the value.
    void Initialize(double value) noexcept;
    void MakeIdentity() noexcept;

    KOVAAffine& Multiply(double factor) noexcept;
    /// By way of 1 / divisor, which is not guarded against 0. A safe point for requests to abort. Callers
    /// depend on the assertion hook being called when the divisor is not 0.
    KOVAAffine& Divide(double divisor);
    /// Becomes, in `out`, the map that applies other first and this second. `out` may be either.
    void Multiply(KOVAAffine const& other, KOVAAffine& out) const noexcept;
    void Transpose() noexcept;
    void GetTranspose(KOVAAffine& out) const noexcept;

    double Determinant() const noexcept;
    /// Callers depend on a singular map giving infinities or not-a-numbers: nothing is reported. A safe point
    /// for requests to abort. `out` may be this map.
    void GetInverse(KOVAAffine& out) const;

    /// Each element to 1e-10 (Gk_Def::FuzzReal).
    bool IsIdentity() const noexcept;
    /// Each element to 1e-6 (Gk_Def::FuzzPos). Callers depend on only this map's dimension being asked.
    bool operator==(KOVAAffine const& other) const noexcept;
    bool operator!=(KOVAAffine const& other) const noexcept { return !(*this == other); }

    /// A line for each row: the margin, then each element and a tab.
    friend KOVA_API KOVAStreamFormatter& operator<<(KOVAStreamFormatter& out, KOVAAffine const& affine);

protected:
    /// A dimension above 3 becomes 3.
    explicit KOVAAffine(int dimension) noexcept : dimension_(dimension > 3 ? 3 : dimension) {}

    std::int32_t const dimension_;
    double elements_[3][3] = {}; ///< row by row; beyond the dimension unused

private:
    friend KOVAMorph;
    double DeterminantOfCofactor(int row, int column) const noexcept;
};
