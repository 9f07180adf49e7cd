#pragma once

// What the geometry's tests share.

#include <charconv>
#include <cstring>
#include <functional>
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
    KOVAVectorf vector(float scale = 1.0F) {
        float const x = single(scale), y = single(scale);
        return KOVAVectorf(x, y, single(scale));
    }
    KOVAPointf position(float scale = 1.0F) { return KOVAPointOf + vector(scale); }
    KOVAPoint3D point(double scale = 1.0) {
        double const x = real(scale), y = real(scale);
        return KOVAPoint3D(x, y, real(scale));
    }
    /// A rotation by way of quaternions, now and then with a reflection.
    KOVAAffine3D isometry() {
        double q[4];
        double norm = 0.0;
        for (double& c : q) {
            c = real();
            norm += c * c;
        }
        for (double& c : q) c /= std::sqrt(norm);
        double const w = q[0], x = q[1], y = q[2], z = q[3];
        double const s = engine_() % 3 == 0 ? -1.0 : 1.0;
        return KOVAAffine3D(s * (1 - 2 * (y * y + z * z)), s * 2 * (x * y - w * z), s * 2 * (x * z + w * y),
                            s * 2 * (x * y + w * z), s * (1 - 2 * (x * x + z * z)), s * 2 * (y * z - w * x),
                            s * 2 * (x * z - w * y), s * 2 * (y * z + w * x), s * (1 - 2 * (x * x + y * y)));
    }
    KOVAMorph3D morph() {
        KOVAAffine3D const turn = isometry();
        KOVAPoint3D const move = point(100.0);
        return KOVAMorph3D(turn, move, 2.0 + real(1.9));
    }
    KOVA4x4Matrix placement() {
        KOVAVectorf const axis = vector();
        KOVAPointf const centre = position(10.0F);
        KOVA4x4Matrix const turn(axis, centre, single(4.0F));
        KOVAVectorf const move = vector(10.0F);
        return turn * KOVA4x4Matrix(move, 2.0F + single(1.9F));
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
    std::vector<double> values;
    for (int i = 0; i < a.GetDimension(); ++i)
        for (int j = 0; j < a.GetDimension(); ++j) values.push_back(a.GetElement(i, j));
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
    auto const x = list(a);
    auto const y = list(b);
    double largest = x.size() == y.size() ? 0.0 : INFINITY;
    double size = 1.0;
    for (std::size_t i = 0; i < std::min(x.size(), y.size()); ++i) {
        double const apart = std::fabs(double{x[i]} - double{y[i]});
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
