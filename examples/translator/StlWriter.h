#pragma once

#include <cstdint>
#include <string>

#include <kova/stream/KOVABlockWriter.h>

#include "OutputFile.h"
#include "TriangleSink.h"

namespace translator {

/// Writes binary STL with normals computed from the corners. The file must be one that can be positioned:
/// the count stands in front of the triangles.
class BinaryStlWriter : public TriangleSink {
public:
    explicit BinaryStlWriter(OutputFile& file);

    void part(std::string_view /*name*/) override {}
    void finish() override;
    std::string description() const override;
    long long bytes() const noexcept override { return out_.offset(); }

protected:
    /// Throws std::length_error where the format cannot count any further.
    void add(Vertex const& a, Vertex const& b, Vertex const& c) override;

private:
    OutputFile& file_;
    KOVABlockWriter out_;
};

/// Writes ASCII STL: a solid for each part that has triangles, normals computed from the corners, and
/// numbers with the fewest digits that keep them exactly.
class AsciiStlWriter : public TriangleSink {
public:
    explicit AsciiStlWriter(KOVAOutputStream& stream) : out_(stream) {}

    void part(std::string_view name) override;
    void finish() override;
    std::string description() const override;
    long long bytes() const noexcept override { return out_.offset(); }

protected:
    void add(Vertex const& a, Vertex const& b, Vertex const& c) override;

private:
    void writeLine(std::string_view word);

    KOVABlockWriter out_;
    std::string name_;
    bool isOpen_ = false;
};

} // namespace translator
