#pragma once

#include <cstddef>

#include "Model.h"
#include "color.h"
#include "geometry.h"

namespace toolkit {

/// The triangles of a piece.
class Triangles {
public:
    explicit Triangles(Piece const& piece) : alphas_(piece.alphas) {
        KOVASurfacicShell const& shell = piece.shell;
        int points = 0;
        shell.GetPoints(points, points_);
        int count = 0;
        shell.GetFaces(count, faces_);
        size_ = static_cast<std::size_t>(count) / 3;
        int normals = 0;
        shell.GetNormals(normals, normals_);
        int colors = 0;
        shell.GetColors(colors, colors_);
        if (normals == 0)
            normals_ = nullptr;
        if (colors == 0)
            colors_ = nullptr;
    }

    std::size_t size() const noexcept { return size_; }
    bool hasNormals() const noexcept { return normals_ != nullptr; }
    /// Of some corners.
    bool hasColors() const noexcept { return colors_ != nullptr; }
    /// Without them all colours are wholly opaque.
    bool hasAlphas() const noexcept { return alphas_ != nullptr; }

    // Of a triangle's corner, 0 to 2.
    Vertex position(std::size_t triangle, int corner) const noexcept { return at(points_, triangle, corner); }
    Vertex normal(std::size_t triangle, int corner) const noexcept { return at(normals_, triangle, corner); }
    /// kNoColor where it has none.
    Vertex color(std::size_t triangle, int corner) const noexcept {
        return hasColors() ? at(colors_, triangle, corner) : kNoColor;
    }
    float alpha(std::size_t triangle, int corner) const noexcept { return alphas_[point(triangle, corner)]; }

private:
    std::size_t point(std::size_t triangle, int corner) const noexcept {
        return static_cast<std::size_t>(faces_[3 * triangle + static_cast<std::size_t>(corner)]);
    }
    Vertex at(float const* values, std::size_t triangle, int corner) const noexcept {
        float const* const v = values + 3 * point(triangle, corner);
        return {v[0], v[1], v[2]};
    }

    std::size_t size_ = 0;
    float* points_ = nullptr;
    int* faces_ = nullptr;
    float* normals_ = nullptr;
    float* colors_ = nullptr;
    float const* alphas_;
};

} // namespace toolkit
