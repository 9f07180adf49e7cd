#pragma once

#include <string>

#include "Input.h"
#include "ModelReader.h"
#include "ShellBuilder.h"
#include "WordReader.h"
#include "report.h"

namespace toolkit {

/// Reads binary and ASCII STL, whichever the file is. Normals are not looked at: the corners tell them better.
class StlReader : public ModelReader {
public:
    explicit StlReader(Input const& input)
        : in_(input.stream, kReadBlock), words_(in_), size_(input.size), file_(input.name) {}

    KOVIResult read(ModelSink& sink) override;
    std::string format() const override { return *encoding_ ? std::string(encoding_) + " STL" : "STL"; }
    std::string description(Found const& found) const override;

private:
    bool isAscii();
    KOVIResult readBinaryHeader(long long& count);
    KOVIResult readBinary(ModelSink& sink);
    KOVIResult readAscii(ModelSink& sink);
    KOVIResult readFacet(ShellBuilder& shells);
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

} // namespace toolkit
