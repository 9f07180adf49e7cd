#pragma once

#include <cstdint>
#include <cwctype>

#include <kova/text/KOVAString.h>

/// Case folding of units, as the C runtime does it.
namespace kova::detail {

inline unsigned short mappedBy(std::wint_t (*function)(std::wint_t), unsigned short unit) noexcept {
    unsigned long const result = function(unit);
    return result <= 0xFFFFU ? static_cast<unsigned short>(result) : unit;
}

inline unsigned short asciiLower(unsigned short unit) noexcept {
    return unit >= 'A' && unit <= 'Z' ? static_cast<unsigned short>(unit + ('a' - 'A')) : unit;
}

/// Nearly all locales treat ASCII letters alike; one question tells, and spares a call for each unit.
class LowerCase {
public:
    LowerCase() noexcept : plainAscii_(std::towlower(L'I') == L'i') {}
    unsigned short operator()(unsigned short unit) const noexcept {
        return plainAscii_ && unit < 0x80 ? asciiLower(unit) : mappedBy(&std::towlower, unit);
    }

private:
    bool plainAscii_;
};

class UpperCase {
public:
    UpperCase() noexcept : plainAscii_(std::towupper(L'i') == L'I') {}
    unsigned short operator()(unsigned short unit) const noexcept {
        if (plainAscii_ && unit < 0x80)
            return unit >= 'a' && unit <= 'z' ? static_cast<unsigned short>(unit - ('a' - 'A')) : unit;
        return mappedBy(&std::towupper, unit);
    }

private:
    bool plainAscii_;
};

/// Whether two texts of one length are the same but for case.
inline bool sameFolded(unsigned short const* a, unsigned short const* b, int length) noexcept {
    for (int i = 0; i < length; ++i) {
        if (a[i] == b[i] || (a[i] < 0x80 && b[i] < 0x80 && asciiLower(a[i]) == asciiLower(b[i])))
            continue;
        LowerCase const lower;
        if (lower(a[i]) != lower(b[i]))
            return false;
    }
    return true;
}

/// A unit beyond ASCII counts as the ASCII letter that it folds into; all others count alike.
inline unsigned short hashedBeyondAscii(unsigned short unit) noexcept {
    unsigned short const lower = LowerCase()(unit);
    return lower < 0x80 ? lower : 0x80;
}

/// The same for texts that differ only in case.
inline std::uint32_t foldedHash(unsigned short const* units, int length) noexcept {
    std::uint32_t hash = 0;
    for (int i = 0; i < length; ++i)
        hash = (hash ^ (units[i] < 0x80 ? asciiLower(units[i]) : hashedBeyondAscii(units[i]))) * 0x9E3779B1U;
    return hash ^ hash >> 15;
}

} // namespace kova::detail
