#pragma once

#include <kova/core/KOVIResult.h>
#include <kova/core/export.h>

/// Where a component stands in an assembly: a linear part and a translation, for points as columns on its
/// right, and a uniform scale that travels along.
///
///     KOVAAssemblyComponentTransform const inAssembly = ofSubassembly * ofPart;   // ofPart is applied first
///     inAssembly.ApplyTransform(point);
///
/// Callers depend on the scale having no part in applying, in products and in the test for the identity.
///
/// Operations that take an array give Invalid Argument for null, and else Success. Hazard: the arrays' sizes
/// are not checked. Linear parts in doubles go column by column.
class KOVA_API KOVAAssemblyComponentTransform {
public:
    /// The identity, with scale 1.
    KOVAAssemblyComponentTransform() noexcept = default;
    KOVAAssemblyComponentTransform(KOVAAssemblyComponentTransform const& other) noexcept;
    KOVAAssemblyComponentTransform& operator=(KOVAAssemblyComponentTransform const&) noexcept = default;
    virtual ~KOVAAssemblyComponentTransform();

    /// The linear part, then the translation: 12 doubles.
    KOVIResult Get(double* m12) const;
    KOVIResult Set(double const* m12);
    /// The linear part: 9 doubles.
    KOVIResult GetRotation(double* m9) const;
    KOVIResult SetRotation(double const* m9);
    KOVIResult GetTranslation(double* t3) const;
    KOVIResult SetTranslation(double const* t3);

    /// Three rows of four floats, the translation in the last column.
    KOVIResult Set3x4ByRow(float const* m);
    /// Sixteen floats, the translation in the last column; the last row is ignored.
    KOVIResult Set4x4ByColumn(float const* m);
    /// Sixteen floats; the last row is 0, 0, 0, 1.
    KOVIResult Get4x4ByRow(float* m) const;
    KOVIResult Get4x4ByColumn(float* m) const;

    /// Always Success.
    KOVIResult GetScale(double& scale) const;
    KOVIResult SetScale(double scale);
    /// Of the linear part. Always Success.
    KOVIResult GetDeterminant(double& determinant) const;

    /// The determinant is not 0.
    bool IsValid() const;
    /// No element of linear part and translation differs from the identity's by 0.000001 or more.
    bool IsIdentityTransform() const;
    /// The determinant is below 0.
    bool IsMirrorTransform() const;

    /// Three floats in place, in double precision between. Callers depend on what counts as the identity
    /// leaving them as they are.
    KOVIResult ApplyTransform(float* point) const;
    /// The same without the translation.
    KOVIResult ApplyRotation(float* vector) const;

    /// Applies other first, then this one. Its scale is 1.
    KOVAAssemblyComponentTransform operator*(KOVAAssemblyComponentTransform const& other) const;

    friend KOVA_API KOVIResult TransformPoints(KOVAAssemblyComponentTransform const& transform, float* coordinates,
                                               long count);
    friend KOVA_API KOVIResult TransformVectors(KOVAAssemblyComponentTransform const& transform, float* coordinates,
                                                long count);

private:
    static constexpr int kTranslation = 9;

    void changed() noexcept;
    void classify() const;
    KOVIResult apply(float* v, long count, bool translate) const;
    /// Row i of the linear part by v.
    double row(int i, double const* v) const noexcept { return m_[i] * v[0] + m_[3 + i] * v[1] + m_[6 + i] * v[2]; }

    double m_[12] = {1.0, 0.0, 0.0, 0.0, 1.0, 0.0, 0.0, 0.0, 1.0, 0.0, 0.0, 0.0};
    mutable double determinant_ = 0.0;
    double scale_ = 1.0;
    mutable bool determinantKnown_ = false;
    mutable bool flagsKnown_ = false;
    mutable bool valid_ = false;
    mutable bool identity_ = false;
    mutable bool mirror_ = false;
};

// Each of `count` points or vectors, three floats each, is transformed in place, to the last bit as by
// ApplyTransform and ApplyRotation, with their results. A count below 1 is nothing to do.
KOVA_API KOVIResult TransformPoints(KOVAAssemblyComponentTransform const& transform, float* coordinates, long count);
KOVA_API KOVIResult TransformVectors(KOVAAssemblyComponentTransform const& transform, float* coordinates, long count);
