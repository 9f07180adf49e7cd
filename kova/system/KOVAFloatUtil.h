#pragma once

#include <kova/core/export.h>

/// The numbers that texts spell, the same in every locale. All operations are static.
class KOVA_API KOVAFloatUtil {
public:
    /// What strtod gives in the "C" locale: white space, a sign, then decimal or hexadecimal digits,
    /// "inf" or "nan". `end`, unless null, is set to where the number ends; to the text when there is none,
    /// and the result is then 0. A null text is an empty one.
    static double kovastrtod(char const* text, char** end);

    /// Converts the decimal number, "inf" or "nan" that begins at `begin`, with or without a sign, to the
    /// nearest value; what is too large becomes infinite. Returns where it ends: `begin` when there is
    /// none, and the value is then left alone.
    static char const* read(char const* begin, char const* end, double& value);
    static char const* read(char const* begin, char const* end, float& value);
};
