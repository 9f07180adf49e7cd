#include "PlyReader.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <iterator>
#include <limits>

#include "characters.h"
#include "report.h"

namespace toolkit {

namespace {

constexpr std::string_view kFirstLine = "ply";
constexpr std::string_view kVertex = "vertex";
constexpr std::string_view kFace = "face";

/// Rounded; what is too large becomes infinite.
float toFloat(double value) noexcept {
    constexpr double kMost = std::numeric_limits<float>::max();
    if (std::fabs(value) > kMost)
        return std::copysign(std::numeric_limits<float>::infinity(), static_cast<float>(std::copysign(1.0, value)));
    return static_cast<float>(value);
}

bool isIndexList(PlyProperty const& property) noexcept {
    return property.countType && infoOf(property.type).isInteger &&
           (property.name == "vertex_indices" || property.name == "vertex_index");
}

/// The fewest bytes that an element takes: in text a digit and a blank for each value.
long long leastSize(PlyElement const& element, bool isText) noexcept {
    long long size = 0;
    for (PlyProperty const& property : element.properties)
        size += isText ? 2 : infoOf(property.countType.value_or(property.type)).size;
    return size;
}

/// What a line of the header says to people, with the blank in front; empty where it says something else.
std::string_view textOf(std::string_view line) noexcept {
    for (std::string_view const keyword : {"comment", "obj_info"}) {
        if (line == keyword)
            return " ";
        if (line.substr(0, keyword.size()) == keyword && isSpace(line[keyword.size()]))
            return line.substr(keyword.size());
    }
    return {};
}

/// "vertex" or "face", of a header.
std::vector<PlyElement>::const_iterator find(std::vector<PlyElement> const& elements, std::string_view name) noexcept {
    return std::find_if(elements.begin(), elements.end(),
                        [name](PlyElement const& element) { return element.name == name; });
}

} // namespace

PlyReader::Role PlyReader::roleOf(PlyProperty const& property) noexcept {
    constexpr std::string_view kNames[] = {"x", "y", "z", "nx", "ny", "nz", "red", "green", "blue", "alpha"};
    constexpr std::string_view kDiffuse = "diffuse_";
    std::string_view name = property.name;
    bool const isDiffuse = name.substr(0, kDiffuse.size()) == kDiffuse;
    if (isDiffuse)
        name.remove_prefix(kDiffuse.size());
    auto const* const found = std::find(std::begin(kNames), std::end(kNames), name);
    Role const role = static_cast<Role>(found - std::begin(kNames));
    return property.countType || (isDiffuse && role < kRed) ? kOther : role;
}

void PlyReader::readHeader() {
    if (values_.isEmpty())
        throw PlyFailure{fail(kInvalidFile, file_, atByte(0), "the file is empty")};
    if (!values_.beginsWith(kFirstLine) || values_.headerLine() != kFirstLine)
        throw PlyFailure{fail(kInvalidFile, file_, atLine(1), "not a PLY file: its first line is not \"ply\"")};
    for (std::string_view line = values_.headerLine(); line != "end_header"; line = values_.headerLine()) {
        std::string_view const text = textOf(line);
        takeHeaderText(text);
        if (line.empty() || !text.empty())
            continue;
        KOVIResult const result = header_.take(line, file_, values_.place().number);
        if (result.IsFailure())
            throw PlyFailure{result};
    }
    if (!header_.encoding)
        throw PlyFailure{fail(kInvalidFile, file_, values_.place(), "the header names no format")};
    checkOrder();
    values_.endHeader(*header_.encoding);
}

/// What corners are must be known when a face comes.
void PlyReader::checkOrder() const {
    auto const& elements = header_.elements;
    auto const vertex = find(elements, kVertex);
    if (vertex != elements.end() && find(elements, kFace) < vertex)
        throw PlyFailure{fail(kNotSupported, file_, atLine(find(elements, kFace)->line),
                              "faces in front of the vertices are not read")};
}

void PlyReader::checkCount(PlyElement const& element) const {
    long long const least = leastSize(element, values_.isText());
    // The last line of a text need not end.
    long long const room = values_.left() + (values_.isText() ? 1 : 0);
    if (values_.left() >= 0 && least > 0 && element.count > room / least)
        throw PlyFailure{fail(kInvalidFile, file_, atLine(element.line),
                              "%lld times \"%s\" need more than the %lld bytes that are left", element.count,
                              printable(element.name.substr(0, 40)).c_str(), values_.left())};
}

long long PlyReader::readCount(PlyProperty const& list) {
    auto const count = static_cast<long long>(values_.next(*list.countType));
    if (count < 0)
        throw PlyFailure{fail(kInvalidFile, file_, values_.place(), "a list of %lld values", count)};
    return count;
}

void PlyReader::skip(PlyProperty const& property) {
    long long const count = property.countType ? readCount(property) : 1;
    for (long long i = 0; i < count; ++i)
        values_.next(property.type);
}

/// A coordinate, a component of a normal, or one of a colour, from 0 to 1.
float PlyReader::readRole(PlyProperty const& property, Role role) {
    double const value = values_.next(property.type);
    if (role < kNormalX && !std::isfinite(toFloat(value)))
        throw PlyFailure{fail(kInvalidFile, file_, values_.place(), "a coordinate is not a number")};
    if (role < kRed)
        return toFloat(value);
    bool const isInteger = infoOf(property.type).isInteger;
    double const most = isInteger ? 255 : 1;
    if (!(value >= 0 && value <= most))
        throw PlyFailure{
            fail(kInvalidFile, file_, values_.place(), "%g for a colour, which goes from 0 to %g", value, most)};
    return static_cast<float>(value / most);
}

void PlyReader::readVertices(PlyElement const& element) {
    std::vector<Role> roles;
    for (PlyProperty const& property : element.properties)
        roles.push_back(roleOf(property));
    auto const has = [&roles](std::initializer_list<Role> wanted) {
        return std::all_of(wanted.begin(), wanted.end(),
                           [&roles](Role role) { return std::find(roles.begin(), roles.end(), role) != roles.end(); });
    };
    if (!has({kX, kY, kZ}))
        throw PlyFailure{fail(kInvalidFile, file_, atLine(element.line), "vertices without x, y or z")};
    bool const hasNormals = has({kNormalX, kNormalY, kNormalZ});
    bool const hasColors = has({kRed, kGreen, kBlue});
    // What is there in part only is left out.
    std::replace_if(
        roles.begin(), roles.end(),
        [&](Role role) { return role >= kNormalX && !(role < kRed ? hasNormals : hasColors); }, kOther);
    for (long long i = 0; i < element.count; ++i) {
        values_.beginElement(element, i);
        Row const row = readVertex(element, roles);
        values_.endElement();
        vertices_.push_back({row[kX], row[kY], row[kZ]});
        Vertex const normal{row[kNormalX], row[kNormalY], row[kNormalZ]};
        bool const isFinite = std::isfinite(normal.x) && std::isfinite(normal.y) && std::isfinite(normal.z);
        if (hasNormals)
            normals_.push_back(isFinite ? normal : Vertex{});
        if (hasColors)
            colors_.push_back({row[kRed], row[kGreen], row[kBlue], row[kAlpha]});
    }
}

PlyReader::Row PlyReader::readVertex(PlyElement const& element, std::vector<Role> const& roles) {
    Row row{};
    row[kAlpha] = 1;
    for (std::size_t i = 0; i < roles.size(); ++i) {
        if (roles[i] == kOther)
            skip(element.properties[i]);
        else
            row[roles[i]] = readRole(element.properties[i], roles[i]);
    }
    return row;
}

std::size_t PlyReader::readIndex(PlyType type) {
    double const index = values_.next(type);
    if (index < 0 || index >= static_cast<double>(vertices_.size()))
        throw PlyFailure{fail(kInvalidFile, file_, values_.place(), "there is no vertex %.0f; the file has %zu, from 0",
                              index, vertices_.size())};
    return static_cast<std::size_t>(index);
}

void PlyReader::addTriangle(std::size_t const (&corners)[3], ShellBuilder& shells) const {
    Vertex const positions[] = {vertices_[corners[0]], vertices_[corners[1]], vertices_[corners[2]]};
    if (normals_.empty() && colors_.empty()) {
        shells.triangle(positions[0], positions[1], positions[2]);
        return;
    }
    Vertex normals[3] = {};
    KOVARGBColor colors[3];
    for (std::size_t i = 0; i < 3; ++i) {
        if (!normals_.empty())
            normals[i] = normals_[corners[i]];
        if (!colors_.empty()) {
            auto const [red, green, blue, alpha] = colors_[corners[i]];
            colors[i] = {red, green, blue, alpha};
        }
    }
    shells.triangle(positions, normals_.empty() ? nullptr : normals, colors_.empty() ? nullptr : colors);
}

void PlyReader::readFace(PlyProperty const& indices, ShellBuilder& shells) {
    long long const count = readCount(indices);
    if (count < 3)
        throw PlyFailure{fail(kInvalidFile, file_, values_.place(), "a face with %lld corners", count)};
    std::size_t const first = readIndex(indices.type);
    std::size_t last = readIndex(indices.type);
    for (long long i = 2; i < count; ++i) {
        std::size_t const next = readIndex(indices.type);
        addTriangle({first, last, next}, shells);
        last = next;
    }
    ++faces_;
}

void PlyReader::readFaces(PlyElement const& element, ShellBuilder& shells) {
    auto const indices = std::find_if(element.properties.begin(), element.properties.end(), isIndexList);
    if (indices == element.properties.end())
        throw PlyFailure{fail(kInvalidFile, file_, atLine(element.line), "faces without a list of vertex_indices")};
    for (long long i = 0; i < element.count; ++i) {
        values_.beginElement(element, i);
        for (PlyProperty const& property : element.properties) {
            if (&property == &*indices)
                readFace(property, shells);
            else
                skip(property);
        }
        values_.endElement();
    }
}

void PlyReader::readElement(PlyElement const& element, ModelSink& sink, ShellBuilder& shells) {
    // Nothing stands in the file for those without properties, however many they are.
    if (element.count == 0 || (element.properties.empty() && element.name != kVertex && element.name != kFace))
        return;
    checkCount(element);
    std::size_t const checked = values_.left() < 0 ? 0 : static_cast<std::size_t>(element.count);
    if (element.name == kVertex) {
        vertices_.reserve(checked);
        readVertices(element);
    } else if (element.name == kFace) {
        // No face takes less than four bytes.
        sink.reserve(std::min(checked, static_cast<std::size_t>(std::max(values_.left(), 0LL)) / 4 + 1));
        readFaces(element, shells);
    } else {
        for (long long i = 0; i < element.count; ++i) {
            values_.beginElement(element, i);
            for (PlyProperty const& property : element.properties)
                skip(property);
            values_.endElement();
        }
    }
}

KOVIResult PlyReader::read(ModelSink& sink) {
    try {
        ShellBuilder shells(sink);
        readHeader();
        for (PlyElement const& element : header_.elements)
            readElement(element, sink, shells);
        values_.expectEnd();
        shells.flush();
    } catch (PlyFailure const& failure) {
        return failure.result;
    }
    return kSuccess;
}

std::string PlyReader::format() const {
    return header_.encoding ? nameOf(*header_.encoding) : "PLY";
}

std::string PlyReader::description(Found const& found) const {
    return format() + ", " + std::to_string(faces_) + " faces, " + std::to_string(found.triangles) + " triangles, " +
           std::to_string(vertices_.size()) + " vertices";
}

} // namespace toolkit
