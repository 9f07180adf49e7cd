#pragma once

#include <algorithm>
#include <cstddef>
#include <limits>
#include <optional>
#include <string>
#include <string_view>

#include "Settings.h"
#include "triangles.h"

namespace translator {

/// The smallest box around vertices.
struct Box {
    void add(Vertex const& v) noexcept {
        low = {std::min(low.x, v.x), std::min(low.y, v.y), std::min(low.z, v.z)};
        high = {std::max(high.x, v.x), std::max(high.y, v.y), std::max(high.z, v.z)};
    }

    static constexpr float kFar = std::numeric_limits<float>::infinity();
    Vertex low{kFar, kFar, kFar};
    Vertex high{-kFar, -kFar, -kFar};
};

/// Where readers put a model: part after part, triangle after triangle, so that a writer keeps only what
/// its format forces it to.
class TriangleSink {
public:
    explicit TriangleSink(Degenerate degenerate) : degenerate_(degenerate) {}
    TriangleSink(TriangleSink const&) = delete;
    TriangleSink& operator=(TriangleSink const&) = delete;
    virtual ~TriangleSink() = default;

    /// A hint: so many triangles may come, hardly more.
    virtual void reserve(std::size_t /*triangles*/) {}
    /// The triangles that follow belong to a new part; an empty name is none.
    void part(std::string_view name) {
        parts_ = parts();
        partBegin_ = triangles_;
        beginPart(name);
    }
    /// The corners must be finite. Throws TriangleWithoutArea where it has none, if it is to fail then.
    void triangle(Vertex const& a, Vertex const& b, Vertex const& c) {
        ++triangles_;
        box_.add(a);
        box_.add(b);
        box_.add(c);
        add(a, b, c);
    }
    /// Writes what can be written only when everything is known. Nothing may come any more.
    virtual void finish() = 0;

    /// What was written, "OBJ, 2 faces, 4 vertices".
    virtual std::string description() const = 0;
    /// The number of different vertices, where the format made it known.
    virtual std::optional<std::size_t> vertices() const { return std::nullopt; }
    /// Bytes handed to the stream.
    virtual long long bytes() const noexcept = 0;

    /// All that came.
    long long triangles() const noexcept { return triangles_; }
    /// Those without area that were not written.
    long long dropped() const noexcept { return dropped_; }
    long long written() const noexcept { return triangles_ - dropped_; }
    /// Those that triangles came for, the one without a name included.
    long long parts() const noexcept { return parts_ + (triangles_ > partBegin_ ? 1 : 0); }
    /// All zeros without triangles.
    Box boundingBox() const noexcept { return triangles_ == 0 ? Box{{}, {}} : box_; }

protected:
    virtual void beginPart(std::string_view name) = 0;
    virtual void add(Vertex const& a, Vertex const& b, Vertex const& c) = 0;
    bool keepsAll() const noexcept { return degenerate_ == Degenerate::Keep; }
    /// Whether the triangle, as it would be written, is to be left out; it is then counted.
    bool drops(Vertex const& a, Vertex const& b, Vertex const& c) {
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
    long long triangles_ = 0;
    long long dropped_ = 0;
    long long parts_ = 0;     ///< before the one that began last
    long long partBegin_ = 0; ///< how many triangles had come when it began
    Box box_;
};

} // namespace translator
