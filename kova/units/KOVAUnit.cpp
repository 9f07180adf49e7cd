#include <kova/units/KOVAUnit.h>

#include <kova/core/results.h>
#include <kova/math/Gk_Func.h>
#include <kova/text/KOVAString.h>
#include <kova/units/Gk_Unit.h>
#include <kova/units/KOVAUnitValue.h>

using kova::detail::kErrorEncountered;
using kova::detail::kSuccess;

namespace {

struct Unit {
    char const* name;
    double factor;    ///< metres, 0.0 for none
    double tolerance; ///< within which a factor is taken for this one
};

// The factors of foot and mile are rounded products of 0.0254; units are recognised against them.
constexpr Unit kUnits[] = {
    {"UNKNOWN", 0.0, 0.0},
    {"MODELUNIT", 0.0, 0.0},
    {"NANOMETER", 1e-9, 1e-10},
    {"MICROMETER", 1e-6, 1e-10},
    {"MILLIMETER", 0.001, 1e-10},
    {"CENTIMETER", 0.01, 1e-10},
    {"DECIMETER", 0.1, 1e-10},
    {"METER", 1.0, 1e-5},
    {"INCH", 0.0254, 1e-10},
    {"FOOT", 0.30479999999999996, 1e-10},
    {"MILE", 1609.3439999999998, 1e-5},
    {"KM", 1000.0, 1e-10},
    {"MILLIINCH", 2.54e-5, 1e-10},
    {"MICROINCH", 2.54e-8, 1e-10},
};
constexpr int kCount = sizeof kUnits / sizeof kUnits[0];
static_assert(kCount == KOVA_UNIT_MICROINCH + 1);

bool isUnit(KOVAUnit unit) {
    return unit >= 0 && unit < kCount;
}

/// A unit of its own, or a variable of the caller.
class Setting {
public:
    constexpr explicit Setting(KOVAUnit initial) noexcept : own_(initial) {}

    KOVAUnit get() const noexcept { return borrowed_ ? *borrowed_ : own_; }

    KOVIResult set(KOVAUnit unit) noexcept {
        if (!isUnit(unit))
            return kErrorEncountered;
        own_ = unit;
        borrowed_ = nullptr;
        return kSuccess;
    }

    KOVIResult set(KOVAUnit const* unit) noexcept {
        if (!unit || !isUnit(*unit))
            return kErrorEncountered;
        borrowed_ = unit;
        return kSuccess;
    }

private:
    KOVAUnit own_;
    KOVAUnit const* borrowed_ = nullptr;
};

Setting sendingUnit(KOVA_UNIT_UNKNOWN);
Setting receivingUnit(KOVA_UNIT_MODELUNIT);

KOVAUnit readUnit = KOVA_UNIT_UNKNOWN;
KOVAUnit applicationUnit = KOVA_UNIT_MODELUNIT;
KOVAUnit writeUnit = KOVA_UNIT_MODELUNIT;
KOVAUnit unspecifiedUnit = KOVA_UNIT_UNKNOWN;
KOVAReadUnitCallback readUnitCallback = nullptr;

} // namespace

// --- what a unit is

KOVIResult GetUnitScaleFactor(KOVAUnit unit, double& factor) {
    factor = isUnit(unit) ? kUnits[unit].factor : 0.0;
    return factor > 0.0 ? kSuccess : kErrorEncountered;
}

KOVIResult GetUnitName(KOVAUnit unit, KOVAString& name) {
    if (!isUnit(unit))
        return kErrorEncountered;
    name = kUnits[unit].name;
    return kUnits[unit].factor > 0.0 ? kSuccess : kErrorEncountered;
}

KOVIResult GetKOVAUnit(double factor, KOVAUnit& unit) {
    if (!(factor > 0.0))
        return kErrorEncountered;
    for (int i = KOVA_UNIT_NANOMETER; i < kCount; ++i) {
        if (Gk_Func::equal(factor, kUnits[i].factor, kUnits[i].tolerance)) {
            unit = static_cast<KOVAUnit>(i);
            return kSuccess;
        }
    }
    unit = KOVA_UNIT_UNKNOWN;
    return kSuccess;
}

