#include "math/geometry.h"

using test::difference;
using test::list;
using test::Random;

namespace {

using Floats = std::vector<float>;

TEST(FloatVector, NormalizesWhatIsLongEnough) {
    struct Row {
        KOVAVectorf v;
        Floats unit;
    };
    for (Row const& row : {Row{{0, 0, 0}, {1, 0, 0}}, Row{{0, 1e-8F, 0}, {1, 0, 0}}, Row{{0, 0.9999e-7F, 0}, {1, 0, 0}},
                           Row{{0, 1e-7F, 0}, {0, 1, 0}}, Row{{3, 0, -4}, {0.6F, 0, -0.8F}},
                           Row{{0, 3e38F, 0}, {0, 1, 0}}, Row{{NAN, 1, 1}, {1, 0, 0}}}) {
        KOVAVectorf v = row.v;
        v.Normalize();
        EXPECT_EQ(list(v), row.unit);
        EXPECT_EQ(list(KOVAVectorf(KOVADirectionf(row.v))), row.unit);
    }
}

TEST(FloatVector, AnglesAndTheirTieBreak) {
    struct Row {
        KOVAVectorf a, b, reference;
        double angle, turned;
    };
    for (Row const& row :
         {Row{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}, KOVAPIBY2, KOVAPIBY2},
          Row{{1, 0, 0}, {0, 1, 0}, {0, 0, -1}, KOVAPIBY2, KOVA3PIBY2},
          Row{{1, 0, 0}, {2, 0, 0}, {0, 0, 1}, 0, KOVA2PI}, Row{{1, 0, 0}, {-2, 0, 0}, {0, 1, 0}, KOVAPI, KOVAPI},
          Row{{0, 0, 0}, {2, 0, 0}, {0, 0, 1}, 0, 0}, Row{{1, 0, 0}, {0, 9e-15F, 0}, {0, 0, 1}, 0, 0},
          Row{{1, 0, 0}, {0, 2e-14F, 0}, {0, 0, 1}, KOVAPIBY2, KOVAPIBY2}}) {
        EXPECT_EQ(row.a.AngleTo(row.b), static_cast<float>(row.angle));
        EXPECT_EQ(row.a.AngleTo(row.b, row.reference), static_cast<float>(row.turned));
    }
}

TEST(FloatVector, SumsAreFormedInDouble) {
    EXPECT_EQ(KOVAVectorf(1e7F, 1, -1e7F) * KOVAVectorf(1e7F, 1, 1e7F), 1.0F);
    EXPECT_EQ(list(KOVAVectorf(8193, 8192, 0) ^ KOVAVectorf(8192, 8191, 0)), (Floats{0, 0, -1}));
    EXPECT_EQ(KOVAVectorf(3e38F, 0, 0).Norm(), 3e38F);
    EXPECT_EQ(KOVAPointf(3e38F, 1, 0).DistanceTo(KOVAPointf(0, 1, 0)), 3e38F);
    EXPECT_EQ(KOVAPointf(1, 2, 3).DistanceL1To(KOVAPointf(2, 0, 6)), 6.0F);
    EXPECT_EQ(KOVAMath3x3Matrixf(1e30F, -1, 1e30F, 0, 0, 0, 0, 0, 0).InfiniteNorm(), 2e30F);
    EXPECT_EQ(KOVAMath3x3Matrixf(1e8F, 1.0F, -1e8F).Trace(), 1.0F);
}

