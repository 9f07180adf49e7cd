#include "Model.h"

#include "narrow.h"

namespace toolkit {

std::string nameOf(KOVASelectionSet const& group) {
    return narrow(group.GetName());
}

std::string Part::title() const {
    if (!name.empty())
        return name;
    std::string names;
    for (KOVASelectionSet const* const group : groups)
        names += (names.empty() ? "" : " ") + nameOf(*group);
    return names;
}

Part& Scene::addPart(std::string_view name, std::vector<std::string> const& groups) {
    Part& part = parts_.emplace_back(Part{std::string(name), static_cast<int>(parts_.size())});
    for (std::string const& each : groups) {
        KOVASelectionSet*& set = groupsByName_[each];
        if (!set)
            set = &groups_.emplace_back(KOVAString(each.c_str()), false);
        if (set->IsMember(&part))
            continue;
        set->AddMember(&part);
        part.groups.push_back(set);
    }
    return part;
}

Part& Scene::addInstance(Part const& part, std::size_t number) {
    std::vector<std::string> groups;
    for (KOVASelectionSet const* const group : part.groups)
        groups.push_back(nameOf(*group));
    std::string const suffix = "_" + std::to_string(number);
    return addPart(part.name.empty() && !groups.empty() ? ""
                   : part.name.empty()                  ? "instance" + suffix
                                                        : part.name + suffix,
                   groups);
}

Material& Scene::addMaterial(std::string_view name) {
    return materials_.emplace_back(Material{std::string(name), {}});
}

} // namespace toolkit
