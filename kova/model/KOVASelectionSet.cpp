#include <kova/model/KOVASelectionSet.h>

#include <kova/core/results.h>

static_assert(sizeof(void*) != 4 || sizeof(KOVASelectionSet) == 52);

KOVASelectionSet::KOVASelectionSet(KOVAString const& name, bool current) : current_(current) {
    name_ = name;
}

KOVASelectionSet::KOVASelectionSet(KOVASelectionSet const& other) = default;

KOVASelectionSet& KOVASelectionSet::operator=(KOVASelectionSet const& other) = default;

KOVASelectionSet::~KOVASelectionSet() = default;

KOVIResult KOVASelectionSet::AddMember(void* entity) {
    if (!entity)
        return kova::detail::kFailure;
    members_.add(entity);
    return kova::detail::kSuccess;
}

bool KOVASelectionSet::IsMember(void* entity) const {
    return members_.contains(entity);
}
