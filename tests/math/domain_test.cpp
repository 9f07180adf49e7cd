#include "math/geometry.h"

namespace {

using Doubles = std::vector<double>;

Doubles fields(Gk_Domain const& d) { return {double(d.endCondn()), d.low(), d.high(), d.tol()}; }

Doubles fields(Gk_LinMap const& m) { return {m.slope(), m.abscissa(), double(m.isIdentity()), double(m.isNegate())}; }

/// [0, 10] with each set of ends.
Gk_Domain domain(int ends) { return Gk_Domain(static_cast<Gk_Domain::EndCondn>(ends), 0, 10, 0.5); }

TEST(Domain, WhereAValueLies) {
    // Contained and inside, for the empty domain, bounded below, above, and finite.
    struct Row {
        double x;
        char const *contained, *inside, *ends; // the ends: isLow isHigh isBelow isAbove
        double stuck;
    };
    for (Row const& row : {Row{-1, "1010", "1010", "0010", 0}, Row{-0.5, "1111", "1010", "1000", 0},
                           Row{0.25, "1111", "1010", "1000", 0}, Row{5, "1111", "1111", "0000", 5},
                           Row{9.75, "1111", "1100", "0100", 10}, Row{10.5, "1111", "1100", "0100", 10},
                           Row{11, "1100", "1100", "0001", 10}}) {
        std::string contained, inside, ends;
        for (int i = 0; i < 4; ++i) {
            Gk_Domain const d = domain(i);
            contained += d.isContained(row.x) ? '1' : '0';
            inside += d.isInside(row.x) ? '1' : '0';
            ends.clear();
            for (bool const is : {d.isLow(row.x), d.isHigh(row.x), d.isBelow(row.x), d.isAbove(row.x)})
                ends += is ? '1' : '0';
            EXPECT_EQ(ends, row.ends);
            EXPECT_EQ(d.isBoundary(row.x), d.isLow(row.x) || d.isHigh(row.x));
            EXPECT_EQ(d.stick(row.x), row.stuck);
        }
        EXPECT_EQ(contained, row.contained) << row.x;
        EXPECT_EQ(inside, row.inside) << row.x;
    }
    EXPECT_TRUE(domain(3).isContained(Gk_Domain(Gk_Domain::Empty, 1, 10.5, 0)));
    EXPECT_FALSE(domain(3).isContained(Gk_Domain(1, 11, 0)));
    EXPECT_TRUE(domain(3).isInside(Gk_Domain(1, 9, 0)));
    EXPECT_FALSE(domain(3).isInside(Gk_Domain(0, 9, 0)));
}

TEST(Domain, Measures) {
    EXPECT_EQ((Doubles{domain(0).mid(), domain(1).mid(), domain(2).mid(), domain(3).mid(), domain(3).length(),
                       domain(3).locate(0.25)}),
              (Doubles{5, 0, 10, 5, 10, 2.5}));
    EXPECT_EQ((Numbers{Gk_Domain(1, 1.4, 0.5).isDegenerate(), Gk_Domain(1, 1.5, 0.5).isDegenerate(),
                       Gk_Domain(Gk_Domain::BoundedBelow, 1, 1, 0.5).isDegenerate()}),
              (Numbers{1, 0, 0}));
    EXPECT_EQ((Numbers{domain(3).isSame(Gk_Domain(0.5, 9.5, 0), -1.0), domain(3).isSame(Gk_Domain(0.5, 9.5, 0), 0.4),
                       domain(1).isSame(Gk_Domain(Gk_Domain::BoundedBelow, 0, 99, 0), 0),
                       domain(3).isSame(domain(1), 1), domain(0).isSame(Gk_Domain(Gk_Domain::Empty, 7, 8, 0), 0)}),
              (Numbers{1, 0, 1, 0, 1}));
    EXPECT_EQ(test::printed(domain(3)), "Domain( 0.000000, 10.000000)");
}

TEST(Domain, Extends) {
    struct Row {
        int ends;
        double x;
        bool changed;
        Doubles result;
    };
    for (Row const& row :
         {Row{0, 50, true, {3, 50, 50, 0.5}}, Row{1, 50, false, {1, 0, 10, 0.5}}, Row{1, -50, true, {1, -50, 10, 0.5}},
          Row{2, 50, true, {2, 0, 50, 0.5}}, Row{3, 10.25, false, {3, 0, 10, 0.5}}, Row{3, 50, true, {3, 0, 50, 0.5}},
          Row{3, -1, true, {3, -1, 10, 0.5}}}) {
        Gk_Domain d = domain(row.ends);
        EXPECT_EQ(d.extend(row.x), row.changed);
        EXPECT_EQ(fields(d), row.result);
    }
    Gk_Domain d = domain(0);
    EXPECT_FALSE(d.extend(domain(0)));
    EXPECT_TRUE(d.extend(Gk_Domain(-3, 4, 0)));
    EXPECT_FALSE(d.extend(d));
    EXPECT_TRUE(d.extend(Gk_Domain(Gk_Domain::BoundedAbove, -99, 7, 0)));
    EXPECT_TRUE(d.expand(1));
    EXPECT_EQ(fields(d), (Doubles{3, -4, 8, 0.5}));
    Gk_Domain below = domain(1);
    below.expand(1);
    EXPECT_EQ(fields(below), (Doubles{1, -1, 10, 0.5}));
    EXPECT_EQ(fields(domain(3).intersection(Gk_Domain(5, 20, 1))), (Doubles{3, 5, 10, 1e-10}));
    EXPECT_EQ(fields(domain(3).intersection(Gk_Domain(30, 40, 1))), (Doubles{3, 0, 10, 1e-10})); // disjoint
}

TEST(Domain, NegatesAndMaps) {
    int const negated[] = {0, 2, 1, 3};
    for (int i = 0; i < 4; ++i) EXPECT_EQ(fields(-domain(i)), (Doubles{double(negated[i]), -10, 0, 0.5}));
    struct Row {
        int ends;
        Gk_LinMap map;
        Doubles result;
    };
    for (Row const& row :
         {Row{3, {2, 1}, {3, 1, 21, 1}}, Row{3, {-2, 1}, {3, -19, 1, 1}}, Row{3, {-1, 0}, {3, -10, 0, 0.5}},
          Row{1, {-2, 1}, {2, 10, 1, 1}}, Row{2, {-2, 1}, {1, -19, 0, 1}}, Row{0, {2, 1}, {0, 0, 10, 1}}}) {
        Gk_Domain d = domain(row.ends);
        d.apply(row.map);
        EXPECT_EQ(fields(d), row.result);
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
    struct Row {
        Gk_Domain d;
        double x, result;
    };
    double const huge = 9007199254740992.0; // 2 to the power of 53, above which not every number is there
    for (Row const& row : {Row{two, 7.5, 1.5}, Row{two, -0.5, 1.5}, Row{two, 2, 2}, Row{two, -1e-11, 0}, Row{two, 4, 2},
                           Row{domain(1), 77, 77}, Row{two, 2e15 + 1, 1}, Row{two, -2e15 - 1, 1},
                           Row{two, INFINITY, INFINITY}, Row{Gk_Domain(3, 3, 0), 7, 3}, Row{Gk_Domain(3, 2, 0), 7, 3},
                           Row{Gk_Domain(0, INFINITY, 0), 7, 7}, Row{Gk_Domain(huge - 1, huge, 0), huge + 4, huge + 4}})
        EXPECT_EQ(row.d.principalParam(row.x), row.result);
    EXPECT_TRUE(std::isnan(two.principalParam(NAN)));
    double const turn = KOVA2PI;
    double stepped = 1000.0;
    while (stepped > turn) stepped -= turn; // bit for bit, period by period
    EXPECT_EQ(Gk_Domain(0, turn, 1e-9).principalParam(1000.0), stepped);
}

TEST(LinMap, SnapsToIdentityAndNegation) {
    struct Row {
        double slope, abscissa;
        Doubles result; // isIdentity, isNegate, apply(3), invert(3)
    };
    for (Row const& row :
         {Row{1, 0, {1, 0, 3, 3}}, Row{1 + 1e-11, -1e-11, {1, 0, 3, 3}}, Row{1, 1e-9, {0, 0, 3 + 1e-9, 3 - 1e-9}},
          Row{-1, 0, {0, 1, -3, -3}}, Row{-2, 1, {0, 1, -5, -1}}, Row{2, 1, {0, 0, 7, 1}}, Row{0, 5, {0, 0, 5, 0}},
          Row{1e-11, 5, {0, 0, 3e-11 + 5, 0}}}) {
        Gk_LinMap const m(row.slope, row.abscissa);
        EXPECT_EQ((Doubles{double(m.isIdentity()), double(m.isNegate()), m.apply(3), m.invert(3)}), row.result);
    }
    Gk_LinMap m;
    m.negate();
    EXPECT_EQ(fields(m), (Doubles{-1, -0.0, 0, 1}));
    EXPECT_EQ(m.apply(3), -3.0);
    EXPECT_EQ(fields(Gk_LinMap(-4, 8).inverse()), (Doubles{-0.25, 2, 0, 1}));
    EXPECT_TRUE(Gk_LinMap(2, 3) == Gk_LinMap(2 + 5e-11, 3 - 5e-11));
    EXPECT_FALSE(Gk_LinMap(2, 3) == Gk_LinMap(2, 3 + 2e-10));
    EXPECT_EQ(test::printed(Gk_LinMap(2, -1), 1), "    #Map: 2.000000( x) + -1.000000\n");
}

TEST(LinMap, Composes) {
    Gk_LinMap after(2, 1), before(2, 1), unchanged(2, 1), self(2, 1);
    after.compose(Gk_LinMap(3, 5), true);
    before.compose(Gk_LinMap(3, 5), false);
    unchanged.compose(Gk_LinMap(1 + 1e-11, 1e-11), true);
    self.compose(self, true);
    EXPECT_EQ(fields(after), (Doubles{6, 8, 0, 0}));
    EXPECT_EQ(fields(before), (Doubles{6, 11, 0, 0}));
    EXPECT_EQ(fields(unchanged), (Doubles{2, 1, 0, 0}));
    EXPECT_EQ(fields(self), (Doubles{4, 3, 0, 0}));
    test::Random random(7);
    for (int i = 0; i < 3000; ++i) {
        Gk_LinMap const m(2 + random.real(), random.real(9)), n(random.real(9), random.real(9));
        double const t = random.real(9);
        Gk_LinMap composed = m;
        composed.compose(n, true);
        ASSERT_NEAR(composed.apply(t), n.apply(m.apply(t)), 1e-12);
        ASSERT_NEAR(m.invert(m.apply(t)), t, 1e-13);
        ASSERT_NEAR(m.inverse().apply(m.apply(t)), t, 1e-13);
    }
}

} // namespace
