#pragma once

#include <cmath>

#include <kova/core/export.h>

/// Comparisons with a tolerance; what differs by exactly the tolerance still counts as equal. A comparison
/// with a not-a-number is false.
class KOVA_API Gk_Func {
public:
    static bool equal(double a, double b, double tolerance) noexcept { return std::fabs(a - b) <= tolerance; }
    static bool lesseq(double a, double b, double tolerance) noexcept { return a <= b + tolerance; }
};
