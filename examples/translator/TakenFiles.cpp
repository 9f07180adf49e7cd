#include "TakenFiles.h"

#include "files.h"

namespace toolkit {

void TakenFiles::add(std::string const& name, char const* use) {
    if (!name.empty())
        uses_.try_emplace(wholePath(name.c_str()), use);
}

char const* TakenFiles::useOf(std::string const& name) const {
    auto const found = uses_.find(wholePath(name.c_str()));
    return found == uses_.end() ? nullptr : found->second;
}

} // namespace toolkit
