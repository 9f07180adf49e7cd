#pragma once

#include <cstdint>
#include <string>

#include <kova/stream/KOVABlockWriter.h>

#include "PlyHeader.h"
#include "WeldingWriter.h"

namespace toolkit {

/// Writes PLY: shared vertices, with normals and colours where any has them, then triangles.
class PlyWriter : public WeldingWriter {
public:
    PlyWriter(KOVAOutputStream& stream, Settings const& settings, PlyEncoding encoding);

    void finish() override;
    std::string description() const override;
    long long bytes() const noexcept override { return out_.offset(); }

protected:
    void begin(Part const& part, Material const* material) override;

private:
    void writeHeader();
    void writeVertex(std::size_t index);
    void writeFace(Face const& face);

    // A value of a line; what ends the line.
    template <class Number> char* put(char* to, Number value) const noexcept;
    char* putEnd(char* to) const noexcept;

    KOVABlockWriter out_;
    int digits_;
    std::string unit_;
    PlyEncoding encoding_;
};

} // namespace toolkit
