#pragma once

#include <cstdint>

#include <kova/core/export.h>
#include <kova/public/KOVIObject.h>

/// The length units, with the numbers of KOVAUnit.
enum KOVIUnitValue : std::int32_t {
    KOVI_UNIT_UNKNOWN = 0,
    KOVI_UNIT_MODELUNIT = 1, ///< whatever unit the model is in
    KOVI_UNIT_NANOMETER = 2,
    KOVI_UNIT_MICROMETER = 3,
    KOVI_UNIT_MILLIMETER = 4,
    KOVI_UNIT_CENTIMETER = 5,
    KOVI_UNIT_DECIMETER = 6,
    KOVI_UNIT_METER = 7,
    KOVI_UNIT_INCH = 8,
    KOVI_UNIT_FOOT = 9,
    KOVI_UNIT_MILE = 10,
    KOVI_UNIT_KM = 11,
    KOVI_UNIT_MILLIINCH = 12,
    KOVI_UNIT_MICROINCH = 13
};

/// A length unit.
///
///     KOVIUnit const unit(argument);
///     if (!unit.IsValid())
///         ...                        // that is no unit
class KOVA_API KOVIUnit : public KOVIObject {
public:
    /// Valid, and unknown.
    KOVIUnit();
    /// Not valid for a number that is no unit.
    KOVIUnit(KOVIUnitValue unit);
    /// The number of a unit, in the same way. (Without it a literal 0 would be a null text.)
    KOVIUnit(int unit) : KOVIUnit(static_cast<KOVIUnitValue>(unit)) {}
    /// By its name, in any case: "unknown", "model", "nanometer" or "nm", "micrometer" or "micr", "millimeter" or
    /// "mm", "centimeter" or "cm", "decimeter" or "deci", "meter", "inch" or "in", "foot" or "ft", "mile",
    /// "kilometer" or "km", "milliinch", "microinch". Not valid for any other text and for null.
    KOVIUnit(char const* text);
    KOVIUnit(KOVIUnit const&) = default;
    KOVIUnit& operator=(KOVIUnit const&) = default;
    ~KOVIUnit() override;

    /// Unknown for a handle that is not valid.
    operator KOVIUnitValue() const;
    /// The first of its names above, which lives as long as the process; null for a handle that is not valid,
    /// and for a body that was made with a number that is no unit.
    operator char const*() const;
};