TEST(FloatVector, OperatorsOfPointsVectorsAndDirections) {
    KOVAPointf const p(1, 2, 3), q(4, 6, 8);
    KOVAVectorf const v(p, q);
    float const array[3] = {1, 2, 3};
    EXPECT_EQ(list(v), list(q - p));
    EXPECT_EQ(list(v + p), list(q));
    EXPECT_EQ(list(q - v), (Floats{1, 2, 3}));
    EXPECT_EQ(list(-v * 2 - KOVAVectorf(array) / 2.0F + 2 * v), (Floats{-0.5F, -1, -1.5F}));
    EXPECT_EQ((Numbers{p == KOVAPointf(array), p == KOVAPointf(1, 2, std::nextafter(3.0F, 4.0F)), p != q}),
              (Numbers{1, 0, 1}));
    KOVAPointf low(5, 0, 5), high = low;
    low.GetMinimum(p);
    high.GetMaximum(p);
    EXPECT_EQ(list(low), (Floats{1, 0, 3}));
    EXPECT_EQ(list(high), (Floats{5, 2, 5}));
    EXPECT_EQ(list(KOVAMathIf ^ -KOVAMathJf), (Floats{0, 0, -1}));
    EXPECT_EQ(list((KOVAMathIf ^ v) - (v ^ KOVAMathIf)), (Floats{0, -10, 8}));
    EXPECT_EQ(list(KOVADirectionf(p, KOVAPointf(1, 2, 5)) * 3 + 2 * KOVAMathKf), (Floats{0, 0, 5}));
    KOVAVectorf set;
    float out[3];
    set.SetCoord(array);
    set.GetCoord(out);
    EXPECT_EQ(Floats(out, out + 3), (Floats{1, 2, 3}));
    EXPECT_EQ(list(KOVAVectorf(1, 2, 3) % KOVAVectorf(4, 5, 6)), (Floats{4, 5, 6, 8, 10, 12, 12, 15, 18}));
}

/// 1 or -1 for isometries, 2 for other multiples, 0 for general matrices.
int kindOf(KOVAMath3x3Matrixf const& m) {
    int const sign = m.Determinant() < 0.0F ? -1 : 1;
    return m.IsIsometry() ? sign : m.IsScaling() ? 2 * sign : 0;
}

TEST(Matrix3, KnowsItsKind) {
    KOVAMath3x3Matrixf const turn(KOVAVectorf(1, 2, 3), 0.5);
    KOVAVectorf x, y, z;
    turn.GetFirstColumn(x);
    turn.GetSecondColumn(y);
    turn.GetThirdColumn(z);
    KOVAMath3x3Matrixf set = turn;
    set.SetSecondColumn(y);
    EXPECT_EQ(list(set), list(turn));
    KOVAMath3x3Matrixf columns(1, 2, 3);
    columns.SetMatrix(x * 3, y * 3, z * 3);
    struct Row {
        KOVAMath3x3Matrixf m;
        int kind;
    };
    int index = 0;
    for (Row const& row : {Row{KOVAMath3x3Matrixf(), 1},
                           Row{KOVAMath3x3Matrixf(1.0F), 1},
                           Row{KOVAMath3x3Matrixf(-1.0F), -1},
                           Row{KOVAMath3x3Matrixf(2.0F), 2},
                           Row{KOVAMath3x3Matrixf(-2.0F), -2},
                           Row{KOVAMath3x3Matrixf(0.0F), 0},
                           Row{KOVAMath3x3Matrixf(NAN), 0},
                           Row{KOVAMath3x3Matrixf(1, 1, 1), 0},
                           Row{turn, 1},
                           Row{{x, y, z}, 1},
                           Row{{y, x, z}, -1},
                           Row{columns, 2},
                           Row{{x * 1e-3F, y * 1e-3F, z * -1e-3F}, -2},
                           Row{{x, y, z * 1.00001F}, 0},
                           Row{{x, y + 1e-5F * x, z}, 0},
                           Row{{x, x, x}, 0},
                           Row{{KOVANullVectorf, KOVANullVectorf, KOVANullVectorf}, 0},
                           Row{set, 0},
                           Row{turn * turn, 0},
                           Row{turn + turn, 0},
                           Row{turn - turn, 0},
                           Row{turn * 2.0F, 0},
                           Row{x % y, 0},
                           Row{turn.Transpose(), 1},
                           Row{turn.Inverse(), 1},
                           Row{columns.Inverse(), 2},
                           Row{KOVAMath3x3Matrixf(-2.0F).Transpose(), -2}})
        EXPECT_EQ(kindOf(row.m), row.kind) << "row " << index++;
}

