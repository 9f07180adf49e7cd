#pragma once

#include <cmath>

#include <kova/core/export.h>
#include <kova/math/KOVAVectorf.h>

/// A position of three floats; distances are formed in double and rounded once.
/// Hazard: arrays that are passed hold three floats; that is not checked.
class KOVA_API KOVAPointf {
public:
    constexpr KOVAPointf() noexcept : x_(0.0F), y_(0.0F), z_(0.0F) {}
    constexpr KOVAPointf(float x, float y, float z) noexcept : x_(x), y_(y), z_(z) {}
    explicit constexpr KOVAPointf(float const* xyz) noexcept : x_(xyz[0]), y_(xyz[1]), z_(xyz[2]) {}

    constexpr float x() const noexcept { return x_; }
    constexpr float y() const noexcept { return y_; }
    constexpr float z() const noexcept { return z_; }
    void GetValue(float* xyz) const noexcept {
        xyz[0] = x_;
        xyz[1] = y_;
        xyz[2] = z_;
    }

    float DistanceTo(KOVAPointf const& p) const noexcept {
        double const dx = double{x_} - p.x_;
        double const dy = double{y_} - p.y_;
        double const dz = double{z_} - p.z_;
        return static_cast<float>(std::sqrt(dx * dx + dy * dy + dz * dz));
    }
    /// The sum of the absolute differences.
    float DistanceL1To(KOVAPointf const& p) const noexcept {
        return static_cast<float>(std::fabs(double{x_} - p.x_) + std::fabs(double{y_} - p.y_) +
                                  std::fabs(double{z_} - p.z_));
    }

    // Each component becomes the smaller or the larger of the two: how boxes grow. A not-a-number of p
    // changes nothing.
    void GetMinimum(KOVAPointf const& p) noexcept {
        x_ = p.x_ < x_ ? p.x_ : x_;
        y_ = p.y_ < y_ ? p.y_ : y_;
        z_ = p.z_ < z_ ? p.z_ : z_;
    }
    void GetMaximum(KOVAPointf const& p) noexcept {
        x_ = p.x_ > x_ ? p.x_ : x_;
        y_ = p.y_ > y_ ? p.y_ : y_;
        z_ = p.z_ > z_ ? p.z_ : z_;
    }

    friend constexpr KOVAPointf operator+(KOVAPointf const& p, KOVAVectorf const& v) noexcept {
        return KOVAPointf(p.x_ + v.x(), p.y_ + v.y(), p.z_ + v.z());
    }
    friend constexpr KOVAPointf operator+(KOVAVectorf const& v, KOVAPointf const& p) noexcept { return p + v; }
    friend constexpr KOVAPointf operator-(KOVAPointf const& p, KOVAVectorf const& v) noexcept {
        return KOVAPointf(p.x_ - v.x(), p.y_ - v.y(), p.z_ - v.z());
    }
    friend constexpr KOVAVectorf operator-(KOVAPointf const& a, KOVAPointf const& b) noexcept {
        return KOVAVectorf(a.x_ - b.x_, a.y_ - b.y_, a.z_ - b.z_);
    }
    // Callers depend on the comparison having no tolerance.
    friend constexpr bool operator==(KOVAPointf const& a, KOVAPointf const& b) noexcept {
        return a.x_ == b.x_ && a.y_ == b.y_ && a.z_ == b.z_;
    }
    friend constexpr bool operator!=(KOVAPointf const& a, KOVAPointf const& b) noexcept { return !(a == b); }

private:
    float x_, y_, z_;
};

inline KOVAVectorf::KOVAVectorf(KOVAPointf const& from, KOVAPointf const& to) noexcept : KOVAVectorf(to - from) {}

inline constexpr KOVAPointf KOVAPointOf(0.0F, 0.0F, 0.0F);
