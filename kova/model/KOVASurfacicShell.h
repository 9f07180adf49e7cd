#pragma once

#include <cstdint>

#include <kova/core/KOVIResult.h>
#include <kova/core/export.h>

/// One tessellated shell of a model: points, a list of face indices, normals and colours, by level of detail
/// and pass. Points, normals and colours are three floats each. The face list is stored as it comes, one int
/// an entry; nothing here reads it.
///
///     KOVASurfacicShell shell(17, 0, 0);
///     shell.CopyData(n, points, n, normals, 3 * triangles, corners, 0, nullptr);
///
/// Hazards: copies of a shell share its arrays and, after CopyData, both would release them, so copy a shell
/// with arrays of its own only where one of the two is never destroyed. Neither SetData nor CopyData nor
/// assignment releases what a shell owned before.
class KOVA_API KOVASurfacicShell {
public:
    KOVASurfacicShell(int key, int lod, int pass) noexcept : key_(key), lod_(lod), pass_(pass) {}
    KOVASurfacicShell(KOVASurfacicShell const&) = default;
    KOVASurfacicShell& operator=(KOVASurfacicShell const&) = default;
    /// Releases what CopyData took.
    virtual ~KOVASurfacicShell();

    /// Refers to the caller's arrays, which must outlive their use. Always Success.
    virtual KOVIResult SetData(int pointCount, float const* points, int normalCount, float const* normals,
                               int faceCount, int const* faces, int colorCount, float const* colors);
    /// Copies the arrays. Invalid Argument for a count below 0, or above 0 with a null array; Failure when
    /// memory runs out. The shell stays as it was then.
    virtual KOVIResult CopyData(int pointCount, float const* points, int normalCount, float const* normals,
                                int faceCount, int const* faces, int colorCount, float const* colors);

    // Always Success.
    virtual KOVIResult GetPoints(int& count, float*& data) const;
    virtual KOVIResult GetFaces(int& count, int*& data) const;
    virtual KOVIResult GetNormals(int& count, float*& data) const;
    virtual KOVIResult GetColors(int& count, float*& data) const;

    virtual long GetKey() const;
    virtual int GetLOD() const;
    virtual int GetPass() const;
    /// 1 when the face list is one of triangle strips, else 0.
    virtual int IsStripped() const;

private:
    std::int32_t key_;
    std::int32_t lod_;
    std::int32_t pass_;
    std::int32_t pointCount_ = 0;
    float* points_ = nullptr;
    std::int32_t faceCount_ = 0;
    int* faces_ = nullptr;
    std::int32_t owned_ = 0;
    std::int32_t normalCount_ = 0;
    float* normals_ = nullptr;
    std::int32_t colorCount_ = 0;
    float* colors_ = nullptr;
};
