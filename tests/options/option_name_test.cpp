#include "support/test.h"

namespace {

TEST(OptionName, MatchScoresWildcards) {
    struct {
        char const *known, *candidate;
        int score;
    } const rows[] = {
        {"/A/B", "/a/b", 0},
        {"/A/B.true/C", "/A/B.*", 2},
        {"/A/B.true/C", "*.TRUE/c", 1},
        {"/A/B.true/C", "*.*", 3},
        {"/A/B.true/C", "*", 65535},
        {"/A/B", "*", 1},
        {"/A/B", "/A/*", 65535},
        {"/A/B.x", "/A/C.*", 65535},
        {"/A.*", "/a.*", 0},
        {"", "*", 65535},
        {"/A", "", 65535},
        {"", "", 0},
        {"/A.b.", "/A.b.*", 4},
        {"a.b.c.d.e.f.g.h.i", "*.b.*.d.e.f.g.h.*", 1 + 4 + 256},
    };
    for (auto const& row : rows) {
        int score = -1;
        EXPECT_EQ(KOVAOptionName::Match(row.known, row.candidate, score), 0);
        EXPECT_EQ(score, row.score) << row.known << " " << row.candidate;
    }
    // More parts than an int has bits.
    std::string known = "x", stars = "*";
    for (int i = 0; i < 40; ++i) {
        known += ".x";
        stars += ".*";
    }
    int score = -1;
    EXPECT_EQ(KOVAOptionName::Match(known.c_str(), stars.c_str(), score), 0);
    EXPECT_GT(score, 65535);
}

/// Scores every registered name by Match, as IsValid is defined.
bool validByMatch(KOVAString const& candidate, Texts const& names) {
    int best = 65535, score = 0;
    for (std::string const& name : names)
        if (KOVAOptionName::Match(name.c_str(), candidate, score).IsSuccess()) best = std::min(best, score);
    return best < 65535;
}

TEST(OptionName, IsValidIsWhatMatchSays) {
    Texts names = {
#define KOVA_OPTION_NAME(identifier, text) text,
#include <kova/options/option_names.def>
#undef KOVA_OPTION_NAME
        "/Test/Late.on/More", "a.b.c.d.e.f.g.h.i.j.k.l.m.n.o.p.q"};
    for (char const* late : {"/Test/Late.on/More", "a.b.c.d.e.f.g.h.i.j.k.l.m.n.o.p.q", "/Test/Late.on/More"})
        KOVAOptionName const gone{KOVAString(late)};
    EXPECT_STREQ(KOVAOptionName::XGeneric_Import_ApplyScale_true_Value, "/XGeneric/Import/ApplyScale.true/Value");
    Texts candidates = {"/xgeneric/import/mode/assem",
                        "/XGeneric/Import/Mode/*",
                        "*",
                        "*.*",
                        "*.*.*",
                        "*.*.*.*",
                        "/XGeneric/Import/Mode/Assem.*",
                        "/test/late.*",
                        "/test/none.*",
                        "*.ON/more",
                        "",
                        ".",
                        "*.",
                        "a.b.c.d.e.f.g.h.i.j.k.l.m.n.o.p.*",
                        "*.b.c.d.e.f.g.h.i.j.k.l.m.n.o.p.q",
                        "/XGeneric/Nothing"};
    for (std::string const& name : names) {
        candidates.push_back(test::text(KOVAString(name.c_str()).toUpperCase()));
        candidates.push_back(name + "x");
        candidates.push_back(name.substr(0, name.find('.')) + ".*");
    }
    for (std::string const& candidate : candidates)
        EXPECT_EQ(KOVAOptionName::IsValid(candidate.c_str()).IsSuccess(), validByMatch(candidate.c_str(), names))
            << candidate;
}

TEST(OptionName, CopiesAreNamesButNotRegistered) {
    KOVAOptionName const heal(KOVAOptionName::XGeneric_Import_Heal);
    EXPECT_EQ(static_cast<char const*>(heal), static_cast<char const*>(KOVAOptionName::XGeneric_Import_Heal));
    EXPECT_EQ(test::text(heal), "/XGeneric/Import/Heal");
}

TEST(OptionName, UnknownNamesAreHelpedAlong) {
    struct {
        char const *name, *text;
    } const rows[] = {
        {"/XGeneric/Import/Hael", "unknown option '/XGeneric/Import/Hael'; did you mean '/XGeneric/Import/Heal'?"},
        {"/xgeneric/import/repar", "unknown option '/xgeneric/import/repar'; did you mean '/XGeneric/Import/Repair'?"},
        {"/XGeneric/ReadPhas",
         "unknown option '/XGeneric/ReadPhas'; did you mean '/XGeneric/ReadPhase' or '/XGeneric/ReadPh'?"},
        {"nothing like it", "unknown option 'nothing like it'"},
        {"", "unknown option ''"},
    };
    for (auto const& row : rows) EXPECT_EQ(test::text(KOVAOptionName::DescribeUnknown(row.name)), row.text);
}

} // namespace
