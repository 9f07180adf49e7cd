#include "StlReader.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>

#include "report.h"

namespace translator {

namespace {

constexpr std::int64_t kHeaderSize = 84; ///< 80 bytes of text and the count
constexpr std::int64_t kFacetSize = 50;  ///< normal, three corners, two bytes more
constexpr std::size_t kLongestWord = 256;

bool isSpace(int c) noexcept {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

char lower(int c) noexcept {
    return static_cast<char>(c >= 'A' && c <= 'Z' ? c + ('a' - 'A') : c);
}

/// Little-endian, whatever the machine.
std::uint32_t unsignedAt(char const* bytes) noexcept {
    std::uint32_t value = 0;
    for (int i = 3; i >= 0; --i)
        value = value << 8 | static_cast<unsigned char>(bytes[i]);
    return value;
}

float floatAt(char const* bytes) noexcept {
    std::uint32_t const bits = unsignedAt(bytes);
    float value;
    std::memcpy(&value, &bits, sizeof value);
    return value;
}

bool isText(std::string_view bytes) noexcept {
    return std::all_of(bytes.begin(), bytes.end(), [](char c) {
        unsigned char const byte = static_cast<unsigned char>(c);
        return isSpace(byte) || (byte >= 0x20 && byte != 0x7F);
    });
}

/// A whole decimal number. What is too small for a float becomes 0; false for what is no number.
bool parseFloat(std::string_view text, float& value) noexcept {
    if (!text.empty() && text.front() == '+')
        text.remove_prefix(1);
    char const* const end = text.data() + text.size();
    auto result = std::from_chars(text.data(), end, value);
    if (result.ec == std::errc::result_out_of_range) {
        double wide = 0.0;
        result = std::from_chars(text.data(), end, wide);
        if (result.ec == std::errc() && std::fabs(wide) > 1.0)
            wide = std::numeric_limits<double>::infinity();
        value = static_cast<float>(wide);
    }
    return result.ec == std::errc() && result.ptr == end;
}

} // namespace

StlReader::StlReader(KOVAInputStream& stream, std::int64_t size, char const* file)
    : in_(stream), size_(size), file_(file) {}

KOVIResult StlReader::read(Mesh& mesh) {
    if (size_ == 0)
        return fail(kInvalidFile, file_, 0, "the file is empty");
    bool const ascii = isAscii();
    encoding_ = ascii ? "ASCII" : "binary";
    return ascii ? readAscii(mesh) : readBinary(mesh);
}

/// Binary headers may begin with "solid" too: the size decides where it fits a count, and otherwise
/// whether the beginning is text.
bool StlReader::isAscii() {
    std::string_view const start = in_.peek(1024);
    if (start.size() >= kHeaderSize &&
        size_ == kHeaderSize + kFacetSize * std::int64_t{unsignedAt(start.data() + kHeaderSize - 4)})
        return false;
    std::size_t const first =
        static_cast<std::size_t>(std::find_if_not(start.begin(), start.end(), isSpace) - start.begin());
    std::string word(start.substr(first, 5));
    std::transform(word.begin(), word.end(), word.begin(), lower);
    return word == "solid" && isText(start);
}

KOVIResult StlReader::readBinary(Mesh& mesh) {
    std::string_view const header = in_.peek(static_cast<std::size_t>(kHeaderSize));
    if (header.size() < kHeaderSize)
        return fail(kInvalidFile, file_, in_.offset() + static_cast<std::int64_t>(header.size()),
                    "neither ASCII nor binary STL: it ends within the header");
    std::int64_t const count = unsignedAt(header.data() + kHeaderSize - 4);
    std::int64_t const wanted = kHeaderSize + kFacetSize * count;
    if (size_ < wanted)
        return fail(kInvalidFile, file_, kHeaderSize - 4, "%lld triangles need %lld bytes, but the file has %lld",
                    static_cast<long long>(count), static_cast<long long>(wanted), static_cast<long long>(size_));
    if (size_ > wanted)
        return fail(kInvalidFile, file_, wanted, "%lld bytes follow the last of %lld triangles",
                    static_cast<long long>(size_ - wanted), static_cast<long long>(count));
    in_.take(static_cast<std::size_t>(kHeaderSize));
    mesh.reserve(static_cast<std::size_t>(count));
    for (std::int64_t i = 0; i < count; ++i) {
        std::string_view const facet = in_.peek(static_cast<std::size_t>(kFacetSize));
        if (facet.size() < kFacetSize)
            return fail(kInvalidFile, file_, in_.offset() + static_cast<std::int64_t>(facet.size()),
                        "the file cannot be read to its end");
        float corner[9];
        for (int k = 0; k < 9; ++k) {
            int const at = 12 + 4 * k;
            corner[k] = floatAt(facet.data() + at);
            if (!std::isfinite(corner[k]))
                return fail(kInvalidFile, file_, in_.offset() + at, "a coordinate of triangle %lld is not a number",
                            static_cast<long long>(i + 1));
        }
        mesh.addTriangle({corner[0], corner[1], corner[2]}, {corner[3], corner[4], corner[5]},
                         {corner[6], corner[7], corner[8]});
        in_.take(static_cast<std::size_t>(kFacetSize));
    }
    return kSuccess;
}

std::string_view StlReader::nextWord() {
    int c = in_.peekByte();
    for (; c != -1 && isSpace(c); c = in_.peekByte())
        in_.take(1);
    wordOffset_ = in_.offset();
    word_.clear();
    for (; c != -1 && !isSpace(c) && word_.size() < kLongestWord; c = in_.peekByte()) {
        word_.push_back(lower(c));
        in_.take(1);
    }
    return word_;
}

void StlReader::skipLine() {
    for (int c = in_.peekByte(); c != -1 && c != '\n' && c != '\r'; c = in_.peekByte())
        in_.take(1);
}

KOVIResult StlReader::unexpected(char const* wanted) {
    if (word_.empty())
        return fail(kInvalidFile, file_, wordOffset_, "the file breaks off where %s should follow", wanted);
    std::string shown = word_.substr(0, 40);
    std::replace_if(
        shown.begin(), shown.end(), [](char c) { return static_cast<unsigned char>(c) < 0x20; }, '?');
    return fail(kInvalidFile, file_, wordOffset_, "\"%s\" where %s should follow", shown.c_str(), wanted);
}

KOVIResult StlReader::expect(std::string_view wanted) {
    if (nextWord() == wanted)
        return kSuccess;
    return unexpected(("\"" + std::string(wanted) + "\"").c_str());
}

KOVIResult StlReader::readNumber(float& value) {
    if (!parseFloat(nextWord(), value))
        return unexpected("a number");
    if (!std::isfinite(value))
        return fail(kInvalidFile, file_, wordOffset_, "a coordinate is not a number");
    return kSuccess;
}

KOVIResult StlReader::readVertex(Vertex& vertex) {
    KOVIResult result = expect("vertex");
    for (float* const coordinate : {&vertex.x, &vertex.y, &vertex.z}) {
        if (result.IsSuccess())
            result = readNumber(*coordinate);
    }
    return result;
}

/// The rest of a facet, behind its first word.
KOVIResult StlReader::readFacet(Mesh& mesh) {
    KOVIResult result = expect("normal");
    // Writers put anything into the normal, not-a-numbers included; the corners tell it better.
    for (int i = 0; i < 3 && result.IsSuccess(); ++i) {
        if (nextWord().empty())
            result = unexpected("the normal");
    }
    for (char const* const word : {"outer", "loop"}) {
        if (result.IsSuccess())
            result = expect(word);
    }
    Vertex corners[3] = {};
    for (Vertex& corner : corners) {
        if (result.IsSuccess())
            result = readVertex(corner);
    }
    for (char const* const word : {"endloop", "endfacet"}) {
        if (result.IsSuccess())
            result = expect(word);
    }
    if (result.IsSuccess())
        mesh.addTriangle(corners[0], corners[1], corners[2]);
    return result;
}

KOVIResult StlReader::readAscii(Mesh& mesh) {
    while (!nextWord().empty()) {
        if (word_ != "solid")
            return unexpected("\"solid\"");
        skipLine(); // its name
        while (nextWord() == "facet") {
            KOVIResult const result = readFacet(mesh);
            if (result.IsFailure())
                return result;
        }
        if (word_ != "endsolid")
            return unexpected("\"facet\" or \"endsolid\"");
        skipLine();
    }
    return kSuccess;
}

} // namespace translator
