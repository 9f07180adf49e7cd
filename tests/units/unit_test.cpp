#include "support/test.h"

namespace {

constexpr long kError = 0x01000002;

/// What two names, a factor, the older layer and back give; the results of the first four.
std::string described(KOVAUnit unit) {
    double factor = -1.0;
    KOVAString name("none"), text("none");
    Gk_Unit gkUnit("kept", 3.0);
    KOVAUnit back = KOVAUnit(99);
    long const results[] = {GetUnitScaleFactor(unit, factor), GetUnitName(unit, name),
                            GetGkUnitFromKOVAUnit(unit, gkUnit), KOVAUnitValue::GetUnitAsString(unit, text)};
    EXPECT_EQ(GetKOVAUnitFromGkUnit(gkUnit, back), 0);
    char line[200];
    std::snprintf(line, sizeof line, "%s %s %.17g %s %d %d%d%d%d", static_cast<char const*>(name),
                  static_cast<char const*>(text), factor, static_cast<char const*>(gkUnit.getName()), back,
                  results[0] == kError, results[1] == kError, results[2] == kError, results[3] == kError);
    return line;
}

TEST(Units, HaveNamesAndFactors) {
    Texts const expected = {"none none 0 kept 0 1111",
                            "UNKNOWN UNKNOWN 0 kept 0 1110",
                            "MODELUNIT MODEL UNIT 0 kept 0 1110",
                            "NANOMETER NANOMETER 1.0000000000000001e-09 NANOMETER 2 0000",
                            "MICROMETER MICROMETER 9.9999999999999995e-07 MICROMETER 3 0000",
                            "MILLIMETER MILLIMETER 0.001 MILLIMETER 4 0000",
                            "CENTIMETER CENTIMETER 0.01 CENTIMETER 5 0000",
                            "DECIMETER DECIMETER 0.10000000000000001 DECIMETER 6 0000",
                            "METER METER 1 METER 7 0000",
                            "INCH INCH 0.025399999999999999 INCH 8 0000",
                            "FOOT FOOT 0.30479999999999996 FOOT 9 0000",
                            "MILE MILE 1609.3439999999998 MILE 10 0000",
                            "KM KM 1000 KM 11 0000",
                            "MILLIINCH MILLIINCH 2.5400000000000001e-05 MILLIINCH 12 0000",
                            "MICROINCH MICROINCH 2.5399999999999999e-08 MICROINCH 13 0000",
                            "none none 0 kept 0 1111"};
    for (int i = 0; i < 16; ++i) EXPECT_EQ(described(KOVAUnit(i - 1)), expected[static_cast<std::size_t>(i)]);
}

TEST(Units, AreRecognisedWithinTheirTolerances) {
    double const infinite = std::numeric_limits<double>::infinity();
    std::pair<double, int> const rows[] = {{0.3048, 9},         {1609.344, 10},
                                           {1.000001, 7},       {0.99999, 7},
                                           {1.0000101, 0},      {1609.344009, 10},
                                           {1609.3441, 0},      {0.5, 0},
                                           {0.0254 + 9e-11, 8}, {0.0254 + 2e-10, 0},
                                           {1000.0000001, 0},   {9.1e-10, 2},
                                           {8.9e-10, 0},        {2.545e-8, 13},
                                           {2.56e-8, 0},        {0.9144, 0},
                                           {infinite, 0},       {0.0, -1},
                                           {-1.0, -1},          {-0.0254, -1},
                                           {-infinite, -1},     {std::numeric_limits<double>::quiet_NaN(), -1}};
    for (auto const& [factor, expected] : rows) {
        KOVAUnit unit = KOVAUnit(77);
        EXPECT_EQ(GetKOVAUnit(factor, unit), expected < 0 ? kError : 0) << factor;
        EXPECT_EQ(unit, expected < 0 ? 77 : expected) << factor;
    }
}

/// Sending, receiving.
Numbers current() {
    KOVAUnit sending = KOVAUnit(99), receiving = KOVAUnit(99);
    EXPECT_TRUE(get_sending_system_unit(sending) == 0 && get_receiving_system_unit(receiving) == 0);
    return {sending, receiving};
}

TEST(Units, OfTheTranslationAreOwnedOrBorrowed) {
    EXPECT_EQ(current(), (Numbers{0, 1}));
    KOVAUnit mine = KOVA_UNIT_INCH, none = KOVAUnit(14);
    EXPECT_TRUE(set_sending_system_unit(&mine) == 0 && set_receiving_system_unit(KOVA_UNIT_KM) == 0);
    mine = KOVA_UNIT_FOOT;
    EXPECT_EQ((Numbers{set_sending_system_unit(none), set_sending_system_unit(&none), set_sending_system_unit(nullptr),
                       set_receiving_system_unit(KOVAUnit(-1)), set_receiving_system_unit(&none)}),
              (Numbers{kError, kError, kError, kError, kError}));
    EXPECT_EQ(current(), (Numbers{9, 11}));
    EXPECT_EQ(set_internal_unit(none, KOVA_UNIT_MILE), 0); // one of them refused
    EXPECT_EQ(current(), (Numbers{9, 10}));
    EXPECT_EQ((Numbers{KOVAUnitValue::GetReadUnit(), KOVAUnitValue::GetApplicationUnit(), KOVAUnitValue::GetWriteUnit(),
                       KOVAUnitValue::GetUnitWhenUnspecified(), KOVAUnitValue::GetReadUnitCallback() == nullptr}),
              (Numbers{0, 1, 1, 0, 1}));
    KOVAUnitValue::SetReadUnit(KOVA_UNIT_INCH);
    api_set_write_unit(KOVA_UNIT_METER);
    api_set_application_unit(KOVA_UNIT_MILLIMETER);
    api_set_unspecified_file_unit(KOVAUnit(20)); // not checked
    api_set_read_unit_callback([](KOVAUnit unit) { set_receiving_system_unit(unit); });
    EXPECT_EQ(set_internal_unit(true), 0);
    EXPECT_EQ(current(), (Numbers{4, 7}));
    EXPECT_EQ(set_internal_unit(false), 0);
    EXPECT_EQ(current(), (Numbers{8, 4}));
    KOVAUnitValue::GetReadUnitCallback()(KOVA_UNIT_KM);
    EXPECT_TRUE(current().back() == 11 && KOVAUnitValue::GetUnitWhenUnspecified() == 20);
}

TEST(GkUnit, ConstantsMapAndCompareBySize) {
    std::tuple<Gk_Unit, char const*, double> const rows[] = {{Gk_Unit::mm, "mm", 1.0},
                                                             {Gk_Unit::cm, "cm", 10.0},
                                                             {Gk_Unit::deci, "decimeter", 100.0},
                                                             {Gk_Unit::meter, "meter", 1000.0},
                                                             {Gk_Unit::km, "km", 1e6},
                                                             {Gk_Unit::micr, "micron", 0.001},
                                                             {Gk_Unit::mils, "mils", 0.0254},
                                                             {Gk_Unit::uinch, "microinch", 0x1.aa242b58735e9p-16},
                                                             {Gk_Unit::inch, "inch", 25.4},
                                                             {Gk_Unit::foot, "foot", 0x1.30cccccccccccp+8},
                                                             {Gk_Unit::yard, "yard", 0x1.c933333333332p+9},
                                                             {Gk_Unit::mile, "mile", 0x1.88e7fffffffffp+20}};
    for (auto const& [unit, name, size] : rows) {
        EXPECT_STREQ(unit.getName(), name);
        EXPECT_TRUE(unit.getValue() == size && unit.IsSet()) << name;
    }
    EXPECT_EQ(Gk_Unit::mm.mapTo(Gk_Unit::cm), 0.1);
    EXPECT_TRUE(Gk_Unit("other", 25.4 + 5e-11) == Gk_Unit::inch && !(Gk_Unit("inch", 25.4 + 2e-10) == Gk_Unit::inch));
    EXPECT_TRUE(Gk_Unit().getValue() == -1.0 && Gk_Unit("unset", -1.0) == Gk_Unit());
    EXPECT_FALSE(Gk_Unit().IsSet() || Gk_Unit("unset", 1.0).IsSet() || Gk_Unit("zero", 0.0).IsSet());
}

} // namespace
