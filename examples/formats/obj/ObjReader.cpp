#include "ObjReader.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <system_error>

#include "characters.h"
#include "color.h"
#include "files.h"
#include "objText.h"
#include "report.h"

namespace toolkit {

namespace {

/// The integer at `at`, which is not 0; null where there is none.
char const* readIndex(char const* at, char const* end, long long& index) noexcept {
    auto const result = std::from_chars(at, end, index);
    return result.ec == std::errc() && index != 0 ? result.ptr : nullptr;
}

/// Behind a vertex: "/texture", "//normal" or "/texture/normal"; textures are checked and left out. Returns the end;
/// null where it is none of these.
char const* readMore(char const* at, char const* end, ObjIndices& indices) noexcept {
    long long texture = 0;
    ++at;
    if (at == end || *at != '/')
        at = readIndex(at, end, texture);
    if (!at || at == end || *at != '/')
        return at;
    auto const normal = std::from_chars(at + 1, end, indices.normal);
    indices.hasNormal = true;
    return normal.ec == std::errc() ? normal.ptr : nullptr;
}

/// Returns the end; null where there is no corner.
inline char const* readIndices(char const* begin, char const* end, ObjIndices& indices) noexcept {
    auto const vertex = std::from_chars(begin, end, indices.vertex);
    if (vertex.ec != std::errc())
        return nullptr;
    char const* const at = vertex.ptr != end && *vertex.ptr == '/' ? readMore(vertex.ptr, end, indices) : vertex.ptr;
    return at && endsWord(at, end) ? at : nullptr;
}

/// Null where there is none. Negative indices count back from the latest; 0 and what is out of range come out too
/// large.
Vertex const* find(std::vector<Vertex> const& all, long long index) noexcept {
    std::uint64_t const count = all.size();
    std::uint64_t const number = static_cast<std::uint64_t>(index);
    std::uint64_t const at = index > 0 ? number - 1 : number + count;
    return at < count ? &all[static_cast<std::size_t>(at)] : nullptr;
}

bool isFile(std::string const& name) {
    std::error_code error;
    return std::filesystem::is_regular_file(systemPath(name.c_str()), error);
}

} // namespace

KOVIResult ObjReader::unexpected(std::string_view statement, char const* wanted) {
    skipBlanks(statement);
    return failUnexpected(file_, atLine(lines_.number()), firstWord(statement), wanted);
}

// --- vertices and faces

/// At least three, to the end of the line; keeps no more than `most`.
KOVIResult ObjReader::readNumbers(std::string_view text, float* numbers, int most, int& known) {
    for (known = 0; !isDone(text) || known < 3; ++known) {
        float value = 0;
        if (!takeNumber(text, value))
            return unexpected(text, "a number");
        if (!std::isfinite(value))
            return fail(kInvalidFile, file_, atLine(lines_.number()), "a coordinate is not a number");
        if (known < most)
            numbers[known] = value;
    }
    return kSuccess;
}

/// Three coordinates. A fourth number is a weight; with six, a colour follows.
KOVIResult ObjReader::readVertex(std::string_view numbers) {
    float n[6];
    int known = 0;
    KOVIResult const result = readNumbers(numbers, n, 6, known);
    if (result.IsFailure())
        return result;
    vertices_.push_back({n[0], n[1], n[2]});
    if (known == 6)
        addColor(n + 3);
    return kSuccess;
}

void ObjReader::addColor(float const* color) {
    Vertex const shown = {clampedShare(color[0]), clampedShare(color[1]), clampedShare(color[2])};
    if (!(shown == Vertex{color[0], color[1], color[2]}))
        ++beyondColors_;
    colors_.resize(vertices_.size() - 1, kNoColor);
    colors_.push_back(shown);
}

KOVIResult ObjReader::readNormal(std::string_view numbers) {
    float n[3];
    int known = 0;
    KOVIResult const result = readNumbers(numbers, n, 3, known);
    if (result.IsSuccess())
        normals_.push_back({n[0], n[1], n[2]});
    return result;
}

KOVIResult ObjReader::failCorner(std::string_view corners, ObjIndices const* indices) {
    if (!indices)
        return unexpected(corners, "a corner");
    bool const isVertex = !find(vertices_, indices->vertex);
    return fail(kInvalidFile, file_, atLine(lines_.number()), "there is no %s %lld; %zu are defined so far",
                isVertex ? "vertex" : "normal", isVertex ? indices->vertex : indices->normal,
                isVertex ? vertices_.size() : normals_.size());
}

/// Has normals where all corners have.
void ObjReader::addTriangle(FaceCorner const& a, FaceCorner const& b, FaceCorner const& c, ShellBuilder& shells) const {
    bool const hasNormals = a.normal && b.normal && c.normal;
    FaceCorner const corners[3] = {a, b, c};
    Vertex positions[3];
    Vertex normals[3];
    KOVARGBColor colors[3];
    for (int i = 0; i < 3; ++i) {
        positions[i] = *corners[i].position;
        if (hasNormals)
            normals[i] = *corners[i].normal;
        std::size_t const at = static_cast<std::size_t>(corners[i].position - vertices_.data());
        if (at < colors_.size() && isColor(colors_[at]))
            colors[i] = KOVARGBColor(colors_[at].x, colors_[at].y, colors_[at].z, 1.0F);
    }
    shells.triangle(positions, hasNormals ? normals : nullptr, colors_.empty() ? nullptr : colors);
}

KOVIResult ObjReader::readFace(std::string_view corners, ModelSink& sink, ShellBuilder& shells) {
    if (!isBegun_)
        beginShell(sink.scene(), shells);
    bool const isPlain = normals_.empty() && colors_.empty();
    FaceCorner first{};
    FaceCorner last{};
    int known = 0;
    for (; !isDone(corners); ++known) {
        ObjIndices indices{};
        char const* const stop = readIndices(corners.data(), corners.data() + corners.size(), indices);
        FaceCorner const corner = {find(vertices_, indices.vertex),
                                   indices.hasNormal ? find(normals_, indices.normal) : nullptr};
        if (!stop || !corner.position || (indices.hasNormal && !corner.normal))
            return failCorner(corners, stop ? &indices : nullptr);
        if (known == 0)
            first = corner;
        else if (known > 1 && isPlain)
            shells.triangle(*first.position, *last.position, *corner.position);
        else if (known > 1)
            addTriangle(first, last, corner, shells);
        last = corner;
        takeTo(corners, stop);
    }
    if (known < 3)
        return fail(kInvalidFile, file_, atLine(lines_.number()), "a face with %d corners", known);
    ++faces_;
    return kSuccess;
}

// --- what faces belong to

/// One part for each object and the groups in it, whatever their order; it goes on where they come back.
void ObjReader::beginShell(Scene& scene, ShellBuilder& shells) {
    std::vector<std::string> sorted = groups_;
    std::sort(sorted.begin(), sorted.end());
    sorted.erase(std::unique(sorted.begin(), sorted.end()), sorted.end());
    std::string key = object_ + '\n' + std::to_string(objectNumbers_[object_]);
    for (std::string const& group : sorted)
        key += '\n' + group;
    Part*& part = parts_[key];
    if (!part)
        part = &scene.addPart(object_, groups_);
    shells.begin(*part, material_);
    isBegun_ = true;
}

/// Beside the input, unless the name says all.
std::string ObjReader::besideInput(std::string const& name) const {
    if (systemPath(name.c_str()).is_absolute())
        return name;
    std::string const input = file_;
    return input.substr(0, input.find_last_of("/\\") + 1) + name;
}

/// Several names stand beside each other, but one may have blanks itself. Where no file is there, it is one name.
void ObjReader::readLibraries(std::string_view names, Scene& scene) {
    std::string const whole = nameIn(names);
    std::vector<std::string> const words = namesIn(names);
    bool const areWords = !isFile(besideInput(whole)) && std::any_of(words.begin(), words.end(), [&](auto const& word) {
        return isFile(besideInput(word));
    });
    for (std::string const& name : areWords ? words : std::vector<std::string>{whole}) {
        if (libraries_.insert(name).second)
            readLibrary(name, scene);
    }
}

void ObjReader::readLibrary(std::string const& name, Scene& scene) {
    std::string const path = besideInput(name);
    // What is no file may have no end.
    File const file(isFile(path) ? openFile(systemPath(path.c_str()), "rb") : nullptr);
    if (!file) {
        warn(file_, atLine(lines_.number()), "the material library \"%s\" cannot be opened", name.c_str());
        return;
    }
    addFurtherFile(path);
    MaterialReader(file.get(), path, scene, materials_).read();
}

void ObjReader::useMaterial(std::string const& name) {
    auto const [entry, isNew] = materials_.try_emplace(name, nullptr);
    material_ = entry->second;
    if (!isNew || name.empty() || ++unknownMaterials_ > 1)
        return;
    unknownMaterial_ = name;
    unknownMaterialLine_ = lines_.number();
}

void ObjReader::warnOfMaterials() const {
    std::string const more = " and " + std::to_string(unknownMaterials_ - 1) + " more";
    if (unknownMaterials_ > 0)
        warn(file_, atLine(unknownMaterialLine_), "there is no material \"%s\"%s; what uses it has none",
             unknownMaterial_.c_str(), unknownMaterials_ > 1 ? more.c_str() : "");
}

/// An object goes on where its name comes back, but the same name right behind its faces begins another.
void ObjReader::beginObject(std::string const& name) {
    if (name == object_ && !name.empty() && faces_ > facesBefore_)
        ++objectNumbers_[name];
    object_ = name;
    facesBefore_ = faces_;
}

/// A new object leaves the groups as they are.
void ObjReader::readName(std::string_view keyword, std::string_view rest, Scene& scene) {
    if (keyword == "mtllib")
        readLibraries(rest, scene);
    else if (keyword == "usemtl")
        useMaterial(nameIn(rest));
    else if (keyword == "o")
        beginObject(nameIn(rest));
    else if (keyword == "g")
        groups_ = namesIn(rest);
    else
        return;
    isBegun_ = false;
}

// --- the file

KOVIResult ObjReader::readStatement(std::string_view statement, ModelSink& sink, ShellBuilder& shells) {
    skipBlanks(statement);
    std::string_view const keyword = firstWord(statement);
    std::string_view const rest = statement.substr(keyword.size());
    if (keyword == "v")
        return readVertex(rest);
    if (keyword == "f")
        return readFace(rest, sink, shells);
    if (keyword == "vn")
        return readNormal(rest);
    if (!isText(keyword) || rest.find('\0') != std::string_view::npos)
        return fail(kInvalidFile, file_, atLine(lines_.number()), "not an OBJ file: it is not all text");
    if (keyword.empty() && vertices_.empty())
        takeHeaderText(statement.substr(std::min(statement.find_first_not_of('#'), statement.size())));
    else
        readName(keyword, rest, sink.scene());
    return kSuccess;
}

KOVIResult ObjReader::read(ModelSink& sink) {
    // An empty file is a model without anything; a pipe that has nothing broke before.
    if (size_ < 0 && in_.lookAhead(1).empty())
        return fail(kInvalidFile, file_, atByte(0), "the file is empty");
    ShellBuilder shells(sink);
    std::string_view statement;
    while (lines_.next(statement)) {
        if (lines_.number() == 1)
            skipByteOrderMark(statement);
        KOVIResult const result = readStatement(statement, sink, shells);
        if (result.IsFailure())
            return result;
    }
    if (lines_.isTooLong())
        return fail(kInvalidFile, file_, atLine(lines_.number()), "a line is longer than %d bytes", kReadBlock);
    if (in_.offset() < size_)
        return fail(kInvalidFile, file_, atByte(in_.offset()), "the file cannot be read to its end");
    shells.flush();
    warnOfMaterials();
    if (beyondColors_ > 0)
        warn(file_, kNowhere, "%lld vertices whose colours go beyond 0 to 1", beyondColors_);
    return kSuccess;
}

std::string ObjReader::description(Found const& found) const {
    return "OBJ, " + std::to_string(faces_) + " faces, " + std::to_string(found.triangles) + " triangles, " +
           std::to_string(vertices_.size()) + " vertices";
}

} // namespace toolkit
