#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "color.h"
#include "geometry.h"

namespace toolkit {

/// What a corner has beside its position.
struct Look {
    Vertex color = kNoColor;
    float alpha = 1;    ///< of the colour: how opaque it is
    Vertex normal = {}; ///< all zeros for none
};

inline bool operator==(Look const& a, Look const& b) noexcept {
    return a.color == b.color && a.alpha == b.alpha && a.normal == b.normal;
}

/// A position and a look, by their numbers from 1; look 0 is none.
struct Corner {
    std::uint32_t position;
    std::uint32_t look;
};

inline bool operator==(Corner const& a, Corner const& b) noexcept {
    return a.position == b.position && a.look == b.look;
}

/// Throws std::length_error where 32 bits cannot count one more than so many.
void requireCountable(std::size_t vertices);

/// Different items in the order of first appearance. Only exactly equal ones are one; nothing is rounded, and an
/// item keeps the bits of the first that was added. The upper half of its hashCode() is what counts.
template <class Item> class NumberTable {
public:
    NumberTable();

    void reserve(std::size_t items) { items_.reserve(items); }
    /// The item's number, from 1. Throws std::length_error where 32 bits cannot count any further.
    std::uint32_t add(Item const& item);
    void removeLast();

    std::vector<Item> const& items() const noexcept { return items_; }

private:
    std::size_t firstSlot(Item const& item) const noexcept;
    std::size_t nextSlot(std::size_t slot) const noexcept { return (slot + 1) & (slots_.size() - 1); }
    void grow();

    std::vector<Item> items_;
    /// Numbers of items, 0 where there is none: a power of two of them, at most half of them taken.
    std::vector<std::uint32_t> slots_;
};

using VertexTable = NumberTable<Vertex>;
using LookTable = NumberTable<Look>;
using CornerTable = NumberTable<Corner>;

} // namespace toolkit
