#include <algorithm>

#include "math/geometry.h"

namespace {

using test::list;

/// A line of the values, exactly.
template <class... Lists> std::string line(std::string text, Lists const&... lists) {
    auto const add = [&text](auto const& values) {
        for (auto const value : values) text += " " + test::hex(value);
    };
    (add(lists), ...);
    return text + "\n";
}

std::string floats(test::Random& random) {
    KOVAVectorf const a = random.vector(10.0F), b = random.vector(10.0F), c = random.vector();
    KOVAVectorf const x = KOVADirectionf(a), y = x ^ KOVADirectionf(b), unit = KOVADirectionf(y), z = x ^ unit;
    KOVAPointf const p = KOVAPointOf + a, q = KOVAPointOf + b;
    KOVAMath3x3Matrixf const m(a, b, c), turn(a, random.real(4.0)), scaled(x * 3, unit * 3, z * 3);
    KOVA4x4Matrix const place = random.placement();
    KOVA4x4Matrix inverse;
    place.GetInvertedMatrix(inverse);
    float row[3];
    KOVA4x4Matrix(m * x, b, c, a).ComputeInverseTransposeThirdColumnNormalized(row);
    using F = std::vector<float>;
    return line("vectors", list(x), list(a ^ b), F{a * b, a.Norm(), a.AngleTo(b), a.AngleTo(b, c)}) +
           line("distances", F{p.DistanceTo(q), p.DistanceL1To(q)}) +
           line("3x3 rotation", list(turn), F{m.Determinant(), m.Trace(), m.InfiniteNorm()}) +
           line("3x3 product", list(m * turn)) + line("3x3 inverse", list(m.Inverse()), list(scaled.Inverse())) +
           line("4x4 placement", list(place), F{place.GetDeterminant(), place.GetScaling()}) +
           line("4x4 inverse", list(inverse), F{inverse.GetDeterminant(), inverse.GetScaling()}) +
           line("4x4 images", list(place * q), F(row, row + 3));
}

std::string doubles(test::Random& random) {
    KOVAMorph3D const a = random.morph(), b = random.morph(), ab = a.multiply(b), inverse = a.inverse();
    KOVAPoint3D const p = random.point(10.0);
    KOVAPoint3D image = p;
    image.Transform(a, false);
    KOVAAffine3D sum = a.affine();
    sum.SetElement(0, 1, random.real());
    sum.GetInverse(sum);
    Gk_Domain const d{random.real(), 2.0 + random.real(), 1e-9}, turn(0.0, KOVA2PI, 1e-9);
    Gk_LinMap const map = d.mapTo(turn);
    using D = std::vector<double>;
    return line("points", list(p.Orthogonalize()), list(KOVAPoint3D::VectorProduct(p, image)), D{p.DistanceTo(image)}) +
           line("morphs", list(ab.affine()), list(ab.translation()), list(inverse.translation()), list(image)) +
           line("affine inverse", list(sum)) +
           line("domain",
                D{map.slope(), map.abscissa(), map.invert(1.0), d.locate(0.3), turn.principalParam(random.real(1e4))});
}

// The same bits with every compiler and on every system. What was computed is left beside the program.
TEST(Golden, ResultsAreTheSameEverywhere) {
    std::string results;
    test::Random random(8);
    for (int i = 0; i < 24; ++i) (results += floats(random)) += doubles(random);
    std::ofstream("math-golden.txt") << results;
    std::ifstream in(KOVA_GOLDEN);
    std::string const golden{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    auto const at = std::mismatch(results.begin(), results.end(), golden.begin(), golden.end()).first;
    EXPECT_TRUE(results == golden) << "from line " << std::count(results.begin(), at, '\n') + 1
                                   << " of math-golden.txt on";
}

} // namespace
