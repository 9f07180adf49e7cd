#include "math/geometry.h"

using test::difference;
using test::list;
using test::Random;

namespace {

using Floats = std::vector<float>;

TEST(FloatVector, NormalizesWhatIsLongEnough) {
    using Row = std::tuple<KOVAVectorf, Floats>;
    for (auto const& [given, unit] :
         {Row{{0, 0, 0}, {1, 0, 0}}, Row{{0, 1e-8F, 0}, {1, 0, 0}}, Row{{0, 0.9999e-7F, 0}, {1, 0, 0}},
          Row{{0, 1e-7F, 0}, {0, 1, 0}}, Row{{3, 0, -4}, {0.6F, 0, -0.8F}}, Row{{0, 3e38F, 0}, {0, 1, 0}},
          Row{{NAN, 1, 1}, {1, 0, 0}}}) {
        EXPECT_EQ(list(KOVAVectorf(KOVADirectionf(given))), unit);
    }
}

TEST(FloatVector, AnglesAndTheirTieBreak) {
    using Row = std::tuple<KOVAVectorf, KOVAVectorf, KOVAVectorf, double, double>;
    for (auto const& [a, b, reference, angle, turned] :
         {Row{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}, KOVAPIBY2, KOVAPIBY2},
          Row{{1, 0, 0}, {0, 1, 0}, {0, 0, -1}, KOVAPIBY2, KOVA3PIBY2},
          Row{{1, 0, 0}, {2, 0, 0}, {0, 0, 1}, 0, KOVA2PI}, Row{{1, 0, 0}, {-2, 0, 0}, {0, 1, 0}, KOVAPI, KOVAPI},
          Row{{0, 0, 0}, {2, 0, 0}, {0, 0, 1}, 0, 0}, Row{{1, 0, 0}, {0, 9e-15F, 0}, {0, 0, 1}, 0, 0},
          Row{{1, 0, 0}, {0, 2e-14F, 0}, {0, 0, 1}, KOVAPIBY2, KOVAPIBY2}}) {
        EXPECT_EQ(a.AngleTo(b), static_cast<float>(angle));
        EXPECT_EQ(a.AngleTo(b, reference), static_cast<float>(turned));
    }
}

TEST(FloatVector, OperatorsOfPointsVectorsAndDirections) {
    KOVAPointf const p(1, 2, 3), q(4, 6, 8);
    KOVAVectorf const v(p, q);
    float const array[3] = {1, 2, 3};
    EXPECT_TRUE(v + p == p + (q - p) && q - v == p);
    EXPECT_EQ(list(-v * 2 - KOVAVectorf(array) / 2.0F + 2 * v), (Floats{-0.5F, -1, -1.5F}));
    EXPECT_TRUE(p == KOVAPointf(array) && p != KOVAPointf(1, 2, std::nextafter(3.0F, 4.0F)));
    EXPECT_EQ((Floats{q.DistanceTo(p), p.DistanceL1To(q), KOVAVectorf(1e7F, 1, -1e7F) * KOVAVectorf(1e7F, 1, 1e7F)}),
              (Floats{std::sqrt(50.0F), 12, 1})); // summed in double
    KOVAPointf low(5, 0, 5), high = low;
    low.GetMinimum(p);
    high.GetMaximum(p);
    EXPECT_TRUE(low == KOVAPointf(1, 0, 3) && high == KOVAPointf(5, 2, 5));
    EXPECT_EQ(list((KOVAMathIf ^ v) - (v ^ KOVAMathIf) + (KOVAMathIf ^ -KOVAMathJf)), (Floats{0, -10, 7}));
    EXPECT_EQ(list(KOVADirectionf(p, KOVAPointf(1, 2, 5)) * 3 + 2 * KOVAMathKf), (Floats{0, 0, 5}));
    EXPECT_EQ(list(KOVAVectorf(1, 2, 3) % KOVAVectorf(4, 5, 6)), (Floats{4, 5, 6, 8, 10, 12, 12, 15, 18}));
}

TEST(Matrix3, KnowsItsKind) {
    using M = KOVAMath3x3Matrixf;
    M const turn(KOVAVectorf(1, 2, 3), 0.5), minus(-2.0F), null(KOVANullVectorf, KOVANullVectorf, KOVANullVectorf);
    KOVAVectorf x, y, z;
    turn.GetFirstColumn(x);
    turn.GetSecondColumn(y);
    turn.GetThirdColumn(z);
    M set = turn, columns;
    set.SetSecondColumn(y);
    EXPECT_EQ(list(set), list(turn));
    columns.SetMatrix(x * 3, y * 3, z * 3);
    // Isometries, other multiples, and what is general or not known to be more.
    std::vector<M> const isometries = {M(),        M(1.0F),    M(-1.0F),         turn,
                                       M(x, y, z), M(y, x, z), turn.Transpose(), turn.Inverse()};
    std::vector<M> const multiples = {
        M(2.0F), minus, minus.Transpose(), columns, columns.Inverse(), M(x * -0.1F, y * 0.1F, z * 0.1F)};
    std::vector<M> const others = {M(0.0F),     M(NAN),      M(1, 1, 1), M(x, y, z * 1.00001F), M(x, y + 1e-5F * x, z),
                                   M(x, x, x),  null,        set,        turn * turn,           turn + turn,
                                   turn - turn, turn * 2.0F, x % y};
    for (M const& m : isometries) EXPECT_TRUE(m.IsIsometry() && m.IsScaling()) << testing::PrintToString(list(m));
    for (M const& m : multiples) EXPECT_TRUE(!m.IsIsometry() && m.IsScaling()) << testing::PrintToString(list(m));
    for (M const& m : others) EXPECT_TRUE(!m.IsIsometry() && !m.IsScaling()) << testing::PrintToString(list(m));
}

