#include <kova/units/Gk_Unit.h>

#include <kova/math/Gk_Def.h>

static_assert(sizeof(void*) != 4 || sizeof(Gk_Unit) == 16);

bool Gk_Unit::operator==(Gk_Unit const& other) const noexcept {
    return Gk_Func::equal(size_, other.size_, Gk_Def::FuzzReal);
}

bool Gk_Unit::IsSet() const {
    return size_ > 0.0 && getName().text() != "unset";
}
