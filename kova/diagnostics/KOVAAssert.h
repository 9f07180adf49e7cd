#pragma once

#include <kova/core/export.h>

/// Reports failed assertions (level 90). Texts are treated as KOVADebug says and never indented.
class KOVA_API KOVAAssert {
public:
    static void Printf(char const* format, ...) KOVA_PRINTF(1, 2);
};
