#include "VertexTable.h"

#include <limits>
#include <stdexcept>

#include "bytes.h"

namespace toolkit {

namespace {

/// Coordinates of a grid differ in few bits, and those are high. A product carries bits upwards only, so the
/// first one's upper half is folded down, and of the second one the upper half is used.
std::uint64_t hashCode(std::uint32_t x, std::uint32_t y, std::uint32_t z) noexcept {
    std::uint64_t const hash = (std::uint64_t{y} << 32 | x) * 0x9E3779B97F4A7C15U;
    return (hash ^ hash >> 32 ^ z) * 0xD6E8FEB86659FD93U;
}

std::uint64_t hashCode(Vertex const& v) noexcept {
    return hashCode(bitsOf(v.x), bitsOf(v.y), bitsOf(v.z));
}

std::uint64_t hashCode(Look const& look) noexcept {
    auto const half = [](Vertex const& v) { return static_cast<std::uint32_t>(hashCode(v) >> 32); };
    return hashCode(half(look.color), half(look.normal), bitsOf(look.alpha));
}

std::uint64_t hashCode(Corner const& corner) noexcept {
    return hashCode(corner.position, corner.look, 0);
}

} // namespace

void requireCountable(std::size_t vertices) {
    if (vertices == std::numeric_limits<std::uint32_t>::max())
        throw std::length_error("more than 4294967295 different vertices");
}

template <class Item> NumberTable<Item>::NumberTable() : slots_(1024) {}

template <class Item> std::size_t NumberTable<Item>::firstSlot(Item const& item) const noexcept {
    return static_cast<std::size_t>(hashCode(item) >> 32) & (slots_.size() - 1);
}

template <class Item> std::uint32_t NumberTable<Item>::add(Item const& item) {
    std::size_t slot = firstSlot(item);
    for (; slots_[slot] != 0; slot = nextSlot(slot)) {
        if (items_[slots_[slot] - 1] == item)
            return slots_[slot];
    }
    requireCountable(items_.size());
    items_.push_back(item);
    std::uint32_t const number = static_cast<std::uint32_t>(items_.size());
    slots_[slot] = number;
    if (items_.size() > slots_.size() / 2)
        grow();
    return number;
}

/// Leaves no gap that a search would end at: whatever was put behind it is gone already.
template <class Item> void NumberTable<Item>::removeLast() {
    std::size_t slot = firstSlot(items_.back());
    while (slots_[slot] != items_.size())
        slot = nextSlot(slot);
    slots_[slot] = 0;
    items_.pop_back();
}

/// The old slots go first: the items are all that is needed to fill the new ones.
template <class Item> void NumberTable<Item>::grow() {
    std::size_t const size = 2 * slots_.size();
    slots_ = std::vector<std::uint32_t>();
    slots_.resize(size);
    std::uint32_t number = 0;
    for (Item const& item : items_) {
        std::size_t slot = firstSlot(item);
        while (slots_[slot] != 0)
            slot = nextSlot(slot);
        slots_[slot] = ++number;
    }
}

template class NumberTable<Vertex>;
template class NumberTable<Look>;
template class NumberTable<Corner>;

} // namespace toolkit
