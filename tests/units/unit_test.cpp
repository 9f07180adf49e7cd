#include <sstream>

#include "support/test.h"

namespace {

constexpr long kError = 0x01000002;

TEST(Units, HaveNamesAndFactors) {
    std::istringstream rows(
        "none 0 UNKNOWN 0 MODELUNIT 0 NANOMETER 1e-9 MICROMETER 1e-6 MILLIMETER 0.001 CENTIMETER 0.01 "
        "DECIMETER 0.1 METER 1 INCH 0.0254 FOOT 0.30479999999999996 MILE 1609.3439999999998 KM 1000 "
        "MILLIINCH 2.54e-5 MICROINCH 2.54e-8 none 0");
    std::string expected;
    double size = 0.0;
    for (int i = -1; rows >> expected >> size; ++i) {
        long const result = size > 0.0 ? 0 : kError;
        double factor = -1.0;
        KOVAString name("none"), text("none");
        Gk_Unit gkUnit("kept", 3.0);
        KOVAUnit unit = KOVAUnit(i), back = KOVAUnit(99);
        Numbers const results = {GetUnitScaleFactor(unit, factor), GetUnitName(unit, name),
                                 GetGkUnitFromKOVAUnit(unit, gkUnit), KOVAUnitValue::GetUnitAsString(unit, text),
                                 GetKOVAUnitFromGkUnit(gkUnit, back)};
        EXPECT_THAT(results, testing::ElementsAre(result, result, result, expected == "none" ? kError : 0, 0));
        EXPECT_EQ((Texts{test::text(name), test::text(text), static_cast<char const*>(gkUnit.getName())}),
                  (Texts{expected, i == 1 ? "MODEL UNIT" : expected, size > 0.0 ? expected : "kept"}));
        EXPECT_TRUE(factor == size && back == (size > 0.0 ? i : 0)) << expected;
    }
}

TEST(Units, AreRecognisedWithinTheirTolerances) {
    std::istringstream rows(
        "0.3048 9 1609.344 10 1609.344009 10 1609.3441 0 1.000001 7 0.99999 7 1.0000101 0 0.5 0 0.9144 0 "
        "0.02540000009 8 0.0254000002 0 1000.0000001 0 9.1e-10 2 8.9e-10 0 2.545e-8 13 2.56e-8 0 "
        "inf 0 0 -1 -1 -1 -0.0254 -1 -inf -1 nan -1");
    std::string factor;
    for (int expected = 0; rows >> factor >> expected;) {
        KOVAUnit unit = KOVAUnit(77);
        EXPECT_EQ(GetKOVAUnit(KOVAFloatUtil::kovastrtod(factor.c_str(), nullptr), unit), expected < 0 ? kError : 0);
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
    EXPECT_TRUE(set_internal_unit(none, KOVA_UNIT_MILE) == 0 && current() == (Numbers{9, 10})); // one refused
    EXPECT_EQ((Numbers{KOVAUnitValue::GetReadUnit(), KOVAUnitValue::GetApplicationUnit(), KOVAUnitValue::GetWriteUnit(),
                       KOVAUnitValue::GetUnitWhenUnspecified(), KOVAUnitValue::GetReadUnitCallback() == nullptr}),
              (Numbers{0, 1, 1, 0, 1}));
    KOVAUnitValue::SetReadUnit(KOVA_UNIT_INCH);
    EXPECT_EQ(api_set_write_unit(KOVA_UNIT_METER) | api_set_application_unit(KOVA_UNIT_MILLIMETER) |
                  api_set_unspecified_file_unit(KOVAUnit(20)) |
                  api_set_read_unit_callback([](KOVAUnit unit) { set_receiving_system_unit(unit); }),
              0);
    EXPECT_TRUE(set_internal_unit(true) == 0 && current() == (Numbers{4, 7}));
    EXPECT_TRUE(set_internal_unit(false) == 0 && current() == (Numbers{8, 4}));
    KOVAUnitValue::GetReadUnitCallback()(KOVA_UNIT_KM);
    EXPECT_TRUE(current().back() == 11 && KOVAUnitValue::GetUnitWhenUnspecified() == 20);
}

TEST(GkUnit, ConstantsMapAndCompareBySize) {
    Gk_Unit const units[] = {Gk_Unit::mm,   Gk_Unit::cm,   Gk_Unit::deci, Gk_Unit::meter,
                             Gk_Unit::km,   Gk_Unit::micr, Gk_Unit::mils, Gk_Unit::uinch,
                             Gk_Unit::inch, Gk_Unit::foot, Gk_Unit::yard, Gk_Unit::mile};
    std::istringstream rows("mm 1 cm 10 decimeter 100 meter 1000 km 1000000 micron 0.001 mils 0.0254 "
                            "microinch 2.5399999999999997e-05 inch 25.4 foot 304.79999999999995 yard 914.3999999999999 "
                            "mile 1609343.9999999998");
    std::string name;
    double size = 0.0;
    for (Gk_Unit const& unit : units) {
        rows >> name >> size;
        EXPECT_STREQ(unit.getName(), name.c_str());
        EXPECT_TRUE(unit.getValue() == size && unit.IsSet()) << name;
    }
    EXPECT_TRUE(Gk_Unit::mm.mapTo(Gk_Unit::cm) == 0.1 && Gk_Unit().getValue() == -1.0);
    EXPECT_TRUE(Gk_Unit("other", 25.4 + 5e-11) == Gk_Unit::inch && !(Gk_Unit("inch", 25.4 + 2e-10) == Gk_Unit::inch));
    EXPECT_STREQ(Gk_Unit().getName(), "unset");
    EXPECT_FALSE(Gk_Unit().IsSet() || Gk_Unit("unset", 1.0).IsSet() || Gk_Unit("zero", 0.0).IsSet());
}

} // namespace
