#pragma once

#include <cmath>

#include <kova/core/export.h>
#include <kova/math/KOVAPoint.h>

namespace kova::detail {

/// What the weighted points of both dimensions share. The stored coordinates are the weighted ones. Arithmetic
/// and length include the weight; tolerances, distances and Negate do not, and a point without weight counts
/// as of weight 0.
template <class Self, class Point, int N> class WeightPointArithmetic : public PointArithmetic<Self, N> {
    using Base = PointArithmetic<Self, N>;
    friend Base;

public:
    double Length() const override { return std::sqrt(dot(*this)); }
    void Multiply(double s) override { *this *= s; }
    void Divide(double s) override { *this /= s; }
    void Substract(KOVAPoint const& other) override {
        double const weight = weightOf(other);
        KOVAPoint::Substract(other);
        weight_ -= weight;
    }
    void Add(KOVAPoint const& other) override {
        double const weight = weightOf(other);
        KOVAPoint::Add(other);
        weight_ += weight;
    }
    /// The weight too, where `out` has one.
    void CopyIn(KOVAPoint& out) const override {
        KOVAPoint::CopyIn(out);
        if (auto* const weighted = dynamic_cast<Self*>(&out))
            weighted->weight_ = weight_;
    }
    /// The weight after the coordinates.
    void Dump(KOVAStreamFormatter& formatter) const override {
        KOVAPoint::Dump(formatter);
        this->dumpNumber(formatter, weight_);
    }

    Self& operator+=(Self const& other) {
        weight_ += other.weight_;
        return Base::operator+=(other);
    }
    Self& operator-=(Self const& other) {
        weight_ -= other.weight_;
        return Base::operator-=(other);
    }
    Self& operator*=(double s) {
        weight_ *= s;
        return Base::operator*=(s);
    }
    Self& operator/=(double s) {
        weight_ /= s;
        return Base::operator/=(s);
    }

    double GetWeight() const noexcept { return weight_; }
    /// The stored coordinates stay.
    void SetWeight(double weight) noexcept { weight_ = weight; }
    Point GetWeightedCoords() const {
        Point result;
        KOVAPoint::CopyIn(result);
        return result;
    }
    void SetWeightedCoords(Point const& p) { p.CopyIn(*this); }
    /// Divided by the weight, which is not guarded against 0.
    Point GetCoords() const { return GetWeightedCoords() / weight_; }

protected:
    explicit WeightPointArithmetic(double weight) noexcept : weight_(weight) {}
    WeightPointArithmetic(Point const& p, double weight, bool multiply) : weight_(weight) {
        SetWeightedCoords(multiply && weight != 1.0 ? p * weight : p);
    }

    double dot(WeightPointArithmetic const& other) const {
        double sum = 0.0;
        for (int i = 0; i < N; ++i)
            sum += this->coordinates_[i] * other.coordinates_[i];
        return sum + weight_ * other.weight_;
    }

private:
    static double weightOf(KOVAPoint const& point) noexcept {
        auto const* const weighted = dynamic_cast<Self const*>(&point);
        return weighted ? weighted->weight_ : 0.0;
    }

    double weight_;
};

} // namespace kova::detail
