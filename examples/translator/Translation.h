#pragma once

#include <kova/core/KOVIResult.h>

#include "Settings.h"

namespace translator {

/// Translates a file: OBJ where its name ends in ".obj", else STL, to OBJ or STL by the name of `output`.
/// Reports what was read and written as messages, and the tasks of the conversion as their events. A failure is
/// reported as one error and leaves no output file behind.
KOVIResult translate(char const* input, char const* output, Settings const& settings = {});

} // namespace translator
