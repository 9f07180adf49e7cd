#include "support/test.h"

namespace {

std::string dumped(KOVAValue const& value) {
    test::TextStream out;
    KOVAStreamFormatter formatter(&out);
    formatter << value;
    return out.text;
}

TEST(Value, ReadsAsEveryKind) {
    double const nan = std::numeric_limits<double>::quiet_NaN();
    struct {
        KOVAValue value;
        int asInt;
        bool asBool;
        double asDouble;
        std::string asText;
        bool boolFails;
    } const rows[] = {
        {0.5, 1, true, 0.5, "0.500000", false},
        {-0.0, 0, false, 0.0, "-0.000000", false},
        {2.5, 1, true, 2.5, "2.500000", false},
        {nan, 1, true, nan, "nan", false},
        {7, 7, true, 7.0, "7", false},
        {0, 0, false, 0.0, "0", false},
        {true, 1, true, 1.0, "True", false},
        {false, 0, false, 0.0, "False", false},
        {"ON", 1, true, 1.0, "ON", false},
        {"yes", 1, true, 1.0, "yes", false},
        {"tRue", 1, true, 1.0, "tRue", false},
        {"off", 0, false, 0.0, "off", false},
        {"No", 0, false, 0.0, "No", false},
        {"FALSE", 0, false, 0.0, "FALSE", false},
        {"abc", 0, false, 0.0, "abc", true},
        {"0", 0, false, 0.0, "0", false},
        {"00", 0, false, 0.0, "00", true},
        {" 2.75x", 2, true, 2.75, " 2.75x", false},
        {"0x10", 0, false, 16.0, "0x10", true},
        {"-1e3", -1, true, -1000.0, "-1e3", false},
        {"99999999999", 2147483647, true, 99999999999.0, "99999999999", false},
        {"", 0, false, 0.0, "", true},
        {KOVAString(), 0, false, 0.0, "", true},
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.asText);
        int asInt = -5;
        bool asBool = !row.asBool;
        double asDouble = -5;
        KOVAString asText("?");
        EXPECT_EQ(row.value.GetValue(asInt), 0);
        EXPECT_EQ(row.value.GetValue(asBool), row.boolFails ? 0x01000001 : 0);
        EXPECT_EQ(row.value.GetValue(asDouble), 0);
        EXPECT_EQ(row.value.GetValue(asText), 0);
        EXPECT_EQ(std::tie(asInt, asBool), std::tie(row.asInt, row.asBool));
        EXPECT_THAT(asDouble, testing::NanSensitiveDoubleEq(row.asDouble));
        EXPECT_EQ(test::text(asText), row.asText);
    }
    KOVAValue largest(-std::numeric_limits<double>::max());
    EXPECT_EQ(std::string(largest).size(), 317U);
}

TEST(Value, UnknownAnswersNothing) {
    KOVAValue const unknown;
    int number = 3;
    bool flag = true;
    double real = 3;
    KOVAString text("t");
    for (KOVIResult const result :
         {unknown.GetValue(number), unknown.GetValue(flag), unknown.GetValue(real), unknown.GetValue(text)})
        EXPECT_EQ(result, 0x0100000B);
    EXPECT_EQ(std::make_tuple(number, flag, real, test::text(text)), std::make_tuple(3, true, 3.0, std::string("t")));
    EXPECT_EQ(static_cast<char const*>(unknown), nullptr);
    EXPECT_FALSE(unknown.IsValid() || unknown == unknown || unknown == KOVAValue(0));
}

TEST(Value, CopiesTakeOverTheirKindOnly) {
    KOVAValue value("kept");
    value = 12;
    EXPECT_STREQ(value, "12"); // and the text is now "12"
    value = KOVAValue();
    EXPECT_STREQ(value, "12");
    value.SetValue("off");
    value.SetValue(2.5);
    EXPECT_EQ(dumped(value) + dumped(true) + dumped(-3) + dumped("t") + dumped(KOVAValue()), "2.5000001-3t");
    KOVAValue::KOVAValueType type{};
    EXPECT_EQ(value.GetValueType(type), 0);
    EXPECT_STREQ(KOVAValue::KOVAValueTypeNames[type], "double");
    EXPECT_EQ(KOVAValue::KOVAValueTypeNames[5], nullptr);
    EXPECT_TRUE(KOVAValue(KOVAValue(2.5)) == value && KOVAValue("a") == KOVAValue("a") && KOVAValue(3).IsInteger());
    EXPECT_TRUE(KOVAValue(1) != KOVAValue(true) && KOVAValue("a") != KOVAValue("A") && KOVAValue(1) != KOVAValue(2));
}

TEST(Value, HashCodes) {
    struct {
        KOVAValue value;
        unsigned hash;
    } const rows[] = {
        {KOVAValue(), 0U},
        {"ab", 97U * 33 + 98},
        {0, KOVAValue::GetHashCode(0)},
        {true, KOVAValue::GetHashCode(1)},
        {-3.9, KOVAValue::GetHashCode(-3)},
        {4294967301.5, KOVAValue::GetHashCode(5)},
        {1e30, 0U},
        {std::numeric_limits<double>::quiet_NaN(), 0U},
    };
    for (auto const& row : rows) EXPECT_EQ(row.value.GetHashCode(), row.hash);
    // Compatible with other builds, bit for bit.
    struct {
        int value;
        unsigned hash;
    } const ints[] = {{0, 0U},
                      {1, 594824081U},
                      {-1, 594805658U},
                      {12345, 1381718252U},
                      {std::numeric_limits<int>::min(), 1558502628U}};
    for (auto const& row : ints) EXPECT_EQ(KOVAValue::GetHashCode(row.value), row.hash) << row.value;
}

} // namespace
