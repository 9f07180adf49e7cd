#include "math/geometry.h"

using test::difference;
using test::list;
using test::printed;
using test::Random;

namespace {

using Doubles = std::vector<double>;

TEST(Point, IndexIsClamped) {
    KOVAPoint3D p(1, 2, 3);
    KOVAPoint2D q(4, 5);
    KOVAWeightPoint3D const w(p, 2, true);
    EXPECT_EQ((Doubles{p[-1], p[7], p[INT_MIN], p[INT_MAX], q[2], w[3]}), (Doubles{1, 3, 1, 3, 5, 6}));
    EXPECT_EQ((Doubles{KOVAPoint(0)[3], KOVAPoint(-5)[-1], KOVAPoint(99)[99]}), (Doubles{0, 0, 0}));
    p[9] = 7;
    static_cast<KOVAPoint&>(q)[-9] = 8;
    EXPECT_EQ(list(p), (Doubles{1, 2, 7}));
    EXPECT_EQ(list(q), (Doubles{8, 5}));
}

TEST(Point, TolerancesAreInclusive) {
    struct Row {
        double difference, tolerance;
        bool within;
    };
    for (Row const& row :
         {Row{0.1, 0.1, true}, Row{0.1, -0.1, true}, Row{-0.1, 0.1, true}, Row{0.1000001, 0.1, false},
          Row{-0.1000001, -0.1, false}, Row{0, 0, true}, Row{NAN, 0, true}, Row{INFINITY, 1e300, false}}) {
        for (int i = 0; i < 3; ++i) {
            KOVAPoint3D p, tolerances(1e-9, 1e-9, 1e-9);
            p[i] = row.difference;
            tolerances[i] = row.tolerance;
            EXPECT_EQ(p.IsWithinTolerance(KOVAPoint3D(), row.tolerance), row.within);
            EXPECT_EQ(KOVAPoint3D().IsWithinTolerance(p, tolerances), row.within);
        }
    }
    EXPECT_TRUE(KOVAPoint(0).IsWithinTolerance(KOVAPoint3D(9, 9, 9), 0.0));
    EXPECT_TRUE(KOVAPoint3D(1, 1, 9).IsWithinTolerance(KOVAPoint2D(1, 2), KOVAPoint2D(0.5, 1)));
    EXPECT_TRUE(KOVAWeightPoint2D(5).IsWithinTolerance(KOVAWeightPoint2D(1), 0.0));
    Gk_ErrMgr::setAbort();
    EXPECT_TRUE(KOVAPoint3D().IsWithinTolerance(KOVAPoint3D(), 0.0));
    EXPECT_THROW(KOVAPoint3D().IsWithinTolerance(KOVAPoint3D(), KOVAPoint3D()), KOVAAbortException);
}

TEST(Point, Arithmetic) {
    KOVAPoint3D const a(1, 2, 3), b(4, 6, 8);
    KOVAPoint3D c = a.Copy();
    c.Shift(b);
    EXPECT_EQ(list(c), list(a + b));
    EXPECT_EQ(list((2 * b - a * 2) / 4 - -a), (Doubles{2.5, 4, 5.5}));
    EXPECT_EQ((Doubles{a * b, b.DistanceTo(a), KOVAPoint3D(2, 3, 6).Length(),
                       KOVAPoint3D(3, 4, 9).DistanceTo(KOVAPoint2D())}),
              (Doubles{40, std::sqrt(50.0), 7, 5}));
    EXPECT_EQ(list(KOVAPoint3D::VectorProduct(a, b)), (Doubles{-2, 4, -2}));
    EXPECT_EQ(KOVAPoint2D::VectorProduct(KOVAPoint2D(1, 2), KOVAPoint2D(3, 4)), -2.0);
    c.Substract(KOVAPoint2D(5, 5));
    c.Divide(0.5);
    c.Negate();
    EXPECT_EQ(list(c), (Doubles{-0.0, -6, -22}));
    KOVAPoint2D flat(7, 7);
    c.CopyIn(flat);
    EXPECT_EQ(list(flat), (Doubles{-0.0, -6}));
    EXPECT_EQ(list(KOVAPoint3D().Normalize()), (Doubles{1, 0, 0}));
    EXPECT_EQ(list(KOVAPoint3D().Orthogonalize()), (Doubles{0, 0, 1}));
    EXPECT_EQ(list(KOVAPoint2D(3, 4).Orthogonalize()), (Doubles{-0.8, 0.6}));
    Random random(3);
    for (int i = 0; i < 3000; ++i) {
        KOVAPoint3D const p = random.point(1e3), q = p.Orthogonalize();
        ASSERT_NEAR(q.Length(), 1, 1e-15);
        ASSERT_NEAR(p * q, 0, 1e-12);
        ASSERT_NEAR(p.Normalize().Length(), 1, 1e-15);
    }
}

TEST(WeightPoint, StoresWeightedCoordinates) {
    KOVAWeightPoint3D p(KOVAPoint3D(1, 2, 3), 2, true);
    EXPECT_EQ(list(p), (Doubles{2, 4, 6}));
    EXPECT_EQ(list(p.GetCoords()), (Doubles{1, 2, 3}));
    EXPECT_EQ(list(KOVAWeightPoint2D(KOVAPoint2D(1, 2), 2, false)), (Doubles{1, 2}));
    EXPECT_EQ(printed(p), "2.000000 4.000000 6.000000 2.000000 ");
    EXPECT_EQ((Doubles{p.Length(), p * p, KOVAWeightPoint3D().GetWeight()}), (Doubles{std::sqrt(60.0), 60, 1}));
    KOVAPoint& base = p;
    base.Add(KOVAWeightPoint3D(KOVAPoint3D(1, 1, 1), 3, false));
    base.Add(KOVAPoint3D(1, 1, 1));
    base.Multiply(2);
    base.Negate(); // the weight stays
    EXPECT_EQ(printed(p), "-8.000000 -12.000000 -16.000000 10.000000 ");
    p = (p - KOVAWeightPoint3D(KOVAPoint3D(2, 0, 0), 2, false)) / 2;
    EXPECT_EQ(printed(-p), "5.000000 6.000000 8.000000 4.000000 ");
    KOVAWeightPoint3D copy;
    p.CopyIn(copy);
    copy.Substract(p);
    copy.SetWeightedCoords(KOVAPoint3D(7, 8, 9));
    EXPECT_EQ(printed(copy), "7.000000 8.000000 9.000000 0.000000 ");
    EXPECT_EQ(copy.GetCoords()[0], INFINITY);
    copy.SetWeight(4);
    copy.Transform(KOVAMorph3D(KOVAPoint3D(1, 0, 0), 2.0), false);
    EXPECT_EQ(printed(copy), "15.000000 16.000000 18.000000 4.000000 ");
}

TEST(Affine, TolerancesOfIdentityAndEquality) {
    KOVAAffine3D a;
    EXPECT_EQ(list(a), Doubles(9, 0.0));
    EXPECT_FALSE(a.IsIdentity());
    a.MakeIdentity();
    struct Row {
        double added;
        bool identity, equal;
    };
    for (Row const& row : {Row{0, true, true}, Row{1e-11, true, true}, Row{-1e-9, false, true}, Row{5e-7, false, true},
                           Row{-2e-6, false, false}, Row{NAN, false, false}}) {
        for (int k = 0; k < 9; ++k) {
            KOVAAffine3D b = a;
            b.SetElement(k / 3, k % 3, b.GetElement(k / 3, k % 3) + row.added);
            EXPECT_EQ((Numbers{b.IsIdentity(), a == b}), (Numbers{row.identity, row.equal}));
        }
    }
    EXPECT_TRUE(KOVAAffine2D(1, 0, 0, 1) == a); // only this map's dimension is asked
    KOVAAffine2D flat(1, 2, 3, 4);
    EXPECT_EQ(printed(flat, 1), "    1.000000\t2.000000\t\n    3.000000\t4.000000\t\n");
    flat.MakeIdentity();
    EXPECT_EQ(printed(flat), "1.000000\t0.000000\t\n0.000000\t1.000000\t\n");
}

TEST(Affine, RowsColumnsAndScaling) {
    KOVAAffine3D a(1, 2, 3, 4, 5, 6, 7, 8, 9);
    double row[3], column[3];
    a.GetRow(1, row);
    a.GetColumn(2, column);
    EXPECT_EQ(Doubles(row, row + 3), (Doubles{4, 5, 6}));
    EXPECT_EQ(Doubles(column, column + 3), (Doubles{3, 6, 9}));
    a.SetRow(0, row);
    a.SetColumn(0, column);
    a.SetColumn(1, KOVAPoint3D(-1, -2, -3));
    EXPECT_EQ(list(a.Multiply(2).Divide(4)), (Doubles{1.5, -0.5, 3, 3, -1, 3, 4.5, -1.5, 4.5}));
    a.Transpose();
    EXPECT_EQ(list(a), (Doubles{1.5, 3, 4.5, -0.5, -1, -1.5, 3, 3, 4.5}));
    a.Initialize(2);
    EXPECT_EQ(list(a), Doubles(9, 2.0));
    Gk_ErrMgr::setAbort();
    EXPECT_THROW(a.Divide(2), KOVAAbortException);
    Gk_ErrMgr::setAbort();
    EXPECT_THROW(a.GetInverse(a), KOVAAbortException);
    EXPECT_EQ(list(a), Doubles(9, 2.0));
}

TEST(Affine, InverseAndComposition) {
    KOVAAffine3D out;
    KOVAAffine3D(2, 0, 0, 0, 4, 0, 0, 0, 8).GetInverse(out);
    EXPECT_EQ(list(out), (Doubles{0.5, 0, 0, 0, 0.25, 0, 0, 0, 0.125}));
    KOVAAffine3D(1, 2, 3, 2, 4, 6, 1, 0, 1).GetInverse(out);
    for (double const element : list(out)) EXPECT_FALSE(std::isfinite(element));
    KOVAAffine2D flat(1, 2, 3, 5);
    EXPECT_EQ(flat.Determinant(), -1.0);
    flat.GetInverse(flat);
    EXPECT_EQ(list(flat), (Doubles{-5, 2, 3, -1}));

    Random random(4);
    KOVAAffine3D identity;
    identity.MakeIdentity();
    for (int i = 0; i < 3000; ++i) {
        KOVAAffine3D a, b = random.isometry();
        for (int k = 0; k < 9; ++k) a.SetElement(k / 3, k % 3, random.real() + (k % 4 == 0 ? 2.0 : 0.0));
        KOVAAffine3D product, inverse, transpose;
        a.Multiply(b, product);
        KOVAPoint3D const p = random.point();
        KOVAPoint3D once = p, twice = p;
        once.Transform(product);
        twice.Transform(b);
        twice.Transform(a);
        ASSERT_LT(difference(once, twice), 1e-14);
        a.GetInverse(inverse);
        inverse.Multiply(a, inverse);
        ASSERT_LT(difference(inverse, identity), 1e-11 / std::fabs(a.Determinant()));
        b.GetTranspose(transpose);
        b.GetInverse(b);
        ASSERT_LT(difference(transpose, b), 1e-14);
        ASSERT_NEAR(std::fabs(b.Determinant()), 1.0, 1e-14);
    }
}

TEST(Morph, FlagsAndTheirTolerances) {
    auto const flags = [](KOVAMorph const& m) {
        return Numbers{m.isScale(), m.isAffine(), m.isTranslation(), m.isIdentity()};
    };
    KOVAAffine3D mirror(-1, 0, 0, 0, 1, 0, 0, 0, 1);
    struct Row {
        KOVAMorph3D morph;
        Numbers flags;
    };
    for (Row const& row : {Row{KOVAMorph3D(), {0, 0, 0, 1}}, Row{KOVAMorph3D(KOVAPoint3D(1e-7, 0, 0)), {0, 0, 0, 1}},
                           Row{KOVAMorph3D(KOVAPoint3D(1e-5, 0, 0)), {0, 0, 1, 0}}, Row{KOVAMorph3D(2.0), {1, 0, 0, 0}},
                           Row{KOVAMorph3D(1.0 + 1e-11), {1, 0, 0, 0}}, Row{{mirror, KOVAPoint3D(), 1}, {0, 1, 0, 0}}})
        EXPECT_EQ(flags(row.morph), row.flags);
    EXPECT_TRUE(KOVAMorph3D(mirror, KOVAPoint3D(), 1).isMirror());
    EXPECT_FALSE(KOVAMorph3D(-1.0).isMirror());

    KOVAMorph3D m(KOVAPoint3D(1, 0, 0));
    m.setScale(2);
    EXPECT_EQ((Doubles{m.translation()[0], m.scaleFactor()}), (Doubles{2, 2}));
    m.setScale(0.5 + 1e-11);
    EXPECT_FALSE(m.isScale());
    EXPECT_TRUE(KOVAMorph3D(m).isScale()); // a copy asks exactly
    m.setScale(1e-7);
    EXPECT_TRUE(m.isTranslation()); // not computed anew
    EXPECT_FALSE((KOVAMorph3D() = m).isTranslation());
    KOVAMorph3D fixed(KOVAPoint3D(3, 0, 0), 2);
    fixed.FixScaleFactor();
    EXPECT_EQ((Doubles{fixed.translation()[0], fixed.scaleFactor()}), (Doubles{6, 1}));
    fixed.SetToIdentity();
    EXPECT_TRUE(fixed.isIdentity());
    EXPECT_TRUE(KOVAMorph3D(KOVAPoint3D(1, 0, 0)).isEqual(KOVAMorph3D(KOVAPoint3D(1 + 1e-7, 0, 0), 1 + 1e-11)));
    EXPECT_FALSE(KOVAMorph3D().isEqual(KOVAMorph3D(1 + 1e-9)));
    EXPECT_FALSE(KOVAMorph3D().isEqual(KOVAMorph3D(KOVAPoint3D(0, 0, 2e-6))));
}

TEST(Morph, PrintsABlock) {
    EXPECT_EQ(printed(KOVAMorph2D(KOVAPoint2D(1, 2), 3), 1),
              "        { \n            Affine:\n            1.000000\t0.000000\t\n            0.000000\t1.000000\t\n\n"
              "            Translation: \n1.000000 2.000000 \n            Scale: 3.000000\n        }\n");
}

TEST(Morph, SkipsWhatDoesNotCount) {
    KOVAPoint3D p(-0.0, INFINITY, 1);
    p.Transform(KOVAMorph3D(KOVAPoint3D(1e-7, 0, 0), 2), false); // no sum with the translation, no product with zeros
    EXPECT_EQ(list(p), (Doubles{-0.0, INFINITY, 2}));
    EXPECT_TRUE(std::signbit(p[0]));
    KOVAPoint3D q(1, 2, 3);
    q.Transform(KOVAMorph3D(KOVAPoint3D(5, 5, 5)), true);
    EXPECT_EQ(list(q), (Doubles{1, 2, 3}));
    KOVAPoint2D flat(1, 2);
    flat.Transform(KOVAMorph2D(KOVAAffine2D(0, -1, 1, 0), KOVAPoint2D(10, 20), 2), false);
    EXPECT_EQ(list(flat), (Doubles{6, 22}));
    EXPECT_EQ(list(KOVAMorph3D(KOVAPoint3D(2, 0, 0), 2).inverse().translation()), (Doubles{-1, 0, 0}));
}

TEST(Morph, ComposesInvertsAndTransformsArraysAlike) {
    Random random(5);
    for (int i = 0; i < 3000; ++i) {
        KOVAMorph3D const a = random.morph(), b = random.morph();
        KOVAPoint3D const p = random.point(10);
        KOVAPoint3D once = p, twice = p, back = p, loose = p;
        once.Transform(a.multiply(b), false);
        twice.Transform(a, false);
        back = twice;
        twice.Transform(b, false);
        ASSERT_LT(difference(once, twice), 1e-14);
        back.Transform(a.inverse(), false);
        ASSERT_LT(difference(back, p), 1e-12);
        ASSERT_TRUE(a.multiply(a.inverse()).isEqual(KOVAMorph3D()) && a.inverse().multiply(a).isEqual(KOVAMorph3D()));
        KOVAMorph3D product = a, inverse = a;
        product.Multiply(b, product);
        inverse.Inverse(inverse);
        ASSERT_EQ(list(product.translation()), list(a.multiply(b).translation()));
        ASSERT_EQ(list(inverse.affine()), list(a.inverse().affine()));
        Transform(loose[0], loose[1], loose[2], a, true);
        ASSERT_NEAR(loose.Length(), p.Length() * a.scaleFactor(), 1e-12);
        ASSERT_EQ(a.isMirror(), a.affine().Determinant() < 0);
    }
    KOVAMorph3D const morph = random.morph();
    KOVAMorph2D const flat(KOVAAffine2D(0.6, -0.8, 0.8, 0.6), KOVAPoint2D(random.real(), random.real()), random.real());
    Doubles points, wanted, turned, flats, wantedFlats;
    for (int i = 0; i < 101; ++i) {
        KOVAPoint3D p = random.point(1e3), q = p;
        KOVAPoint2D r(p[0], p[1]);
        for (int k = 0; k < 3; ++k) points.push_back(p[k]);
        flats.insert(flats.end(), {p[0], p[1]});
        p.Transform(morph, false);
        q.Transform(morph.affine());
        r.Transform(flat, true);
        for (double const c : list(p)) wanted.push_back(c);
        for (double const c : list(q)) turned.push_back(c);
        for (double const c : list(r)) wantedFlats.push_back(c);
    }
    Doubles linear = points;
    TransformPoints(morph, points.data(), 101);
    TransformPoints(morph.affine(), linear.data(), 101);
    TransformPoints(flat, flats.data(), 101, true);
    TransformPoints(morph, points.data(), -1);
    TransformPoints(morph, nullptr, 101);
    TransformPoints(morph.affine(), nullptr, 101);
    EXPECT_EQ(points, wanted);
    EXPECT_EQ(linear, turned);
    EXPECT_EQ(flats, wantedFlats);
}

TEST(Morph, OfDifferentDimensionsShareTheSmaller) {
    KOVAMorph3D const solid(KOVAPoint3D(1, 2, 3), 2);
    KOVAMorph2D const flat(KOVAPoint2D(5, 6), 3);
    KOVAMorph2D out;
    solid.Multiply(flat, out);
    EXPECT_EQ((Doubles{out.scaleFactor(), out.translation()[0], out.translation()[1]}), (Doubles{6, 8, 12}));
    solid.Inverse(out);
    EXPECT_EQ(list(out.translation()), (Doubles{-0.5, -1}));
    EXPECT_FALSE(flat.isEqual(solid));
}

} // namespace
