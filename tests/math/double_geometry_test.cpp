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
    EXPECT_EQ((Doubles{p[2], q[0]}), (Doubles{7, 8}));
}

TEST(Point, TolerancesAreInclusive) {
    using Row = std::tuple<double, double, bool>;
    for (auto const& [difference, tolerance, within] :
         {Row{0.1, 0.1, true}, Row{0.1, -0.1, true}, Row{-0.1, 0.1, true}, Row{0.1000001, 0.1, false},
          Row{-0.1000001, -0.1, false}, Row{0, 0, true}, Row{NAN, 0, true}, Row{INFINITY, 1e300, false}}) {
        for (int i = 0; i < 3; ++i) {
            KOVAPoint3D p, tolerances(1e-9, 1e-9, 1e-9);
            p[i] = difference;
            tolerances[i] = tolerance;
            EXPECT_EQ(p.IsWithinTolerance(KOVAPoint3D(), tolerance), within);
            EXPECT_EQ(KOVAPoint3D().IsWithinTolerance(p, tolerances), within);
        }
    }
    EXPECT_TRUE(KOVAPoint(0).IsWithinTolerance(KOVAPoint3D(9, 9, 9), 0.0) &&
                KOVAWeightPoint2D(5).IsWithinTolerance(KOVAWeightPoint2D(1), 0.0));
    EXPECT_TRUE(KOVAPoint3D(1, 1, 9).IsWithinTolerance(KOVAPoint2D(1, 2), KOVAPoint2D(0.5, 1)));
    Gk_ErrMgr::setAbort();
    EXPECT_THROW(KOVAPoint3D().IsWithinTolerance(KOVAPoint3D(), KOVAPoint3D()), KOVAAbortException);
}

TEST(Point, Arithmetic) {
    KOVAPoint3D const a(1, 2, 3), b(4, 6, 8);
    KOVAPoint3D c = a.Copy();
    c.Shift(b);
    EXPECT_EQ(list(c), list(a + b));
    EXPECT_EQ(list((2 * b - a * 2) / 4 - -a), (Doubles{2.5, 4, 5.5}));
    EXPECT_TRUE(a * b == 40 && KOVAPoint3D(2, 3, 6).Length() == 7 &&
                KOVAPoint3D(3, 4, 9).DistanceTo(KOVAPoint2D()) == 5);
    EXPECT_TRUE(KOVAPoint3D::VectorProduct(a, b)[1] == 4 && KOVAPoint2D::VectorProduct({1, 2}, {3, 4}) == -2);
    c.Substract(KOVAPoint2D(5, 5));
    c.Divide(0.5);
    c.Negate();
    EXPECT_EQ(list(c), (Doubles{-0.0, -6, -22}));
    EXPECT_EQ(list(KOVAPoint3D().Normalize() + KOVAPoint3D().Orthogonalize()), (Doubles{1, 0, 1}));
    EXPECT_EQ(list(KOVAPoint2D(3, 4).Orthogonalize()), (Doubles{-0.8, 0.6}));
    Random random(3);
    for (int i = 0; i < 3000; ++i) {
        KOVAPoint3D const p = random.point(1e3), q = p.Orthogonalize();
        ASSERT_TRUE(std::fabs(p * q) < 1e-12 && std::fabs(p.Normalize().Length() * q.Length() - 1) < 1e-15);
    }
}

TEST(WeightPoint, StoresWeightedCoordinates) {
    KOVAWeightPoint3D p(KOVAPoint3D(1, 2, 3), 2, true);
    EXPECT_EQ(list(p.GetCoords() - KOVAPoint3D(1, 2, 3)), list(KOVAPoint3D()));
    EXPECT_TRUE(p.Length() == std::sqrt(60.0) && p * p == 60 && KOVAWeightPoint3D().GetWeight() == 1);
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
    EXPECT_EQ(copy.GetCoords()[0], INFINITY);
    copy.Transform(KOVAMorph3D(KOVAPoint3D(1, 0, 0), 2.0), false);
    EXPECT_EQ(printed(copy), "15.000000 16.000000 18.000000 0.000000 ");
}

TEST(Affine, TolerancesOfIdentityAndEquality) {
    KOVAAffine3D a;
    EXPECT_TRUE(list(a) == Doubles(9, 0.0) && !a.IsIdentity());
    a.MakeIdentity();
    using Row = std::pair<double, int>; // what is added; 2 for still the identity, 1 for equal
    for (auto const& [added, wanted] :
         {Row{0, 2}, Row{1e-11, 2}, Row{-1e-9, 1}, Row{5e-7, 1}, Row{-2e-6, 0}, Row{NAN, 0}}) {
        for (int k = 0; k < 9; ++k) {
            KOVAAffine3D b = a;
            b.SetElement(k / 3, k % 3, b.GetElement(k / 3, k % 3) + added);
            EXPECT_EQ((a == b) + b.IsIdentity(), wanted);
        }
    }
    EXPECT_TRUE(KOVAAffine2D(1, 0, 0, 1) == a); // only this map's dimension is asked
    EXPECT_EQ(printed(KOVAAffine2D(1, 2, 3, 4), 1), "    1.000000\t2.000000\t\n    3.000000\t4.000000\t\n");
}

