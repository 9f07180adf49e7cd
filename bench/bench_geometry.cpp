#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <list>
#include <random>
#include <string>
#include <vector>

#include <Eigen/Dense>
#include <glm/glm.hpp>
#include <glm/gtc/matrix_inverse.hpp>

#include <kova/math/KOVA4x4Matrix.h>
#include <kova/math/KOVAAffine3D.h>
#include <kova/math/KOVAMath3x3Matrixf.h>
#include <kova/math/KOVAMorph3D.h>
#include <kova/model/KOVAAssemblyComponentTransform.h>

#include "rows.h"

namespace {

std::mt19937 generator(1);

float number() {
    return std::uniform_real_distribution<float>(-1.0F, 1.0F)(generator);
}

template <class T> std::vector<T> numbers(std::size_t count) {
    std::vector<T> result(count);
    for (T& value : result)
        value = static_cast<T>(number());
    return result;
}

// --- single matrices: sixteen pairs a measurement, so that calls in a row overlap as in a program

constexpr int kBatch = 16;

/// The same matrices as ours and as the peers have them: near the identity, so that all have inverses.
template <int N> struct Matrices {
    Matrices() {
        for (auto& matrix : elements) {
            for (int i = 0; i < N * N; ++i)
                matrix[i] = number() / 4.0F + (i % (N + 1) == 0 ? 1.0F : 0.0F);
        }
    }
    float elements[kBatch][N * N];
};

template <class Matrix, class Make> std::vector<Matrix> made(Make make) {
    std::vector<Matrix> result;
    for (int i = 0; i < kBatch; ++i)
        result.push_back(make(i));
    return result;
}

/// Applies an operation to each matrix and its neighbour.
template <class Matrix, class Result, class Operation>
auto forEach(std::vector<Matrix> const& matrices, Operation operation) {
    return [matrices, results = std::vector<Result>(kBatch), operation]() mutable {
        for (std::size_t i = 0; i < kBatch; ++i)
            operation(matrices[i], matrices[(i + 1) % kBatch], results[i]);
        benchmark::DoNotOptimize(results.data());
    };
}

template <class Ours, class Peer> void batchRow(std::string const& name, double target, Ours ours, Peer peer) {
    bench::row(
        name, target,
        [ours](benchmark::State& state) {
            auto run = ours;
            for (auto _ : state) {
                run();
                benchmark::ClobberMemory();
            }
        },
        [peer](benchmark::State& state) {
            auto run = peer;
            for (auto _ : state) {
                run();
                benchmark::ClobberMemory();
            }
        });
}

using RowMajor4f = Eigen::Matrix<float, 4, 4, Eigen::RowMajor>;
using RowMajor4d = Eigen::Matrix<double, 4, 4, Eigen::RowMajor>;
using RowMajor3f = Eigen::Matrix<float, 3, 3, Eigen::RowMajor>;
using RowMajor3d = Eigen::Matrix<double, 3, 3, Eigen::RowMajor>;

/// Eigen's and GLM's matrices of the same numbers.
template <class Peer, int N> std::vector<Peer> eigen(Matrices<N> const& all) {
    return made<Peer>([&](int i) {
        using Floats = Eigen::Matrix<float, N, N, Eigen::RowMajor>;
        return Peer(Eigen::Map<Floats const>(all.elements[i]).template cast<typename Peer::Scalar>());
    });
}

template <class Peer, int N> std::vector<Peer> glmOf(Matrices<N> const& all) {
    return made<Peer>([&](int index) {
        Peer result;
        for (int i = 0; i < N; ++i) {
            for (int j = 0; j < N; ++j)
                result[i][j] = all.elements[index][i * N + j];
        }
        return result;
    });
}

// What is defined to the last bit costs what its operations cost: nine quotients, each rounded once, or with the
// inverse its own determinant and cube root. Beside the peers, which need not do the same, stand plain functions
// with exactly these operations. They are inline; ours are calls, and the affine map's calls the hooks for aborts
// and assertions as well.

/// The cofactors by double, times or divided by the determinant, which is returned; each rounded once.
template <class Number, class Finish>
double plainInverse(Number const* m, int stride, Number* out, Finish const& finish) {
    double cofactors[3][3];
    for (int i = 0; i < 3; ++i) {
        for (int j = 0; j < 3; ++j) {
            Number const* const r = m + (i + 1) % 3 * stride;
            Number const* const s = m + (i + 2) % 3 * stride;
            int const p = (j + 1) % 3;
            int const q = (j + 2) % 3;
            cofactors[i][j] = double{r[p]} * s[q] - double{r[q]} * s[p];
        }
    }
    double const d = m[0] * cofactors[0][0] + m[stride] * cofactors[1][0] + m[2 * stride] * cofactors[2][0];
    for (int i = 0; i < 3; ++i) {
        for (int j = 0; j < 3; ++j)
            out[i * stride + j] = static_cast<Number>(finish(cofactors[j][i], d));
    }
    return d;
}

struct Placement {
    float m[16];
    float determinant;
    float scaling;
};

/// The inverse, its own determinant, and that one's cube root unless it is 1.
void plainInverse(Placement const& a, Placement& result) {
    double const factor = 1.0 / a.determinant;
    plainInverse(a.m, 4, result.m, [factor](double cofactor, double /*own*/) { return cofactor * factor; });
    float const* const r = result.m;
    for (int j = 0; j < 3; ++j)
        result.m[12 + j] =
            static_cast<float>(-(double{a.m[12]} * r[j] + double{a.m[13]} * r[4 + j] + double{a.m[14]} * r[8 + j]));
    result.determinant = static_cast<float>(r[0] * (double{r[5]} * r[10] - double{r[9]} * r[6]) -
                                            r[4] * (double{r[1]} * r[10] - double{r[9]} * r[2]) +
                                            r[8] * (double{r[1]} * r[6] - double{r[5]} * r[2]));
    float const size = std::fabs(result.determinant);
    bool const one = size >= 0.999999F && size <= 1.000001F;
    result.scaling = one ? 1.0F : static_cast<float>(std::cbrt(double{size}));
}

/// What Eigen takes for floats whose sums are formed in double, as ours are.
constexpr auto inverseByDouble = [](auto const& a, auto const& /*unused*/, auto& result) {
    result = a.template cast<double>().inverse().template cast<float>();
};

template <int N, class Number> std::vector<std::array<Number, N * N>> plain(Matrices<N> const& all) {
    return made<std::array<Number, N * N>>([&](int i) {
        std::array<Number, N * N> elements;
        std::copy_n(all.elements[i], N * N, elements.begin());
        return elements;
    });
}

void matrix4Rows() {
    Matrices<4> const all;
    auto const ours = made<KOVA4x4Matrix>([&](int i) {
        KOVA4x4Matrix m(all.elements[i]);
        return m;
    });
    auto const product = [](auto const& a, auto const& b, auto& result) { result = a * b; };
    auto const ourProduct = forEach<KOVA4x4Matrix, KOVA4x4Matrix>(
        ours, [](auto const& a, auto const& b, auto& result) { result.multiply(a, b); });
    batchRow("4x4 product, Eigen double", 1.5, ourProduct,
             forEach<RowMajor4d, RowMajor4d>(eigen<RowMajor4d>(all), product));
    batchRow("4x4 product, Eigen float summed in double", 1.5, ourProduct,
             forEach<RowMajor4f, RowMajor4f>(eigen<RowMajor4f>(all), [](auto const& a, auto const& b, auto& result) {
                 result = (a.template cast<double>() * b.template cast<double>()).template cast<float>();
             }));
    batchRow("4x4 product, Eigen float", 1.5, ourProduct,
             forEach<RowMajor4f, RowMajor4f>(eigen<RowMajor4f>(all), product));
    batchRow("4x4 product, GLM double", 1.5, ourProduct,
             forEach<glm::dmat4, glm::dmat4>(glmOf<glm::dmat4>(all), product));
    batchRow("4x4 product, GLM float", 1.5, ourProduct, forEach<glm::mat4, glm::mat4>(glmOf<glm::mat4>(all), product));

    auto const ourInverse = forEach<KOVA4x4Matrix, KOVA4x4Matrix>(
        ours, [](auto const& a, auto const& /*unused*/, auto& result) { a.GetInvertedMatrix(result); });
    auto const eigenInverse = [](auto const& a, auto const& /*unused*/, auto& result) { result = a.inverse(); };
    auto const glmInverse = [](auto const& a, auto const& /*unused*/, auto& result) { result = glm::inverse(a); };
    batchRow("4x4 inverse, Eigen double", 1.5, ourInverse,
             forEach<RowMajor4d, RowMajor4d>(eigen<RowMajor4d>(all), eigenInverse));
    batchRow("4x4 inverse, Eigen float summed in double", 1.5, ourInverse,
             forEach<RowMajor4f, RowMajor4f>(eigen<RowMajor4f>(all), inverseByDouble));
    batchRow("4x4 inverse, Eigen float", 1.5, ourInverse,
             forEach<RowMajor4f, RowMajor4f>(eigen<RowMajor4f>(all), eigenInverse));
    batchRow("4x4 inverse, GLM double", 1.5, ourInverse,
             forEach<glm::dmat4, glm::dmat4>(glmOf<glm::dmat4>(all), glmInverse));
    auto const placements = made<Placement>([&](int i) {
        Placement placement = {};
        std::copy_n(ours[static_cast<std::size_t>(i)].GetMatrix(), 16, placement.m);
        placement.determinant = ours[static_cast<std::size_t>(i)].GetDeterminant();
        return placement;
    });
    batchRow("4x4 inverse, the same operations, plain", 1.0, ourInverse,
             forEach<Placement, Placement>(
                 placements, [](auto const& a, auto const& /*unused*/, auto& result) { plainInverse(a, result); }));
    // Rotations about axes: what placements mostly are, and no cube root.
    auto const rigid = made<KOVA4x4Matrix>(
        [&](int i) { return KOVA4x4Matrix(KOVAVectorf(all.elements[i]), KOVAPointf(all.elements[i] + 3), 1.0F); });
    Matrices<4> turns;
    for (std::size_t i = 0; i < kBatch; ++i)
        std::copy_n(rigid[i].GetMatrix(), 16, turns.elements[i]);
    auto const rigidInverse = forEach<KOVA4x4Matrix, KOVA4x4Matrix>(
        rigid, [](auto const& a, auto const& /*unused*/, auto& result) { a.GetInvertedMatrix(result); });
    batchRow("4x4 inverse of rotations, Eigen double", 1.5, rigidInverse,
             forEach<RowMajor4d, RowMajor4d>(eigen<RowMajor4d>(turns), eigenInverse));
    batchRow("4x4 inverse of rotations, Eigen float", 1.5, rigidInverse,
             forEach<RowMajor4f, RowMajor4f>(eigen<RowMajor4f>(turns), eigenInverse));
    batchRow("4x4 inverse, GLM float", 1.5, ourInverse,
             forEach<glm::mat4, glm::mat4>(glmOf<glm::mat4>(all), glmInverse));
}

void matrix3Rows() {
    Matrices<3> const all;
    auto const ours = made<KOVAMath3x3Matrixf>([&](int i) {
        float const* const e = all.elements[i];
        return KOVAMath3x3Matrixf(e[0], e[1], e[2], e[3], e[4], e[5], e[6], e[7], e[8]);
    });
    auto const affine = made<KOVAAffine3D>([&](int i) {
        float const* const e = all.elements[i];
        return KOVAAffine3D(e[0], e[1], e[2], e[3], e[4], e[5], e[6], e[7], e[8]);
    });
    auto const eigenInverse = [](auto const& a, auto const& /*unused*/, auto& result) { result = a.inverse(); };
    auto const glmInverse = [](auto const& a, auto const& /*unused*/, auto& result) { result = glm::inverse(a); };
    auto const ourInverse = forEach<KOVAMath3x3Matrixf, KOVAMath3x3Matrixf>(
        ours, [](auto const& a, auto const& /*unused*/, auto& result) { a.Inverse(result); });
    auto const affineInverse = forEach<KOVAAffine3D, KOVAAffine3D>(
        affine, [](auto const& a, auto const& /*unused*/, auto& result) { a.GetInverse(result); });
    batchRow("3x3 float inverse, Eigen double", 1.0, ourInverse,
             forEach<RowMajor3d, RowMajor3d>(eigen<RowMajor3d>(all), eigenInverse));
    batchRow("3x3 float inverse, Eigen float summed in double", 1.0, ourInverse,
             forEach<RowMajor3f, RowMajor3f>(eigen<RowMajor3f>(all), inverseByDouble));
    batchRow("3x3 float inverse, Eigen float", 1.0, ourInverse,
             forEach<RowMajor3f, RowMajor3f>(eigen<RowMajor3f>(all), eigenInverse));
    batchRow("3x3 float inverse, the same operations, plain", 1.0, ourInverse,
             forEach<std::array<float, 9>, std::array<float, 9>>(
                 plain<3, float>(all), [](auto const& a, auto const& /*unused*/, auto& result) {
                     plainInverse(a.data(), 3, result.data(), [](double cofactor, double d) { return cofactor / d; });
                 }));
    batchRow("3x3 float inverse, GLM float", 1.0, ourInverse,
             forEach<glm::mat3, glm::mat3>(glmOf<glm::mat3>(all), glmInverse));
    batchRow("affine inverse, Eigen double", 1.0, affineInverse,
             forEach<RowMajor3d, RowMajor3d>(eigen<RowMajor3d>(all), eigenInverse));
    batchRow("affine inverse, the same operations, plain", 1.0, affineInverse,
             forEach<std::array<double, 9>, std::array<double, 9>>(
                 plain<3, double>(all), [](auto const& a, auto const& /*unused*/, auto& result) {
                     plainInverse(a.data(), 3, result.data(),
                                  [](double cofactor, double d) { return cofactor * (1.0 / d); });
                 }));
    batchRow("affine inverse, GLM double", 1.0, affineInverse,
             forEach<glm::dmat3, glm::dmat3>(glmOf<glm::dmat3>(all), glmInverse));
}

// --- arrays

/// What a user writes for floats with sums in double, and the compiler vectorises as it can.
void plainLoop(float const (&m)[4][4], float* p, std::size_t count) {
    double a[4][3];
    for (int i = 0; i < 4; ++i) {
        for (int j = 0; j < 3; ++j)
            a[i][j] = m[i][j];
    }
    for (std::size_t k = 0; k < count; ++k, p += 3) {
        double const x = p[0];
        double const y = p[1];
        double const z = p[2];
        p[0] = static_cast<float>(x * a[0][0] + y * a[1][0] + z * a[2][0] + a[3][0]);
        p[1] = static_cast<float>(x * a[0][1] + y * a[1][1] + z * a[2][1] + a[3][1]);
        p[2] = static_cast<float>(x * a[0][2] + y * a[1][2] + z * a[2][2] + a[3][2]);
    }
}

/// Moves as much memory as transforming the points in place does. Where the processor's cache holds the points, that
/// takes less time than the conversions to double and back, which the sums in double cost.
void touch(float* p, std::size_t count) {
    for (std::size_t i = 0; i < 3 * count; ++i)
        p[i] = -p[i];
}

/// A rotation, or repeated transforming would leave the range of numbers.
KOVA4x4Matrix const turn(KOVAVectorf(1.0F, 2.0F, 3.0F), KOVAPointf(0.5F, 0.25F, 0.125F), 0.5F);

/// The same as a component's placement.
KOVAAssemblyComponentTransform const placed = [] {
    KOVAAssemblyComponentTransform transform;
    transform.Set4x4ByColumn(turn.GetMatrix()); // its columns are the other's rows
    return transform;
}();

struct Arrays {
    explicit Arrays(std::size_t count) : floats(numbers<float>(3 * count)), doubles(numbers<double>(3 * count)) {}
    std::vector<float> floats;
    std::vector<double> doubles;
};

void arrayRows(std::size_t count) {
    static std::list<Arrays> all; // the rows refer to them until the program ends
    Arrays& ours = all.emplace_back(count);
    Arrays& peers = all.emplace_back(count);
    std::string const suffix = " " + std::to_string(count);
    long const n = static_cast<long>(count);

    auto const transformed = [&ours, n] { TransformPoints(turn, ours.floats.data(), n); };
    bench::plainRow("points, plain loop" + suffix, 1.1, transformed, [&peers, count] {
        float m[4][4];
        std::copy_n(turn.GetMatrix(), 16, m[0]);
        plainLoop(m, peers.floats.data(), count);
    });
    bench::plainRow(
        "points by assembly transform, plain loop" + suffix, 1.1,
        [&ours, n] { return TransformPoints(placed, ours.floats.data(), n); },
        [&peers, count] {
            float m[4][4];
            std::copy_n(turn.GetMatrix(), 16, m[0]);
            plainLoop(m, peers.floats.data(), count);
        });
    if (count >= 100000)
        bench::plainRow("points, memory touched" + suffix, 1.0, transformed,
                        [&peers, count] { touch(peers.floats.data(), count); });
    bench::plainRow("points, Eigen summed in double" + suffix, 1.0, transformed, [&peers, n] {
        Eigen::Map<Eigen::Matrix<float, 3, Eigen::Dynamic>> points(peers.floats.data(), 3, n);
        Eigen::Map<RowMajor4f const> const m(turn.GetMatrix());
        Eigen::Matrix3d const linear = m.topLeftCorner<3, 3>().transpose().cast<double>();
        Eigen::Vector3d const translation = m.block<1, 3>(3, 0).transpose().cast<double>();
        for (long i = 0; i < n; ++i)
            points.col(i) = (linear * points.col(i).cast<double>() + translation).cast<float>();
    });
    bench::plainRow("points, GLM float" + suffix, 1.1, transformed, [&peers, n] {
        glm::mat4 m;
        std::copy_n(turn.GetMatrix(), 16, &m[0][0]);
        float* p = peers.floats.data();
        for (long i = 0; i < n; ++i, p += 3) {
            glm::vec4 const q = m * glm::vec4(p[0], p[1], p[2], 1.0F);
            p[0] = q.x;
            p[1] = q.y;
            p[2] = q.z;
        }
    });

    KOVAMorph3D const morph(KOVAAffine3D(0.0, -1.0, 0.0, 1.0, 0.0, 0.0, 0.0, 0.0, 1.0), KOVAPoint3D(0.5, 0.25, 0.125),
                            0.999);
    bench::plainRow(
        "morph of double points, Eigen" + suffix, 1.1,
        [&ours, morph, n] { TransformPoints(morph, ours.doubles.data(), n); },
        [&peers, n] {
            Eigen::Map<Eigen::Matrix<double, 3, Eigen::Dynamic>> points(peers.doubles.data(), 3, n);
            Eigen::Matrix3d linear;
            linear << 0.0, -1.0, 0.0, 1.0, 0.0, 0.0, 0.0, 0.0, 1.0;
            Eigen::Vector3d const translation(0.5, 0.25, 0.125);
            for (long i = 0; i < n; ++i)
                points.col(i) = (linear * points.col(i) * 0.999 + translation).eval();
        });
}

} // namespace

int main(int argc, char** argv) {
    matrix4Rows();
    matrix3Rows();
    for (std::size_t const count : {1000U, 100000U, 1000000U})
        arrayRows(count);
    return bench::run(argc, argv);
}
