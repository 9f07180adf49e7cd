#pragma once

#include <cmath>
#include <cstdint>

#include <kova/core/export.h>

class KOVAMorph;
class KOVAStreamFormatter;

/// Up to three doubles that know how many they are; base of the points of two and of three dimensions, which
/// serve as vectors too. An operation on points of different dimensions reports a failed assertion and goes
/// on with the smaller one.
///
/// Callers depend on an index being clamped: p[-1] is p[0], and p[7] is the last coordinate.
class KOVA_API KOVAPoint {
public:
    /// At the origin; a dimension below 0 or above 3 becomes 0 or 3.
    explicit KOVAPoint(int dimension) noexcept : dimension_(dimension < 0 ? 0 : dimension > 3 ? 3 : dimension) {}
    KOVAPoint(KOVAPoint const&) = default;
    virtual ~KOVAPoint() = default;

#if KOVA_OVERLOADS_REVERSED
    virtual double& operator[](int i);
    virtual double operator[](int i) const;
#else
    virtual double operator[](int i) const;
    virtual double& operator[](int i);
#endif
    virtual double Length() const;
    virtual void Negate();
    virtual void Multiply(double s);
    /// Not guarded against 0, which gives infinities.
    virtual void Divide(double s);
    virtual void Substract(KOVAPoint const& other);
    virtual void Add(KOVAPoint const& other);
    /// Copies the coordinates, not the dimension, to `out`.
    virtual void CopyIn(KOVAPoint& out) const;
    /// Each coordinate, followed by a blank.
    virtual void Dump(KOVAStreamFormatter& formatter) const;

    int GetDimension() const noexcept {
        return dimension_;
    }
    double DistanceTo(KOVAPoint const& other) const;
    /// No coordinate differs by more than the tolerance, whose sign does not count. A difference that is
    /// exactly the tolerance, or not a number, passes.
    bool IsWithinTolerance(KOVAPoint const& other, double tolerance) const;
    /// With a tolerance for each coordinate. A safe point for requests to abort.
    bool IsWithinTolerance(KOVAPoint const& other, KOVAPoint const& tolerances) const;

protected:
    /// The coordinates, not the dimension.
    KOVAPoint& operator=(KOVAPoint const& other) noexcept {
        for (int i = 0; i < 3; ++i)
            coordinates_[i] = other.coordinates_[i];
        return *this;
    }
    static void dumpNumber(KOVAStreamFormatter& formatter, double value);

    double coordinates_[3] = {};
    std::int32_t const dimension_;

private:
    friend KOVAMorph;
    int commonDimension(KOVAPoint const& other) const;
    bool isWithin(KOVAPoint const& other, KOVAPoint const& tolerances) const;
};

KOVA_API KOVAStreamFormatter& operator<<(KOVAStreamFormatter& out, KOVAPoint const& point);

namespace kova::detail {

/// The arithmetic of points of N dimensions, which compilers unroll.
template <class Point, int N> class PointArithmetic : public KOVAPoint {
public:
    Point Copy() const { return self(); }
    Point operator-() const {
        Point result(self());
        result.Point::Negate();
        return result;
    }
    Point& operator+=(Point const& other) {
        for (int i = 0; i < N; ++i)
            coordinates_[i] += other.coordinates_[i];
        return self();
    }
    Point& operator-=(Point const& other) {
        for (int i = 0; i < N; ++i)
            coordinates_[i] -= other.coordinates_[i];
        return self();
    }
    Point& operator*=(double s) {
        for (int i = 0; i < N; ++i)
            coordinates_[i] *= s;
        return self();
    }
    Point& operator/=(double s) {
        for (int i = 0; i < N; ++i)
            coordinates_[i] /= s;
        return self();
    }
    void Shift(Point const& by) { self() += by; }

    friend Point operator+(Point const& a, Point const& b) { return Point(a) += b; }
    friend Point operator-(Point const& a, Point const& b) { return Point(a) -= b; }
    friend Point operator*(Point const& a, double s) { return Point(a) *= s; }
    friend Point operator*(double s, Point const& a) { return Point(a) *= s; }
    friend Point operator/(Point const& a, double s) { return Point(a) /= s; }
    /// The dot product.
    friend double operator*(Point const& a, Point const& b) { return product(a, b); }

protected:
    PointArithmetic() noexcept : KOVAPoint(N) {}

    double dot(Point const& other) const {
        double sum = coordinates_[0] * other.coordinates_[0];
        for (int i = 1; i < N; ++i)
            sum += coordinates_[i] * other.coordinates_[i];
        return sum;
    }

private:
    static double product(Point const& a, Point const& b) { return a.dot(b); }
    Point& self() noexcept { return static_cast<Point&>(*this); }
    Point const& self() const noexcept { return static_cast<Point const&>(*this); }
};

} // namespace kova::detail
