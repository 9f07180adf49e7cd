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
        return length == other.length && (length == 0 || std::memcmp(units, other.units, size()) == 0);
    }
    unsigned int GetHashCode() const noexcept {
        // Eight units at a time, in two lanes that need not wait for each other; then the rest.
        constexpr std::uint64_t kFactor = 0x9E3779B97F4A7C15U;
        std::uint64_t first = static_cast<unsigned int>(length);
        std::uint64_t second = kFactor;
        int i = 0;
        for (; i + 8 <= length; i += 8) {
            std::uint64_t words[2];
            std::memcpy(words, units + i, sizeof words);
            first = (first ^ words[0]) * kFactor;
            first ^= first >> 32;
            second = (second ^ words[1]) * kFactor;
            second ^= second >> 32;
        }
        for (; i < length; ++i)
            second = second * 31 + units[i];
        return static_cast<unsigned int>(((first ^ second) * kFactor) >> 32);
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
