#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include <kova/stream/KOVABlockWriter.h>

#include "WeldingWriter.h"

namespace toolkit {

/// Writes OBJ: shared vertices, then triangles, each named part's behind its name.
class ObjWriter : public WeldingWriter {
public:
    ObjWriter(KOVAOutputStream& stream, Settings const& settings);

    void finish() override;
    std::string description() const override;
    long long bytes() const noexcept override { return out_.offset(); }

protected:
    void begin(Part const& part, Material const* material) override;

private:
    struct Run {
        std::string name;
        std::size_t firstFace;
    };

    void dropEmptyRun();
    void writeName(std::string_view name);
    void writeFaces(std::size_t begin, std::size_t end);

    KOVABlockWriter out_;
    int digits_;
    std::vector<Run> runs_;
};

} // namespace toolkit
