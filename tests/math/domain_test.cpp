#include "math/geometry.h"

namespace {

using Doubles = std::vector<double>;

Doubles fields(Gk_Domain const& d) { return {double(d.endCondn()), d.low(), d.high(), d.tol()}; }

Doubles fields(Gk_LinMap const& m) { return {m.slope(), m.abscissa(), double(m.isIdentity()), double(m.isNegate())}; }

/// [0, 10] with each set of ends.
Gk_Domain domain(int ends) { return Gk_Domain(static_cast<Gk_Domain::EndCondn>(ends), 0, 10, 0.5); }

TEST(Domain, WhereAValueLies) {
    // isLow isHigh isBelow isAbove isBoundary; then isContained and isInside, each for the four sets of ends.
    using Row = std::tuple<double, double, std::string>;
    for (auto const& [x, stuck, wanted] :
         {Row{-1, 0, "00100 1010 1010"}, Row{-0.5, 0, "10001 1111 1010"}, Row{0.25, 0, "10001 1111 1010"},
          Row{5, 5, "00000 1111 1111"}, Row{9.75, 10, "01001 1111 1100"}, Row{10.5, 10, "01001 1111 1100"},
          Row{11, 10, "00010 1100 1100"}}) {
        Gk_Domain const d = domain(0); // these ask the fields, whatever ends are there
        EXPECT_EQ(d.stick(x), stuck);
        std::string text;
        for (bool const is : {d.isLow(x), d.isHigh(x), d.isBelow(x), d.isAbove(x), d.isBoundary(x)})
            text += is ? '1' : '0';
        text += ' ';
        for (int i = 0; i < 4; ++i) text += domain(i).isContained(x) ? '1' : '0';
        text += ' ';
        for (int i = 0; i < 4; ++i) text += domain(i).isInside(x) ? '1' : '0';
        EXPECT_EQ(text, wanted) << x;
    }
    Gk_Domain const all = domain(3);
    EXPECT_TRUE(all.isContained(Gk_Domain(Gk_Domain::Empty, 1, 10.5, 0)) && !all.isContained(Gk_Domain(1, 11, 0)));
    EXPECT_TRUE(all.isInside(Gk_Domain(1, 9, 0)) && !all.isInside(Gk_Domain(0, 9, 0)));
}

TEST(Domain, Measures) {
    EXPECT_EQ((Doubles{domain(0).mid(), domain(1).mid(), domain(2).mid(), domain(3).mid(), domain(3).length(),
                       domain(3).locate(0.25)}),
              (Doubles{5, 0, 10, 5, 10, 2.5}));
    EXPECT_TRUE(Gk_Domain(1, 1.4, 0.5).isDegenerate() && !Gk_Domain(1, 1.5, 0.5).isDegenerate());
    EXPECT_FALSE(Gk_Domain(Gk_Domain::BoundedBelow, 1, 1, 0.5).isDegenerate());
    Gk_Domain const near(0.5, 9.5, 0), below(Gk_Domain::BoundedBelow, 0, 99, 0);
    EXPECT_TRUE(domain(3).isSame(near, -1.0) && !domain(3).isSame(near, 0.4) && !domain(3).isSame(domain(1), 1));
    EXPECT_TRUE(domain(1).isSame(below, 0) && domain(0).isSame(Gk_Domain(Gk_Domain::Empty, 7, 8, 0), 0));
    EXPECT_EQ(test::printed(domain(3)), "Domain( 0.000000, 10.000000)");
}

TEST(Domain, Extends) {
    using Row = std::tuple<int, double, bool, Doubles>;
    for (auto const& [ends, x, changed, result] :
         {Row{0, 50, true, {3, 50, 50, 0.5}}, Row{1, 50, false, {1, 0, 10, 0.5}}, Row{1, -50, true, {1, -50, 10, 0.5}},
          Row{2, 50, true, {2, 0, 50, 0.5}}, Row{3, 10.25, false, {3, 0, 10, 0.5}}, Row{3, 50, true, {3, 0, 50, 0.5}},
          Row{3, -1, true, {3, -1, 10, 0.5}}}) {
        Gk_Domain d = domain(ends);
        EXPECT_EQ(d.extend(x), changed);
        EXPECT_EQ(fields(d), result);
    }
    Gk_Domain d = domain(0);
    EXPECT_TRUE(!d.extend(domain(0)) && d.extend(Gk_Domain(-3, 4, 0)) && !d.extend(d));
    EXPECT_TRUE(d.extend(Gk_Domain(Gk_Domain::BoundedAbove, -99, 7, 0)) && d.expand(1));
    EXPECT_EQ(fields(d), (Doubles{3, -4, 8, 0.5}));
    EXPECT_EQ(fields(domain(3).intersection(Gk_Domain(5, 20, 1))), (Doubles{3, 5, 10, 1e-10}));
    EXPECT_EQ(fields(domain(3).intersection(Gk_Domain(30, 40, 1))), (Doubles{3, 0, 10, 1e-10})); // disjoint
}

TEST(Domain, NegatesAndMaps) {
    int const negated[] = {0, 2, 1, 3};
    for (int i = 0; i < 4; ++i) EXPECT_EQ(fields(-domain(i)), (Doubles{double(negated[i]), -10, 0, 0.5}));
    using Row = std::tuple<int, Gk_LinMap, Doubles>;
    for (auto const& [ends, map, result] :
         {Row{3, {2, 1}, {3, 1, 21, 1}}, Row{3, {-2, 1}, {3, -19, 1, 1}}, Row{3, {-1, 0}, {3, -10, 0, 0.5}},
          Row{1, {-2, 1}, {2, 10, 1, 1}}, Row{2, {-2, 1}, {1, -19, 0, 1}}, Row{0, {2, 1}, {0, 0, 10, 1}}}) {
        Gk_Domain d = domain(ends);
        d.apply(map);
        EXPECT_EQ(fields(d), result);
    }
    test::Random random(6);
    for (int i = 0; i < 3000; ++i) {
        Gk_Domain const a(random.real(9), 10 + random.real(), 1e-9), b(random.real(9), 10 + random.real(), 1e-9);
        Gk_Domain mapped = a;
        mapped.apply(a.mapTo(b));
        ASSERT_TRUE(mapped.isSame(b, 1e-9));
    }
}

TEST(Domain, PrincipalParameterEndsForEveryInput) {
    Gk_Domain const two(0, 2, 1e-9);
    using Row = std::tuple<Gk_Domain, double, double>;
    double const huge = 9007199254740992.0; // 2 to the power of 53, above which not every number is there
    for (auto const& [d, x, result] :
         {Row{two, 7.5, 1.5}, Row{two, -0.5, 1.5}, Row{two, 2, 2}, Row{two, -1e-11, 0}, Row{two, 4, 2},
          Row{domain(1), 77, 77}, Row{two, 2e15 + 1, 1}, Row{two, -2e15 - 1, 1}, Row{two, INFINITY, INFINITY},
          Row{Gk_Domain(3, 3, 0), 7, 3}, Row{Gk_Domain(3, 2, 0), 7, 3}, Row{Gk_Domain(0, INFINITY, 0), 7, 7},
          Row{Gk_Domain(huge - 1, huge, 0), huge + 4, huge + 4}})
        EXPECT_EQ(d.principalParam(x), result);
    EXPECT_TRUE(std::isnan(two.principalParam(NAN)));
    double stepped = 1000.0;
    while (stepped > KOVA2PI) stepped -= KOVA2PI; // bit for bit, period by period
    EXPECT_EQ(Gk_Domain(0, KOVA2PI, 1e-9).principalParam(1000.0), stepped);
}

TEST(LinMap, SnapsToIdentityAndNegation) {
    using Row = std::tuple<double, double, Doubles>;
    for (auto const& [slope, abscissa, result] :
         {Row{1, 0, {1, 0, 3, 3}}, Row{1 + 1e-11, -1e-11, {1, 0, 3, 3}}, Row{1, 1e-9, {0, 0, 3 + 1e-9, 3 - 1e-9}},
          Row{-1, 0, {0, 1, -3, -3}}, Row{-2, 1, {0, 1, -5, -1}}, Row{2, 1, {0, 0, 7, 1}}, Row{0, 5, {0, 0, 5, 0}},
          Row{1e-11, 5, {0, 0, 3e-11 + 5, 0}}}) {
        Gk_LinMap const m(slope, abscissa);
        EXPECT_EQ((Doubles{double(m.isIdentity()), double(m.isNegate()), m.apply(3), m.invert(3)}), result);
    }
    Gk_LinMap m;
    m.negate();
    EXPECT_EQ(fields(m), (Doubles{-1, -0.0, 0, 1}));
    EXPECT_EQ(fields(Gk_LinMap(-4, 8).inverse()), (Doubles{-0.25, 2, 0, 1}));
    EXPECT_TRUE(Gk_LinMap(2, 3) == Gk_LinMap(2 + 5e-11, 3 - 5e-11) && Gk_LinMap(2, 3) != Gk_LinMap(2, 3 + 2e-10));
    EXPECT_EQ(test::printed(Gk_LinMap(2, -1), 1), "    #Map: 2.000000( x) + -1.000000\n");
}

TEST(LinMap, Composes) {
    using Row = std::tuple<Gk_LinMap, bool, Doubles>;
    for (auto const& [m, after, result] : {Row{{3, 5}, true, {6, 8, 0, 0}}, Row{{3, 5}, false, {6, 11, 0, 0}},
                                           Row{{1 + 1e-11, 1e-11}, true, {2, 1, 0, 0}}}) {
        Gk_LinMap composed(2, 1);
        composed.compose(m, after);
        EXPECT_EQ(fields(composed), result);
    }
}

} // namespace
