#include "PlyWriter.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <type_traits>

#include "bytes.h"
#include "color.h"
#include "numbers.h"

namespace toolkit {

namespace {

/// The nearest of 256 steps.
std::uint8_t step(float component) noexcept {
    return static_cast<std::uint8_t>(std::lround(255 * component));
}

} // namespace

PlyWriter::PlyWriter(KOVAOutputStream& stream, Settings const& settings, PlyEncoding encoding)
    : WeldingWriter(settings, kColors | kAlphas | kNormals | kWhiteForNone), out_(stream), digits_(settings.digits),
      unit_(settings.unit), encoding_(encoding) {}

void PlyWriter::begin(Part const& /*part*/, Material const* material) {
    setColor(material ? &material->color : nullptr);
}

template <class Number> char* PlyWriter::put(char* to, Number value) const noexcept {
    if (encoding_ != PlyEncoding::Ascii)
        return storeNumber(to, value, orderOf(encoding_));
    if constexpr (std::is_same_v<Number, float>)
        to = putDigits(to, value, digits_);
    else
        to = std::to_chars(to, to + 31, value).ptr;
    *to = ' ';
    return to + 1;
}

/// In place of the last blank.
char* PlyWriter::putEnd(char* to) const noexcept {
    if (encoding_ == PlyEncoding::Ascii)
        to[-1] = '\n';
    return to;
}

void PlyWriter::writeHeader() {
    std::string header = "ply\nformat ";
    header += keywordOf(encoding_);
    header += " 1.0\n";
    if (!unit_.empty())
        header += "comment units = " + unit_ + "\n";
    header += "element vertex " + std::to_string(size()) + "\n";
    header += "property float x\nproperty float y\nproperty float z\n";
    if (hasAny(kNormals))
        header += "property float nx\nproperty float ny\nproperty float nz\n";
    if (hasAny(kColors))
        header += "property uchar red\nproperty uchar green\nproperty uchar blue\n";
    if (hasAny(kAlphas))
        header += "property uchar alpha\n";
    // Other readers expect int, as long as it will do.
    bool const needsUnsigned = size() > static_cast<std::size_t>(std::numeric_limits<std::int32_t>::max());
    header += "element face " + std::to_string(faces().size()) + "\nproperty list uchar ";
    header += needsUnsigned ? "uint" : "int";
    header += " vertex_indices\nend_header\n";
    out_.write(header);
}

void PlyWriter::writeVertex(std::size_t index) {
    Vertex const& position = this->position(index);
    Look const& look = this->look(index);
    char* to = out_.room(kLongestRecord);
    to = put(put(put(to, position.x), position.y), position.z);
    if (hasAny(kNormals)) {
        Vertex const normal = withoutMinusZero(look.normal);
        to = put(put(put(to, normal.x), normal.y), normal.z);
    }
    if (hasAny(kColors)) {
        Vertex const color = isColor(look.color) ? look.color : kWhite;
        to = put(put(put(to, step(color.x)), step(color.y)), step(color.z));
    }
    if (hasAny(kAlphas))
        to = put(to, step(look.alpha));
    out_.use(putEnd(to));
}

void PlyWriter::writeFace(Face const& face) {
    char* to = put(out_.room(kLongestRecord), std::uint8_t{3});
    for (std::uint32_t const number : face)
        to = put(to, number - 1);
    out_.use(putEnd(to));
}

void PlyWriter::finish() {
    writeHeader();
    for (std::size_t i = 0; i < size(); ++i)
        writeVertex(i);
    for (Face const& face : faces())
        writeFace(face);
    out_.flush();
}

std::string PlyWriter::description() const {
    return std::string(nameOf(encoding_)) + ", " + counts();
}

} // namespace toolkit
