#pragma once

#include <string>
#include <unordered_map>

namespace toolkit {

/// The files that a run has a use for: no output may take their place.
class TakenFiles {
public:
    /// `use` completes "FILE: is ..." and lives as long. An empty name is no file.
    void add(std::string const& name, char const* use);
    /// What the file is there for, by whatever name; null for a free one.
    char const* useOf(std::string const& name) const;

private:
    std::unordered_map<std::string, char const*> uses_; ///< by whole paths
};

} // namespace toolkit
