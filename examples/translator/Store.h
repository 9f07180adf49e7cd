#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "Model.h"

namespace toolkit {

/// A model that is held whole, because it is written more than once or in another order than it came.
class Store {
public:
    /// Copies what the piece refers to. Throws std::bad_alloc.
    void add(Piece const& piece);

    /// Puts the pieces of each part together.
    void sortByPart();
    /// The pieces in the order in which they came, each with a copy of its shell.
    void forEach(std::function<void(Piece const&)> const& use) const;

private:
    struct Entry {
        Part* part;
        Material const* material;
        std::unique_ptr<KOVASurfacicShell> shell;
        std::vector<float> alphas;
    };
    std::vector<Entry> entries_;
};

} // namespace toolkit
