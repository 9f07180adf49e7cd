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
    BinaryStlWriter(OutputFile& file, Settings const& settings);

    void finish() override;
    std::string description() const override;
    long long bytes() const noexcept override { return out_.offset(); }

protected:
    void beginPart(std::string_view /*name*/) override {}
    /// Throws std::length_error where the format cannot count any further.
    void add(Vertex const& a, Vertex const& b, Vertex const& c) override;

private:
    OutputFile& file_;
    KOVABlockWriter out_;
};

/// Writes ASCII STL: a solid for each part that has triangles, and normals computed from the corners.
class AsciiStlWriter : public TriangleSink {
public:
    AsciiStlWriter(KOVAOutputStream& stream, Settings const& settings)
        : TriangleSink(settings.degenerate), out_(stream), digits_(settings.digits) {}

    void finish() override;
    std::string description() const override;
    long long bytes() const noexcept override { return out_.offset(); }

protected:
    void beginPart(std::string_view name) override;
    void add(Vertex const& a, Vertex const& b, Vertex const& c) override;

private:
    void writeLine(std::string_view word);

    KOVABlockWriter out_;
    int digits_;
    std::string name_;
    bool isOpen_ = false;
};

} // namespace translator
