#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <type_traits>

namespace toolkit {

enum class ByteOrder { Little, Big };

namespace detail {

template <std::size_t Size> struct Unsigned;
template <> struct Unsigned<1> { using Type = std::uint8_t; };
template <> struct Unsigned<2> { using Type = std::uint16_t; };
template <> struct Unsigned<4> { using Type = std::uint32_t; };
template <> struct Unsigned<8> { using Type = std::uint64_t; };

} // namespace detail

/// Of a float or double, as a number to hash; equal for 0 and -0.
template <class Float> auto bitsOf(Float value) noexcept {
    Float const unsignedZero = value + Float{0};
    typename detail::Unsigned<sizeof(Float)>::Type bits;
    std::memcpy(&bits, &unsignedZero, sizeof bits);
    return bits;
}

/// The number in a file's bytes, whatever the machine.
template <class Number> Number loadNumber(char const* bytes, ByteOrder order) noexcept {
    using Bits = typename detail::Unsigned<sizeof(Number)>::Type;
    Bits bits = 0;
    for (std::size_t i = 0; i < sizeof bits; ++i) {
        std::size_t const shift = 8 * (order == ByteOrder::Little ? i : sizeof bits - 1 - i);
        bits = static_cast<Bits>(bits | static_cast<Bits>(Bits{static_cast<unsigned char>(bytes[i])} << shift));
    }
    Number value;
    std::memcpy(&value, &bits, sizeof value);
    return value;
}

/// Writes it at `to` and returns the end.
template <class Number> char* storeNumber(char* to, Number value, ByteOrder order) noexcept {
    using Bits = typename detail::Unsigned<sizeof(Number)>::Type;
    Bits bits;
    std::memcpy(&bits, &value, sizeof bits);
    for (std::size_t i = 0; i < sizeof bits; ++i) {
        std::size_t const shift = 8 * (order == ByteOrder::Little ? i : sizeof bits - 1 - i);
        *to++ = static_cast<char>(bits >> shift);
    }
    return to;
}

} // namespace toolkit
