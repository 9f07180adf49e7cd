#pragma once

#include <string>
#include <string_view>

#include <kova/core/KOVIResult.h>
#include <kova/core/export.h>

namespace toolkit {

/// The results that this program ends with.
constexpr KOVIResult kSuccess(0x00000000);
constexpr KOVIResult kNotSupported(0x01000004);
constexpr KOVIResult kUnexpectedError(0x01000007);
constexpr KOVIResult kInvalidComponent(0x01000009);
constexpr KOVIResult kInvalidArgument(0x0100000B);
constexpr KOVIResult kFileNotFound(0x0100000D);
constexpr KOVIResult kFileOpenError(0x0100000E);
constexpr KOVIResult kFileSaveError(0x0100000F);
constexpr KOVIResult kModelTooLarge(0x01000011);
constexpr KOVIResult kInvalidFile(0x01000015);
constexpr KOVIResult kAborted(0x02000003);

/// Where in a file something is wrong.
struct Place {
    enum Kind { Nowhere, ByteOffset, Line };

    Kind kind = Nowhere;
    long long number = 0;
};

constexpr Place kNowhere{};

constexpr Place atByte(long long offset) noexcept {
    return {Place::ByteOffset, offset};
}

/// Lines count from 1.
constexpr Place atLine(long long number) noexcept {
    return {Place::Line, number};
}

/// Fires one error event, "FILE: what is wrong (byte offset N)" or "(line N)", and returns the result.
KOVIResult fail(KOVIResult result, char const* file, Place place, char const* format, ...) KOVA_PRINTF(4, 5);

/// Fires one warning, in the same form.
void warn(char const* file, Place place, char const* format, ...) KOVA_PRINTF(3, 4);

/// Fails because a word is not what the format wants there; an empty one, because the file (or, where the
/// place is a line, the line) ends.
KOVIResult failUnexpected(char const* file, Place place, std::string_view word, char const* wanted);

/// The text with a question mark for each character that cannot be shown.
std::string printable(std::string_view text);

/// Fires one message, "FILE: text".
void inform(char const* file, char const* format, ...) KOVA_PRINTF(2, 3);

} // namespace toolkit
