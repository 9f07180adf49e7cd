#pragma once

#include <kova/stream/KOVAInputStream.h>

namespace toolkit {

/// What a reader reads.
struct Input {
    KOVAInputStream& stream;
    long long size;   ///< in bytes, negative where it is not known
    char const* name; ///< for messages, and for files that stand beside it
};

} // namespace toolkit
