#pragma once

#include <string>

#include <kova/stream/KOVAInputStream.h>

#include "ModelReader.h"
#include "WordReader.h"
#include "report.h"

namespace translator {

/// Reads binary and ASCII STL, whichever the file is. Normals are not looked at: the corners tell them better.
class StlReader : public ModelReader {
public:
    /// `size` is the stream's length in bytes, negative where it is not known.
    StlReader(KOVAInputStream& stream, long long size, char const* file)
        : in_(stream, kReadBlock), words_(in_), size_(size), file_(file) {}

    KOVIResult read(TriangleSink& sink) override;
    std::string format() const override { return *encoding_ ? std::string(encoding_) + " STL" : "STL"; }
    std::string description(TriangleSink const& sink) const override;

private:
    bool isAscii();
    KOVIResult readBinary(TriangleSink& sink);
    KOVIResult readAscii(TriangleSink& sink);
    KOVIResult readFacet(TriangleSink& sink);
    KOVIResult expect(std::string_view word) { return words_.accept(word) ? kSuccess : unexpectedWord(word); }
    KOVIResult unexpectedWord(std::string_view wanted);
    KOVIResult readVertex(Vertex& vertex);
    KOVIResult readName(std::string& name);
    KOVIResult unexpected(char const* wanted);

    KOVABlockReader in_;
    WordReader words_;
    long long size_;
    char const* file_;
    char const* encoding_ = "";
};

} // namespace translator
