#pragma once

#include <string>

#include <kova/public/KOVIUnit.h>
#include <kova/units/KOVAUnit.h>

namespace toolkit {

/// The unit of a handle, which may be made of a text such as "mm"; unknown where that names none.
KOVAUnit unitOf(KOVIUnit const& unit);

/// It has a size.
bool isLength(KOVAUnit unit);

/// "millimeter"
std::string unitName(KOVAUnit unit);

} // namespace toolkit