TEST(Matrix3, Inverses) {
    EXPECT_LT(difference(KOVAMath3x3Matrixf(2.0F).Inverse(), KOVAMath3x3Matrixf(0.5F)), 1e-7);
    KOVAMath3x3Matrixf out(7.0F);
    for (KOVAMath3x3Matrixf const& singular :
         {KOVAMath3x3Matrixf(1, 2, 0), KOVAMath3x3Matrixf(1e-5F), KOVAVectorf(1, 2, 3) % KOVAVectorf(1, 2, 4)}) {
        EXPECT_TRUE(!singular.Inverse(out) && list(out) == list(KOVAMath3x3Matrixf(7.0F)));
        EXPECT_EQ(list(singular.Inverse()), list(KOVAMath3x3Matrixf()));
    }
    Random random(1);
    for (int i = 0; i < 3000; ++i) {
        KOVAVectorf const a = random.vector(), b = random.vector(), c = random.vector();
        KOVAMath3x3Matrixf const general(a, b, c), turn(a, random.real(7.0)), scaled(i % 2 ? 3.0F : -0.3F);
        for (KOVAMath3x3Matrixf const& m : {general, turn, turn * scaled, scaled}) {
            KOVAMath3x3Matrixf inverse = m;
            if (!inverse.Inverse(inverse) || std::fabs(m.Determinant()) < 1e-2F) continue;
            ASSERT_LT(difference(m * inverse, KOVAMath3x3Matrixf()), 1e-4);
            ASSERT_LT(difference((m * turn) * b, m * (turn * b)), 1e-6);
        }
        ASSERT_NEAR((turn * b).Norm(), b.Norm(), 1e-6);
        ASSERT_EQ(list(KOVAMath3x3Matrixf(a) * b), list(a ^ b));
    }
    EXPECT_LT(difference(KOVAMath3x3Matrixf(KOVAVectorKf * 5, KOVAPIBY2) * KOVAVectorIf, KOVAVectorJf), 1e-7);
}

TEST(Matrix4, ScalingFollowsTheDeterminant) {
    using Row = std::tuple<float, float, float>;
    for (auto const& [x, determinant, scaling] :
         {Row{1.0000005F, 1.0000005F, 1}, Row{-0.9999995F, -0.9999995F, 1}, Row{8, 8, 2}, Row{-8, -8, 2},
          Row{1.00001F, 1.00001F, 1.0000033F}, Row{0, 0, 0}}) {
        KOVA4x4Matrix m;
        m.SetComponents(KOVAVectorf(x, 0, 0), KOVAVectorJf, KOVAVectorKf, KOVAPointf(1, 2, 3));
        EXPECT_EQ((Floats{m.GetDeterminant(), m.GetScaling()}), (Floats{determinant, scaling}));
        EXPECT_EQ(KOVA4x4Matrix(m.GetMatrix()).GetScaling(), scaling);
    }
    KOVA4x4Matrix product(KOVAVectorf(1, 2, 3), -2.0F);
    EXPECT_EQ((Floats{product.GetDeterminant(), product.GetScaling()}), (Floats{-8, -2}));
    product *= product; // multiplied, not computed
    product.SetElement(0, 0, 100);
    product.SetTranslation(KOVAVectorf(7, 8, 9), 5);
    EXPECT_EQ((Floats{product.GetDeterminant(), product.GetScaling()}), (Floats{64, 4}));
    EXPECT_EQ(list(product * KOVAPointOf), (Floats{7, 8, 9}));
}

