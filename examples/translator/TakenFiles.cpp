#include "TakenFiles.h"

#include <filesystem>
#include <system_error>

#include "files.h"

namespace toolkit {

namespace {

/// Without links and detours; of a file that is not there, its place.
std::string wholePath(std::string const& name) {
    std::error_code error;
    std::filesystem::path const path = std::filesystem::absolute(systemPath(name.c_str()), error);
    std::filesystem::path const whole = std::filesystem::weakly_canonical(path, error);
    return (error ? path : whole).u8string();
}

} // namespace

void TakenFiles::add(std::string const& name, char const* use) {
    if (!name.empty())
        uses_.try_emplace(wholePath(name), use);
}

char const* TakenFiles::useOf(std::string const& name) const {
    auto const found = uses_.find(wholePath(name));
    return found == uses_.end() ? nullptr : found->second;
}

} // namespace toolkit
