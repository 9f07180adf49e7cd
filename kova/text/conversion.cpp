#include <kova/text/conversion.h>

#include <climits>
#include <cstdint>
#include <cstring>
#include <cwchar>

namespace kova::detail {

namespace {

constexpr bool kWideHoldsAll = sizeof(wchar_t) > sizeof(unsigned short);

constexpr bool isHighSurrogate(unsigned short unit) noexcept {
    return (unit & 0xFC00U) == 0xD800U;
}

constexpr bool isLowSurrogate(unsigned short unit) noexcept {
    return (unit & 0xFC00U) == 0xDC00U;
}

/// Looks at eight bytes at a time; short texts, the common ones, are what profits.
template <class Unit> bool noBitsOf(std::uint64_t mask, Unit const* units, std::size_t count) noexcept {
    constexpr std::size_t kStep = sizeof mask / sizeof(Unit);
    std::uint64_t all = 0;
    std::size_t i = 0;
    for (; i + kStep <= count; i += kStep) {
        std::uint64_t word;
        std::memcpy(&word, units + i, sizeof word);
        all |= word;
    }
    for (; i < count; ++i)
        all |= units[i];
    return (all & mask) == 0;
}

} // namespace

bool isAscii(char const* text, std::size_t count) noexcept {
    return noBitsOf(0x8080808080808080U, reinterpret_cast<unsigned char const*>(text), count);
}

bool isAscii(unsigned short const* units, std::size_t count) noexcept {
    return noBitsOf(0xFF80FF80FF80FF80U, units, count);
}

void widenAscii(char const* text, std::size_t count, unsigned short* out) noexcept {
    for (std::size_t i = 0; i < count; ++i)
        out[i] = static_cast<unsigned char>(text[i]);
}

void narrowAscii(unsigned short const* units, std::size_t count, char* out) noexcept {
    for (std::size_t i = 0; i < count; ++i)
        out[i] = static_cast<char>(units[i]);
}

std::vector<unsigned short> decode(char const* text, std::size_t count) {
    std::vector<unsigned short> units;
    units.reserve(count);
    std::mbstate_t state{};
    for (std::size_t at = 0; at < count;) {
        wchar_t wide = 0;
        std::size_t used = std::mbrtowc(&wide, text + at, count - at, &state);
        if (used == 0 || used > count - at) {
            state = std::mbstate_t{};
            wide = static_cast<wchar_t>(static_cast<unsigned char>(text[at]));
            used = 1;
        }
        at += used;
        unsigned long const character = static_cast<unsigned long>(wide);
        if (kWideHoldsAll && character > 0xFFFFU) {
            units.push_back(static_cast<unsigned short>(0xD800U + ((character - 0x10000U) >> 10)));
            units.push_back(static_cast<unsigned short>(0xDC00U + ((character - 0x10000U) & 0x3FFU)));
        } else {
            units.push_back(static_cast<unsigned short>(character));
        }
    }
    return units;
}

std::size_t encode(unsigned short const* units, std::size_t count, char* out, std::size_t limit) noexcept {
    std::mbstate_t state{};
    std::size_t written = 0;
    for (std::size_t at = 0; at < count && written < limit;) {
        unsigned long character = units[at++];
        if (kWideHoldsAll && isHighSurrogate(static_cast<unsigned short>(character)) && at < count &&
            isLowSurrogate(units[at])) {
            character = 0x10000U + ((character & 0x3FFU) << 10) + (units[at++] & 0x3FFU);
        }
        char bytes[MB_LEN_MAX];
        std::size_t const size = std::wcrtomb(bytes, static_cast<wchar_t>(character), &state);
        if (size == static_cast<std::size_t>(-1))
            return kUnconvertible;
        if (size > limit - written)
            break;
        if (out)
            std::memcpy(out + written, bytes, size);
        written += size;
    }
    return written;
}

std::size_t encodedLength(unsigned short const* units, std::size_t count) noexcept {
    if (isAscii(units, count))
        return count;
    std::size_t const bytes = encode(units, count, nullptr, static_cast<std::size_t>(-1));
    return bytes == kUnconvertible ? count : bytes;
}

} // namespace kova::detail
