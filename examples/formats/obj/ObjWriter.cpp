#include "ObjWriter.h"

#include <algorithm>
#include <map>
#include <memory>
#include <set>
#include <utility>

#include <kova/model/KOVACallbackShared.h>

#include "characters.h"
#include "color.h"
#include "numbers.h"
#include "report.h"

namespace toolkit {

namespace {

/// A name that is one word to every reader.
std::string word(std::string name) {
    std::replace_if(name.begin(), name.end(), isSpace, '_');
    if (name.empty() || name.front() == '#')
        name.insert(0, 1, '_');
    return name;
}

/// The output's, with another end and without blanks.
std::string materialsPath(std::string const& output) {
    std::size_t const base = output.find_last_of("/\\") + 1;
    return output.substr(0, base) + word(output.substr(base, output.rfind('.') - base)) + ".mtl";
}

std::string groupsOf(Part const& part) {
    std::string names;
    for (KOVASelectionSet const* const group : part.groups) {
        std::string const name = word(nameOf(*group));
        names += (names.empty() ? "" : " ") + name;
    }
    return names;
}

/// What stands apart behind "#" would be a comment.
std::string withoutComment(std::string_view name) {
    std::string text(name);
    for (std::size_t i = text.find('#'); i != std::string::npos; i = text.find('#', i + 1)) {
        if (i > 0 && isSpace(text[i - 1]))
            text[i - 1] = '_';
    }
    return !text.empty() && text.front() == '#' ? "_" + text : text;
}

void writeName(KOVABlockWriter& out, std::string_view keyword, std::string_view name) {
    out.write(keyword);
    if (!name.empty())
        out.write(' ');
    out.write(withoutComment(name));
    // A backslash at the end would continue the line.
    out.write(!name.empty() && name.back() == '\\' ? " \n" : "\n");
}

char* putCorner(char* to, std::uint32_t vertex, std::uint32_t normal) noexcept {
    to = put(putNumber(to, vertex), "/");
    char* const blank = to;
    to = putNumber(to, normal);
    *blank = '/';
    return to;
}

} // namespace

ObjWriter::ObjWriter(OutputFile& file, Settings const& settings, ObjNormals normals)
    : WeldingWriter(settings, kColors), file_(file), out_(file), digits_(settings.digits), unit_(settings.unit),
      normals_(normals) {}

void ObjWriter::dropEmptyRun() {
    if (!runs_.empty() && runs_.back().firstFace == faces().size())
        runs_.pop_back();
}

void ObjWriter::begin(Part const& part, Material const* material) {
    dropEmptyRun();
    bool const isLeftOut = material && !file_.hasFolder();
    leavesOutMaterials_ = leavesOutMaterials_ || isLeftOut;
    runs_.push_back({&part, isLeftOut ? nullptr : material, faces().size()});
}

/// A corner without a normal, or with one without length, leaves its face without.
void ObjWriter::takeNormals(Triangles const& triangles, std::size_t triangle) {
    if (normals_ != ObjNormals::Keep && normals_ != ObjNormals::Model)
        return;
    Vertex units[3];
    for (int corner = 0; corner < 3; ++corner) {
        units[corner] = unit(triangles.normal(triangle, corner));
        if (units[corner] == Vertex{})
            return;
    }
    normalFaces_.resize(faces().size() - 1);
    normalFaces_.push_back({normalTable_.add(units[0]), normalTable_.add(units[1]), normalTable_.add(units[2])});
}

void ObjWriter::addFaceNormals() {
    if (normals_ != ObjNormals::Face && normals_ != ObjNormals::Model)
        return;
    normalFaces_.resize(faces().size());
    for (std::size_t i = 0; i < faces().size(); ++i) {
        if (i % 4096 == 0)
            KOVACallbackShared::IsAborted();
        Face const& face = faces()[i];
        Vertex const normal = unitNormal(position(face[0] - 1), position(face[1] - 1), position(face[2] - 1));
        if (normalFaces_[i][0] == 0 && !(normal == Vertex{}))
            normalFaces_[i].fill(normalTable_.add(normal));
    }
}

/// Different ones keep different names.
void ObjWriter::nameMaterials() {
    std::set<std::string> taken;
    std::map<std::string, int> numbers; // how many more of a name were wanted
    for (Run const& run : runs_) {
        if (!run.material || materialNames_.count(run.material) > 0)
            continue;
        std::string const wanted = word(run.material->name);
        std::string name = wanted;
        for (int& number = numbers[wanted]; !taken.insert(name).second;)
            name = wanted + "_" + std::to_string(++number + 1);
        materialNames_[run.material] = name;
        materials_.push_back(run.material);
    }
}

void ObjWriter::writeHead() {
    if (!unit_.empty())
        out_.write("# units = " + unit_ + "\n");
    std::string const path = materialsPath(file_.name());
    if (!materials_.empty())
        writeName(out_, "mtllib", path.substr(path.find_last_of("/\\") + 1));
}

void ObjWriter::writeVertices() {
    for (std::size_t i = 0; i < size(); ++i) {
        char* to = putNumbers(put(out_.room(kLongestRecord), "v"), position(i), digits_);
        if (isColor(look(i).color))
            to = putNumbers(to, look(i).color, digits_);
        out_.use(put(to, "\n"));
    }
    for (Vertex const& normal : normalTable_.items())
        out_.use(putVertex(out_.room(kLongestRecord), "vn", normal, digits_));
}

void ObjWriter::writeFaces(std::size_t begin, std::size_t end) {
    for (std::size_t i = begin; i < end; ++i) {
        Face const& face = faces()[i];
        Face const normals = i < normalFaces_.size() ? normalFaces_[i] : Face{};
        char* to = put(out_.room(kLongestRecord), "f");
        for (std::size_t corner = 0; corner < 3; ++corner)
            to = normals[0] == 0 ? putNumber(to, face[corner]) : putCorner(to, face[corner], normals[corner]);
        out_.use(put(to, "\n"));
    }
}

/// Whether the object's name must stand here once more, because the same object has another part in these groups.
/// Nothing can tell parts without a name apart.
bool ObjWriter::beginsAgain(Part const& part, std::string const& groups) {
    int& number = objectNumbers_[part.name];
    auto const latest = [&]() -> Part const*& {
        return parts_[part.name + '\n' + std::to_string(number) + '\n' + groups];
    };
    bool const isAnother = !part.name.empty() && latest() && latest() != &part;
    if (isAnother)
        ++number;
    latest() = &part;
    return isAnother;
}

/// Groups go on with the next object, for the reader too.
void ObjWriter::writePart(Part const& before, Part const& part) {
    std::string const groups = groupsOf(part);
    bool const isAgain = beginsAgain(part, groups);
    if (isAgain || part.name != before.name)
        writeName(out_, "o", part.name);
    if (groups != groupsOf(before))
        writeName(out_, "g", groups);
}

/// Those that change.
void ObjWriter::writeNames(Run const* before, Run const& run) {
    if (!before || before->part != run.part)
        writePart(before ? *before->part : Part{}, *run.part);
    if (run.material != (before ? before->material : nullptr))
        writeName(out_, "usemtl", run.material ? materialNames_[run.material] : "");
}

void ObjWriter::writeMaterials() {
    auto file = std::make_unique<OutputFile>(materialsPath(file_.name()));
    long long bytes = 0;
    if (file->isOpen()) {
        KOVABlockWriter out(*file);
        for (Material const* const material : materials_) {
            float rgba[4];
            material->color.GetRGBA(rgba);
            writeName(out, "newmtl", materialNames_[material]);
            out.use(putVertex(out.room(kLongestRecord), "Kd", {rgba[0], rgba[1], rgba[2]}, digits_));
            out.use(put(putNumber(put(out.room(kLongestRecord), "d"), rgba[3], digits_), "\n"));
        }
        out.flush();
        bytes = out.offset();
    }
    files_.push_back({std::move(file), std::to_string(materials_.size()) + " materials", bytes});
}

void ObjWriter::finish() {
    dropEmptyRun();
    addFaceNormals();
    nameMaterials();
    writeHead();
    writeVertices();
    for (std::size_t i = 0; i < runs_.size(); ++i) {
        bool const isLast = i + 1 == runs_.size();
        writeNames(i > 0 ? &runs_[i - 1] : nullptr, runs_[i]);
        writeFaces(runs_[i].firstFace, isLast ? faces().size() : runs_[i + 1].firstFace);
    }
    out_.flush();
    if (!materials_.empty())
        writeMaterials();
    if (leavesOutMaterials_)
        warn(file_.name(), kNowhere, "materials are left out: their file would have no place");
    if (hasAny(kAlphas))
        warn(file_.name(), kNowhere, "the alphas of vertices are left out: OBJ has none");
}

std::string ObjWriter::description() const {
    std::size_t const normals = normalTable_.items().size();
    return "OBJ, " + counts() + (normals == 0 ? "" : ", " + std::to_string(normals) + " normals");
}

} // namespace toolkit
