#include "units.h"

#include "narrow.h"

namespace toolkit {

KOVAUnit unitOf(KOVIUnit const& unit) {
    return static_cast<KOVAUnit>(static_cast<KOVIUnitValue>(unit));
}

bool isLength(KOVAUnit unit) {
    double metres = 0;
    return GetUnitScaleFactor(unit, metres).IsSuccess();
}

std::string unitName(KOVAUnit unit) {
    KOVAString name;
    GetUnitName(unit, name);
    return narrow(name.toLowerCase());
}

} // namespace toolkit
