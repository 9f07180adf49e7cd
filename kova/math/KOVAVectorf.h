#pragma once

#include <cmath>

#include <kova/core/export.h>
#include <kova/math/KOVAMathConstants.h>

class KOVADirectionf;
class KOVAMath3x3Matrixf;
class KOVAPointf;

/// A free vector of three floats. Sums of products are formed in double and rounded once.
///
///     KOVAVectorf normal = KOVAVectorf(a, b) ^ KOVAVectorf(a, c);
///     normal.Normalize();
///
/// Hazard: arrays that are passed hold three floats; that is not checked.
class KOVA_API KOVAVectorf {
public:
    constexpr KOVAVectorf() noexcept : x_(0.0F), y_(0.0F), z_(0.0F) {}
    constexpr KOVAVectorf(float x, float y, float z) noexcept : x_(x), y_(y), z_(z) {}
    explicit constexpr KOVAVectorf(float const* xyz) noexcept : x_(xyz[0]), y_(xyz[1]), z_(xyz[2]) {}
    KOVAVectorf(KOVADirectionf const& direction) noexcept;              // in KOVADirectionf.h
    KOVAVectorf(KOVAPointf const& from, KOVAPointf const& to) noexcept; // in KOVAPointf.h

    constexpr float x() const noexcept { return x_; }
    constexpr float y() const noexcept { return y_; }
    constexpr float z() const noexcept { return z_; }
    void GetCoord(float& x, float& y, float& z) const noexcept {
        x = x_;
        y = y_;
        z = z_;
    }
    void GetCoord(float* const xyz) const noexcept { GetCoord(xyz[0], xyz[1], xyz[2]); }
    void SetCoord(float x, float y, float z) noexcept { *this = KOVAVectorf(x, y, z); }
    void SetCoord(float const* const xyz) noexcept { *this = KOVAVectorf(xyz); }

    float Norm() const noexcept { return static_cast<float>(std::sqrt(dot(*this))); }

    /// Callers depend on a vector that is shorter than 1e-7 (its square below 1e-14) becoming the x axis.
    void Normalize() noexcept {
        double const square = dot(*this);
        if (square >= kSmallest) {
            double const length = std::sqrt(square);
            SetCoord(static_cast<float>(x_ / length), static_cast<float>(y_ / length), static_cast<float>(z_ / length));
        } else {
            SetCoord(1.0F, 0.0F, 0.0F);
        }
    }

    /// In radians, 0 to pi; 0 where either vector is shorter than 1e-14.
    float AngleTo(KOVAVectorf const& v) const noexcept { return static_cast<float>(angle(v, nullptr)); }
    /// Turning about the reference: above 0, to 2 pi. Callers depend on parallel vectors giving 2 pi, not 0.
    float AngleTo(KOVAVectorf const& v, KOVAVectorf const& reference) const noexcept {
        return static_cast<float>(angle(v, &reference));
    }

    constexpr KOVAVectorf operator-() const noexcept { return KOVAVectorf(-x_, -y_, -z_); }
    friend constexpr KOVAVectorf operator+(KOVAVectorf const& a, KOVAVectorf const& b) noexcept {
        return KOVAVectorf(a.x_ + b.x_, a.y_ + b.y_, a.z_ + b.z_);
    }
    friend constexpr KOVAVectorf operator-(KOVAVectorf const& a, KOVAVectorf const& b) noexcept {
        return KOVAVectorf(a.x_ - b.x_, a.y_ - b.y_, a.z_ - b.z_);
    }
    friend constexpr KOVAVectorf operator*(KOVAVectorf const& v, float s) noexcept {
        return KOVAVectorf(v.x_ * s, v.y_ * s, v.z_ * s);
    }
    friend constexpr KOVAVectorf operator*(float s, KOVAVectorf const& v) noexcept { return v * s; }
    friend constexpr KOVAVectorf operator/(KOVAVectorf const& v, float s) noexcept {
        return KOVAVectorf(v.x_ / s, v.y_ / s, v.z_ / s);
    }
    /// The dot product.
    friend constexpr float operator*(KOVAVectorf const& a, KOVAVectorf const& b) noexcept {
        return static_cast<float>(a.dot(b));
    }
    /// The cross product.
    friend constexpr KOVAVectorf operator^(KOVAVectorf const& a, KOVAVectorf const& b) noexcept {
        Cross const cross(a, b);
        return KOVAVectorf(static_cast<float>(cross.x), static_cast<float>(cross.y), static_cast<float>(cross.z));
    }
    // The outer product, v % w, is in KOVAMath3x3Matrixf.h; v + point in KOVAPointf.h.

private:
    static constexpr double kSmallest = 1e-14F; // the float nearest to 1e-14

    /// Exact products of floats, subtracted in double.
    struct Cross {
        constexpr Cross(KOVAVectorf const& a, KOVAVectorf const& b) noexcept
            : x(double{a.y_} * b.z_ - double{a.z_} * b.y_), y(double{a.z_} * b.x_ - double{a.x_} * b.z_),
              z(double{a.x_} * b.y_ - double{a.y_} * b.x_) {}
        double x, y, z;
    };

    constexpr double dot(KOVAVectorf const& v) const noexcept {
        return double{x_} * v.x_ + double{y_} * v.y_ + double{z_} * v.z_;
    }

    double angle(KOVAVectorf const& v, KOVAVectorf const* reference) const noexcept {
        if (!(std::sqrt(dot(*this)) >= kSmallest && std::sqrt(v.dot(v)) >= kSmallest))
            return 0.0;
        Cross const cross(*this, v);
        double const size = std::sqrt(cross.x * cross.x + cross.y * cross.y + cross.z * cross.z);
        double const unsignedAngle = std::atan2(size, dot(v));
        if (!reference || cross.x * reference->x_ + cross.y * reference->y_ + cross.z * reference->z_ > 0.0)
            return unsignedAngle;
        return KOVA2PI - unsignedAngle;
    }

    float x_, y_, z_;
};

inline constexpr KOVAVectorf KOVAVectorIf(1.0F, 0.0F, 0.0F);
inline constexpr KOVAVectorf KOVAVectorJf(0.0F, 1.0F, 0.0F);
inline constexpr KOVAVectorf KOVAVectorKf(0.0F, 0.0F, 1.0F);
inline constexpr KOVAVectorf KOVANullVectorf(0.0F, 0.0F, 0.0F);
