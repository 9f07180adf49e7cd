#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "ModelWriter.h"
#include "VertexGrid.h"
#include "VertexTable.h"

namespace toolkit {

/// The base of writers whose formats have vertices first, and then triangles of their numbers. Equal corners are
/// one vertex, and where there is a tolerance, near ones. What a writer keeps beside positions must be equal too:
/// corners of different colours are different vertices.
class WeldingWriter : public ModelWriter {
public:
    // What is kept beside positions.
    static constexpr unsigned kColors = 1;
    static constexpr unsigned kNormals = 2;
    static constexpr unsigned kAlphas = 4; ///< of the colours
    /// Corners without a colour are written white, so they are no other vertices than white ones.
    static constexpr unsigned kWhiteForNone = 8;

    explicit WeldingWriter(Settings const& settings, unsigned kept = 0);

    void reserve(std::size_t triangles) override;
    std::optional<std::size_t> vertices() const override;

protected:
    /// Numbers of vertices, from 1.
    using Face = std::array<std::uint32_t, 3>;

    void write(Triangles const& triangles) override;

    /// For writers that keep colours: the triangles that follow have this one where they have none of their own, and
    /// its alpha where all of theirs are opaque. Null for none.
    void setColor(KOVARGBColor const* color);

    /// For writers that keep normals apart from vertices: called behind each new one of the faces that has them.
    virtual void takeNormals(Triangles const& /*triangles*/, std::size_t /*triangle*/) {}

    // The vertices; `index` counts from 0.
    std::size_t size() const noexcept { return hasLooks_ ? corners_.items().size() : positions().size(); }
    Vertex const& position(std::size_t index) const noexcept {
        return positions()[hasLooks_ ? corners_.items()[index].position - 1 : index];
    }
    Look const& look(std::size_t index) const noexcept {
        std::uint32_t const number = hasLooks_ ? corners_.items()[index].look : 0;
        return number == 0 ? plain_ : looks_.items()[number - 1];
    }
    std::vector<Face> const& faces() const noexcept { return faces_; }
    /// "2 faces, 4 vertices"
    std::string counts() const;
    /// Whether any vertex came with this. Alphas count where they are not 1, and even if they are not kept.
    bool hasAny(unsigned what) const noexcept { return (known_ & what) != 0; }

private:
    std::vector<Vertex> const& positions() const noexcept { return grid_ ? grid_->vertices() : table_.items(); }
    std::uint32_t number(Vertex const& corner) { return grid_ ? grid_->add(corner) : table_.add(corner); }
    bool keeps(unsigned what) const noexcept { return (kept_ & what) != 0; }
    void beginLooks();
    std::uint32_t lookOf(Triangles const& triangles, std::size_t triangle, int corner);
    Face withLooks(Face const& at, Triangles const& triangles, std::size_t triangle);
    void addFace(Face const& at, Triangles const& triangles, std::size_t triangle);
    // Of positions.
    bool dropsFace(Face const& at);
    void removeFrom(std::size_t count);

    unsigned kept_;
    unsigned known_ = 0; ///< what vertices came with
    VertexTable table_;
    std::optional<VertexGrid> grid_; ///< in place of the table where near vertices are one
    std::vector<Face> faces_;

    bool hasLooks_ = false; ///< vertices are corners; before the first look they are positions
    CornerTable corners_;
    LookTable looks_;
    Look const plain_;
    Look base_; ///< of corners that have nothing of their own
};

} // namespace toolkit
