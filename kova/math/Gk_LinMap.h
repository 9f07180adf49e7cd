#pragma once

#include <cmath>

#include <kova/core/export.h>
#include <kova/math/Gk_Def.h>
#include <kova/math/Gk_Func.h>

class KOVAStreamFormatter;

/// The linear map of a parameter: t' = slope t + abscissa.
///
/// Callers depend on it snapping: a slope within 1e-10 of 1 or -1 with an abscissa within 1e-10 of 0 applies
/// as the identity or the negation exactly.
class KOVA_API Gk_LinMap {
public:
    /// The identity.
    Gk_LinMap() noexcept : Gk_LinMap(1.0, 0.0) {}
    Gk_LinMap(double slope, double abscissa) noexcept : slope_(slope), abscissa_(abscissa) { fixFlags(); }

    double slope() const noexcept { return slope_; }
    double abscissa() const noexcept { return abscissa_; }
    bool isIdentity() const noexcept { return identityOrNegate_ && !negative_; }
    /// Callers depend on it being true of any negative slope, not only of -1.
    bool isNegate() const noexcept { return negative_; }
    /// Changes the signs in place.
    void negate() noexcept {
        slope_ = -slope_;
        abscissa_ = -abscissa_;
        negative_ = !negative_;
    }

    double apply(double t) const noexcept {
        if (identityOrNegate_)
            return negative_ ? -t : t;
        return slope_ * t + abscissa_;
    }
    /// The t that is mapped here; 0 where the slope is 0 within 1e-10.
    double invert(double t) const noexcept {
        if (Gk_Func::equal(slope_, 0.0, Gk_Def::FuzzReal))
            return 0.0;
        if (identityOrNegate_)
            return negative_ ? -t : t;
        return (t - abscissa_) / slope_;
    }
    /// Not guarded against a slope of 0, which gives infinities.
    Gk_LinMap inverse() const noexcept { return Gk_LinMap(1.0 / slope_, -abscissa_ / slope_); }
    /// Becomes the map that applies m after this one, or before it. An identity m changes nothing.
    void compose(Gk_LinMap const& m, bool after) noexcept {
        if (!m.isIdentity())
            *this = after ? composed(m, *this) : composed(*this, m);
    }

    /// Within 1e-10.
    bool operator==(Gk_LinMap const& other) const noexcept {
        return Gk_Func::equal(slope_, other.slope_, Gk_Def::FuzzReal) &&
               Gk_Func::equal(abscissa_, other.abscissa_, Gk_Def::FuzzReal);
    }
    bool operator!=(Gk_LinMap const& other) const noexcept { return !(*this == other); }

private:
    static Gk_LinMap composed(Gk_LinMap const& outer, Gk_LinMap const& inner) noexcept {
        return Gk_LinMap(outer.slope_ * inner.slope_, outer.slope_ * inner.abscissa_ + outer.abscissa_);
    }
    void fixFlags() noexcept {
        identityOrNegate_ = Gk_Func::equal(std::fabs(slope_), 1.0, Gk_Def::FuzzReal) &&
                            Gk_Func::equal(abscissa_, 0.0, Gk_Def::FuzzReal);
        negative_ = slope_ < 0.0;
    }

    double slope_;
    double abscissa_;
    bool identityOrNegate_;
    bool negative_;
};

/// The margin, "#Map: ", slope and abscissa, and the end of the line.
KOVA_API KOVAStreamFormatter& operator<<(KOVAStreamFormatter& out, Gk_LinMap const& map);
