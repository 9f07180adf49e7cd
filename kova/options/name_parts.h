#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <vector>

#include <kova/text/KOVAString.h>
#include <kova/text/fold.h>

namespace kova::detail {

/// The part of a name between two points; it lies in the name.
class NamePart {
public:
    unsigned short const* units = nullptr;
    int length = 0;

    bool isStar() const noexcept { return length == 1 && *units == '*'; }
    bool sameFolded(NamePart const& other) const noexcept {
        return length == other.length && kova::detail::sameFolded(units, other.units, length);
    }
    std::uint32_t foldedHash() const noexcept { return kova::detail::foldedHash(units, length); }

    bool operator==(NamePart const& other) const noexcept {
        return length == other.length && std::memcmp(units, other.units, size()) == 0;
    }
    unsigned int GetHashCode() const noexcept {
        // Four units at a time, then the rest as one word.
        std::uint64_t hash = static_cast<unsigned int>(length);
        char const* bytes = reinterpret_cast<char const*>(units);
        for (std::size_t left = size(); left > 0;) {
            std::uint64_t word = 0;
            std::size_t const taken = left < sizeof word ? left : sizeof word;
            std::memcpy(&word, bytes, taken);
            hash = (hash ^ word) * 0x9E3779B97F4A7C15U;
            hash ^= hash >> 32;
            bytes += taken;
            left -= taken;
        }
        return static_cast<unsigned int>(hash);
    }

private:
    std::size_t size() const noexcept { return static_cast<std::size_t>(length) * sizeof *units; }
};

/// A name split at its points, as KOVAStringTokenizer splits it, without a copy. It lives as long as the name.
class NameParts {
public:
    explicit NameParts(KOVAString const& name) {
        unsigned short const* const units = name;
        int from = 0;
        for (int at = 0, n = name.length(); n > 0 && at <= n; ++at) {
            if (at == n || units[at] == '.') {
                add({units + from, at - from});
                from = at + 1;
            }
        }
    }

    int size() const noexcept { return size_; }
    NamePart const& operator[](int i) const noexcept {
        std::size_t const at = static_cast<std::size_t>(i);
        return at < first_.size() ? first_[at] : more_[at - first_.size()];
    }

private:
    void add(NamePart const& part) {
        if (static_cast<std::size_t>(size_) < first_.size())
            first_[static_cast<std::size_t>(size_)] = part;
        else
            more_.push_back(part);
        ++size_;
    }

    std::array<NamePart, 8> first_;
    std::vector<NamePart> more_; ///< hardly ever
    int size_ = 0;
};

} // namespace kova::detail
