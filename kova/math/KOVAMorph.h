#pragma once

#include <kova/core/export.h>
#include <kova/math/KOVAAffine.h>
#include <kova/math/KOVAPoint.h>

class KOVAStreamFormatter;

/// A placement: a linear part that is a rotation, with or without reflection, then a uniform scale, then a
/// translation: p' = s (A p) + t. Three flags say which of these count; what does not count is not applied.
///
/// Callers depend on when the flags are computed: on making, copying and changing a morph the scale counts
/// unless it is exactly 1, but setScale lets it count only beyond 1e-10 from 1, and recomputes nothing else.
///
/// Operations between morphs of different dimensions work on the smaller one's share.
class KOVA_API KOVAMorph {
public:
    /// Multiplies the translation and the scale that are there.
    virtual void setScale(double s) = 0;
    /// Callers depend on the linear part being transposed, not inverted. `out` may be this morph.
    virtual void Inverse(KOVAMorph& out) const = 0;
    /// Makes `out` apply this morph first, then other. `out` may be either.
    virtual void Multiply(KOVAMorph const& other, KOVAMorph& out) const = 0;
    /// Scales to 1e-10, translations and linear parts to 1e-6.
    virtual bool isEqual(KOVAMorph const& other) const = 0;

protected:
    virtual KOVAPoint& GetTranslation() const = 0;
    virtual KOVAAffine& GetAffine() const = 0;

public:
    double scaleFactor() const noexcept { return scale_; }
    // Which parts count.
    bool isScale() const noexcept { return !unitScale_; }
    bool isAffine() const noexcept { return !affineIdentity_; }
    /// Longer than 1e-6.
    bool isTranslation() const noexcept { return !zeroTranslation_; }
    bool isIdentity() const noexcept { return unitScale_ && affineIdentity_ && zeroTranslation_; }
    /// The linear part reverses orientation.
    bool isMirror() const noexcept;

    /// A block of lines at the formatter's margin.
    friend KOVA_API KOVAStreamFormatter& operator<<(KOVAStreamFormatter& out, KOVAMorph const& morph);

protected:
    explicit KOVAMorph(double scale) noexcept : scale_(scale) {}
    KOVAMorph(KOVAMorph const&) = default;
    KOVAMorph& operator=(KOVAMorph const&) = default;
    ~KOVAMorph() = default;

    void fixMorphFlags();
    void setToIdentity();
    void fixScaleFactor();
    /// To `count` points of this morph's dimension.
    void transform(double* coordinates, long count, bool noTranslation) const noexcept;

private:
    double scale_;
    bool unitScale_ = true;
    bool affineIdentity_ = true;
    bool zeroTranslation_ = true;
};
