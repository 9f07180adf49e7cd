#pragma once

#include <string_view>

namespace toolkit {

/// The unit of length that a text states: the word behind "unit" or "units", in any case, and a colon or an equals
/// sign. It is a part of the text, and empty where none is stated. It may be any word.
std::string_view statedUnit(std::string_view text);

} // namespace toolkit
