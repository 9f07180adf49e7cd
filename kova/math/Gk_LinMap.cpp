#include <kova/math/Gk_LinMap.h>

#include <kova/stream/KOVAStreamFormatter.h>

static_assert(sizeof(void*) != 4 || sizeof(Gk_LinMap) == 24);

KOVAStreamFormatter& operator<<(KOVAStreamFormatter& out, Gk_LinMap const& map) {
    return out << out.margin << "#Map: " << map.slope() << "( x) + " << map.abscissa() << out.newline;
}
