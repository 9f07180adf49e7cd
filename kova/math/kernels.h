#pragma once

#include <cstddef>
#include <cstring>
#include <type_traits>

#if defined(__SSE2__)
#  include <emmintrin.h>
#endif

namespace kova::detail {

// Two numbers that are multiplied, added and converted at once, each to the same bits as alone. Compilers
// do not find these pairs in points of three coordinates by themselves.
using Pair = double __attribute__((vector_size(16)));

inline Pair both(double value) noexcept {
    return Pair{value, value};
}

inline Pair load(double const* at) noexcept {
    Pair pair;
    std::memcpy(&pair, at, sizeof pair);
    return pair;
}

/// Two floats.
inline Pair load(float const* at) noexcept {
#if defined(__SSE2__)
    // g++ takes generic vectors of two floats apart.
    return _mm_cvtps_pd(_mm_castsi128_ps(_mm_loadl_epi64(reinterpret_cast<__m128i const*>(at))));
#else
    return Pair{at[0], at[1]};
#endif
}

inline void store(Pair pair, double* at) noexcept {
    std::memcpy(at, &pair, sizeof pair);
}

/// Rounded to two floats.
inline void store(Pair pair, float* at) noexcept {
#if defined(__SSE2__)
    _mm_storel_epi64(reinterpret_cast<__m128i*>(at), _mm_castps_si128(_mm_cvtpd_ps(pair)));
#else
    at[0] = static_cast<float>(pair[0]);
    at[1] = static_cast<float>(pair[1]);
#endif
}

/// A row of a matrix, as the pairs of which cross products are made.
struct CrossRow {
    template <class Number> explicit CrossRow(Number const* row) noexcept
        : xy(load(row)), yz(load(row + 1)), zx(Pair{yz[1], xy[0]}) {}

    Pair xy, yz, zx;
};

/// A cross product: its first two coordinates, and the third.
struct Cross {
    Cross(Pair firstTwo, double third) noexcept : xy(firstTwo), z(third) {}
    Cross(CrossRow const& a, CrossRow const& b) noexcept
        : xy(a.yz * b.zx - a.zx * b.yz), z(a.xy[0] * b.yz[0] - a.yz[0] * b.xy[0]) {}

    Pair xy;
    double z;
};

/// The transpose of the cofactors of a matrix of three rows, column by column; and the determinant.
struct Adjugate {
    /// Of the cofactors of each row, and the matrix's first column.
    Adjugate(Cross const& first, Cross const& second, Cross const& third, double const (&x)[3]) noexcept
        : columns{first, second, third}, determinant(x[0] * first.xy[0] + x[1] * second.xy[0] + x[2] * third.xy[0]) {}
    /// Where cofactors are cross products.
    Adjugate(CrossRow const& a, CrossRow const& b, CrossRow const& c) noexcept
        : Adjugate({b, c}, {c, a}, {a, b}, {a.xy[0], b.xy[0], c.xy[0]}) {}
    template <std::size_t Rows, std::size_t Columns> explicit Adjugate(float const (&m)[Rows][Columns]) noexcept
        : Adjugate(CrossRow(m[0]), CrossRow(m[1]), CrossRow(m[2])) {}

    /// Writes each element after `change`, which takes two at once.
    template <class Change, class Number, std::size_t Rows, std::size_t Columns>
    void put(Change const& change, Number (&out)[Rows][Columns]) const noexcept {
        store(change(Pair{columns[0].xy[0], columns[1].xy[0]}), out[0]);
        store(change(Pair{columns[0].xy[1], columns[1].xy[1]}), out[1]);
        store(change(Pair{columns[0].z, columns[1].z}), out[2]);
        Pair const third = change(columns[2].xy);
        out[0][2] = static_cast<Number>(third[0]);
        out[1][2] = static_cast<Number>(third[1]);
        out[2][2] = static_cast<Number>(change(both(columns[2].z))[0]);
    }

