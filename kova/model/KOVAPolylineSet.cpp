#include <kova/model/KOVAPolylineSet.h>

#include <kova/core/results.h>

using kova::detail::kSuccess;

static_assert(sizeof(void*) != 4 || sizeof(KOVAPolylineSet) == 36);

KOVAPolylineSet::~KOVAPolylineSet() {
    if (owned_)
        delete[] points_;
}

KOVIResult KOVAPolylineSet::SetData(int pointCount, float const* points, int polylineCount, int const* polylines,
                                    int colorCount, float const* colors) {
    pointCount_ = pointCount;
    points_ = const_cast<float*>(points);
    polylineCount_ = polylineCount;
    polylines_ = const_cast<int*>(polylines);
    owned_ = 0;
    colorCount_ = colorCount;
    colors_ = const_cast<float*>(colors);
    return kSuccess;
}

KOVIResult KOVAPolylineSet::GetPoints(int& count, float*& data) const {
    count = pointCount_;
    data = points_;
    return kSuccess;
}

KOVIResult KOVAPolylineSet::GetPolylines(int& count, int*& data) const {
    count = polylineCount_;
    data = polylines_;
    return kSuccess;
}

KOVIResult KOVAPolylineSet::GetColors(int& count, float*& data) const {
    count = colorCount_;
    data = colors_;
    return kSuccess;
}

int KOVAPolylineSet::GetKey() const {
    return key_;
}
