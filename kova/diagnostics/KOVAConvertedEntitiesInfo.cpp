#include <kova/diagnostics/KOVAConvertedEntitiesInfo.h>

#include <limits>

static_assert(sizeof(KOVAConvertedEntitiesInfo) == 48);

namespace {

void add(int& sum, int count) noexcept {
    if (count < 0)
        return;
    if (sum < 0)
        sum = 0;
    constexpr int kMost = std::numeric_limits<int>::max();
    sum = count < kMost - sum ? sum + count : kMost;
}

} // namespace

void KOVAConvertedEntitiesInfo::Update(KOVAConvertedEntitiesInfo const& other) noexcept {
    add(groups, other.groups);
    add(assemblies, other.assemblies);
    add(solidBodies, other.solidBodies);
    add(trimBodies, other.trimBodies);
    add(wireBodies, other.wireBodies);
    add(pointBodies, other.pointBodies);
    add(otherBodies, other.otherBodies);
    add(otherEntities, other.otherEntities);
    add(mixedBodies, other.mixedBodies);
    add(singlePointBodies, other.singlePointBodies);
    add(geometricSets, other.geometricSets);
    add(curveSets, other.curveSets);
}
