#include "StlWriter.h"

#include <limits>
#include <stdexcept>

#include <kova/public/KOVIUnit.h>

#include "bytes.h"
#include "numbers.h"
#include "statedUnit.h"
#include "stlLayout.h"

namespace toolkit {

namespace {

char* putCoordinates(char* to, Vertex const& v) noexcept {
    for (float const coordinate : {v.x, v.y, v.z})
        to = storeNumber(to, coordinate, ByteOrder::Little);
    return to;
}

/// What a name says of the unit is read as the file's, so it must be the one that coordinates have now.
std::string withUnit(std::string name, std::string const& unit) {
    std::string_view const stated = statedUnit(name);
    KOVIUnit const before(std::string(stated).c_str());
    if (before.IsValid() && !unit.empty() && KOVIUnitValue{before} != KOVIUnitValue{KOVIUnit(unit.c_str())})
        name.replace(static_cast<std::size_t>(stated.data() - name.data()), stated.size(), unit);
    return name;
}

} // namespace

BinaryStlWriter::BinaryStlWriter(OutputFile& file, Settings const& settings)
    : ModelWriter(settings.degenerate), file_(file), out_(file) {
    // Readers take "solid" for the beginning of an ASCII file.
    std::string header = "binary STL by kova-translate";
    if (!settings.unit.empty())
        header += ", units = " + settings.unit;
    header.resize(kStlHeaderSize);
    out_.write(header);
}

void BinaryStlWriter::write(Triangles const& triangles) {
    for (std::size_t i = 0; i < triangles.size(); ++i)
        writeTriangle(triangles.position(i, 0), triangles.position(i, 1), triangles.position(i, 2));
}

void BinaryStlWriter::writeTriangle(Vertex const& a, Vertex const& b, Vertex const& c) {
    if (drops(a, b, c))
        return;
    if (written() > std::numeric_limits<std::uint32_t>::max())
        throw std::length_error("more than 4294967295 triangles, which binary STL cannot count");
    char* to = putCoordinates(out_.room(kStlFacetSize), unitNormal(a, b, c));
    to = putCoordinates(putCoordinates(putCoordinates(to, a), b), c);
    *to++ = 0;
    *to++ = 0;
    out_.use(to);
}

void BinaryStlWriter::finish() {
    out_.flush();
    char count[4];
    storeNumber(count, static_cast<std::uint32_t>(written()), ByteOrder::Little);
    file_.overwrite(kStlCountAt, {count, sizeof count});
}

std::string BinaryStlWriter::description() const {
    return "binary STL, " + std::to_string(written()) + " triangles";
}

void AsciiStlWriter::writeLine(std::string_view word) {
    out_.write(word);
    if (!name_.empty())
        out_.write(' ');
    out_.write(name_);
    out_.write('\n');
}

void AsciiStlWriter::endSolid() {
    if (isOpen_)
        writeLine("endsolid");
    isOpen_ = false;
}

void AsciiStlWriter::begin(Part const& part, Material const* /*material*/) {
    if (&part == part_)
        return;
    endSolid();
    part_ = &part;
    name_ = withUnit(part.title(), unit_);
}

void AsciiStlWriter::write(Triangles const& triangles) {
    for (std::size_t i = 0; i < triangles.size(); ++i)
        writeTriangle(triangles.position(i, 0), triangles.position(i, 1), triangles.position(i, 2));
}

void AsciiStlWriter::writeTriangle(Vertex const& a, Vertex const& b, Vertex const& c) {
    if (drops(a, b, c))
        return;
    if (!isOpen_)
        writeLine("solid");
    isOpen_ = true;
    char* to = putVertex(out_.room(kLongestRecord), "  facet normal", unitNormal(a, b, c), digits_);
    to = put(to, "    outer loop\n");
    for (Vertex const* const corner : {&a, &b, &c})
        to = putVertex(to, "      vertex", *corner, digits_);
    out_.use(put(to, "    endloop\n  endfacet\n"));
}

void AsciiStlWriter::finish() {
    if (written() == 0) {
        name_.clear();
        writeLine("solid");
        isOpen_ = true;
    }
    endSolid();
    out_.flush();
}

std::string AsciiStlWriter::description() const {
    return "ASCII STL, " + std::to_string(written()) + " triangles";
}

} // namespace toolkit
