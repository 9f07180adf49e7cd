#pragma once

#include <cstdint>

#include <kova/core/export.h>

/// Kinds of camera. Other values are passed through.
enum KOVACameraType : std::int32_t { KOVA_CAMERA_DEFAULT = 2 };

/// The viewpoint that travels with a model. Arrays are three floats each, which is not checked; an array that
/// is null stands for the default camera's, and as an output is ignored.
class KOVA_API KOVACamera {
public:
    /// From (1, 1, 1) to the origin, with z up, an angle of 45 and a zoom of 1. Callers depend on its direction
    /// being (-1, -1, -1), which is not of unit length.
    KOVACamera() noexcept = default;
    /// The direction is the unit vector from the position to the target. Callers depend on a camera that looks
    /// at its own position having no number in its direction. The zenith is kept as it is.
    KOVACamera(KOVACameraType type, float const* position, float const* target, float const* zenith, float angle,
               float zoom) noexcept;

    virtual KOVACameraType GetType() const;
    virtual void GetPosition(float* out3) const;
    virtual void GetTarget(float* out3) const;
    virtual void GetDirection(float* out3) const;
    virtual void GetZenith(float* out3) const;
    // Callers depend on these doing nothing: the angle and the zoom cannot be read.
    virtual void GetAngle(float angle) const;
    virtual void GetZoom(float zoom) const;

private:
    KOVACameraType type_ = KOVA_CAMERA_DEFAULT;
    float position_[3] = {1.0F, 1.0F, 1.0F};
    float target_[3] = {0.0F, 0.0F, 0.0F};
    float direction_[3] = {-1.0F, -1.0F, -1.0F};
    float zenith_[3] = {0.0F, 0.0F, 1.0F};
    [[maybe_unused]] float angle_ = 45.0F;
    [[maybe_unused]] float zoom_ = 1.0F;
};
