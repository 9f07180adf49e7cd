#include <kova/model/KOVACamera.h>

#include <algorithm>
#include <cmath>

static_assert(sizeof(void*) != 4 || sizeof(KOVACamera) == 64);

namespace {

void copy(float const* from, float* to) {
    if (from && to)
        std::copy_n(from, 3, to);
}

} // namespace

KOVACamera::KOVACamera(KOVACameraType type, float const* position, float const* target, float const* zenith,
                       float angle, float zoom) noexcept
    : type_(type), angle_(angle), zoom_(zoom) {
    copy(position, position_);
    copy(target, target_);
    copy(zenith, zenith_);
    double const x = double{target_[0]} - position_[0];
    double const y = double{target_[1]} - position_[1];
    double const z = double{target_[2]} - position_[2];
    double const length = std::sqrt(x * x + y * y + z * z);
    direction_[0] = static_cast<float>(x / length);
    direction_[1] = static_cast<float>(y / length);
    direction_[2] = static_cast<float>(z / length);
}

KOVACameraType KOVACamera::GetType() const {
    return type_;
}

void KOVACamera::GetPosition(float* out3) const {
    copy(position_, out3);
}

void KOVACamera::GetTarget(float* out3) const {
    copy(target_, out3);
}

void KOVACamera::GetDirection(float* out3) const {
    copy(direction_, out3);
}

void KOVACamera::GetZenith(float* out3) const {
    copy(zenith_, out3);
}

void KOVACamera::GetAngle(float /*angle*/) const {}

void KOVACamera::GetZoom(float /*zoom*/) const {}
