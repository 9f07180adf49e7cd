#pragma once

#include <cstddef>
#include <string>
#include <unordered_map>
#include <vector>

#include <kova/stream/KOVABlockWriter.h>

#include "OutputFile.h"
#include "WeldingWriter.h"

namespace toolkit {

/// Which normals are written: none; those that the model has; one for each face; or those that the model has, and
/// the face's where it has none.
enum class ObjNormals { None, Keep, Face, Model };

/// Writes OBJ: shared vertices with their colours, normals of length 1, then triangles, each part's behind the names
/// of its object, its groups and its material. A file of the materials, ".mtl", stands beside it.
class ObjWriter : public WeldingWriter {
public:
    ObjWriter(OutputFile& file, Settings const& settings, ObjNormals normals);

    void finish() override;
    std::string description() const override;
    long long bytes() const noexcept override { return out_.offset(); }
    std::vector<FurtherFile> takeFiles() override { return std::move(files_); }

protected:
    void begin(Part const& part, Material const* material) override;
    void takeNormals(Triangles const& triangles, std::size_t triangle) override;

private:
    struct Run {
        Part const* part;
        Material const* material;
        std::size_t firstFace;
    };

    void dropEmptyRun();
    void nameMaterials();
    void addFaceNormals();
    void writeHead();
    void writeVertices();
    bool beginsAgain(Part const& part, std::string const& groups);
    void writePart(Part const& before, Part const& part);
    void writeNames(Run const* before, Run const& run);
    void writeFaces(std::size_t begin, std::size_t end);
    void writeMaterials();

    OutputFile& file_;
    KOVABlockWriter out_;
    int digits_;
    std::string unit_;
    ObjNormals normals_;
    std::vector<Run> runs_;
    VertexTable normalTable_;
    std::vector<Face> normalFaces_; ///< of the faces up to the latest that has normals: their numbers, 0 for none
    std::unordered_map<Material const*, std::string> materialNames_; ///< as they are written
    std::vector<Material const*> materials_;                         ///< in the order of first use
    std::vector<FurtherFile> files_;
    bool leavesOutMaterials_ = false;
    std::unordered_map<std::string, int> objectNumbers_; ///< by name: how often an object of it began again
    std::unordered_map<std::string, Part const*> parts_; ///< the latest by its object's name and number, and its groups
};

} // namespace toolkit
