#include <kova/public/KOVIUnit.h>

#include <kova/core/results.h>
#include <kova/public/KOVIUnitImpl.h>
#include <kova/public/body.h>
#include <kova/text/KOVAString.h>

static_assert(sizeof(void*) != 4 || sizeof(KOVIUnit) == 12);
static_assert(sizeof(void*) != 4 || sizeof(KOVIUnitImpl) == 24);

using kova::detail::kErrorEncountered;
using kova::detail::kSuccess;
using kova::detail::validBodyOf;

namespace {

constexpr char kTag[] = "KOVIUnit";

/// By unit: what it is called, and a short form or null.
constexpr char const* kNames[][2] = {
    {"unknown", nullptr}, {"model", nullptr},    {"nanometer", "nm"},    {"micrometer", "micr"}, {"millimeter", "mm"},
    {"centimeter", "cm"}, {"decimeter", "deci"}, {"meter", nullptr},     {"inch", "in"},         {"foot", "ft"},
    {"mile", nullptr},    {"kilometer", "km"},   {"milliinch", nullptr}, {"microinch", nullptr},
};
constexpr int kCount = sizeof kNames / sizeof kNames[0];
static_assert(kCount == KOVA_UNIT_MICROINCH + 1 && int{KOVI_UNIT_MICROINCH} == int{KOVA_UNIT_MICROINCH});

/// The number of the unit; -1 for none.
int unitOf(char const* text) {
    KOVAString const wanted(text);
    for (int unit = 0; unit < kCount; ++unit) {
        for (char const* const name : kNames[unit]) {
            if (name && wanted.equalsIgnoreCase(name))
                return unit;
        }
    }
    return -1;
}

bool isUnit(int unit) {
    return unit >= 0 && unit < kCount;
}

/// Null for a number that is no unit.
void* bodyWith(int unit) {
    return isUnit(unit) ? kova::detail::newBody<KOVIUnitImpl>(kTag, static_cast<KOVAUnit>(unit)) : nullptr;
}

} // namespace

KOVIUnit::KOVIUnit() : KOVIUnit(KOVI_UNIT_UNKNOWN) {}

KOVIUnit::KOVIUnit(KOVIUnitValue unit) : KOVIObject(kTag) {
    SetData(bodyWith(unit));
}

KOVIUnit::KOVIUnit(char const* text) : KOVIObject(kTag) {
    SetData(bodyWith(unitOf(text)));
}

KOVIUnit::~KOVIUnit() = default;

KOVIUnit::operator KOVIUnitValue() const {
    KOVAUnit unit = KOVA_UNIT_UNKNOWN;
    if (KOVIUnitImpl const* const body = validBodyOf<KOVIUnitImpl>(*this))
        body->GetUnit(unit);
    return static_cast<KOVIUnitValue>(unit);
}

KOVIUnit::operator char const*() const {
    int const unit = KOVIUnitValue(*this);
    return validBodyOf<KOVIUnitImpl>(*this) && isUnit(unit) ? kNames[unit][0] : nullptr;
}

KOVIUnitImpl::~KOVIUnitImpl() = default;

KOVIResult KOVIUnitImpl::SetUnit(KOVAUnit unit) {
    if (!isUnit(unit))
        return kErrorEncountered;
    unit_ = unit;
    return kSuccess;
}

KOVIResult KOVIUnitImpl::GetUnit(KOVAUnit& unit) const {
    unit = unit_;
    return kSuccess;
}
