#include "support/test.h"

namespace {

constexpr long kEmpty = 0x01000008;
constexpr long kMismatch = 0x01000002;

template <class T> T valueOf(KOVAOption const& option) {
    T value{};
    option.GetValue(value);
    return value;
}

std::string mismatch(char const* call, char const* given, char const* stored) {
    return std::string(call) + " type (" + given + ") doesn't match stored type (" + stored +
           ") for option '/XGeneric/Import/Heal'.\n";
}

KOVAOptionName const& heal = KOVAOptionName::XGeneric_Import_Heal;

TEST(Option, RefusesOtherTypes) {
    test::Recorder recorder;
    KOVAOption flag(heal, true), number(heal, 3), real(heal, 1.5), text(heal, "t");
    EXPECT_EQ((Numbers{flag.SetValue(0), flag.SetValue(KOVAValue(7)), number.SetValue(4), real.SetValue(2.5),
                       text.SetValue("u"), text.SetValue(KOVAValue("v"))}),
              (Numbers{0, 0, 0, 0, 0, 0}));
    EXPECT_EQ(recorder.events, Texts());
    EXPECT_EQ((Numbers{real.SetValue(1), number.SetValue(true), number.SetValue(2.5), flag.SetValue("On"),
                       flag.SetValue(KOVAValue(1.0)), number.SetValue(KOVAValue())}),
              Numbers(6, kMismatch));
    std::string const specified = "KOVAOption::SetValue: Specified";
    EXPECT_EQ(recorder.events, (Texts{"70 Warning : " + mismatch(specified.c_str(), "int", "double"),
                                      "80 Error : " + mismatch(specified.c_str(), "bool", "int"),
                                      "80 Error : " + mismatch(specified.c_str(), "double", "int"),
                                      "80 Error : " + mismatch(specified.c_str(), "string", "bool"),
                                      "80 Error : " + mismatch(specified.c_str(), "double", "bool"),
                                      "80 Error : " + mismatch(specified.c_str(), "unknown", "int")}));
    EXPECT_TRUE(valueOf<bool>(flag) && valueOf<int>(number) == 4 && valueOf<double>(real) == 2.5);
    EXPECT_EQ(test::text(valueOf<KOVAString>(text)), "v");
}

TEST(Option, AnEmptyOneTakesTheFirstType) {
    KOVAOption empty;
    bool flag = true;
    int number = 3;
    KOVAString text("x");
    KOVAValue value;
    KOVAValue::KOVAValueType type{};
    EXPECT_EQ((Numbers{empty.GetValue(flag), empty.GetValue(number), empty.GetValue(text), empty.GetValue(value),
                       empty.GetDefaultValue(number), empty.GetDefaultValue(value), empty.IsPrivate(flag),
                       empty.GetName(text), empty.GetValueType(type), empty.GetValue(number, true)}),
              Numbers(10, kEmpty));
    EXPECT_TRUE(flag && number == 3 && text == "x");
    EXPECT_EQ(empty.SetValue(2.5), 0);
    EXPECT_EQ(empty.SetValue(3.5), 0);
    double real = 0;
    EXPECT_EQ((Numbers{empty.GetDefaultValue(real), empty.GetValueType(type)}), (Numbers{0, 0}));
    EXPECT_TRUE(real == 2.5 && type == KOVAValue::Double && valueOf<double>(empty) == 3.5);
}

TEST(Option, AssignmentKeepsADefault) {
    KOVAOption number(heal, 3), real(KOVAOptionName::XGeneric_CheckLevel, 1.5, true);
    number = real;
    KOVAString name;
    bool isPrivate = false;
    int kept = 0;
    EXPECT_EQ((Numbers{number.GetName(name), number.IsPrivate(isPrivate), number.GetDefaultValue(kept)}),
              (Numbers{0, 0, 0}));
    EXPECT_TRUE(name == "/XGeneric/CheckLevel" && isPrivate && kept == 3 && valueOf<double>(number) == 1.5);
    // What reads as no bool is said, and counts as false.
    test::Recorder recorder;
    KOVAOption flag(heal, true);
    flag = KOVAOption(heal, "maybe");
    bool on = true;
    EXPECT_EQ(flag.GetValue(on), 0x01000001);
    EXPECT_FALSE(on);
    EXPECT_EQ(recorder.events, Texts{"10 " + mismatch("KOVAOption::GetValue: Requested", "bool", "bool")});
}

TEST(Option, TheEnvironmentWins) {
    std::string const name = "KOVA/xgeneric/import/HEAL";
    KOVAOption const number(heal, 3), real(heal, 1.5), flag(heal, true), text(heal, "t");
    struct {
        char const* variable;
        int number;
        double real;
        bool flag;
        std::string text;
    } const rows[] = {
        {"0", 0, 0.0, false, "0"},       {"abc", 3, 1.5, false, "abc"}, {"0.0", 3, 1.5, false, "0.0"},
        {"12x", 12, 12.0, false, "12x"}, {"yes", 3, 1.5, true, "yes"},  {"-2.5", -2, -2.5, false, "-2.5"},
    };
    for (auto const& row : rows) {
        test::Variable const variable(name, row.variable);
        int n = -1;
        double r = -1;
        bool f = !row.flag;
        KOVAString t;
        EXPECT_EQ(
            (Numbers{number.GetValue(n, true), real.GetValue(r, true), flag.GetValue(f, true), text.GetValue(t, true)}),
            (Numbers{0, 0, 0, 0}));
        EXPECT_EQ(std::make_tuple(n, r, f, test::text(t)), std::tie(row.number, row.real, row.flag, row.text));
        EXPECT_TRUE(number.GetValue(n, false).IsSuccess() && n == 3);
    }
    test::Variable const variable(name, "2");
    test::Recorder recorder;
    int n = 0;
    double r = 0;
    bool f = true;
    KOVAString t;
    number.GetValue(n, true);
    real.GetValue(r, true);
    flag.GetValue(f, true);
    text.GetValue(t, true);
    std::string const begin = "70 Warning : KOVA/XGeneric/Import/Heal value overridden to ";
    EXPECT_EQ(recorder.events,
              (Texts{begin + "2 by environment variable\n", begin + "      2 by environment variable\n",
                     begin + "Off by environment variable\n", begin + "2 by environment variable\n"}));
}

TEST(Option, ReadsAreTracedWhenAsked) {
    test::Variable const loggers("KOVALoggers", "options");
    KOVATrace const before = std::exchange(KOVAOption::log, KOVATrace("options"));
    test::Recorder recorder;
    KOVAOption(heal, 3).GetValue(*std::make_unique<int>());
    KOVAOption(heal, 2.5).GetValue(*std::make_unique<double>());
    KOVAOption(heal, true).GetValue(*std::make_unique<bool>());
    KOVAOption(heal, std::string(300, 'x').c_str()).GetValue(*std::make_unique<KOVAString>());
    KOVAOption(heal, 7).GetValue(*std::make_unique<KOVAValue>());
    KOVAOption::log = before;
    std::string const begin = "10 KOVAOption::GetValue('/XGeneric/Import/Heal'): ";
    EXPECT_EQ(recorder.events, (Texts{begin + "3\n", begin + "2.500000\n", begin + "TRUE\n",
                                      begin + std::string(256, 'x') + "\n", begin + "7\n"}));
}

TEST(OptionsArray, CopiesShare) {
    KOVAOptionsArray array;
    array.array().add(KOVAOption(heal, 3));
    KOVAOptionsArray const copy(array), none(static_cast<KOVAOptionsArray const*>(nullptr)), shared(&array);
    array.array().add(KOVAOption(heal, 4));
    EXPECT_EQ((Numbers{copy.array().size(), none.array().size(), shared.array().size()}), (Numbers{2, 0, 2}));
}

} // namespace
