#pragma once

#include <kova/core/export.h>

/// How many entities of each kind a conversion made; -1 for a kind that was not counted.
///
///     KOVAConvertedEntitiesInfo part;
///     part.solidBodies = 3;
///     total.Update(part);
struct KOVA_API KOVAConvertedEntitiesInfo {
    void init(KOVAConvertedEntitiesInfo const& other) noexcept { *this = other; }
    /// Adds what the other has counted; a kind that it did not count stays as it is. Sums stop at the largest int.
    void Update(KOVAConvertedEntitiesInfo const& other) noexcept;

    int groups = -1;
    int assemblies = -1;
    int solidBodies = -1;
    int trimBodies = -1;
    int wireBodies = -1;
    int pointBodies = -1;
    int otherBodies = -1;   ///< counts like the others, but is never printed
    int otherEntities = -1; ///< the same
    int mixedBodies = -1;
    int singlePointBodies = -1;
    int geometricSets = -1;
    int curveSets = -1;
};
