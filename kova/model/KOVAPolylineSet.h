#pragma once

#include <cstdint>

#include <kova/core/KOVIResult.h>
#include <kova/core/export.h>

/// Polylines of a model: points, a list of indices, colours. It refers to the caller's arrays; copies refer to
/// the same. Points and colours are three floats each. The list of indices is stored as it comes, one int an
/// entry; nothing here reads it.
///
/// Hazard: assignment drops what was owned without releasing it, and copies of a set that owns its points
/// release them once each.
class KOVA_API KOVAPolylineSet {
public:
    explicit KOVAPolylineSet(int key) noexcept : key_(key) {}
    KOVAPolylineSet(KOVAPolylineSet const&) = default;
    KOVAPolylineSet& operator=(KOVAPolylineSet const&) = default;
    /// Releases the points where a derived class said that they are owned. Callers depend on the other two
    /// arrays never being released.
    virtual ~KOVAPolylineSet();

    /// The arrays must outlive their use; what was owned before is not released. Always Success.
    virtual KOVIResult SetData(int pointCount, float const* points, int polylineCount, int const* polylines,
                               int colorCount, float const* colors);

    // Always Success.
    virtual KOVIResult GetPoints(int& count, float*& data) const;
    virtual KOVIResult GetPolylines(int& count, int*& data) const;
    virtual KOVIResult GetColors(int& count, float*& data) const;

    virtual int GetKey() const;

protected:
    std::int32_t key_;
    std::int32_t pointCount_ = 0;
    float* points_ = nullptr;
    std::int32_t polylineCount_ = 0;
    int* polylines_ = nullptr;
    std::int32_t owned_ = 0; ///< 1 when the points were made with new float[] and are to be released
    std::int32_t colorCount_ = 0;
    float* colors_ = nullptr;
};
