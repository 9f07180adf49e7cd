#pragma once

namespace toolkit {

/// Of binary STL.
constexpr int kStlHeaderSize = 84; ///< 80 bytes of text and the count
constexpr int kStlCountAt = 80;
constexpr int kStlFacetSize = 50; ///< normal, three corners, two bytes more

} // namespace toolkit
