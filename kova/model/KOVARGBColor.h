#pragma once

#include <type_traits>

#include <kova/core/export.h>

/// A colour: red, green, blue and alpha, each from 0 to 1.
///
///     KOVARGBColor const orange(255, 128, 0, 255);
///     float rgba[4];
///     orange.GetRGBA(rgba);
///
/// Every constructor from components and every setter decides whether the colour is valid: all four are from
/// 0 to 1. Callers depend on a default colour, all 0, being invalid. Null arrays are ignored. Hazard: arrays
/// hold four components, three for GetRGB; that is not checked.
class KOVA_API KOVARGBColor {
    template <class... T> using Component = std::conditional_t<(std::is_integral_v<T> && ...), unsigned int, float>;

public:
    /// All 0, and invalid.
    KOVARGBColor() noexcept = default;
    KOVARGBColor(float r, float g, float b, float a) noexcept { set(r, g, b, a); }
    /// From 0 to 255; more makes the colour invalid.
    KOVARGBColor(unsigned int r, unsigned int g, unsigned int b, unsigned int a) noexcept {
        KOVARGBColor::SetRGB(r, g, b, a);
    }
    /// Here for literals: four integers are the form to 255, anything else the form to 1.
    template <class R, class G, class B, class A,
              class = std::enable_if_t<std::is_arithmetic_v<R> && std::is_arithmetic_v<G> && std::is_arithmetic_v<B> &&
                                       std::is_arithmetic_v<A>>>
    KOVARGBColor(R r, G g, B b, A a) noexcept
        : KOVARGBColor(static_cast<Component<R, G, B, A>>(r), static_cast<Component<R, G, B, A>>(g),
                       static_cast<Component<R, G, B, A>>(b), static_cast<Component<R, G, B, A>>(a)) {}

    virtual bool IsValid() const;

    /// Callers depend on alpha being taken too. From 0 to 255, as unsigned arrays are.
    virtual void SetRGB(unsigned int r, unsigned int g, unsigned int b, unsigned int a);
#if KOVA_OVERLOADS_REVERSED
    virtual void SetRGBA(unsigned int* rgba);
    virtual void SetRGBA(float* rgba);
    virtual void GetRGBA(float& r, float& g, float& b, float& a) const;
    virtual void GetRGBA(unsigned int* out4) const;
    virtual void GetRGBA(float* out4) const;
#else
    virtual void SetRGBA(float* rgba);
    virtual void SetRGBA(unsigned int* rgba);
    virtual void GetRGBA(float* out4) const;
    /// 255 times each, without its fraction: 0.5 gives 127. What is below 0 or not a number gives 0.
    virtual void GetRGBA(unsigned int* out4) const;
    virtual void GetRGBA(float& r, float& g, float& b, float& a) const;
#endif
    virtual void GetRGB(float* out3) const;

    /// Each component to less than 0.0001. Callers depend on the validity not being compared.
    bool operator==(KOVARGBColor const& other) const noexcept;
    /// Callers depend on this not being the opposite of ==: the validity is compared, and where the alphas
    /// should be, the other's alpha is compared with this red.
    bool operator!=(KOVARGBColor const& other) const noexcept;

    /// These numbers are compatible with those of other builds.
    unsigned int hashCode() const noexcept;

private:
    void set(float r, float g, float b, float a) noexcept;

    float red_ = 0.0F;
    float green_ = 0.0F;
    float blue_ = 0.0F;
    float alpha_ = 0.0F;
    bool valid_ = false;
};
