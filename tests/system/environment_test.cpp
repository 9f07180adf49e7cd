#include <clocale>

#include "support/test.h"

namespace {

/// The variable's text; "Failure" when there is none.
std::string variable(KOVAString const& name) {
    KOVAString value("untouched");
    if (KOVAEnvironment::GetVariable(name, value) == 0x01000001 && value == "untouched") return "Failure";
    return test::text(value);
}

TEST(Environment, NamesIgnoreCase) {
    test::Variable level("kovalogLEVEL", "INFO"), assigned("KOVAx", "a=b"), longer("KOVAxy", "longer");
    EXPECT_EQ((Texts{variable("KOVALogLevel"), variable("kovaX"), variable("KOVAxyz"), variable("KOV")}),
              (Texts{"INFO", "a=b", "Failure", "Failure"}));
    EXPECT_EQ((Texts{variable("KOVAx=a"), variable("kova/x")}), (Texts{"Failure", "Failure"}));
    struct {
        char const* text;
        bool value;
    } const rows[] = {{"yes", true}, {"TRUE", true}, {"on", true}, {"1", false}, {"enabled", false}, {"off", false}};
    for (auto const& row : rows) {
        level.set(row.text);
        bool value = !row.value;
        EXPECT_EQ(KOVAEnvironment::GetVariable("KOVALogLevel", value), 0);
        EXPECT_EQ(value, row.value) << row.text;
    }
    bool value = true;
    EXPECT_EQ(KOVAEnvironment::GetVariable("KOVAnone", value), 0x01000001);
    EXPECT_FALSE(value);
    test::Variable umlaut("KOVA\xC3\xBC", "u");
    EXPECT_EQ(variable("kova\xC3\xBC"), "u");
}

TEST(Environment, PutVariableFormatsTwiceAndReports) {
    test::Recorder recorder;
    test::Variable put("KOVAput"), empty("KOVAempty");
    EXPECT_EQ(KOVAEnvironment::PutVariable("KOVAput", "1"), 0);
    EXPECT_EQ(recorder.events, Texts{"50 Message : Environment variable: KOVAput=1\n\n"});
    EXPECT_EQ(variable("kovaPUT"), "1");
    KOVAEnvironment::PutVariable("KOVAput", "50%% %s%n");
    EXPECT_EQ(variable("KOVAput"), "50% %s%n");
    EXPECT_EQ(KOVAEnvironment::PutVariable("KOVAput", std::string(32768, 'x').c_str()), 0x01000001);
    EXPECT_EQ(KOVAEnvironment::PutVariable("", "x"), 0x01000001);
    EXPECT_EQ(variable("KOVAput"), "50% %s%n");
    KOVAEnvironment::PutVariable("KOVAempty", "");
#ifndef _WIN32
    EXPECT_EQ(variable("KOVAempty"), "");
#endif
}

TEST(Environment, TheSnapshotStays) {
    test::Variable present("KOVApresent", "before");
    KOVAEnvironment const* const snapshot = KOVAEnvironment::GetEnv();
    present.set("after");
    KOVAValue value;
    EXPECT_EQ(KOVAEnvironment::GetEnv()->Get("KOVApresent", value), 0);
    EXPECT_STREQ(value, "before");
    EXPECT_EQ(KOVAEnvironment::GetEnv(), snapshot);
}

TEST(Trace, EnabledByNameOnly) {
    test::Variable loggers("KOVALoggers", "Reader,Writer");
    KOVATrace on("Reader"), other("reader"), none(nullptr);
    loggers.unset();
    KOVATrace unset("Reader");
    EXPECT_TRUE(on.IsEnabled() && !other.IsEnabled() && !none.IsEnabled() && !unset.IsEnabled());
    test::Recorder recorder;
    for (int level = 0; level < 5; ++level) on.Printf(level, "%d%%%%", level);
    on.Printf(1, nullptr);
    unset.Printf(3, "%d", 3);
    EXPECT_EQ(recorder.events, (Texts{"10 1%\n", "50 Message : 2%\n", "80 Error : 3%\n", "10 \n"}));
}

} // namespace