    Cross columns[3];
    double determinant;
};

/// What a map does to one point, and so to arrays of them: an optional linear part, for points as columns,
/// then an optional factor, then an optional translation. A part that is left out does not round either.
struct PointMap {
    double const (*linear)[3] = nullptr;
    double const* factor = nullptr;
    double const* translation = nullptr;
};

/// One pair of coordinates: i of the result are the first and second of these, which may be of two points.
template <bool Linear, bool Scaled, bool Translated> struct PairMap {
    PairMap(PointMap const& map, int first, int second) noexcept {
        for (int j = 0; Linear && j < 3; ++j)
            columns[j] = Pair{map.linear[first][j], map.linear[second][j]};
        if (Scaled)
            factor = both(*map.factor);
        if (Translated)
            translation = Pair{map.translation[first], map.translation[second]};
    }
    /// The sum of the first two coordinates' parts.
    Pair sum(Pair x, Pair y) const noexcept { return columns[0] * x + columns[1] * y; }
    /// The third one's part on top of that.
    Pair sum(Pair x, Pair y, Pair z) const noexcept { return sum(x, y) + columns[2] * z; }
    Pair place(Pair p) const noexcept {
        if (Scaled)
            p = p * factor;
        return Translated ? p + translation : p;
    }

    Pair columns[3] = {};
    Pair factor = {};
    Pair translation = {};
};

/// Two points of three coordinates at a time: the first two of each, and the third of both.
template <bool Linear, bool Scaled, bool Translated> struct Solid {
    explicit Solid(PointMap const& map) noexcept : xy(map, 0, 1), zz(map, 2, 2) {}

    template <class Number> void two(Number* p) const noexcept {
        Pair const a = load(p);
        Pair const b = load(p + 2);
        Pair const c = load(p + 4);
        Pair xy0 = a;
        Pair xy1 = Pair{b[1], c[0]};
        Pair z01 = Pair{b[0], c[1]};
        if (Linear) {
            z01 = zz.sum(Pair{a[0], b[1]}, Pair{a[1], c[0]}, z01);
            xy0 = xy.sum(both(a[0]), both(a[1]), both(b[0]));
            xy1 = xy.sum(both(b[1]), both(c[0]), both(c[1]));
        }
        xy0 = xy.place(xy0);
        xy1 = xy.place(xy1);
        z01 = zz.place(z01);
        store(xy0, p);
        store(Pair{z01[0], xy1[0]}, p + 2);
        store(Pair{xy1[1], z01[1]}, p + 4);
    }
    template <class Number> void operator()(Number* p, long count) const noexcept {
        for (; count > 1; count -= 2, p += 6)
            two(p);
        if (count == 1) {
            Number last[6] = {p[0], p[1], p[2]};
            two(last);
            std::memcpy(p, last, sizeof last / 2);
        }
    }

    PairMap<Linear, Scaled, Translated> xy, zz;
};

/// Points of two coordinates, each a pair.
template <bool Linear, bool Scaled, bool Translated> struct Flat {
    explicit Flat(PointMap const& map) noexcept : xy(map, 0, 1) {}

    void operator()(double* p, long count) const noexcept {
        for (; count > 0; --count, p += 2) {
            Pair const q = load(p);
            store(xy.place(Linear ? xy.sum(both(q[0]), both(q[1])) : q), p);
        }
    }

    PairMap<Linear, Scaled, Translated> xy;
};

/// Transforms points of three coordinates from the first on, four at a time, and says how many: at most three less
/// than all, or none without a linear part, or where the processor has no vectors of four doubles. The same bits as
/// by pairs, in two thirds of the time.
template <class Number> long transformFours(PointMap const& map, Number* p, long count) noexcept;

template <template <bool, bool, bool> class Kernel, class Number, bool... Parts>
void transformPoints(PointMap const& map, Number* p, long count) noexcept {
    constexpr std::size_t kDecided = sizeof...(Parts);
    if constexpr (kDecided == 0 && std::is_same_v<Kernel<true, true, true>, Solid<true, true, true>>) {
        long const done = p && count >= 4 ? transformFours(map, p, count) : 0;
        p += 3 * done;
        count -= done;
    }
    if constexpr (kDecided == 3) {
        Kernel<Parts...> const kernel(map); // a copy of the map, which writing the coordinates cannot change
        if (p)
            kernel(p, count);
    } else {
        void const* const parts[] = {map.linear, map.factor, map.translation};
        if (parts[kDecided])
            transformPoints<Kernel, Number, Parts..., true>(map, p, count);
        else
            transformPoints<Kernel, Number, Parts..., false>(map, p, count);
    }
}

} // namespace kova::detail
