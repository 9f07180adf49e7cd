#include <clocale>
#include <cwctype>

#include "support/test.h"

namespace {

std::string narrow(KOVAString const& s) {
    char const* const text = s;
    return text ? text : "(null)";
}

bool isNull(KOVAString const& s) { return static_cast<unsigned short const*>(s) == nullptr; }

/// Puts the character locale back.
struct Locale {
    explicit Locale(char const* name) : set(std::setlocale(LC_CTYPE, name) != nullptr) {}
    ~Locale() { std::setlocale(LC_CTYPE, former.c_str()); }
    std::string const former = std::setlocale(LC_CTYPE, nullptr);
    bool const set;
};

TEST(String, TwoKindsOfEmpty) {
    KOVAString const null;
    KOVAString const empty("");
    KOVAString const a("a");
    EXPECT_TRUE(isNull(null) && !isNull(empty) && isNull(KOVAString(static_cast<char const*>(nullptr))) &&
                !isNull(KOVAString(static_cast<unsigned short const*>(empty))));
    EXPECT_EQ(null.length() + empty.length() + null.GetLengthInChar() + empty.GetLengthInChar(), 0);
    EXPECT_EQ(narrow(null) + narrow(empty), "(null)");
    EXPECT_TRUE(!null.equals(empty) && null.equals(KOVAString()) && empty.equals(KOVAString("")));
    EXPECT_EQ((Numbers{null.compareTo(empty), empty.compareTo(null)}), (Numbers{-1, 1}));
    EXPECT_EQ((Numbers{null.compareToIgnoreCase(empty), empty.compareToIgnoreCase(KOVAString("")),
                       empty.compareToIgnoreCase(a)}),
              (Numbers{-1, 0, -1}));
    EXPECT_TRUE(null < empty && null <= null && !(null < null) && !(null > null) && empty > null && a > empty);
    EXPECT_EQ(null.hashCode() + empty.hashCode(), 0U);
    // Nothing derived is ever the empty text.
    for (KOVAString const& s : {null, empty}) {
        for (KOVAString const& derived : {s.concat(empty), s.substring(0), s.replace('a', 'b'), s.toLowerCase(),
                                          s.toUpperCase(), s.trim(), s + null, a.substring(1, 1), a.replace('a', 0)})
            EXPECT_TRUE(isNull(derived));
        EXPECT_EQ((Numbers{s.indexOf('a'), a.indexOf(s), a.lastIndexOf(s)}), (Numbers{-1, -1, -1}));
        EXPECT_FALSE(a.startsWith(s) || a.endsWith(s) || a.endsWithIgnoreCase(s) || s.startsWith(a) || s.endsWith('a'));
        EXPECT_EQ(narrow(a + s), "a");
    }
}

TEST(String, Formats) {
    EXPECT_EQ(narrow(KOVAString(100, "%s has %d", "part", 12)), "part has 12");
    EXPECT_EQ(narrow(KOVAString(5, "%s", "abcdefgh")), "abcd");
    for (auto const& [size, length] : {std::pair(1024, 1023), {1500, 1499}, {2147483647, 2000}, {1, 0}, {-3, 0}})
        EXPECT_EQ(KOVAString(size, "%2000d", 1).length(), length);
    char const* const none = nullptr;
    EXPECT_TRUE(isNull(KOVAString(10, none)));
}

TEST(String, AssignmentAndTheNarrowCopy) {
    KOVAString a("first");
    KOVAString b("second");
    EXPECT_EQ(narrow(a), "first");
    a = b; // b has no narrow copy: a's own would be stale
    EXPECT_EQ(narrow(a) + narrow(b), "secondsecond");
    KOVAString& same = a;
    a = same;
    a = a + a.substring(0, 3);
    KOVAString moved(static_cast<KOVAString&&>(a));
    b = moved;
    EXPECT_EQ(narrow(moved) + narrow(a) + narrow(b), "secondsec(null)secondsec");
    moved = KOVAString();
    EXPECT_EQ(narrow(b), "secondsec");
}

TEST(String, Compares) {
    std::tuple<char const*, char const*, int, int> const rows[] = {
        {"a", "b", -1, -1},
        {"abc", "abcd", -1, -1},
        {"abcd", "abc", 1, 1},
        {"a", "A", 1, 0},
        {"abcdefgh", "abcdefgX", 1, -1},
        {"STEP", "step", -1, 0},
        {"_", "A", 1, -1},
        {"Z", "a", -1, 1},
        {"same text, long", "same text, long", 0, 0},
    };
    for (auto const& [a, b, order, folded] : rows) {
        EXPECT_EQ(KOVAString(a).compareTo(KOVAString(b)), order) << a << b;
        EXPECT_EQ(KOVAString(a).compareToIgnoreCase(KOVAString(b)), folded) << a << b;
        EXPECT_EQ(KOVAString(a).equals(KOVAString(b)), order == 0) << a << b;
    }
    unsigned short const high[] = {0xFFFF, 0};
    unsigned short const low[] = {0x7FFF, 0};
    EXPECT_EQ(KOVAString(high).compareTo(KOVAString(low)), 1); // as numbers, not as signed ones
    EXPECT_EQ(KOVAString("ab").hashCode(), 3299U);
    EXPECT_EQ(KOVAString("overflowing").hashCode(), 2318918930U);
    EXPECT_TRUE(KOVAString("a") == "a" && KOVAString("a") != "b" && KOVAString("a") == KOVAString("a"));
    EXPECT_TRUE(KOVAString("Part.STEP").endsWithIgnoreCase(KOVAString(".step")));
    EXPECT_FALSE(KOVAString("P").endsWithIgnoreCase(KOVAString("Part")));
}

TEST(String, FoldsEveryUnitAsTheRuntimeDoes) {
    for (char const* name : {"C", "C.UTF-8", "tr_TR.UTF-8"}) {
        Locale const locale(name);
        if (!locale.set) continue;
        for (unsigned unit = 1; unit <= 0xFFFF; ++unit) {
            KOVAString const s(static_cast<unsigned short>(unit));
            ASSERT_EQ(s.toLowerCase()[0], std::towlower(static_cast<std::wint_t>(unit))) << name << unit;
            ASSERT_EQ(s.toUpperCase()[0], std::towupper(static_cast<std::wint_t>(unit))) << name << unit;
        }
    }
}

TEST(String, Searches) {
    KOVAString const s("abcabca");
    KOVAString const bc("bc");
    KOVAString const abca("abca");
    EXPECT_EQ((Numbers{s.indexOf('c'), s.indexOf('a', 1), s.indexOf('a', 7), s.indexOf('a', -1)}),
              (Numbers{2, 3, -1, -1}));
    EXPECT_EQ((Numbers{s.indexOf(bc), s.indexOf(bc, 2), s.indexOf(bc, 5), s.indexOf(bc, -1)}), (Numbers{1, 4, -1, -1}));
    EXPECT_EQ((Numbers{s.lastIndexOf('b'), s.lastIndexOf('b', 3), s.lastIndexOf('b', 7), s.lastIndexOf('b', -1)}),
              (Numbers{4, 1, -1, -1}));
    EXPECT_EQ((Numbers{s.lastIndexOf(bc), s.lastIndexOf(bc, 3), s.lastIndexOf(bc, 7), bc.lastIndexOf(s)}),
              (Numbers{4, 1, -1, -1}));
    EXPECT_EQ((Numbers{abca.lastIndexOfAfter('a', 2), abca.lastIndexOfAfter('a', 3), abca.lastIndexOfAfter('b', 1)}),
              (Numbers{3, -1, -1}));
    EXPECT_EQ(abca.lastIndexOfAfter('a', -1), -1);
    EXPECT_TRUE(s.startsWith(bc, 4) && !s.startsWith(bc, 6) && !s.startsWith(bc, -1) && !s.startsWith(bc));
    EXPECT_TRUE(s.endsWith(KOVAString("bca")) && !s.endsWith(bc) && s.endsWith('a'));
    EXPECT_EQ(s.charAt(-1) + s.charAt(7) + KOVAString().charAt(0), 0);
}

TEST(String, Derives) {
    KOVAString const s("abcdef");
    EXPECT_EQ(narrow(s.substring(1, 3)), "bc");
    EXPECT_EQ(narrow(s.substring(4)), "ef");
    for (auto const& [begin, end] : {std::pair(1, 1), {-1, 2}, {6, 6}, {2, 7}, {3, 2}})
        EXPECT_TRUE(isNull(s.substring(begin, end))) << begin;
    EXPECT_EQ(narrow(s.replace('c', '-')), "ab-def");
    EXPECT_EQ(narrow(s.replace('c', 0)), "ab");
    EXPECT_EQ(narrow(KOVAString("MiXed").toLowerCase() + KOVAString("MiXed").toUpperCase()), "mixedMIXED");
    char const* const trimmed[][2] = {{"abc", "ab"},   {"  abc ", "abc"}, {"abc ", "abc"},
                                      {"  abc", "ab"}, {"a", "(null)"},   {" \t\n", "(null)"}};
    for (auto const& [text, result] : trimmed) EXPECT_EQ(narrow(KOVAString(text).trim()), result);
    EXPECT_TRUE(KOVAString("a").isWhitespace() && !KOVAString("ab").isWhitespace());
}

TEST(String, TakesValues) {
    unsigned short const data[] = {'x', 'a', 'b', 0};
    EXPECT_EQ(narrow(KOVAString::valueOf(2.5) + KOVAString::valueOf(0.5F)), "2.5000000.500000");
    EXPECT_EQ(narrow(KOVAString::valueOf(-std::numeric_limits<double>::max())).size(), 317U);
    EXPECT_EQ(narrow(KOVAString::valueOf(-7) + KOVAString::valueOf(2147483647L)), "-72147483647");
    EXPECT_EQ(narrow(KOVAString::valueOf(true) + KOVAString::valueOf("-") + KOVAString::valueOf(data)), "true-xab");
    EXPECT_EQ(narrow(KOVAString::valueOf(data, 1, 2) + KOVAString::valueOf(data[1])), "aba");
    EXPECT_EQ(narrow(KOVAString::KOVA_TRUE + KOVAString::KOVA_OFF), "TrueOff");
}

TEST(String, CopiesUnitsWithinBounds) {
    KOVAString const s("abcdef");
    unsigned short wide[8];
    auto const copied = [&](int begin, int end, int at) {
        std::fill(std::begin(wide), std::end(wide), static_cast<unsigned short>('#'));
        s.getChars(begin, end, wide, at);
        std::string text;
        for (unsigned short unit : wide) text += unit ? static_cast<char>(unit) : '0';
        return text;
    };
    EXPECT_EQ(copied(1, 3, 2) + copied(4, 99, 0), "##bc0###ef0#####");
    EXPECT_EQ(copied(3, 3, 1) + copied(-1, 3, 0) + copied(0, 3, -1), "#0######0###############");
    s.getChars(0, 3, static_cast<unsigned short*>(nullptr), 0);
    char bytes[8] = "#######";
    s.getChars(2, 5, bytes, 1);
    EXPECT_EQ(std::string(bytes, 8), std::string("#cde\0##\0", 8));
}

TEST(String, LocalesThatCannotConvert) {
    Locale const locale("C");
    EXPECT_EQ(narrow(KOVAString("\xC3\xA4-\xFF")), "\xC3\xA4-\xFF"); // bytes come back
    unsigned short const units[] = {'a', 'b', 0x20AC, 0xE4, 0};
    KOVAString const s(units);
    EXPECT_EQ(s.GetLengthInChar(), 4);
    EXPECT_EQ(narrow(s), "ab-\xE4");
    char bytes[8] = "#######";
    s.getChars(2, 4, bytes, 0); // fails at 0x20AC: two bytes, from index 0 on
    EXPECT_STREQ(bytes, "ab");
    s.getChars(0, 2, bytes, 0); // the units in question can be converted
    EXPECT_STREQ(bytes, "ab");
}

TEST(String, Utf8) {
    Locale const locale("C.UTF-8");
    if (!locale.set || MB_CUR_MAX < 4) GTEST_SKIP() << "no UTF-8 locale on this system";
    KOVAString const s("\xC3\xA4\xE2\x82\xAC\xF0\x9F\x9A\x80z");
    EXPECT_EQ((Numbers{s.length(), s[2], s[3], s.GetLengthInChar()}), (Numbers{5, 0xD83D, 0xDE80, 10}));
    EXPECT_EQ(narrow(s), "\xC3\xA4\xE2\x82\xAC\xF0\x9F\x9A\x80z");
    EXPECT_EQ(narrow(KOVAString("\xC3\xA4z")), "\xC3\xA4z");
    char bytes[16];
    s.getChars(0, 4, bytes, 0); // whole characters only: the next needs three bytes
    EXPECT_STREQ(bytes, "\xC3\xA4");
    s.getChars(4, 10, bytes, 0);
    EXPECT_STREQ(bytes, "z");
    KOVAString const lone(static_cast<unsigned short>(0xD83D));
    EXPECT_EQ(lone.GetLengthInChar(), 1);
    EXPECT_EQ(narrow(lone), "-");
    s.getChars(3, 10, bytes, 0); // the low surrogate alone cannot be converted, and only five units exist
    EXPECT_STREQ(bytes, "\xE4---z");
    EXPECT_EQ(KOVAString("\xFF!").length(), 2);
    EXPECT_EQ(KOVAString("\xFF!")[0], 0xFF);
}

TEST(String, DumpsToTheDebugChannel) {
    test::Recorder recorder;
    KOVAString const s("5%% of %s");
    s.dump();
    EXPECT_THAT(recorder.events,
                testing::ElementsAre(testing::AllOf(testing::StartsWith("10 string 0x"),
                                                    testing::EndsWith("): \"5%% of %s\" (9 chars)\n\n"))));
}

} // namespace
