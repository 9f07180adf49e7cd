#pragma once

#include <kova/core/export.h>
#include <kova/math/Gk_Func.h>
#include <kova/text/Gk_ROString.h>
#include <kova/text/Gk_String.h>

/// A length unit of the older layer: a size in millimetres and a name.
///
///     double const inMillimetres = length * Gk_Unit::inch.mapTo(Gk_Unit::mm);
class KOVA_API Gk_Unit {
public:
    static const Gk_Unit mm;    ///< 1 millimetre
    static const Gk_Unit cm;    ///< 10
    static const Gk_Unit deci;  ///< "decimeter", 100
    static const Gk_Unit meter; ///< 1000
    static const Gk_Unit km;    ///< 1000000
    static const Gk_Unit micr;  ///< "micron", 0.001
    static const Gk_Unit mils;  ///< 0.0254
    static const Gk_Unit uinch; ///< "microinch", 0.0000254
    static const Gk_Unit inch;  ///< 25.4
    static const Gk_Unit foot;  ///< 12 inches
    static const Gk_Unit yard;  ///< 36 inches
    static const Gk_Unit mile;  ///< 63360 inches

    /// Not set: size -1.0, "unset".
    Gk_Unit() : Gk_Unit("unset", -1.0) {}
    Gk_Unit(char const* name, double millimetres) : size_(millimetres), name_(name) {}

    /// The size in millimetres.
    double getValue() const noexcept { return size_; }
    Gk_ROString getName() const { return name_.dataStr(); }

    /// What a length in this unit is multiplied by to be in the other one. Not guarded against a size of 0.
    double mapTo(Gk_Unit const& other) const noexcept { return size_ / other.size_; }

    /// The sizes are equal to within 1e-10; the names are not compared.
    bool operator==(Gk_Unit const& other) const noexcept;
    /// It has a size above 0 and another name than "unset".
    bool IsSet() const;

private:
    constexpr Gk_Unit(KOVAArrayHeader& name, double millimetres) noexcept : size_(millimetres), name_(&name) {}

    double size_;
    Gk_String name_;
};
