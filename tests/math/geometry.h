#pragma once

// What the geometry's tests share.

#include <charconv>
#include <cstring>
#include <random>

#include "support/test.h"

namespace test {

/// Seeded: the same cases in every run and on every platform.
class Random {
public:
    explicit Random(unsigned seed) : engine_(seed) {}
    /// Between -scale and scale.
    double real(double scale = 1.0) { return scale * (static_cast<double>(engine_()) / 2147483648.0 - 1.0); }
    float single(float scale = 1.0F) { return static_cast<float>(real(static_cast<double>(scale))); }
    // Braces, in which the order of evaluation is fixed.
    KOVAVectorf vector(float scale = 1.0F) { return KOVAVectorf{single(scale), single(scale), single(scale)}; }
    KOVAPoint3D point(double scale = 1.0) { return KOVAPoint3D{real(scale), real(scale), real(scale)}; }
    /// Two or three reflections, one after the other.
    KOVAAffine3D isometry() {
        KOVAAffine3D result;
        result.MakeIdentity();
        for (auto n = engine_() % 2; n < 3; ++n) {
            KOVAPoint3D const u = point().Normalize();
            KOVAAffine3D mirror;
            for (int k = 0; k < 9; ++k) mirror.SetElement(k / 3, k % 3, (k % 4 ? 0 : 1) - 2 * u[k / 3] * u[k % 3]);
            mirror.Multiply(result, result);
        }
        return result;
    }
    KOVAMorph3D morph() { return KOVAMorph3D{isometry(), point(100.0), 2.0 + real(1.9)}; }
    KOVA4x4Matrix placement() {
        KOVA4x4Matrix const turn{vector(), KOVAPointOf + vector(10.0F), single(4.0F)};
        return turn * KOVA4x4Matrix{vector(10.0F), 2.0F + single(1.9F)};
    }

private:
    std::mt19937 engine_;
};

/// Exactly, and the same on every platform.
template <class Float> std::string hex(Float value) {
    char text[40];
    return {text, std::to_chars(text, text + sizeof text, value, std::chars_format::hex).ptr};
}

inline std::vector<double> list(KOVAPoint const& p) {
    std::vector<double> values;
    for (int i = 0; i < p.GetDimension(); ++i) values.push_back(p[i]);
    return values;
}
inline std::vector<double> list(KOVAAffine const& a) {
    std::vector<double> values(static_cast<std::size_t>(a.GetDimension() * a.GetDimension()));
    for (int i = 0; i < a.GetDimension(); ++i) a.GetRow(i, values.data() + i * a.GetDimension());
    return values;
}
inline std::vector<float> list(KOVAVectorf const& v) { return {v.x(), v.y(), v.z()}; }
inline std::vector<float> list(KOVAPointf const& p) { return {p.x(), p.y(), p.z()}; }
inline std::vector<float> list(KOVA4x4Matrix const& m) { return {m.GetMatrix(), m.GetMatrix() + 16}; }
inline std::vector<float> list(KOVAMath3x3Matrixf const& m) {
    std::vector<float> c(9);
    m.GetCoef(c[0], c[1], c[2], c[3], c[4], c[5], c[6], c[7], c[8]);
    return c;
}

/// The largest difference, relative to the size of what is compared.
template <class A, class B> double difference(A const& a, B const& b) {
    auto const x = list(a), y = list(b);
    double largest = 0.0, size = 1.0;
    for (std::size_t i = 0; i < x.size(); ++i) {
        double const apart = std::fabs(double{x[i]} - double{y.at(i)});
        largest = apart <= largest ? largest : apart; // a not-a-number is taken over
        size = std::max(size, std::fabs(double{y[i]}));
    }
    return largest / size;
}

template <class T> std::string printed(T const& value, int level = 0) {
    TextStream out;
    KOVAStreamFormatter formatter(&out);
    for (int i = 0; i < level; ++i) formatter.margin->incr();
    formatter << value;
    return out.text;
}

} // namespace test
