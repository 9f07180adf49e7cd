#pragma once

#include <kova/core/KOVIResult.h>

/// The results that the library's own operations return.
namespace kova::detail {

constexpr KOVIResult kSuccess(0x00000000);
constexpr KOVIResult kNoEntity(0x00000002);
constexpr KOVIResult kFailure(0x01000001);
constexpr KOVIResult kErrorEncountered(0x01000002);
constexpr KOVIResult kEmptyOption(0x01000008); ///< a failure without a text of its own
constexpr KOVIResult kInvalidObject(0x0100000A);
constexpr KOVIResult kInvalidArgument(0x0100000B);
constexpr KOVIResult kFileOpenError(0x0100000E);

} // namespace kova::detail
