#include "StlReader.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "bytes.h"
#include "characters.h"
#include "report.h"
#include "stlLayout.h"

namespace toolkit {

namespace {

/// What an ASCII triangle takes at least, words and single digits.
constexpr int kShortestFacet = 84;

std::uint32_t countIn(std::string_view header) noexcept {
    return loadNumber<std::uint32_t>(header.data() + kStlCountAt, ByteOrder::Little);
}

bool isFinite(float value) noexcept {
    return std::isfinite(value);
}

} // namespace

KOVIResult StlReader::read(ModelSink& sink) {
    if (size_ == 0)
        return fail(kInvalidFile, file_, atByte(0), "the file is empty");
    bool const ascii = isAscii();
    encoding_ = ascii ? "ASCII" : "binary";
    return ascii ? readAscii(sink) : readBinary(sink);
}

std::string StlReader::description(Found const& found) const {
    std::string text = format() + ", " + std::to_string(found.triangles) + " triangles";
    if (found.vertices)
        text += ", " + std::to_string(*found.vertices) + " vertices";
    return text;
}

/// Binary headers may begin with "solid" too: the size decides where it fits a count, and otherwise
/// whether the beginning is text.
bool StlReader::isAscii() {
    std::string_view start = in_.lookAhead(1024).substr(0, 1024);
    if (start.size() >= kStlHeaderSize && size_ == kStlHeaderSize + kStlFacetSize * std::int64_t{countIn(start)})
        return false;
    skipByteOrderMark(start);
    return equalsIgnoringCase(trimmed(start).substr(0, 5), "solid") && isText(start);
}

/// Takes the header, which must fit the file's size; a pipe has none.
KOVIResult StlReader::readBinaryHeader(long long& count) {
    std::string_view const header = in_.lookAhead(kStlHeaderSize);
    if (header.size() < kStlHeaderSize)
        return fail(kInvalidFile, file_, atByte(static_cast<long long>(header.size())),
                    "neither ASCII nor binary STL: it ends within the header");
    takeHeaderText(header.substr(0, std::min<std::size_t>(header.find('\0'), kStlCountAt)));
    count = countIn(header);
    long long const wanted = kStlHeaderSize + kStlFacetSize * count;
    if (size_ >= 0 && size_ < wanted)
        return fail(kInvalidFile, file_, atByte(kStlCountAt), "%lld triangles need %lld bytes, but the file has %lld",
                    count, wanted, size_);
    if (size_ > wanted)
        return fail(kInvalidFile, file_, atByte(wanted), "%lld bytes follow the last of %lld triangles", size_ - wanted,
                    count);
    in_.take(kStlHeaderSize);
    return kSuccess;
}

KOVIResult StlReader::readBinary(ModelSink& sink) {
    long long count = 0;
    KOVIResult const result = readBinaryHeader(count);
    if (result.IsFailure())
        return result;
    if (size_ >= 0)
        sink.reserve(static_cast<std::size_t>(count));
    ShellBuilder shells(sink);
    for (long long i = 0; i < count; ++i) {
        std::string_view const facet = in_.lookAhead(kStlFacetSize);
        if (facet.size() < kStlFacetSize)
            return fail(kInvalidFile, file_, atByte(in_.offset() + static_cast<long long>(facet.size())),
                        "the file ends in triangle %lld of %lld", i + 1, count);
        float corner[9];
        for (int k = 0; k < 9; ++k) {
            int const at = 12 + 4 * k;
            corner[k] = loadNumber<float>(facet.data() + at, ByteOrder::Little);
        }
        float const* const bad = std::find_if_not(corner, corner + 9, isFinite);
        if (bad != corner + 9)
            return fail(kInvalidFile, file_, atByte(in_.offset() + 12 + 4 * (bad - corner)),
                        "a coordinate of triangle %lld is not a number", i + 1);
        shells.triangle({corner[0], corner[1], corner[2]}, {corner[3], corner[4], corner[5]},
                        {corner[6], corner[7], corner[8]});
        in_.take(kStlFacetSize);
    }
    shells.flush();
    if (!in_.lookAhead(1).empty())
        return fail(kInvalidFile, file_, atByte(in_.offset()), "bytes follow the last of %lld triangles", count);
    return kSuccess;
}

KOVIResult StlReader::unexpected(char const* wanted) {
    std::string_view const word = words_.next();
    return failUnexpected(file_, atByte(words_.wordOffset()), word, wanted);
}

KOVIResult StlReader::unexpectedWord(std::string_view wanted) {
    return unexpected(("\"" + std::string(wanted) + "\"").c_str());
}

KOVIResult StlReader::readVertex(Vertex& vertex) {
    KOVIResult const result = expect("vertex");
    if (result.IsFailure())
        return result;
    for (float* const coordinate : {&vertex.x, &vertex.y, &vertex.z}) {
        if (!words_.acceptNumber(*coordinate))
            return unexpected("a number");
        if (!std::isfinite(*coordinate))
            return fail(kInvalidFile, file_, atByte(words_.wordOffset()), "a coordinate is not a number");
    }
    return kSuccess;
}

/// The rest of a facet, behind its first word.
KOVIResult StlReader::readFacet(ShellBuilder& shells) {
    KOVIResult result = expect("normal");
    // Writers put anything into the normal, not-a-numbers included.
    for (int i = 0; i < 3 && result.IsSuccess(); ++i) {
        if (words_.next().empty())
            result = unexpected("the normal");
    }
    if (result.IsSuccess())
        result = expect("outer");
    if (result.IsSuccess())
        result = expect("loop");
    Vertex corners[3] = {};
    for (Vertex& corner : corners) {
        if (result.IsSuccess())
            result = readVertex(corner);
    }
    if (result.IsSuccess())
        result = expect("endloop");
    if (result.IsSuccess())
        result = expect("endfacet");
    if (result.IsSuccess())
        shells.triangle(corners[0], corners[1], corners[2]);
    return result;
}

/// What stands behind "solid" or "endsolid".
KOVIResult StlReader::readName(std::string& name) {
    std::string_view text;
    if (!words_.restOfLine(text))
        return fail(kInvalidFile, file_, atByte(words_.wordOffset()), "a name is longer than %d bytes", kReadBlock);
    name = printable(text);
    return kSuccess;
}

KOVIResult StlReader::readAscii(ModelSink& sink) {
    if (beginsWithMark(in_.lookAhead(static_cast<int>(kByteOrderMark.size()))))
        in_.take(kByteOrderMark.size());
    sink.reserve(static_cast<std::size_t>(std::max(size_, 0LL) / kShortestFacet));
    ShellBuilder shells(sink);
    std::string name;
    while (!words_.isAtEnd()) {
        if (!words_.accept("solid"))
            return unexpected("\"solid\"");
        KOVIResult result = readName(name);
        shells.begin(sink.scene().addPart(name), nullptr);
        takeHeaderText(name);
        while (result.IsSuccess() && words_.accept("facet"))
            result = readFacet(shells);
        if (result.IsSuccess() && !words_.accept("endsolid"))
            result = unexpected("\"facet\" or \"endsolid\"");
        if (result.IsSuccess())
            result = readName(name);
        if (result.IsFailure())
            return result;
    }
    shells.flush();
    return kSuccess;
}

} // namespace toolkit
