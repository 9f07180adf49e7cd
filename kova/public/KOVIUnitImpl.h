#pragma once

#include <kova/core/KOVIResult.h>
#include <kova/core/export.h>
#include <kova/public/KOVIObjectImpl.h>
#include <kova/units/KOVAUnit.h>

/// The body of a unit.
class KOVA_API KOVIUnitImpl : public KOVIObjectImpl {
public:
    /// Hazard: unlike SetUnit it takes any number.
    KOVIUnitImpl(char const* tag, KOVAUnit unit) : KOVIObjectImpl(tag), unit_(unit) {}
    ~KOVIUnitImpl() override;

    /// Error Encountered, and nothing changes, for a number that is no unit. Hazard: all handles of the body see
    /// the change.
    KOVIResult SetUnit(KOVAUnit unit);
    /// Always Success.
    KOVIResult GetUnit(KOVAUnit& unit) const;

private:
    KOVAUnit unit_;
};
