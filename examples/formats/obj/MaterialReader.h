#pragma once

#include <cstdio>
#include <string>
#include <string_view>
#include <unordered_map>

#include <kova/stream/KOVABlockReader.h>
#include <kova/stream/KOVAFileInputStream.h>

#include "LineReader.h"
#include "Model.h"
#include "ModelReader.h"

namespace toolkit {

/// Reads the names and colours of a material library (".mtl"): newmtl, Kd, d and Tr; other statements are left out.
/// A material is white and opaque where the library does not say otherwise.
class MaterialReader {
public:
    using Materials = std::unordered_map<std::string, Material const*>;

    /// The file stays the caller's; its name is for messages.
    MaterialReader(std::FILE* file, std::string name, Scene& scene, Materials& materials)
        : stream_(file), in_(stream_, kReadBlock), lines_(in_), name_(std::move(name)), scene_(scene),
          materials_(materials) {}

    /// Adds the materials to the scene and their names to the table, where a later one takes the place of an earlier
    /// one. Mistakes are warned of and cost no more than their lines.
    void read();

private:
    bool readStatement(std::string_view statement);
    bool begin(std::string const& name);
    bool readColor(std::string_view numbers);
    bool readOpacity(std::string_view number, bool isTransparency);
    void mistake(char const* text);

    KOVAFileInputStream stream_;
    KOVABlockReader in_;
    LineReader lines_;
    std::string name_;
    Scene& scene_;
    Materials& materials_;
    Material* material_ = nullptr;
    float rgba_[4] = {};
    int mistakes_ = 0;
};

} // namespace toolkit
