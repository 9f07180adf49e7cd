#pragma once

#include <cstddef>
#include <vector>

#include "Model.h"
#include "geometry.h"

namespace toolkit {

/// Collects a reader's triangles and sends them on as shells, a few thousand at once.
///
///     ShellBuilder shells(sink);
///     shells.begin(sink.scene().addPart("lid"), nullptr);
///     shells.triangle(a, b, c);
///     ...
///     shells.flush();
class ShellBuilder {
public:
    static constexpr std::size_t kMostTriangles = 4096;

    explicit ShellBuilder(ModelSink& sink);

    /// Those that follow belong to this part, which must be in the sink's scene, and have this material, or null.
    void begin(Part& part, Material const* material);

    /// The corners must be finite.
    void triangle(Vertex const& a, Vertex const& b, Vertex const& c) {
        if (triangles_ == kMostTriangles || extras_ != 0)
            makeRoom(false, false);
        put(points_, a, b, c);
        ++triangles_;
    }
    /// The same with what belongs to each corner; null for none. A corner whose colour is not valid has none.
    void triangle(Vertex const (&corners)[3], Vertex const* normals, KOVARGBColor const* colors);

    /// Sends what waits. What waits when this goes is lost.
    void flush();

private:
    static constexpr unsigned kNormals = 1;
    static constexpr unsigned kColors = 2;

    void makeRoom(bool normals, bool colors);
    void putColors(KOVARGBColor const* colors);
    void put(std::vector<float>& to, Vertex const& a, Vertex const& b, Vertex const& c) const noexcept {
        float* at = to.data() + 9 * triangles_;
        for (Vertex const* const v : {&a, &b, &c}) {
            *at++ = v->x;
            *at++ = v->y;
            *at++ = v->z;
        }
    }

    ModelSink& sink_;
    Part* part_ = nullptr;
    Material const* material_ = nullptr;
    std::size_t triangles_ = 0;
    unsigned extras_ = 0; ///< what the waiting triangles have beside points
    int pass_ = 0;
    std::vector<float> points_;
    std::vector<float> normals_;
    std::vector<float> colors_;
    std::vector<float> alphas_;
    bool isOpaque_ = true; ///< the waiting colours are
    std::vector<int> faces_;
};

} // namespace toolkit