TEST(Matrix4, InverseAsksTheDeterminantThatIsKept) {
    KOVA4x4Matrix out(KOVAVectorf(1, 2, 3), 4.0F);
    KOVA4x4Matrix(KOVAVectorf(1, 1, 1), 0.0F).GetInvertedMatrix(out);
    KOVA4x4Matrix(KOVAVectorf(1, 1, 1), 1e-5F).GetInvertedMatrix(out);
    EXPECT_TRUE(out == KOVA4x4Matrix(KOVAVectorf(1, 2, 3), 4.0F) && out.GetDeterminant() == 64.0F);
    KOVA4x4Matrix stale;
    stale.SetElement(0, 0, 2);
    stale.GetInvertedMatrix(out);
    EXPECT_EQ(list(out * KOVAPointf(1, 1, 1)), (Floats{1, 2, 2})); // the adjugate over 1
    EXPECT_EQ(out.GetScaling(), 1.587401F);                        // its own determinant's, not the kept one's
    for (auto const& [scale, wanted] :
         {std::pair(2.0F, KOVAVectorKf), std::pair(-2.0F, -KOVAVectorKf), std::pair(0.0F, KOVAVectorIf)}) {
        float column[3] = {};
        KOVA4x4Matrix(KOVANullVectorf, scale).ComputeInverseTransposeThirdColumnNormalized(column);
        EXPECT_EQ(Floats(column, column + 3), list(wanted));
    }
    KOVA4x4MatrixI.ComputeInverseTransposeThirdColumnNormalized(nullptr);
}

TEST(Matrix4, RotationsTurnClockwise) {
    using Row = std::tuple<KOVAVectorf, KOVAPointf, KOVAPointf, KOVAPointf>;
    for (auto const& [axis, centre, from, to] :
         {Row{{0, 0, 1}, {0, 0, 0}, {1, 0, 0}, {0, -1, 0}}, Row{{0, 0, -9}, {0, 0, 0}, {1, 0, 0}, {0, 1, 0}},
          Row{{1, 0, 0}, {0, 0, 0}, {0, 1, 0}, {0, 0, -1}}, Row{{0, 2, 0}, {0, 5, 1}, {1, 7, 1}, {0, 7, 2}},
          Row{{0, 0, 1}, {1, 1, 0}, {2, 1, 4}, {1, 0, 4}}}) {
        EXPECT_LT(difference(KOVA4x4Matrix(axis, centre, KOVAPIBY2f) * from, to), 1e-6);
        KOVA4x4Matrix const moved(KOVAVectorf(1, 0, 0), axis, centre, KOVAPIBY2f);
        EXPECT_LT(difference(moved * from, to + KOVAVectorIf), 1e-6);
    }
    KOVA4x4Matrix nearly(KOVAVectorKf, KOVAPointf(1, 2, 3), 0.0F);
    EXPECT_TRUE(nearly.IsIdentity());
    nearly.SetElement(2, 3, 1e-30F);
    EXPECT_FALSE(nearly.IsIdentity() || nearly == KOVA4x4MatrixI);
}

TEST(Matrix4, ComposesInvertsAndTransformsArraysAlike) {
    Random random(2);
    for (int i = 0; i < 3000; ++i) {
        KOVA4x4Matrix const a = random.placement(), b = random.placement();
        KOVAPointf const p = KOVAPointOf + random.vector(10.0F);
        KOVAVectorf const v = random.vector();
        KOVA4x4Matrix inverse = a;
        inverse.GetInvertedMatrix(inverse);
        ASSERT_LT(difference((a * b) * p, b * (a * p)), 1e-5);
        ASSERT_LT(difference(inverse * (a * p), p), 2e-5 * (1 + 1 / double(a.GetScaling())));
        ASSERT_NEAR((a * v).Norm(), v.Norm() * a.GetScaling(), 1e-5);
        double const root = std::pow(std::fabs(double{inverse.GetDeterminant()}), 1.0 / 3.0);
        ASSERT_TRUE(inverse.GetScaling() == static_cast<float>(root) || std::fabs(root - 1) < 1e-6);
        float normal[3];
        a.ComputeInverseTransposeThirdColumnNormalized(normal);
        KOVAVectorf x, y, z;
        KOVAPointf origin;
        inverse.GetComponents(x, y, z, origin);
        ASSERT_LT(difference(KOVAVectorf(normal) * z.Norm(), z), 1e-5);
        ASSERT_TRUE(KOVA4x4Matrix(x, y, z, origin - KOVAPointOf) == inverse);
    }
    KOVA4x4Matrix const m = random.placement();
    KOVAMath3x3Matrixf const linear(random.vector(), random.vector(), random.vector());
    for (long const count : {1L, 2L, 3L, 4L, 17L, 1000L}) {
        Floats given, points, vectors, turned;
        auto const append = [](Floats& all, Floats const& one) { all.insert(all.end(), one.begin(), one.end()); };
        for (long i = 0; i < count; ++i) {
            KOVAVectorf const v = random.vector(100.0F);
            append(given, list(v));
            append(points, list(m * (KOVAPointOf + v)));
            append(vectors, list(m * v));
            append(turned, list(linear * v));
        }
        Floats const wanted[] = {points, vectors, turned};
        points = vectors = turned = given;
        TransformPoints(m, points.data(), count);
        TransformPoints(m, points.data(), -count);
        TransformPoints(m, nullptr, count);
        TransformVectors(m, vectors.data(), count);
        TransformVectors(linear, turned.data(), count);
        EXPECT_TRUE(points == wanted[0] && vectors == wanted[1] && turned == wanted[2]) << count;
    }
}

} // namespace
