#include "ShellBuilder.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "color.h"

namespace toolkit {

ShellBuilder::ShellBuilder(ModelSink& sink) : sink_(sink), points_(9 * kMostTriangles), faces_(3 * kMostTriangles) {}

void ShellBuilder::begin(Part& part, Material const* material) {
    if (&part == part_ && material == material_)
        return;
    flush();
    part_ = &part;
    material_ = material;
}

void ShellBuilder::makeRoom(bool normals, bool colors) {
    unsigned const extras = (normals ? kNormals : 0) | (colors ? kColors : 0);
    if (triangles_ == kMostTriangles || extras != extras_)
        flush();
    extras_ = extras;
    if (normals)
        normals_.resize(points_.size());
    if (colors) {
        colors_.resize(points_.size());
        alphas_.resize(points_.size() / 3);
    }
}

void ShellBuilder::putColors(KOVARGBColor const* colors) {
    for (std::size_t corner = 0; corner < 3; ++corner) {
        std::size_t const at = 3 * triangles_ + corner;
        float rgba[4] = {kNoColor.x, kNoColor.y, kNoColor.z, 1};
        if (colors[corner].IsValid())
            colors[corner].GetRGBA(rgba);
        std::copy_n(rgba, 3, colors_.begin() + static_cast<std::ptrdiff_t>(3 * at));
        alphas_[at] = rgba[3];
        isOpaque_ = isOpaque_ && rgba[3] == 1;
    }
}

void ShellBuilder::triangle(Vertex const (&corners)[3], Vertex const* normals, KOVARGBColor const* colors) {
    makeRoom(normals != nullptr, colors != nullptr);
    put(points_, corners[0], corners[1], corners[2]);
    if (normals)
        put(normals_, normals[0], normals[1], normals[2]);
    if (colors)
        putColors(colors);
    ++triangles_;
}

void ShellBuilder::flush() {
    if (triangles_ == 0)
        return;
    if (!part_)
        part_ = &sink_.scene().addPart({});
    int const corners = static_cast<int>(3 * triangles_);
    // No two corners share a point: who wants shared ones welds them.
    std::iota(faces_.begin(), faces_.begin() + corners, 0);
    KOVASurfacicShell shell(part_->key, 0, pass_++);
    shell.SetData(corners, points_.data(), (extras_ & kNormals) != 0 ? corners : 0, normals_.data(), corners,
                  faces_.data(), (extras_ & kColors) != 0 ? corners : 0, colors_.data());
    triangles_ = 0;
    bool const isOpaque = std::exchange(isOpaque_, true);
    sink_.add({*part_, material_, shell, isOpaque ? nullptr : alphas_.data()});
}

} // namespace toolkit
