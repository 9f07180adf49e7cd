#pragma once

#include <kova/system/KOVAFileHeader.h>

#include "ModelReader.h"

namespace toolkit {

/// What is known of a model's file once it was read: name, format, bytes, date and, where the text in front
/// of the model says so, its unit; and that text. A negative size is not known.
KOVAFileHeader fileHeader(char const* name, long long size, ModelReader const& reader);

} // namespace toolkit
