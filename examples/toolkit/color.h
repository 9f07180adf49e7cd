#pragma once

#include "geometry.h"

namespace toolkit {

// Red, green and blue of a corner, from 0 to 1.

/// In place of the colour of a corner that has none.
constexpr Vertex kNoColor{-1, -1, -1};
constexpr Vertex kWhite{1, 1, 1};

inline bool isColor(Vertex const& color) noexcept {
    return color.x >= 0;
}

} // namespace toolkit
