#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include <kova/core/KOVIResult.h>
#include <kova/stream/KOVAInputStream.h>

#include "BlockReader.h"
#include "Mesh.h"

namespace translator {

/// Reads binary and ASCII STL, whichever the file is. Every fault is reported once, with the file's name
/// and the place, and ends the reading with "Invalid file".
class StlReader {
public:
    /// `size` is the stream's length in bytes.
    StlReader(KOVAInputStream& stream, std::int64_t size, char const* file);

    KOVIResult read(Mesh& mesh);
    /// "binary" or "ASCII", once read.
    char const* encoding() const noexcept { return encoding_; }

private:
    bool isAscii();
    KOVIResult readBinary(Mesh& mesh);
    KOVIResult readAscii(Mesh& mesh);
    KOVIResult readFacet(Mesh& mesh);
    /// The next word in lower case; empty at the end. word_ is valid until the next call.
    std::string_view nextWord();
    void skipLine();
    KOVIResult expect(std::string_view wanted);
    KOVIResult readNumber(float& value);
    KOVIResult readVertex(Vertex& vertex);
    KOVIResult unexpected(char const* wanted);

    BlockReader in_;
    std::int64_t size_;
    char const* file_;
    char const* encoding_ = "";
    std::string word_;
    std::int64_t wordOffset_ = 0;
};

} // namespace translator
