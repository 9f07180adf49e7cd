#include "WeldingWriter.h"

namespace toolkit {

WeldingWriter::WeldingWriter(Settings const& settings, unsigned kept) : ModelWriter(settings.degenerate), kept_(kept) {
    if (settings.weldTolerance > 0)
        grid_.emplace(settings.weldTolerance);
}

/// Vertices that were made one, or left out, are not all that came.
std::optional<std::size_t> WeldingWriter::vertices() const {
    return grid_ || dropped() > 0 ? std::nullopt : std::make_optional(size());
}

std::string WeldingWriter::counts() const {
    return std::to_string(faces_.size()) + " faces, " + std::to_string(size()) + " vertices";
}

void WeldingWriter::reserve(std::size_t triangles) {
    faces_.reserve(triangles);
    // A closed surface has half as many vertices as triangles.
    table_.reserve(triangles / 2 + 2);
}

void WeldingWriter::setColor(KOVARGBColor const* color) {
    base_ = {};
    if (!color || !color->IsValid())
        return;
    float rgba[4];
    color->GetRGBA(rgba);
    base_.color = {rgba[0], rgba[1], rgba[2]};
    base_.alpha = rgba[3];
}

/// The vertices so far have no look.
void WeldingWriter::beginLooks() {
    hasLooks_ = true;
    corners_.reserve(positions().capacity());
    for (std::uint32_t position = 1; position <= positions().size(); ++position)
        corners_.add({position, 0});
}

std::uint32_t WeldingWriter::lookOf(Triangles const& triangles, std::size_t triangle, int corner) {
    Look look = base_;
    Vertex const color = triangles.color(triangle, corner);
    if (keeps(kColors) && isColor(color)) {
        look.color = color;
        if (triangles.hasAlphas())
            look.alpha = triangles.alpha(triangle, corner);
    }
    known_ |= (isColor(look.color) ? kColors : 0) | (look.alpha != 1 ? kAlphas : 0);
    if (!keeps(kAlphas))
        look.alpha = 1;
    if (keeps(kWhiteForNone) && look.color == kWhite)
        look.color = kNoColor;
    if (keeps(kNormals) && triangles.hasNormals()) {
        look.normal = triangles.normal(triangle, corner);
        known_ |= kNormals;
    }
    return look == plain_ ? 0 : looks_.add(look);
}

WeldingWriter::Face WeldingWriter::withLooks(Face const& at, Triangles const& triangles, std::size_t triangle) {
    Face face;
    for (int corner = 0; corner < 3; ++corner) {
        std::size_t const i = static_cast<std::size_t>(corner);
        face[i] = corners_.add({at[i], lookOf(triangles, triangle, corner)});
    }
    return face;
}

void WeldingWriter::write(Triangles const& triangles) {
    bool const areColored = keeps(kColors) && (triangles.hasColors() || isColor(base_.color));
    if (!hasLooks_ && (areColored || (keeps(kNormals) && triangles.hasNormals())))
        beginLooks();
    for (std::size_t i = 0; i < triangles.size(); ++i) {
        std::size_t const before = positions().size();
        Face at;
        for (int corner = 0; corner < 3; ++corner)
            at[static_cast<std::size_t>(corner)] = number(triangles.position(i, corner));
        if (dropsFace(at))
            removeFrom(before);
        else
            addFace(at, triangles, i);
    }
}

void WeldingWriter::addFace(Face const& at, Triangles const& triangles, std::size_t triangle) {
    faces_.push_back(hasLooks_ ? withLooks(at, triangles, triangle) : at);
    if (triangles.hasNormals())
        takeNormals(triangles, triangle);
}

bool WeldingWriter::dropsFace(Face const& at) {
    std::vector<Vertex> const& all = positions();
    return drops(all[at[0] - 1], all[at[1] - 1], all[at[2] - 1]);
}

/// Removes positions that only a dropped face has.
void WeldingWriter::removeFrom(std::size_t count) {
    while (positions().size() > count)
        grid_ ? grid_->removeLast() : table_.removeLast();
}

} // namespace toolkit
