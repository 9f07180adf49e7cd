#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Model.h"
#include "OutputFile.h"
#include "Settings.h"
#include "Triangles.h"

namespace toolkit {

/// One that stands beside a writer's output.
struct FurtherFile {
    std::unique_ptr<OutputFile> file;
    std::string description; ///< "2 materials"
    long long bytes;         ///< handed to it
};

/// Writes a model to a file, piece by piece, and keeps only what its format forces it to.
class ModelWriter {
public:
    explicit ModelWriter(Degenerate degenerate) : degenerate_(degenerate) {}
    ModelWriter(ModelWriter const&) = delete;
    ModelWriter& operator=(ModelWriter const&) = delete;
    virtual ~ModelWriter() = default;

    /// A hint: so many triangles may come, hardly more.
    virtual void reserve(std::size_t /*triangles*/) {}
    /// The coordinates must be finite. Throws TriangleWithoutArea where one has none, if it is to fail then.
    void add(Piece const& piece) {
        if (&piece.part != part_ || piece.material != material_) {
            part_ = &piece.part;
            material_ = piece.material;
            begin(piece.part, piece.material);
        }
        write(Triangles(piece));
    }
    /// Writes what can be written only when everything is known. Nothing may come any more.
    virtual void finish() = 0;

    /// Once it is finished: the files that belong to the output, for the caller to complete and keep with it. One that
    /// could not be created is among them.
    virtual std::vector<FurtherFile> takeFiles() { return {}; }

    /// What was written, "OBJ, 2 faces, 4 vertices".
    virtual std::string description() const = 0;
    /// The number of different vertices that came, where the format made it known.
    virtual std::optional<std::size_t> vertices() const { return std::nullopt; }
    /// Bytes handed to the stream.
    virtual long long bytes() const noexcept = 0;

    /// Triangles without area that were not written.
    long long dropped() const noexcept { return dropped_; }
    long long written() const noexcept { return triangles_ - dropped_; }

protected:
    /// The triangles that follow are of this part and this material, which may be null.
    virtual void begin(Part const& part, Material const* material) = 0;
    virtual void write(Triangles const& triangles) = 0;

    bool keepsAll() const noexcept { return degenerate_ == Degenerate::Keep; }
    /// For each triangle, as it would be written: counts it, and says whether it is to be left out.
    bool drops(Vertex const& a, Vertex const& b, Vertex const& c) {
        ++triangles_;
        return !keepsAll() && hasNoArea(a, b, c) && drop();
    }

private:
    bool drop() {
        ++dropped_;
        if (degenerate_ == Degenerate::Fail)
            throw TriangleWithoutArea(triangles_);
        return true;
    }

    Degenerate degenerate_;
    Part const* part_ = nullptr;
    Material const* material_ = nullptr;
    long long triangles_ = 0;
    long long dropped_ = 0;
};

} // namespace toolkit
