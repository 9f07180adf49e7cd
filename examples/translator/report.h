#pragma once

#include <cstdint>

#include <kova/core/KOVIResult.h>
#include <kova/core/export.h>

namespace translator {

/// The results that this program ends with.
constexpr KOVIResult kSuccess(0x00000000);
constexpr KOVIResult kNoEntity(0x00000002);
constexpr KOVIResult kUnexpectedError(0x01000007);
constexpr KOVIResult kInvalidArgument(0x0100000B);
constexpr KOVIResult kFileNotFound(0x0100000D);
constexpr KOVIResult kFileOpenError(0x0100000E);
constexpr KOVIResult kFileSaveError(0x0100000F);
constexpr KOVIResult kInvalidFile(0x01000015);

/// Fires one error event, "FILE: what is wrong (byte offset N)", without the offset when it is
/// negative, and returns the result.
KOVIResult fail(KOVIResult result, char const* file, std::int64_t byteOffset, char const* format, ...)
    KOVA_PRINTF(4, 5);

/// Fires one message, "FILE: text".
void inform(char const* file, char const* format, ...) KOVA_PRINTF(2, 3);

} // namespace translator
