#pragma once

#include <cstdint>

#include <kova/core/export.h>
#include <kova/math/Gk_Def.h>
#include <kova/math/Gk_Func.h>
#include <kova/math/Gk_LinMap.h>

class KOVAStreamFormatter;

/// The interval of a curve's or a surface's parameter. Either end may be absent; ends are compared within
/// the domain's tolerance.
///
///     Gk_Domain const turn(0.0, KOVA2PI, 1e-9);
///     double const angle = turn.principalParam(7.5);        // 7.5 - 2 pi
///     Gk_LinMap const toUnit = turn.mapTo(Gk_Domain(0.0, 1.0, 1e-9));
///
/// Callers depend on an end that is absent excluding nothing: the empty domain contains every value.
class KOVA_API Gk_Domain {
public:
    /// Which ends are there, as bits.
    enum EndCondn : std::int32_t { Empty = 0, BoundedBelow = 1, BoundedAbove = 2, Finite = 3 };

    Gk_Domain(EndCondn ends, double low, double high, double tol) noexcept
        : low_(low), high_(high), tol_(tol), endCondn_(ends) {}
    Gk_Domain(double low, double high, double tol) noexcept : Gk_Domain(Finite, low, high, tol) {}

    // The fields, whatever ends are there.
    double low() const noexcept { return low_; }
    double high() const noexcept { return high_; }
    double tol() const noexcept { return tol_; }
    EndCondn endCondn() const noexcept { return endCondn_; }
    double length() const noexcept { return high_ - low_; }
    /// (1 - t) low + t high.
    double locate(double t) const noexcept { return (1.0 - t) * low_ + t * high_; }
    /// The middle; of a domain with one end, that end.
    double mid() const noexcept {
        if (endCondn_ == BoundedBelow)
            return low_;
        return endCondn_ == BoundedAbove ? high_ : (low_ + high_) / 2.0;
    }

    bool isFinite() const noexcept { return endCondn_ == Finite; }
    /// Finite and shorter than the tolerance.
    bool isDegenerate() const noexcept { return isFinite() && high_ - low_ < tol_; }
    bool isContained(double x) const noexcept {
        return (!isBoundedBelow() || !isBelow(x)) && (!isBoundedAbove() || !isAbove(x));
    }
    /// Both of d's ends are contained. Callers depend on d's fields being asked whichever ends it has.
    bool isContained(Gk_Domain const& d) const noexcept { return isContained(d.low_) && isContained(d.high_); }
    /// Contained, and at no end.
    bool isInside(double x) const noexcept {
        return (!isBoundedBelow() || (!isLow(x) && low_ <= x)) && (!isBoundedAbove() || (!isHigh(x) && x <= high_));
    }
    bool isInside(Gk_Domain const& d) const noexcept { return isInside(d.low_) && isInside(d.high_); }
    /// The same ends, within the tolerance; -1.0 stands for this domain's own.
    bool isSame(Gk_Domain const& d, double tol) const noexcept;
    // These ask the fields, whatever ends are there.
    bool isLow(double x) const noexcept { return Gk_Func::equal(x, low_, tol_); }
    bool isHigh(double x) const noexcept { return Gk_Func::equal(x, high_, tol_); }
    bool isBoundary(double x) const noexcept { return isLow(x) || isHigh(x); }
    bool isBelow(double x) const noexcept { return !Gk_Func::lesseq(low_, x, tol_); }
    bool isAbove(double x) const noexcept { return !Gk_Func::lesseq(x, high_, tol_); }

    /// Makes it contain x; false when it does already. The empty domain becomes [x, x].
    bool extend(double x) noexcept;
    /// By the ends that d has; true when either changed this domain.
    bool extend(Gk_Domain const& d) noexcept;
    /// Moves each end outwards; always true.
    bool expand(double by) noexcept;
    /// From -high to -low.
    Gk_Domain operator-() const noexcept;
    /// Maps each end in place, and the tolerance by the slope.
    void apply(Gk_LinMap const& m) noexcept;
    /// What maps this domain's ends to d's. Not guarded against a length of 0, which gives infinities.
    Gk_LinMap mapTo(Gk_Domain const& d) const noexcept;
    /// x moved into a finite domain by whole periods, the domain's length; else x. Up to a million periods go
    /// one at a time, as callers compare the result bit for bit; more are taken off at once. A domain whose
    /// ends are not in order gives its low end, an x that is not finite itself.
    double principalParam(double x) const noexcept;
    /// The end that x is at or beyond, else x. Callers depend on both ends counting, whichever are there.
    double stick(double x) const noexcept;
    /// Finite, with the tolerance 1e-10. Callers depend on disjoint domains going unnoticed: each end is d's
    /// where this domain contains it, and else this domain's.
    Gk_Domain intersection(Gk_Domain const& d) const noexcept;

    /// "Domain( low, high)".
    void dump(KOVAStreamFormatter& formatter) const;

private:
    bool isBoundedBelow() const noexcept { return (endCondn_ & BoundedBelow) != 0; }
    bool isBoundedAbove() const noexcept { return (endCondn_ & BoundedAbove) != 0; }
    void swapEnds() noexcept;

    double low_;
    double high_;
    double tol_;
    EndCondn endCondn_;
};

KOVA_API KOVAStreamFormatter& operator<<(KOVAStreamFormatter& out, Gk_Domain const& domain);
