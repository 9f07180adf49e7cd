#include <kova/math/KOVAPoint.h>

#include <algorithm>

#include <kova/core/Gk_ErrMgr.h>
#include <kova/stream/KOVAStreamFormatter.h>

static_assert(sizeof(void*) != 4 || sizeof(KOVAPoint) == 40);

double KOVAPoint::operator[](int i) const {
    return coordinates_[std::max(std::min(i, dimension_ - 1), 0)];
}

double& KOVAPoint::operator[](int i) {
    return coordinates_[std::max(std::min(i, dimension_ - 1), 0)];
}

double KOVAPoint::Length() const {
    double sum = 0.0;
    for (int i = 0; i < dimension_; ++i)
        sum += coordinates_[i] * coordinates_[i];
    return std::sqrt(sum);
}

void KOVAPoint::Negate() {
    for (int i = 0; i < dimension_; ++i)
        coordinates_[i] = -coordinates_[i];
}

void KOVAPoint::Multiply(double s) {
    for (int i = 0; i < dimension_; ++i)
        coordinates_[i] *= s;
}

void KOVAPoint::Divide(double s) {
    for (int i = 0; i < dimension_; ++i)
        coordinates_[i] /= s;
}

int KOVAPoint::commonDimension(KOVAPoint const& other) const {
    if (dimension_ != other.dimension_)
        Gk_ErrMgr::doAssert(__FILE__, __LINE__);
    return std::min(dimension_, other.dimension_);
}

void KOVAPoint::Substract(KOVAPoint const& other) {
    int const dimension = commonDimension(other);
    for (int i = 0; i < dimension; ++i)
        coordinates_[i] -= other.coordinates_[i];
}

void KOVAPoint::Add(KOVAPoint const& other) {
    int const dimension = commonDimension(other);
    for (int i = 0; i < dimension; ++i)
        coordinates_[i] += other.coordinates_[i];
}

void KOVAPoint::CopyIn(KOVAPoint& out) const {
    std::copy_n(coordinates_, commonDimension(out), out.coordinates_);
}

void KOVAPoint::dumpNumber(KOVAStreamFormatter& formatter, double value) {
    formatter << value << formatter.blank;
}

void KOVAPoint::Dump(KOVAStreamFormatter& formatter) const {
    for (int i = 0; i < dimension_; ++i)
        dumpNumber(formatter, coordinates_[i]);
}

KOVAStreamFormatter& operator<<(KOVAStreamFormatter& out, KOVAPoint const& point) {
    point.Dump(out);
    return out;
}

double KOVAPoint::DistanceTo(KOVAPoint const& other) const {
    int const dimension = commonDimension(other);
    double sum = 0.0;
    for (int i = 0; i < dimension; ++i) {
        double const difference = coordinates_[i] - other.coordinates_[i];
        sum += difference * difference;
    }
    return std::sqrt(sum);
}

bool KOVAPoint::isWithin(KOVAPoint const& other, KOVAPoint const& tolerances) const {
    int const dimension = commonDimension(other);
    for (int i = 0; i < dimension; ++i) {
        if (std::fabs(coordinates_[i] - other.coordinates_[i]) > std::fabs(tolerances[i]))
            return false;
    }
    return true;
}

bool KOVAPoint::IsWithinTolerance(KOVAPoint const& other, double tolerance) const {
    KOVAPoint tolerances(1); // its one coordinate stands for all
    tolerances.coordinates_[0] = tolerance;
    return isWithin(other, tolerances);
}

bool KOVAPoint::IsWithinTolerance(KOVAPoint const& other, KOVAPoint const& tolerances) const {
    Gk_ErrMgr::checkAbort();
    return isWithin(other, tolerances);
}
