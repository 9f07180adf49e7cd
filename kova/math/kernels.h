#pragma once

namespace kova::detail {

/// What a map does to one point, and so to arrays of them: an optional linear part, then an optional factor,
/// then an optional translation. A part that is left out does not round either.
struct PointMap {
    double const (*linear)[3] = nullptr;
    double const* factor = nullptr;
    double const* translation = nullptr;
};

template <int N> void transformPoints(PointMap const& map, double* p, long count) noexcept {
    if (!p)
        return;
    // Copies, which writing the coordinates cannot change.
    double a[N][N] = {};
    double t[N] = {};
    for (int i = 0; i < N; ++i) {
        for (int j = 0; map.linear && j < N; ++j)
            a[i][j] = map.linear[i][j];
        t[i] = map.translation ? map.translation[i] : 0.0;
    }
    double const s = map.factor ? *map.factor : 1.0;
    bool const isLinear = map.linear;
    bool const isScaled = map.factor;
    bool const isTranslated = map.translation;
    for (long k = 0; k < count; ++k, p += N) {
        double q[N];
        for (int i = 0; i < N; ++i) {
            q[i] = p[i];
            if (isLinear) {
                q[i] = a[i][0] * p[0];
                for (int j = 1; j < N; ++j)
                    q[i] += a[i][j] * p[j];
            }
            if (isScaled)
                q[i] *= s;
            if (isTranslated)
                q[i] += t[i];
        }
        for (int i = 0; i < N; ++i)
            p[i] = q[i];
    }
}

} // namespace kova::detail
