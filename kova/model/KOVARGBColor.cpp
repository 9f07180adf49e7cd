#include <kova/model/KOVARGBColor.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

#include <kova/options/KOVAValue.h>

static_assert(sizeof(void*) != 4 || sizeof(KOVARGBColor) == 24);

namespace {

/// A component from its number from 0 to 255.
float component(unsigned int number) {
    return static_cast<float>(number) * 0.003921569F;
}

unsigned int number(float component) {
    constexpr double kMost = std::numeric_limits<std::uint32_t>::max();
    double const scaled = component * 255.0;
    return scaled > 0.0 ? static_cast<unsigned int>(std::min(scaled, kMost)) : 0U;
}

bool inRange(float component) {
    return component >= 0.0F && component <= 1.0F;
}

bool alike(float a, float b) {
    return std::fabs(a - b) < 0.0001F;
}

} // namespace

void KOVARGBColor::set(float r, float g, float b, float a) noexcept {
    red_ = r;
    green_ = g;
    blue_ = b;
    alpha_ = a;
    valid_ = inRange(red_) && inRange(green_) && inRange(blue_) && inRange(alpha_);
}

bool KOVARGBColor::IsValid() const {
    return valid_;
}

void KOVARGBColor::SetRGB(unsigned int r, unsigned int g, unsigned int b, unsigned int a) {
    set(component(r), component(g), component(b), component(a));
}

void KOVARGBColor::SetRGBA(float* rgba) {
    if (rgba)
        set(rgba[0], rgba[1], rgba[2], rgba[3]);
}

void KOVARGBColor::SetRGBA(unsigned int* rgba) {
    if (rgba)
        KOVARGBColor::SetRGB(rgba[0], rgba[1], rgba[2], rgba[3]);
}

void KOVARGBColor::GetRGBA(float* out4) const {
    if (out4)
        KOVARGBColor::GetRGBA(out4[0], out4[1], out4[2], out4[3]);
}

void KOVARGBColor::GetRGBA(unsigned int* out4) const {
    if (!out4)
        return;
    out4[0] = number(red_);
    out4[1] = number(green_);
    out4[2] = number(blue_);
    out4[3] = number(alpha_);
}

void KOVARGBColor::GetRGBA(float& r, float& g, float& b, float& a) const {
    r = red_;
    g = green_;
    b = blue_;
    a = alpha_;
}

void KOVARGBColor::GetRGB(float* out3) const {
    float alpha = 0.0F;
    if (out3)
        KOVARGBColor::GetRGBA(out3[0], out3[1], out3[2], alpha);
}

bool KOVARGBColor::operator==(KOVARGBColor const& other) const noexcept {
    return alike(red_, other.red_) && alike(green_, other.green_) && alike(blue_, other.blue_) &&
           alike(alpha_, other.alpha_);
}

bool KOVARGBColor::operator!=(KOVARGBColor const& other) const noexcept {
    return valid_ != other.valid_ || !alike(red_, other.red_) || !alike(green_, other.green_) ||
           !alike(blue_, other.blue_) || !alike(red_, other.alpha_);
}

unsigned int KOVARGBColor::hashCode() const noexcept {
    // As that of a double: its integer part, mixed.
    return KOVAValue(red_ + 7.0 * green_ + 13.0 * blue_ + 17.0 * alpha_).GetHashCode();
}
