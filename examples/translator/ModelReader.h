#pragma once

#include <optional>
#include <string>

#include <kova/core/KOVIResult.h>

#include "TriangleSink.h"

namespace translator {

/// How many bytes of a file are read at once, and how long a line of it may be.
constexpr int kReadBlock = 262144;

/// Reads a model's file. Every fault is reported once, with the file's name and the place, and ends the
/// reading with "Invalid file".
class ModelReader {
public:
    ModelReader() = default;
    ModelReader(ModelReader const&) = delete;
    ModelReader& operator=(ModelReader const&) = delete;
    virtual ~ModelReader() = default;

    virtual KOVIResult read(TriangleSink& sink) = 0;
    /// What was read, once it is: "binary STL, 2 triangles". The number of vertices that the sink found is
    /// added where the format itself does not tell one.
    virtual std::string description(TriangleSink const& sink) const = 0;
};

} // namespace translator
