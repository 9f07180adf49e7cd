#pragma once

#include <cstdint>

#include <kova/core/KOVIResult.h>
#include <kova/core/export.h>

class Gk_Unit;
class KOVAString;

/// The length units. The numbers are fixed: they are stored, compared by range and cross the public
/// interface.
enum KOVAUnit : std::int32_t {
    KOVA_UNIT_UNKNOWN = 0,
    KOVA_UNIT_MODELUNIT = 1, ///< whatever unit the model is in
    KOVA_UNIT_NANOMETER = 2,
    KOVA_UNIT_MICROMETER = 3,
    KOVA_UNIT_MILLIMETER = 4,
    KOVA_UNIT_CENTIMETER = 5,
    KOVA_UNIT_DECIMETER = 6,
    KOVA_UNIT_METER = 7,
    KOVA_UNIT_INCH = 8,
    KOVA_UNIT_FOOT = 9,
    KOVA_UNIT_MILE = 10,
    KOVA_UNIT_KM = 11,
    KOVA_UNIT_MILLIINCH = 12,
    KOVA_UNIT_MICROINCH = 13
};

// --- what a unit is
//
//     double factor = 0.0;
//     if (GetUnitScaleFactor(KOVA_UNIT_INCH, factor).IsSuccess())
//         metres = inches * factor;
//
// These give Success, or Error Encountered for a unit that has no size (unknown, model unit) or is none.

/// Metres in one unit; 0.0 when there is no such size.
KOVA_API KOVIResult GetUnitScaleFactor(KOVAUnit unit, double& factor);
/// The name in upper case: "MILLIMETER", "KM". Callers depend on the names "UNKNOWN" and "MODELUNIT" being
/// written although the result is Error Encountered.
KOVA_API KOVIResult GetUnitName(KOVAUnit unit, KOVAString& name);
/// The unit of so many metres, to within 1e-10; callers depend on the wider 1e-5 for metre and mile. A factor
/// above 0 that fits none gives the unknown unit with Success. Error Encountered for other factors, and the
/// output is then left alone.
KOVA_API KOVIResult GetKOVAUnit(double factor, KOVAUnit& unit);

KOVA_API KOVIResult GetKOVAUnitFromGkUnit(Gk_Unit const& gkUnit, KOVAUnit& unit);
/// Named in upper case. A unit without a size leaves the output alone.
KOVA_API KOVIResult GetGkUnitFromKOVAUnit(KOVAUnit const& unit, Gk_Unit& gkUnit);

// --- the units of a translation
//
// They hold for the whole process and are set from one thread, before the translation starts.

/// Error Encountered, and nothing changes, for a number that is no unit. Given a pointer, they keep it, and
/// see what the caller changes there later; the variable must live until another unit is set.
KOVA_API KOVIResult set_sending_system_unit(KOVAUnit unit);
KOVA_API KOVIResult set_sending_system_unit(KOVAUnit* unit);
KOVA_API KOVIResult set_receiving_system_unit(KOVAUnit unit);
KOVA_API KOVIResult set_receiving_system_unit(KOVAUnit* unit);

// The number of a unit, checked in the same way. (Without these a literal 0 would be a null pointer.)
inline KOVIResult set_sending_system_unit(int unit) {
    return set_sending_system_unit(static_cast<KOVAUnit>(unit));
}
inline KOVIResult set_receiving_system_unit(int unit) {
    return set_receiving_system_unit(static_cast<KOVAUnit>(unit));
}

/// Always Success: the unknown unit until one is set.
KOVA_API KOVIResult get_sending_system_unit(KOVAUnit& unit);
/// Always Success: the model unit until one is set.
KOVA_API KOVIResult get_receiving_system_unit(KOVAUnit& unit);

/// Sets both. Callers depend on Success even when one was refused.
KOVA_API KOVIResult set_internal_unit(KOVAUnit sending, KOVAUnit receiving);
/// Sets both from KOVAUnitValue: writing goes from the application's unit to the write unit, reading from the
/// read unit to the application's.
KOVA_API KOVIResult set_internal_unit(bool writing);
KOVIResult set_internal_unit(KOVAUnit) = delete; // which would be taken for the bool

/// What a reading translator calls with the unit that it finds in a file.
using KOVAReadUnitCallback = void (*)(KOVAUnit unit);

// Setters of the units in KOVAUnitValue, unchecked; always Success.

KOVA_API KOVIResult api_set_application_unit(KOVAUnit unit);
KOVA_API KOVIResult api_set_write_unit(KOVAUnit unit);
KOVA_API KOVIResult api_set_unspecified_file_unit(KOVAUnit unit);
/// Null for none.
KOVA_API KOVIResult api_set_read_unit_callback(KOVAReadUnitCallback callback);