KOVIResult GetKOVAUnitFromGkUnit(Gk_Unit const& gkUnit, KOVAUnit& unit) {
    return GetKOVAUnit(gkUnit.getValue() * 0.001, unit);
}

KOVIResult GetGkUnitFromKOVAUnit(KOVAUnit const& unit, Gk_Unit& gkUnit) {
    double factor = 0.0;
    if (GetUnitScaleFactor(unit, factor).IsFailure())
        return kErrorEncountered;
    gkUnit = Gk_Unit(kUnits[unit].name, factor * 1000.0);
    return kSuccess;
}

KOVIResult KOVAUnitValue::GetUnitAsString(KOVAUnit unit, KOVAString& text) {
    if (!isUnit(unit))
        return kErrorEncountered;
    text = unit == KOVA_UNIT_MODELUNIT ? "MODEL UNIT" : kUnits[unit].name;
    return kSuccess;
}

// --- the units of a translation

KOVIResult set_sending_system_unit(KOVAUnit unit) {
    return sendingUnit.set(unit);
}

KOVIResult set_sending_system_unit(KOVAUnit* unit) {
    return sendingUnit.set(unit);
}

KOVIResult set_receiving_system_unit(KOVAUnit unit) {
    return receivingUnit.set(unit);
}

KOVIResult set_receiving_system_unit(KOVAUnit* unit) {
    return receivingUnit.set(unit);
}

KOVIResult get_sending_system_unit(KOVAUnit& unit) {
    unit = sendingUnit.get();
    return kSuccess;
}

KOVIResult get_receiving_system_unit(KOVAUnit& unit) {
    unit = receivingUnit.get();
    return kSuccess;
}

KOVIResult set_internal_unit(KOVAUnit sending, KOVAUnit receiving) {
    set_sending_system_unit(sending);
    set_receiving_system_unit(receiving);
    return kSuccess;
}

KOVIResult set_internal_unit(bool writing) {
    return writing ? set_internal_unit(applicationUnit, writeUnit) : set_internal_unit(readUnit, applicationUnit);
}

KOVIResult api_set_application_unit(KOVAUnit unit) {
    applicationUnit = unit;
    return kSuccess;
}

KOVIResult api_set_write_unit(KOVAUnit unit) {
    writeUnit = unit;
    return kSuccess;
}

KOVIResult api_set_unspecified_file_unit(KOVAUnit unit) {
    unspecifiedUnit = unit;
    return kSuccess;
}

KOVIResult api_set_read_unit_callback(KOVAReadUnitCallback callback) {
    readUnitCallback = callback;
    return kSuccess;
}

KOVAUnit KOVAUnitValue::GetReadUnit() noexcept {
    return readUnit;
}

void KOVAUnitValue::SetReadUnit(KOVAUnit unit) noexcept {
    readUnit = unit;
}

KOVAUnit KOVAUnitValue::GetApplicationUnit() noexcept {
    return applicationUnit;
}

void KOVAUnitValue::SetApplicationUnit(KOVAUnit unit) noexcept {
    applicationUnit = unit;
}

KOVAUnit KOVAUnitValue::GetWriteUnit() noexcept {
    return writeUnit;
}

void KOVAUnitValue::SetWriteUnit(KOVAUnit unit) noexcept {
    writeUnit = unit;
}

KOVAUnit KOVAUnitValue::GetUnitWhenUnspecified() noexcept {
    return unspecifiedUnit;
}

void KOVAUnitValue::SetUnitWhenUnspecified(KOVAUnit unit) noexcept {
    unspecifiedUnit = unit;
}

KOVAReadUnitCallback KOVAUnitValue::GetReadUnitCallback() noexcept {
    return readUnitCallback;
}
