#pragma once

#include <string>

#include <kova/text/KOVAString.h>

namespace toolkit {

/// The library's text as the standard library has it; empty also where there is none.
inline std::string narrow(KOVAString const& text) {
    return text.length() > 0 ? std::string(static_cast<char const*>(text)) : std::string();
}

} // namespace toolkit
