#include <kova/math/Gk_Domain.h>

#include <cmath>
#include <utility>

#include <kova/stream/KOVAStreamFormatter.h>

static_assert(sizeof(void*) != 4 || sizeof(Gk_Domain) == 32);

bool Gk_Domain::isSame(Gk_Domain const& d, double tol) const noexcept {
    double const tolerance = tol == -1.0 ? tol_ : tol;
    return endCondn_ == d.endCondn_ && (!isBoundedBelow() || Gk_Func::equal(low_, d.low_, tolerance)) &&
           (!isBoundedAbove() || Gk_Func::equal(high_, d.high_, tolerance));
}

bool Gk_Domain::extend(double x) noexcept {
    if (endCondn_ == Empty) {
        low_ = high_ = x;
        endCondn_ = Finite;
        return true;
    }
    if (isContained(x))
        return false;
    if (isBoundedBelow() && x < low_)
        low_ = x;
    if (isBoundedAbove() && x > high_)
        high_ = x;
    return true;
}

bool Gk_Domain::extend(Gk_Domain const& d) noexcept {
    Gk_Domain const by = d; // which may be this domain
    bool const below = by.isBoundedBelow() && extend(by.low_);
    bool const above = by.isBoundedAbove() && extend(by.high_);
    return below || above;
}

bool Gk_Domain::expand(double by) noexcept {
    if (isBoundedBelow())
        low_ -= by;
    if (isBoundedAbove())
        high_ += by;
    return true;
}

void Gk_Domain::swapEnds() noexcept {
    std::swap(low_, high_);
    if (endCondn_ == BoundedBelow)
        endCondn_ = BoundedAbove;
    else if (endCondn_ == BoundedAbove)
        endCondn_ = BoundedBelow;
}

Gk_Domain Gk_Domain::operator-() const noexcept {
    Gk_Domain result(endCondn_, -low_, -high_, tol_);
    result.swapEnds();
    return result;
}

void Gk_Domain::apply(Gk_LinMap const& m) noexcept {
    if (isBoundedBelow())
        low_ = m.apply(low_);
    if (isBoundedAbove())
        high_ = m.apply(high_);
    tol_ *= m.slope();
    if (m.isNegate()) {
        tol_ = -tol_;
        swapEnds();
    }
}

Gk_LinMap Gk_Domain::mapTo(Gk_Domain const& d) const noexcept {
    double const slope = (d.high_ - d.low_) / (high_ - low_);
    return Gk_LinMap(slope, d.low_ - slope * low_);
}

double Gk_Domain::principalParam(double x) const noexcept {
    constexpr double kMostSteps = 1e6;
    if (!isFinite() || !std::isfinite(x))
        return x;
    double const period = high_ - low_;
    if (!(period > 0.0))
        return low_;
    if (std::fabs(x - low_) > kMostSteps * period)
        x = low_ + std::fmod(x - low_, period);
    // A period too short to change x leaves it where it is.
    while (x > high_ && x - period < x)
        x -= period;
    while (!Gk_Func::lesseq(low_, x, Gk_Def::FuzzReal) && x + period > x)
        x += period;
    return x < low_ ? low_ : x;
}

double Gk_Domain::stick(double x) const noexcept {
    if (isLow(x) || x < low_)
        return low_;
    return isHigh(x) || x > high_ ? high_ : x;
}

Gk_Domain Gk_Domain::intersection(Gk_Domain const& d) const noexcept {
    return Gk_Domain(isContained(d.low_) ? d.low_ : low_, isContained(d.high_) ? d.high_ : high_, Gk_Def::FuzzReal);
}

void Gk_Domain::dump(KOVAStreamFormatter& formatter) const {
    formatter << "Domain"
              << "( " << low_ << ", " << high_ << ")";
}

KOVAStreamFormatter& operator<<(KOVAStreamFormatter& out, Gk_Domain const& domain) {
    domain.dump(out);
    return out;
}
