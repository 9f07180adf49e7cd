#pragma once

#include <cstdint>
#include <string>

#include <kova/stream/KOVABlockWriter.h>

#include "ModelWriter.h"
#include "OutputFile.h"

namespace toolkit {

/// Writes binary STL with normals computed from the corners. The file must be one that can be positioned:
/// the count stands in front of the triangles.
class BinaryStlWriter : public ModelWriter {
public:
    BinaryStlWriter(OutputFile& file, Settings const& settings);

    void finish() override;
    std::string description() const override;
    long long bytes() const noexcept override { return out_.offset(); }

protected:
    void begin(Part const& /*part*/, Material const* /*material*/) override {}
    /// Throws std::length_error where the format cannot count any further.
    void write(Triangles const& triangles) override;

private:
    void writeTriangle(Vertex const& a, Vertex const& b, Vertex const& c);

    OutputFile& file_;
    KOVABlockWriter out_;
};

/// Writes ASCII STL: a solid for each part that has triangles, and normals computed from the corners.
class AsciiStlWriter : public ModelWriter {
public:
    AsciiStlWriter(KOVAOutputStream& stream, Settings const& settings)
        : ModelWriter(settings.degenerate), out_(stream), digits_(settings.digits), unit_(settings.unit) {}

    void finish() override;
    std::string description() const override;
    long long bytes() const noexcept override { return out_.offset(); }

protected:
    void begin(Part const& part, Material const* material) override;
    void write(Triangles const& triangles) override;

private:
    void writeTriangle(Vertex const& a, Vertex const& b, Vertex const& c);
    void endSolid();
    void writeLine(std::string_view word);

    KOVABlockWriter out_;
    int digits_;
    std::string unit_;
    Part const* part_ = nullptr;
    std::string name_;
    bool isOpen_ = false;
};

} // namespace toolkit
