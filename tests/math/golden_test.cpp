#include <sstream>

#include "math/geometry.h"

namespace {

/// A text of named results, a line each.
class Record {
public:
    template <class T> void add(std::string const& name, T const& value) { addList(name, test::list(value)); }
    template <class Float> void addList(std::string const& name, std::vector<Float> const& values) {
        text += name;
        for (Float const value : values) text += " " + test::hex(value);
        text += "\n";
    }
    std::string text;
};

void addFloats(Record& record, test::Random& random) {
    KOVAVectorf const a = random.vector(10.0F), b = random.vector(10.0F), c = random.vector();
    KOVAVectorf unit = a;
    unit.Normalize();
    record.add("normalized", unit);
    record.add("cross", a ^ b);
    record.addList("dot, norm, angles", std::vector<float>{a * b, a.Norm(), a.AngleTo(b), a.AngleTo(b, c)});
    KOVAMath3x3Matrixf const general(a, b, c), turn(a, random.real(4.0));
    record.addList("distances", std::vector<float>{(KOVAPointOf + a).DistanceTo(KOVAPointOf + b),
                                                   (KOVAPointOf + a).DistanceL1To(KOVAPointOf + b)});
    record.add("3x3 rotation", turn);
    record.add("3x3 product", general * turn);
    record.add("3x3 inverse", general.Inverse());
    record.add("3x3 inverse of a multiple",
               KOVAMath3x3Matrixf(turn * KOVAVectorf(3, 0, 0), turn * KOVAVectorf(0, 3, 0), turn * KOVAVectorf(0, 0, 3))
                   .Inverse());
    record.addList("3x3 numbers", std::vector<float>{general.Determinant(), general.Trace(), general.InfiniteNorm()});
    KOVA4x4Matrix const place = random.placement();
    KOVA4x4Matrix inverse;
    place.GetInvertedMatrix(inverse);
    record.add("4x4 placement", place);
    record.add("4x4 inverse", inverse);
    record.add("4x4 point", place * (KOVAPointOf + b));
    float row[3];
    KOVA4x4Matrix(general * KOVAVectorIf, b, c, a).ComputeInverseTransposeThirdColumnNormalized(row);
    record.addList("4x4 normal", std::vector<float>(row, row + 3));
    record.addList("4x4 numbers", std::vector<float>{place.GetDeterminant(), place.GetScaling(),
                                                     inverse.GetDeterminant(), inverse.GetScaling()});
}

void addDoubles(Record& record, test::Random& random) {
    KOVAMorph3D const a = random.morph(), b = random.morph();
    KOVAPoint3D p = random.point(10.0);
    record.add("orthogonal", p.Orthogonalize());
    record.add("vector product", KOVAPoint3D::VectorProduct(p, a.translation()));
    record.addList("length, distance", std::vector<double>{p.Length(), p.DistanceTo(b.translation())});
    record.add("composed linear", a.multiply(b).affine());
    record.add("composed translation", a.multiply(b).translation());
    record.add("inverse translation", a.inverse().translation());
    KOVAAffine3D sum = a.affine(), inverse;
    sum.SetElement(0, 1, random.real());
    sum.GetInverse(inverse);
    record.add("affine inverse", inverse);
    p.Transform(a, false);
    record.add("transformed", p);
    Gk_Domain const d(random.real(), 2.0 + random.real(), 1e-9), turn(0.0, KOVA2PI, 1e-9);
    Gk_LinMap const map = d.mapTo(turn);
    record.addList("domain", std::vector<double>{map.slope(), map.abscissa(), map.invert(1.0), d.locate(0.3),
                                                 turn.principalParam(random.real(1e4))});
}

// The same bits with every compiler and on every system. What was computed is left beside the program.
TEST(Golden, ResultsAreTheSameEverywhere) {
    Record record;
    test::Random random(8);
    for (int i = 0; i < 12; ++i) {
        addFloats(record, random);
        addDoubles(record, random);
    }
    std::ofstream("math-golden.txt") << record.text;
    std::ifstream in(KOVA_GOLDEN);
    std::istringstream computed(record.text);
    std::string golden, line;
    int differing = 0;
    while (std::getline(computed, line)) {
        std::getline(in, golden);
        if (line != golden && ++differing <= 5) ADD_FAILURE() << golden << " is now\n" << line;
    }
    EXPECT_EQ(differing, 0);
    EXPECT_FALSE(std::getline(in, golden)) << "and this is missing: " << golden;
}

} // namespace
