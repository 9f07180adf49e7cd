#pragma once

#include <kova/core/export.h>

/// The tolerances that comparisons share.
class KOVA_API Gk_Def {
public:
    static constexpr double FuzzReal = 1e-10; ///< of pure numbers: scales, slopes, elements of a rotation
    static constexpr double FuzzPos = 1e-6;   ///< of positions, in the model's length unit
};
