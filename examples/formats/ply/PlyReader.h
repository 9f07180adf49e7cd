#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <vector>

#include "Input.h"
#include "ModelReader.h"
#include "PlyHeader.h"
#include "PlyValues.h"
#include "ShellBuilder.h"
#include "geometry.h"

namespace toolkit {

/// Reads vertices with their colours and normals, and faces, of ASCII and binary PLY. Faces become fans of triangles
/// around their first corner; other elements and properties are left out.
class PlyReader : public ModelReader {
public:
    explicit PlyReader(Input const& input) : values_(input), file_(input.name) {}

    KOVIResult read(ModelSink& sink) override;
    std::string format() const override;
    std::string description(Found const& found) const override;

private:
    /// What a property of a vertex is; kOther for what is left out.
    enum Role { kX, kY, kZ, kNormalX, kNormalY, kNormalZ, kRed, kGreen, kBlue, kAlpha, kOther };
    using Row = std::array<float, kOther>;
    static Role roleOf(PlyProperty const& property) noexcept;

    void readHeader();
    void checkOrder() const;
    void checkCount(PlyElement const& element) const;
    void readElement(PlyElement const& element, ModelSink& sink, ShellBuilder& shells);
    void readVertices(PlyElement const& element);
    Row readVertex(PlyElement const& element, std::vector<Role> const& roles);
    float readRole(PlyProperty const& property, Role role);
    void readFaces(PlyElement const& element, ShellBuilder& shells);
    void readFace(PlyProperty const& indices, ShellBuilder& shells);
    std::size_t readIndex(PlyType type);
    long long readCount(PlyProperty const& list);
    void skip(PlyProperty const& property);
    void addTriangle(std::size_t const (&corners)[3], ShellBuilder& shells) const;

    PlyValues values_;
    char const* file_;
    PlyHeader header_;
    std::vector<Vertex> vertices_;
    std::vector<Vertex> normals_;              ///< as many, or none
    std::vector<std::array<float, 4>> colors_; ///< likewise: red, green, blue and alpha from 0 to 1
    long long faces_ = 0;
};

} // namespace toolkit
