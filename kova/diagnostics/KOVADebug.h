#pragma once

#include <cstdint>

#include <kova/core/export.h>

/// Reports debug messages (level 10), and times a stretch of code.
///
/// Texts are cut at 1023 characters. A text is read as a format once more, without arguments: "%%" that
/// it still contains becomes "%", anything else stays as it is. A null format does nothing.
class KOVA_API KOVADebug {
public:
    /// Fires the text, behind three blanks for each Tab.
    static void Printf(char const* format, ...) KOVA_PRINTF(1, 2);
    static void NoTabPrintf(char const* format, ...) KOVA_PRINTF(1, 2);
    static void Tab() noexcept;
    static void Untab() noexcept;

    /// One message a point; a point is three consecutive floats. Nothing for null.
    static void PrintPointArray(float const* points, int count);
    /// One message a row; three rows of four columns, held column by column.
    static void Print3x4Matrix(double const* m);
    /// One message a row; four rows of four columns, held row by row.
    static void Print4x4Matrix(float const* m);

    /// Starts a timer; hand the token to StopTimer exactly once, which frees it.
    static void* StartTimer();
    /// Milliseconds since StartTimer; 0 for a null token.
    static float StopTimer(void* token);

private:
    KOVADebug() = default;
    KOVA_LOCAL static std::int32_t indentation_;
};
