#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "Input.h"
#include "LineReader.h"
#include "MaterialReader.h"
#include "ModelReader.h"
#include "ShellBuilder.h"
#include "geometry.h"

namespace toolkit {

/// Of a face's corner, as they stand in a file.
struct ObjIndices {
    long long vertex;
    long long normal;
    bool hasNormal;
};

/// Reads the vertices with their colours, the normals and the faces of OBJ, objects, groups, and materials with
/// their libraries. Faces become fans of triangles around their first corner; other statements are left out.
class ObjReader : public ModelReader {
public:
    explicit ObjReader(Input const& input)
        : in_(input.stream, kReadBlock), lines_(in_), size_(input.size), file_(input.name) {}

    KOVIResult read(ModelSink& sink) override;
    std::string format() const override { return "OBJ"; }
    std::string description(Found const& found) const override;

private:
    struct FaceCorner {
        Vertex const* position;
        Vertex const* normal; ///< null for none
    };

    KOVIResult readStatement(std::string_view statement, ModelSink& sink, ShellBuilder& shells);
    KOVIResult readNumbers(std::string_view text, float* numbers, int most, int& known);
    KOVIResult readVertex(std::string_view numbers);
    KOVIResult readNormal(std::string_view numbers);
    /// Indices are null where there are none.
    KOVIResult failCorner(std::string_view corners, ObjIndices const* indices);
    KOVIResult readFace(std::string_view corners, ModelSink& sink, ShellBuilder& shells);
    void readName(std::string_view keyword, std::string_view rest, Scene& scene);
    void readLibraries(std::string_view names, Scene& scene);
    void readLibrary(std::string const& name, Scene& scene);
    void useMaterial(std::string const& name);
    void beginObject(std::string const& name);

    void addColor(float const* color);
    void addTriangle(FaceCorner const& a, FaceCorner const& b, FaceCorner const& c, ShellBuilder& shells) const;
    void beginShell(Scene& scene, ShellBuilder& shells);
    std::string besideInput(std::string const& name) const;
    void warnOfMaterials() const;
    KOVIResult unexpected(std::string_view statement, char const* wanted);

    KOVABlockReader in_;
    LineReader lines_;
    long long size_;
    char const* file_;
    std::vector<Vertex> vertices_;
    std::vector<Vertex> colors_; ///< of the vertices up to the latest that has one
    std::vector<Vertex> normals_;
    long long faces_ = 0;
    long long beyondColors_ = 0;

    // What the next face belongs to, and whether the shells know it.
    std::string object_;
    std::unordered_map<std::string, int> objectNumbers_; ///< by name: how often an object of it began again
    long long facesBefore_ = 0;                          ///< the object
    std::vector<std::string> groups_;
    Material const* material_ = nullptr;
    bool isBegun_ = false;
    std::unordered_map<std::string, Part*> parts_; ///< by the object's name and number, and groups
    MaterialReader::Materials materials_;
    std::unordered_set<std::string> libraries_; ///< that were looked for
    std::string unknownMaterial_;               ///< the first, and how many there are
    long long unknownMaterialLine_ = 0;
    int unknownMaterials_ = 0;
};

} // namespace toolkit
