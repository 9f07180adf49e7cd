#pragma once

#include <kova/core/export.h>
#include <kova/math/KOVAPointf.h>
#include <kova/math/KOVAVectorf.h>

/// A vector of length 1: whatever it is made from is normalised. Callers depend on a null vector giving the
/// x axis. A direction that a matrix transforms is not normalised again.
class KOVA_API KOVADirectionf {
public:
    constexpr KOVADirectionf() noexcept : v_(1.0F, 0.0F, 0.0F) {}
    KOVADirectionf(float x, float y, float z) noexcept : v_(x, y, z) { Normalize(); }
    /// Hazard: the array holds three floats; that is not checked.
    explicit KOVADirectionf(float const* xyz) noexcept : v_(xyz) { Normalize(); }
    KOVADirectionf(KOVAVectorf const& v) noexcept : v_(v) { Normalize(); }
    KOVADirectionf(KOVAPointf const& from, KOVAPointf const& to) noexcept : v_(from, to) { Normalize(); }

    /// The axis 0, 1 or 2 as a constant.
    static constexpr KOVADirectionf Axis(int axis) noexcept {
        return KOVADirectionf(KOVAVectorf(axis == 0 ? 1.0F : 0.0F, axis == 1 ? 1.0F : 0.0F, axis == 2 ? 1.0F : 0.0F),
                              AsIs());
    }

    constexpr float x() const noexcept { return v_.x(); }
    constexpr float y() const noexcept { return v_.y(); }
    constexpr float z() const noexcept { return v_.z(); }
    void Normalize() noexcept { v_.Normalize(); }

    constexpr KOVADirectionf operator-() const noexcept { return KOVADirectionf(-v_, AsIs()); }
    // Cross products, which are not normalised.
    friend constexpr KOVAVectorf operator^(KOVADirectionf const& a, KOVADirectionf const& b) noexcept {
        return a.v_ ^ b.v_;
    }
    friend constexpr KOVAVectorf operator^(KOVADirectionf const& a, KOVAVectorf const& b) noexcept { return a.v_ ^ b; }
    friend constexpr KOVAVectorf operator^(KOVAVectorf const& a, KOVADirectionf const& b) noexcept { return a ^ b.v_; }
    friend constexpr KOVAVectorf operator*(KOVADirectionf const& d, float s) noexcept { return d.v_ * s; }
    friend constexpr KOVAVectorf operator*(float s, KOVADirectionf const& d) noexcept { return d.v_ * s; }

private:
    friend class KOVA4x4Matrix;
    friend class KOVAVectorf;

    struct AsIs {};
    constexpr KOVADirectionf(KOVAVectorf const& v, AsIs /*tag*/) noexcept : v_(v) {}

    KOVAVectorf v_;
};

inline KOVAVectorf::KOVAVectorf(KOVADirectionf const& direction) noexcept : KOVAVectorf(direction.v_) {}

inline constexpr KOVADirectionf KOVAMathIf = KOVADirectionf::Axis(0);
inline constexpr KOVADirectionf KOVAMathJf = KOVADirectionf::Axis(1);
inline constexpr KOVADirectionf KOVAMathKf = KOVADirectionf::Axis(2);
