#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include <kova/options/KOVAOptions.h>

#include "OptionDescription.h"

namespace toolkit {

/// What becomes of triangles without area.
enum class Degenerate { Keep, Drop, Fail };

/// How a model is translated: the options that all formats share, read, and all of them as they came.
struct Settings {
    /// The options must have every one that is asked for, and outlive this.
    explicit Settings(KOVAOptions const& options);

    KOVAOptions const& options;
    int digits;           ///< of numbers in text, up to 17; 0 for the fewest that keep each exactly
    double weldTolerance; ///< in units of the output; where vertices are shared, so near ones are one
    Degenerate degenerate;
    std::string unit; ///< of the output's lengths, in small letters; empty where it is not known
};

/// Those that all formats share.
std::vector<OptionDescription> sharedOptions();

// The value of an option; what there is for nothing where the set has none of that name.
bool isOn(KOVAOptions const& options, char const* name);
int wholeNumber(KOVAOptions const& options, char const* name);
double number(KOVAOptions const& options, char const* name);
/// The place of the option's text among words, in any case; their number when it is none of them.
std::size_t wordAt(KOVAOptions const& options, char const* name, std::vector<std::string> const& words);

} // namespace toolkit
