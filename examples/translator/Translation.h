#pragma once

#include <kova/core/KOVIResult.h>

namespace translator {

/// Translates the STL file `input` to the OBJ file `output`, and reports what was read and written as
/// messages. A failure is reported as one error and leaves no output file behind.
KOVIResult translate(char const* input, char const* output);

} // namespace translator
