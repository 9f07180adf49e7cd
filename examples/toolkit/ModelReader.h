#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <kova/core/KOVIResult.h>

#include "Model.h"

namespace toolkit {

/// How many bytes of a file are read at once, and how long a line of it may be.
constexpr int kReadBlock = 262144;

/// What came out of reading.
struct Found {
    long long triangles;
    std::optional<std::size_t> vertices; ///< different ones, where the writer counted them
};

/// Reads a model's file. Every fault is reported once, with the file's name and the place, and ends the
/// reading with "Invalid file".
class ModelReader {
public:
    ModelReader() = default;
    ModelReader(ModelReader const&) = delete;
    ModelReader& operator=(ModelReader const&) = delete;
    virtual ~ModelReader() = default;

    virtual KOVIResult read(ModelSink& sink) = 0;
    /// "binary STL"; as much of it as is known yet.
    virtual std::string format() const = 0;
    /// What was read, once it is: "binary STL, 2 triangles". The number of vertices that the writer found is
    /// added where the format itself does not tell one.
    virtual std::string description(Found const& found) const = 0;
    /// What the file says of itself in front of the model; empty where it says nothing.
    std::string const& headerText() const noexcept { return headerText_; }
    /// The unit of length, as the file calls it there: "mm" of "Units = mm"; empty where it does not.
    std::string const& units() const noexcept { return units_; }
    /// The files beside the input that were read too.
    std::vector<std::string> const& furtherFiles() const noexcept { return furtherFiles_; }

protected:
    /// For each text in front of the model: keeps the beginning of the first that is more than blanks, and what the
    /// first that names a known unit (else the last that says so) calls it.
    void takeHeaderText(std::string_view text);
    void addFurtherFile(std::string const& name) { furtherFiles_.push_back(name); }

private:
    std::string headerText_;
    std::string units_;
    std::vector<std::string> furtherFiles_;
};

} // namespace toolkit
