#pragma once

#include <string>
#include <vector>

#include <kova/options/KOVAValue.h>

namespace toolkit {

/// What there is to know of an option before it has a value.
struct OptionDescription {
    char const* name;                    ///< "/XMesh/Export/Digits"
    KOVAValue defaultValue;              ///< an int, a double, a bool or a text; values have its type
    char const* meaning;                 ///< one line
    std::vector<std::string> words = {}; ///< the values of a text, in small letters, where it takes only some
    double least = 0;                    ///< of a number
    double most = 0;                     ///< not below the least; 0 for no end
};

} // namespace toolkit
