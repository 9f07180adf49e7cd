#pragma once

#include <cstdint>

#include <kova/core/export.h>

/// Reports messages (level 50). Texts are treated as KOVADebug says.
///
///     KOVAInfo::Printf("%d triangles", count);          // "Message : 12 triangles"
///     KOVAInfo::PrintfAsItIs("%d triangles", count);    // "12 triangles"
class KOVA_API KOVAInfo {
public:
    static void Printf(char const* format, ...) KOVA_PRINTF(1, 2);
    /// Indented like Printf, but written without "Message : ".
    static void PrintfAsItIs(char const* format, ...) KOVA_PRINTF(1, 2);
    static void NoTabPrintf(char const* format, ...) KOVA_PRINTF(1, 2);
    static void Tab() noexcept;
    static void Untab() noexcept;

    static void PrintPointArray(float const* points, int count);
    /// One message a row; three rows of three columns, held row by row.
    static void Print3x3Matrix(float const* m);
    static void Print3x4Matrix(double const* m);
    static void Print4x4Matrix(float const* m);

private:
    KOVAInfo() = default;
    KOVA_LOCAL static std::int32_t indentation_;
};