TEST(Affine, RowsColumnsAndScaling) {
    KOVAAffine3D a(1, 2, 3, 4, 5, 6, 7, 8, 9);
    double row[3], column[3];
    a.GetRow(1, row);
    a.GetColumn(2, column);
    a.SetRow(0, row);
    a.SetColumn(0, column);
    a.SetColumn(1, KOVAPoint3D(-1, -2, -3));
    EXPECT_EQ(list(a.Multiply(2).Divide(4)), (Doubles{1.5, -0.5, 3, 3, -1, 3, 4.5, -1.5, 4.5}));
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
    KOVAAffine3D const identity = KOVAMorph3D().affine();
    for (int i = 0; i < 3000; ++i) {
        KOVAAffine3D a, b = random.isometry();
        for (int k = 0; k < 9; ++k) a.SetElement(k / 3, k % 3, random.real() + (k % 4 == 0 ? 2.0 : 0.0));
        KOVAAffine3D product, inverse, transpose;
        a.Multiply(b, product);
        KOVAPoint3D once = random.point(), twice = once;
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
    }
}

TEST(Morph, FlagsAndTheirTolerances) {
    KOVAAffine3D mirror(-1, 0, 0, 0, 1, 0, 0, 0, 1);
    using Row = std::tuple<KOVAMorph3D, Numbers>;
    for (auto const& [m, flags] :
         {Row{KOVAMorph3D(), {0, 0, 0, 1}}, Row{KOVAMorph3D(KOVAPoint3D(1e-7, 0, 0)), {0, 0, 0, 1}},
          Row{KOVAMorph3D(KOVAPoint3D(1e-5, 0, 0)), {0, 0, 1, 0}}, Row{KOVAMorph3D(2.0), {1, 0, 0, 0}},
          Row{KOVAMorph3D(1.0 + 1e-11), {1, 0, 0, 0}}, Row{{mirror, KOVAPoint3D(), 1}, {0, 1, 0, 0}}})
        EXPECT_EQ((Numbers{m.isScale(), m.isAffine(), m.isTranslation(), m.isIdentity()}), flags);
    EXPECT_TRUE(KOVAMorph3D(mirror, KOVAPoint3D(), 1).isMirror() && !KOVAMorph3D(-1.0).isMirror());

    KOVAMorph3D m(KOVAPoint3D(1, 0, 0));
    m.setScale(2);
    EXPECT_TRUE(m.translation()[0] == 2 && m.scaleFactor() == 2);
    m.setScale(0.5 + 1e-11);
    EXPECT_TRUE(!m.isScale() && KOVAMorph3D(m).isScale()); // a copy asks exactly
    m.setScale(1e-7);
    EXPECT_TRUE(m.isTranslation() && !(KOVAMorph3D() = m).isTranslation()); // nor are others computed anew
    KOVAMorph3D fixed(KOVAPoint3D(3, 0, 0), 2);
    fixed.FixScaleFactor();
    EXPECT_TRUE(fixed.translation()[0] == 6 && fixed.scaleFactor() == 1);
    EXPECT_TRUE(KOVAMorph3D(KOVAPoint3D(1, 0, 0)).isEqual(KOVAMorph3D(KOVAPoint3D(1 + 1e-7, 0, 0), 1 + 1e-11)));
    for (KOVAMorph3D const& other : {KOVAMorph3D(1 + 1e-9), KOVAMorph3D(KOVAPoint3D(0, 0, 2e-6))})
        EXPECT_FALSE(KOVAMorph3D().isEqual(other));
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
    p.Transform(KOVAMorph3D(KOVAPoint3D(5, 5, 5)), true);
    EXPECT_TRUE(std::signbit(p[0]) && p[2] == 2);
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
        ASSERT_TRUE(product.isEqual(a.multiply(b)) && inverse.isEqual(a.inverse()));
        Transform(loose[0], loose[1], loose[2], a, true);
        ASSERT_NEAR(loose.Length(), p.Length() * a.scaleFactor(), 1e-12);
    }
    KOVAMorph3D const morph = random.morph();
    KOVAMorph2D const flat(KOVAAffine2D(0.6, -0.8, 0.8, 0.6), KOVAPoint2D(random.real(), random.real()), random.real());
    Doubles given, flatGiven, wanted[3];
    auto const append = [](Doubles& all, KOVAPoint const& p) {
        for (double const c : list(p)) all.push_back(c);
    };
    for (int i = 0; i < 101; ++i) {
        KOVAPoint3D p = random.point(1e3), q = p;
        KOVAPoint2D r(p[0], p[1]);
        append(given, p);
        append(flatGiven, r);
        p.Transform(morph, false);
        q.Transform(morph.affine());
        r.Transform(flat, true);
        append(wanted[0], p);
        append(wanted[1], q);
        append(wanted[2], r);
    }
    Doubles points = given, turned = given, flats = flatGiven;
    TransformPoints(morph, points.data(), 101);
    TransformPoints(morph, points.data(), -1);
    TransformPoints(morph, nullptr, 101);
    TransformPoints(morph.affine(), turned.data(), 101);
    TransformPoints(flat, flats.data(), 101, true);
    EXPECT_TRUE(points == wanted[0] && turned == wanted[1] && flats == wanted[2]);
}

TEST(Morph, OfDifferentDimensionsShareTheSmaller) {
    KOVAMorph3D const solid(KOVAPoint3D(1, 2, 3), 2);
    KOVAMorph2D const flat(KOVAPoint2D(5, 6), 3);
    KOVAMorph2D out;
    solid.Multiply(flat, out);
    EXPECT_EQ(list(out.translation()), (Doubles{8, 12}));
    solid.Inverse(out);
    EXPECT_EQ(list(out.translation()), (Doubles{-0.5, -1}));
}

} // namespace
