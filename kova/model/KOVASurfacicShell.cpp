#include <kova/model/KOVASurfacicShell.h>

#include <algorithm>
#include <cstddef>
#include <limits>
#include <memory>
#include <new>

#include <kova/core/results.h>
#include <kova/model/KOVAStrippedShell.h>

using kova::detail::kSuccess;

static_assert(sizeof(void*) != 4 || sizeof(KOVASurfacicShell) == 52);
static_assert(sizeof(void*) != 4 || sizeof(KOVAStrippedShell) == 52);

namespace {

bool isArray(int count, void const* data) {
    return count == 0 || (count > 0 && data);
}

/// Null when the memory cannot be had; not null for no entries.
template <class T> std::unique_ptr<T[]> copied(int count, T const* data, std::size_t entrySize) {
    std::size_t const entries = static_cast<std::size_t>(count);
    if (entries > static_cast<std::size_t>(std::numeric_limits<std::ptrdiff_t>::max()) / (entrySize * sizeof(T)))
        return nullptr;
    std::unique_ptr<T[]> copy(new (std::nothrow) T[entries * entrySize]);
    if (copy)
        std::copy_n(data, entries * entrySize, copy.get());
    return copy;
}

} // namespace

KOVASurfacicShell::~KOVASurfacicShell() {
    if (owned_ && points_) {
        delete[] points_;
        delete[] faces_;
        delete[] normals_;
        delete[] colors_;
    }
}

KOVIResult KOVASurfacicShell::SetData(int pointCount, float const* points, int normalCount, float const* normals,
                                      int faceCount, int const* faces, int colorCount, float const* colors) {
    pointCount_ = pointCount;
    points_ = const_cast<float*>(points);
    faceCount_ = faceCount;
    faces_ = const_cast<int*>(faces);
    normalCount_ = normalCount;
    normals_ = const_cast<float*>(normals);
    colorCount_ = colorCount;
    colors_ = const_cast<float*>(colors);
    owned_ = 0;
    return kSuccess;
}

KOVIResult KOVASurfacicShell::CopyData(int pointCount, float const* points, int normalCount, float const* normals,
                                       int faceCount, int const* faces, int colorCount, float const* colors) {
    if (!isArray(pointCount, points) || !isArray(normalCount, normals) || !isArray(faceCount, faces) ||
        !isArray(colorCount, colors))
        return kova::detail::kInvalidArgument;
    std::unique_ptr<float[]> ownPoints = copied(pointCount, points, 3);
    std::unique_ptr<float[]> ownNormals = copied(normalCount, normals, 3);
    std::unique_ptr<int[]> ownFaces = copied(faceCount, faces, 1);
    std::unique_ptr<float[]> ownColors = copied(colorCount, colors, 3);
    if (!ownPoints || !ownNormals || !ownFaces || !ownColors)
        return kova::detail::kFailure;
    KOVASurfacicShell::SetData(pointCount, ownPoints.release(), normalCount, ownNormals.release(), faceCount,
                               ownFaces.release(), colorCount, ownColors.release());
    owned_ = 1;
    return kSuccess;
}

KOVIResult KOVASurfacicShell::GetPoints(int& count, float*& data) const {
    count = pointCount_;
    data = points_;
    return kSuccess;
}

KOVIResult KOVASurfacicShell::GetFaces(int& count, int*& data) const {
    count = faceCount_;
    data = faces_;
    return kSuccess;
}

KOVIResult KOVASurfacicShell::GetNormals(int& count, float*& data) const {
    count = normalCount_;
    data = normals_;
    return kSuccess;
}

KOVIResult KOVASurfacicShell::GetColors(int& count, float*& data) const {
    count = colorCount_;
    data = colors_;
    return kSuccess;
}

long KOVASurfacicShell::GetKey() const {
    return key_;
}

int KOVASurfacicShell::GetLOD() const {
    return lod_;
}

int KOVASurfacicShell::GetPass() const {
    return pass_;
}

int KOVASurfacicShell::IsStripped() const {
    return 0;
}

KOVAStrippedShell::~KOVAStrippedShell() = default;

int KOVAStrippedShell::IsStripped() const {
    return 1;
}
