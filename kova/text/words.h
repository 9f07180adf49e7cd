#pragma once

#include <kova/text/KOVAString.h>

/// The boolean words of options and environment variables, in any case.
namespace kova::detail {

/// "Yes", "True" or "On".
inline bool isYes(KOVAString const& text) noexcept {
    return text.equalsIgnoreCase(KOVAString::KOVA_YES) || text.equalsIgnoreCase(KOVAString::KOVA_TRUE) ||
           text.equalsIgnoreCase(KOVAString::KOVA_ON);
}

/// "No", "False" or "Off".
inline bool isNo(KOVAString const& text) noexcept {
    return text.equalsIgnoreCase(KOVAString::KOVA_NO) || text.equalsIgnoreCase(KOVAString::KOVA_FALSE) ||
           text.equalsIgnoreCase(KOVAString::KOVA_OFF);
}

} // namespace kova::detail
