#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>

namespace kova::detail {

/// The units of a text, in a block as KOVAString has it, with a reference that is never given back: constants
/// of text are made when the library is compiled.
template <std::size_t Size> struct StaticBlock {
    constexpr explicit StaticBlock(char const (&text)[Size]) noexcept : StaticBlock() { append(text); }
    /// "tag[number]", with three digits at most.
    template <std::size_t TagSize>
    constexpr StaticBlock(char const (&tag)[TagSize], int number) noexcept : StaticBlock() {
        static_assert(TagSize + sizeof "[999]" - 1 <= Size);
        append(tag);
        append("[");
        for (int ten = number >= 100 ? 100 : number >= 10 ? 10 : 1; ten > 0; ten /= 10)
            append(static_cast<char>('0' + number / ten % 10));
        append("]");
    }

    std::atomic<std::uint32_t> references;
    std::int32_t length;
    unsigned short units[Size];

private:
    constexpr StaticBlock() noexcept : references(1U << 30), length(0), units() {}

    constexpr void append(char c) noexcept { units[length++] = static_cast<unsigned char>(c); }
    template <std::size_t TextSize> constexpr void append(char const (&text)[TextSize]) noexcept {
        for (std::size_t i = 0; i + 1 < TextSize; ++i)
            append(text[i]);
    }
};

} // namespace kova::detail
