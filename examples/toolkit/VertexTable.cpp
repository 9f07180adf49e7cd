#include "VertexTable.h"

#include <cstring>
#include <limits>
#include <stdexcept>

namespace toolkit {

namespace {

/// Equal for 0 and -0.
std::uint32_t bits(float value) noexcept {
    float const unsignedZero = value + 0.0F;
    std::uint32_t result;
    static_assert(sizeof result == sizeof unsignedZero);
    std::memcpy(&result, &unsignedZero, sizeof result);
    return result;
}

} // namespace

VertexTable::VertexTable() : slots_(1024) {}

/// Coordinates of a grid differ in few bits, and those are high. A product carries bits upwards only, so the
/// first one's upper half is folded down, and of the second one the upper half is used.
std::size_t VertexTable::firstSlot(Vertex const& v) const noexcept {
    std::uint64_t hash = (std::uint64_t{bits(v.y)} << 32 | bits(v.x)) * 0x9E3779B97F4A7C15U;
    hash = (hash ^ hash >> 32 ^ bits(v.z)) * 0xD6E8FEB86659FD93U;
    return static_cast<std::size_t>(hash >> 32) & (slots_.size() - 1);
}

std::uint32_t VertexTable::add(Vertex const& v) {
    std::size_t slot = firstSlot(v);
    for (; slots_[slot] != 0; slot = nextSlot(slot)) {
        if (vertices_[slots_[slot] - 1] == v)
            return slots_[slot];
    }
    if (vertices_.size() == std::numeric_limits<std::uint32_t>::max())
        throw std::length_error("more than 4294967295 different vertices");
    vertices_.push_back(v);
    std::uint32_t const number = static_cast<std::uint32_t>(vertices_.size());
    slots_[slot] = number;
    if (vertices_.size() > slots_.size() / 2)
        grow();
    return number;
}

/// Leaves no gap that a search would end at: whatever was put behind it is gone already.
void VertexTable::removeLast() {
    std::size_t slot = firstSlot(vertices_.back());
    while (slots_[slot] != vertices_.size())
        slot = nextSlot(slot);
    slots_[slot] = 0;
    vertices_.pop_back();
}

/// The old slots go first: the vertices are all that is needed to fill the new ones.
void VertexTable::grow() {
    std::size_t const size = 2 * slots_.size();
    slots_ = std::vector<std::uint32_t>();
    slots_.resize(size);
    std::uint32_t number = 0;
    for (Vertex const& v : vertices_) {
        std::size_t slot = firstSlot(v);
        while (slots_[slot] != 0)
            slot = nextSlot(slot);
        slots_[slot] = ++number;
    }
}

} // namespace toolkit
