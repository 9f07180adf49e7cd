#include "support/test.h"

namespace {

/// All entries, "name=value;".
std::string all(KOVAProperties const& properties) {
    std::string result;
    KOVAString name;
    KOVAValue value;
    for (int i = 0; properties.Get(i, name, value).IsSuccess(); ++i) {
        KOVAString text;
        value.GetValue(text);
        result += test::text(name) + "=" + test::text(text) + ";";
    }
    return result;
}

/// Sees every assignment.
struct Upper : KOVAProperties {
    using KOVAProperties::Set;
    KOVIResult Set(KOVAString const& name, KOVAValue const& value) override {
        return KOVAProperties::Set(name.toUpperCase(), value);
    }
};

TEST(Properties, AssignmentsSplitAtTheFirstEqualsSign) {
    KOVAProperties properties;
    EXPECT_EQ((Numbers{properties.Set("x=1=2"), properties.Set("a = b"), properties.Set("e=")}), (Numbers{0, 0, 0}));
    EXPECT_EQ((Numbers{properties.Set("=x"), properties.Set("x"), properties.Set("")}),
              (Numbers{0x01000001, 0x01000001, 0x01000001}));
    EXPECT_EQ(properties.Set("x", KOVAValue(2.5)), 0);
    KOVAProperties copy(properties);
    properties.Set("X=upper");
    EXPECT_EQ(all(properties), "x=2.500000;a = b;e=;X=upper;");
    EXPECT_EQ((Numbers{properties.GetCount(), copy.GetCount()}), (Numbers{4, 3}));
    copy = properties;
    KOVAValue empty;
    EXPECT_TRUE(copy.Get("e", empty).IsSuccess() && empty == "");
    KOVAValue value("untouched");
    EXPECT_EQ(copy.Get("none", value), 0x01000001);
    KOVAString name;
    EXPECT_TRUE(copy.Get(4, name, value).IsFailure() && copy.Get(-1, name, value).IsFailure());
    EXPECT_STREQ(value, "untouched");
    Upper upper;
    upper.Set("name=v");
    EXPECT_EQ(all(upper), "NAME=v;");
}

} // namespace
