#include "Store.h"

#include <algorithm>
#include <new>
#include <utility>

namespace toolkit {

namespace {

/// One that has arrays of its own. (Copies made by the class itself share them.)
std::unique_ptr<KOVASurfacicShell> duplicate(KOVASurfacicShell const& shell) {
    auto copy = std::make_unique<KOVASurfacicShell>(static_cast<int>(shell.GetKey()), shell.GetLOD(), shell.GetPass());
    int points = 0;
    int normals = 0;
    int faces = 0;
    int colors = 0;
    float* point = nullptr;
    float* normal = nullptr;
    int* face = nullptr;
    float* color = nullptr;
    shell.GetPoints(points, point);
    shell.GetNormals(normals, normal);
    shell.GetFaces(faces, face);
    shell.GetColors(colors, color);
    if (copy->CopyData(points, point, normals, normal, faces, face, colors, color).IsFailure())
        throw std::bad_alloc();
    return copy;
}

} // namespace

void Store::add(Piece const& piece) {
    int points = 0;
    float* point = nullptr;
    piece.shell.GetPoints(points, point);
    std::vector<float> alphas(piece.alphas, piece.alphas ? piece.alphas + points : nullptr);
    entries_.push_back({&piece.part, piece.material, duplicate(piece.shell), std::move(alphas)});
}

void Store::sortByPart() {
    std::stable_sort(entries_.begin(), entries_.end(),
                     [](Entry const& a, Entry const& b) { return a.part->key < b.part->key; });
}

void Store::forEach(std::function<void(Piece const&)> const& use) const {
    for (Entry const& entry : entries_) {
        std::unique_ptr<KOVASurfacicShell> const shell = duplicate(*entry.shell);
        use({*entry.part, entry.material, *shell, entry.alphas.empty() ? nullptr : entry.alphas.data()});
    }
}

} // namespace toolkit