TEST(Matrix3, Inverses) {
    EXPECT_LT(difference(KOVAMath3x3Matrixf(2.0F).Inverse(), KOVAMath3x3Matrixf(0.5F)), 1e-7);
    KOVAMath3x3Matrixf out(7.0F);
    for (KOVAMath3x3Matrixf const& singular :
         {KOVAMath3x3Matrixf(1, 2, 0), KOVAMath3x3Matrixf(1e-5F), KOVAVectorf(1, 2, 3) % KOVAVectorf(1, 2, 4)}) {
        EXPECT_FALSE(singular.Inverse(out));
        EXPECT_EQ(list(out), list(KOVAMath3x3Matrixf(7.0F)));
        EXPECT_EQ(list(singular.Inverse()), list(KOVAMath3x3Matrixf()));
    }
    EXPECT_TRUE(KOVAMath3x3Matrixf(2, 4, 8).Inverse(out));
    EXPECT_EQ(list(out), list(KOVAMath3x3Matrixf(0.5F, 0.25F, 0.125F)));

    Random random(1);
    for (int i = 0; i < 3000; ++i) {
        KOVAVectorf const a = random.vector(), b = random.vector(), c = random.vector();
        KOVAMath3x3Matrixf const general(a, b, c), turn(a, random.real(7.0)),
            scaled(double(random.single()) > 0 ? 3.0F : -0.3F);
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
    struct Row {
        float x, determinant, scaling;
    };
    for (Row const& row : {Row{1.0000005F, 1.0000005F, 1}, Row{-0.9999995F, -0.9999995F, 1}, Row{8, 8, 2},
                           Row{-8, -8, 2}, Row{1.00001F, 1.00001F, 1.0000033F}, Row{0, 0, 0}}) {
        KOVA4x4Matrix m;
        m.SetComponents(KOVAVectorf(row.x, 0, 0), KOVAVectorJf, KOVAVectorKf, KOVAPointf(1, 2, 3));
        EXPECT_EQ((Floats{m.GetDeterminant(), m.GetScaling()}), (Floats{row.determinant, row.scaling}));
        EXPECT_EQ(KOVA4x4Matrix(m.GetMatrix()).GetScaling(), row.scaling);
    }
    KOVA4x4Matrix const twice(KOVAVectorf(1, 2, 3), -2.0F);
    EXPECT_EQ((Floats{twice.GetDeterminant(), twice.GetScaling()}), (Floats{-8, -2}));
    KOVA4x4Matrix product = twice * twice; // multiplied, not computed
    EXPECT_EQ((Floats{product.GetDeterminant(), product.GetScaling()}), (Floats{64, 4}));
    product.SetElement(0, 0, 100);
    product.SetTranslation(KOVAVectorf(7, 8, 9), 5);
    EXPECT_EQ((Floats{product.GetDeterminant(), product.GetScaling()}), (Floats{64, 4}));
    EXPECT_EQ(list(product * KOVAPointOf), (Floats{7, 8, 9}));
}

TEST(Matrix4, InverseAsksTheDeterminantThatIsKept) {
    KOVA4x4Matrix out(KOVAVectorf(1, 2, 3), 4.0F);
    KOVA4x4Matrix const before = out;
    KOVA4x4Matrix(KOVAVectorf(1, 1, 1), 0.0F).GetInvertedMatrix(out);
    KOVA4x4Matrix(KOVAVectorf(1, 1, 1), 1e-5F).GetInvertedMatrix(out);
    EXPECT_TRUE(out == before && out.GetDeterminant() == 64.0F);
    KOVA4x4Matrix stale;
    stale.SetElement(0, 0, 2);
    stale.GetInvertedMatrix(out);
    EXPECT_EQ(list(out * KOVAPointf(1, 1, 1)), (Floats{1, 2, 2})); // the adjugate over 1
    EXPECT_EQ(out.GetDeterminant(), 4.0F);
    float column[3] = {};
    KOVA4x4Matrix(KOVANullVectorf, 2.0F).ComputeInverseTransposeThirdColumnNormalized(column);
    EXPECT_EQ(Floats(column, column + 3), (Floats{0, 0, 1}));
    KOVA4x4Matrix(KOVANullVectorf, -2.0F).ComputeInverseTransposeThirdColumnNormalized(column);
    EXPECT_EQ(Floats(column, column + 3), (Floats{0, 0, -1}));
    KOVA4x4Matrix(KOVANullVectorf, 0.0F).ComputeInverseTransposeThirdColumnNormalized(column);
    EXPECT_EQ(Floats(column, column + 3), (Floats{1, 0, 0}));
    KOVA4x4MatrixI.ComputeInverseTransposeThirdColumnNormalized(nullptr);
}

TEST(Matrix4, RotationsTurnClockwise) {
    struct Row {
        KOVAVectorf axis;
        KOVAPointf centre, from, to;
    };
    for (Row const& row :
         {Row{{0, 0, 1}, {0, 0, 0}, {1, 0, 0}, {0, -1, 0}}, Row{{0, 0, -9}, {0, 0, 0}, {1, 0, 0}, {0, 1, 0}},
          Row{{1, 0, 0}, {0, 0, 0}, {0, 1, 0}, {0, 0, -1}}, Row{{0, 2, 0}, {0, 5, 1}, {1, 7, 1}, {0, 7, 2}},
          Row{{0, 0, 1}, {1, 1, 0}, {2, 1, 4}, {1, 0, 4}}}) {
        EXPECT_LT(difference(KOVA4x4Matrix(row.axis, row.centre, KOVAPIBY2f) * row.from, row.to), 1e-6);
        KOVA4x4Matrix const moved(KOVAVectorf(1, 0, 0), row.axis, row.centre, KOVAPIBY2f);
        EXPECT_LT(difference(moved * row.from, row.to + KOVAVectorIf), 1e-6);
    }
    EXPECT_TRUE(KOVA4x4Matrix(KOVAVectorKf, KOVAPointf(1, 2, 3), 0.0F).IsIdentity());
    KOVA4x4Matrix nearly;
    nearly.SetElement(2, 3, 1e-30F);
    EXPECT_EQ((Numbers{nearly.IsIdentity(), nearly == KOVA4x4MatrixI, KOVA4x4MatrixI.IsIdentity()}),
              (Numbers{0, 0, 1}));
}

TEST(Matrix4, ComposesInvertsAndTransformsArraysAlike) {
    Random random(2);
    for (int i = 0; i < 3000; ++i) {
        KOVA4x4Matrix const a = random.placement(), b = random.placement();
        KOVAPointf const p = random.position(10.0F);
        KOVAVectorf const v = random.vector();
        KOVA4x4Matrix composed = a, inverse = a;
        composed *= b;
        inverse.GetInvertedMatrix(inverse);
        ASSERT_LT(difference((a * b) * p, b * (a * p)), 1e-5);
        ASSERT_TRUE(composed == a * b);
        ASSERT_LT(difference(inverse * (a * p), p), 2e-5 * (1 + 1 / double(a.GetScaling())));
        ASSERT_NEAR((a * v).Norm(), v.Norm() * a.GetScaling(), 1e-5);
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
    for (long const count : {1L, 2L, 3L, 4L, 5L, 17L, 1000L}) {
        Floats points, vectors, turned, wantedPoints, wantedVectors, wantedTurned;
        for (long i = 0; i < count; ++i) {
            KOVAVectorf const v = random.vector(100.0F);
            for (Floats* all : {&points, &vectors, &turned}) all->insert(all->end(), {v.x(), v.y(), v.z()});
            for (auto const& [all, image] :
                 {std::pair(&wantedPoints, list(m * (KOVAPointOf + v))), std::pair(&wantedVectors, list(m * v)),
                  std::pair(&wantedTurned, list(linear * v))})
                all->insert(all->end(), image.begin(), image.end());
        }
        TransformPoints(m, points.data(), count);
        TransformVectors(m, vectors.data(), count);
        TransformVectors(linear, turned.data(), count);
        EXPECT_EQ(points, wantedPoints);
        EXPECT_EQ(vectors, wantedVectors);
        EXPECT_EQ(turned, wantedTurned);
        TransformPoints(m, points.data(), -count);
        TransformPoints(m, nullptr, count);
        TransformVectors(linear, nullptr, count);
        EXPECT_EQ(points, wantedPoints);
    }
}

} // namespace
