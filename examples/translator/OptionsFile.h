#pragma once

#include <string>
#include <vector>

#include <kova/core/KOVIResult.h>
#include <kova/options/KOVACfgFile.h>

namespace toolkit {

/// A file of lines "NAME=VALUE", with the number of each line.
class OptionsFile : private KOVACfgFile {
public:
    struct Line {
        std::string name; ///< empty where the line is none of these
        std::string value;
        long number;
    };

    /// Reports a file that cannot be read.
    KOVIResult read(char const* file);
    /// Without comments, and up to the first section.
    std::vector<Line> const& lines() const noexcept { return lines_; }

private:
    std::vector<Line> lines_;
};

} // namespace toolkit
