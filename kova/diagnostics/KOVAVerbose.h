#pragma once

#include <cstdint>

#include <kova/core/export.h>

/// Reports verbose messages (level 30). Texts are treated as KOVADebug says.
class KOVA_API KOVAVerbose {
public:
    static void Printf(char const* format, ...) KOVA_PRINTF(1, 2);
    static void NoTabPrintf(char const* format, ...) KOVA_PRINTF(1, 2);
    static void Tab() noexcept;
    static void Untab() noexcept;

    static void PrintPointArray(float const* points, int count);
    static void Print3x4Matrix(double const* m);
    static void Print4x4Matrix(float const* m);

private:
    KOVAVerbose() = default;
    KOVA_LOCAL static std::int32_t indentation_;
};
