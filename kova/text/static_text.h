#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>

#include <kova/core/KOVAArrayHeader.h>

/// Texts that are made when the library is compiled, so that loading has nothing to do for them.
namespace kova::detail {

/// The units of an ASCII text, in a block as KOVAString has it, with a reference that is never given back.
template <std::size_t Size> struct StaticUnits {
    constexpr explicit StaticUnits(char const (&text)[Size]) noexcept
        : references(1U << 30), length(Size - 1), units() {
        for (std::size_t i = 0; i < Size; ++i)
            units[i] = static_cast<unsigned char>(text[i]);
    }
    std::atomic<std::uint32_t> references;
    std::int32_t length;
    unsigned short units[Size];
};

/// The characters of a text and its terminator, in storage as Gk_String has it, with such a reference too.
template <std::size_t Size> struct StaticChars {
    constexpr explicit StaticChars(char const (&text)[Size]) noexcept
        : chars(), header{chars, Size, Size, 1, 1.5F, 1, chars} {
        for (std::size_t i = 0; i < Size; ++i)
            chars[i] = text[i];
    }
    char chars[Size];
    KOVAArrayHeader header;
};

} // namespace kova::detail
