#include <kova/text/KOVAString.h>

#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <cstdlib>
#include <cwctype>
#include <limits>
#include <string>

#include "support/Recorder.h"

namespace {

std::string narrow(KOVAString const& s) {
    char const* const text = s;
    return text ? text : "(null)";
}

bool isNull(KOVAString const& s) {
    return static_cast<unsigned short const*>(s) == nullptr;
}

/// Puts the character locale back.
class Locale {
public:
    explicit Locale(char const* name)
        : former_(std::setlocale(LC_CTYPE, nullptr)), set_(std::setlocale(LC_CTYPE, name)) {}
    Locale(Locale const&) = delete;
    Locale& operator=(Locale const&) = delete;
    ~Locale() { std::setlocale(LC_CTYPE, former_.c_str()); }
    explicit operator bool() const { return set_ != nullptr; }

private:
    std::string former_;
    char const* set_;
};

TEST(String, TwoKindsOfEmpty) {
    KOVAString const null;
    KOVAString const empty("");
    KOVAString const a("a");
    EXPECT_TRUE(isNull(null) && !isNull(empty));
    EXPECT_TRUE(isNull(KOVAString(static_cast<char const*>(nullptr))));
    EXPECT_FALSE(isNull(KOVAString(static_cast<unsigned short const*>(empty))));
    EXPECT_EQ(null.length() + empty.length() + null.GetLengthInChar() + empty.GetLengthInChar(), 0);
    EXPECT_EQ(static_cast<char const*>(null), nullptr);
    EXPECT_STREQ(static_cast<char const*>(empty), "");
    EXPECT_FALSE(null.equals(empty));
    EXPECT_TRUE(null.equals(KOVAString()) && empty.equals(KOVAString("")));
    EXPECT_EQ(null.compareTo(empty), -1);
    EXPECT_EQ(empty.compareTo(null), 1);
    EXPECT_EQ(null.compareToIgnoreCase(empty), -1);
    EXPECT_EQ(empty.compareToIgnoreCase(KOVAString("")), 0);
    EXPECT_EQ(empty.compareToIgnoreCase(a), -1);
    EXPECT_TRUE(null < empty && null <= null && !(null < null) && !(null > null) && empty > null && a > empty);
    EXPECT_EQ(null.hashCode() + empty.hashCode(), 0U);
    // Nothing derived is ever the empty text.
    for (KOVAString const& s : {null, empty}) {
        for (KOVAString const& derived : {s.concat(empty), s.substring(0), s.replace('a', 'b'), s.toLowerCase(),
                                          s.toUpperCase(), s.trim(), s + null, a.substring(1, 1), a.replace('a', 0)})
            EXPECT_TRUE(isNull(derived));
        EXPECT_EQ(s.indexOf('a'), -1);
        EXPECT_EQ(a.indexOf(s), -1);
        EXPECT_EQ(a.lastIndexOf(s), -1);
        EXPECT_FALSE(a.startsWith(s) || a.endsWith(s) || a.endsWithIgnoreCase(s) || s.startsWith(a) || s.endsWith('a'));
        EXPECT_EQ(narrow(a + s), "a");
    }
}

TEST(String, Formats) {
    EXPECT_EQ(narrow(KOVAString(100, "%s has %d", "part", 12)), "part has 12");
    EXPECT_EQ(narrow(KOVAString(5, "%s", "abcdefgh")), "abcd");
    EXPECT_EQ(narrow(KOVAString(1024, "%2000d", 1)).size(), 1023U);
    EXPECT_EQ(narrow(KOVAString(1500, "%2000d", 1)).size(), 1499U);
    EXPECT_EQ(narrow(KOVAString(std::numeric_limits<int>::max(), "%2000d", 1)).size(), 2000U);
    EXPECT_EQ(KOVAString(-3, "%d", 1).length(), 0);
    char const* const none = nullptr;
    EXPECT_TRUE(isNull(KOVAString(10, none)));
}

TEST(String, AssignmentAndTheNarrowCopy) {
    KOVAString a("first");
    KOVAString b("second");
    EXPECT_EQ(narrow(a), "first");
    a = b; // b has no narrow copy: a's own would be stale
    EXPECT_EQ(narrow(a), "second");
    EXPECT_EQ(narrow(b), "second");
    KOVAString& same = a;
    a = same;
    a = a + a.substring(0, 3);
    EXPECT_EQ(narrow(a), "secondsec");
    KOVAString moved(static_cast<KOVAString&&>(a));
    EXPECT_EQ(narrow(moved), "secondsec");
    EXPECT_EQ(a.length(), 0);
    b = moved;
    moved = KOVAString();
    EXPECT_EQ(narrow(b), "secondsec");
}

TEST(String, Compares) {
    KOVAString const longText("the quick brown fox");
    struct {
        char const* a;
        char const* b;
        int order, folded;
    } const rows[] = {
        {"a", "b", -1, -1},      {"b", "a", 1, 1},
        {"a", "A", 1, 0},        {"abc", "abcd", -1, -1},
        {"abcd", "abc", 1, 1},   {"abcdefgh", "abcdefgX", 1, -1},
        {"STEP", "step", -1, 0}, {"_", "A", 1, -1},
        {"Z", "a", -1, 1},       {"same text, long", "same text, long", 0, 0},
    };
    for (auto const& row : rows) {
        EXPECT_EQ(KOVAString(row.a).compareTo(KOVAString(row.b)), row.order) << row.a << row.b;
        EXPECT_EQ(KOVAString(row.a).compareToIgnoreCase(KOVAString(row.b)), row.folded) << row.a << row.b;
        EXPECT_EQ(KOVAString(row.a).equals(KOVAString(row.b)), row.order == 0);
    }
    unsigned short const high[] = {0xFFFF, 0};
    unsigned short const low[] = {0x7FFF, 0};
    EXPECT_EQ(KOVAString(high).compareTo(KOVAString(low)), 1); // as numbers, not as signed ones
    EXPECT_EQ(KOVAString("ab").hashCode(), 3299U);
    EXPECT_EQ(KOVAString("a rather long text").hashCode(), [] {
        std::uint32_t hash = 0;
        for (char c : std::string("a rather long text"))
            hash = hash * 33U + static_cast<unsigned char>(c);
        return hash;
    }());
    EXPECT_TRUE(KOVAString("Part.STEP").endsWithIgnoreCase(KOVAString(".step")));
    EXPECT_FALSE(KOVAString("P").endsWithIgnoreCase(KOVAString("Part")));
}

TEST(String, FoldsEveryUnitAsTheRuntimeDoes) {
    for (char const* name : {"C", "C.UTF-8", "tr_TR.UTF-8"}) {
        Locale const locale(name);
        if (!locale)
            continue;
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
    EXPECT_EQ(s.indexOf('c'), 2);
    EXPECT_EQ(s.indexOf('a', 1), 3);
    EXPECT_EQ(s.indexOf('a', 7), -1);
    EXPECT_EQ(s.indexOf('a', -1), -1);
    EXPECT_EQ(s.indexOf(bc), 1);
    EXPECT_EQ(s.indexOf(bc, 2), 4);
    EXPECT_EQ(s.indexOf(bc, 5), -1);
    EXPECT_EQ(s.indexOf(bc, -1), -1);
    EXPECT_EQ(s.lastIndexOf('b'), 4);
    EXPECT_EQ(s.lastIndexOf('b', 3), 1);
    EXPECT_EQ(s.lastIndexOf('b', 7), -1);
    EXPECT_EQ(s.lastIndexOf('b', -1), -1);
    EXPECT_EQ(s.lastIndexOf(bc), 4);
    EXPECT_EQ(s.lastIndexOf(bc, 3), 1);
    EXPECT_EQ(s.lastIndexOf(bc, 7), -1);
    EXPECT_EQ(KOVAString("ab").lastIndexOf(s), -1);
    KOVAString const abca("abca");
    EXPECT_EQ(abca.lastIndexOfAfter('a', 2), 3);
    EXPECT_EQ(abca.lastIndexOfAfter('a', 3), -1);
    EXPECT_EQ(abca.lastIndexOfAfter('b', 1), -1);
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
    struct {
        char const* text;
        char const* trimmed;
    } const rows[] = {{"abc", "ab"},   {"  abc ", "abc"}, {"abc ", "abc"},
                      {"  abc", "ab"}, {"a", "(null)"},   {" \t\n", "(null)"}};
    for (auto const& row : rows)
        EXPECT_EQ(narrow(KOVAString(row.text).trim()), row.trimmed);
    EXPECT_TRUE(KOVAString("a").isWhitespace());
    EXPECT_FALSE(KOVAString("ab").isWhitespace());
}

TEST(String, TakesValues) {
    unsigned short const data[] = {'x', 'a', 'b', 0};
    EXPECT_EQ(narrow(KOVAString::valueOf(2.5)), "2.500000");
    EXPECT_EQ(narrow(KOVAString::valueOf(0.5F)), "0.500000");
    EXPECT_EQ(narrow(KOVAString::valueOf(-std::numeric_limits<double>::max())).size(), 317U);
    EXPECT_EQ(narrow(KOVAString::valueOf(-7)), "-7");
    EXPECT_EQ(narrow(KOVAString::valueOf(2147483647L)), "2147483647");
    EXPECT_EQ(narrow(KOVAString::valueOf(true)), "true");
    EXPECT_EQ(narrow(KOVAString::valueOf(data)), "xab");
    EXPECT_EQ(narrow(KOVAString::valueOf(data, 1, 2)), "ab");
    EXPECT_EQ(narrow(KOVAString::valueOf(data[1])), "a");
    EXPECT_EQ(narrow(KOVAString::KOVA_TRUE + KOVAString::KOVA_OFF), "TrueOff");
}

TEST(String, CopiesUnitsWithinBounds) {
    KOVAString const s("abcdef");
    unsigned short wide[8];
    auto const copied = [&](int begin, int end, int at) {
        std::fill(std::begin(wide), std::end(wide), static_cast<unsigned short>('#'));
        s.getChars(begin, end, wide, at);
        std::string text;
        for (unsigned short unit : wide)
            text += unit ? static_cast<char>(unit) : '0';
        return text;
    };
    EXPECT_EQ(copied(1, 3, 2), "##bc0###");
    EXPECT_EQ(copied(4, 99, 0), "ef0#####");
    EXPECT_EQ(copied(3, 3, 1), "#0######");
    EXPECT_EQ(copied(-1, 3, 0), "0#######");
    EXPECT_EQ(copied(0, 3, -1), "########");
    s.getChars(0, 3, static_cast<unsigned short*>(nullptr), 0);
    char bytes[8] = "#######";
    s.getChars(2, 5, bytes, 1);
    EXPECT_EQ(std::string(bytes, 8), std::string("#cde\0##\0", 8));
}

TEST(String, LocalesThatCannotConvert) {
    Locale const locale("C");
    ASSERT_TRUE(locale);
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
    if (!locale || MB_CUR_MAX < 4)
        GTEST_SKIP() << "no UTF-8 locale on this system";
    KOVAString const s("\xC3\xA4\xE2\x82\xAC\xF0\x9F\x9A\x80z");
    EXPECT_EQ(s.length(), 5);
    EXPECT_EQ(s[2], 0xD83D);
    EXPECT_EQ(s[3], 0xDE80);
    EXPECT_EQ(s.GetLengthInChar(), 10);
    EXPECT_EQ(narrow(s), "\xC3\xA4\xE2\x82\xAC\xF0\x9F\x9A\x80z");
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
    ASSERT_EQ(recorder.events.size(), 1U);
    EXPECT_EQ(recorder.events[0].rfind("10 string 0x", 0), 0U);
    EXPECT_NE(recorder.events[0].find("): \"5%% of %s\" (9 chars)\n"), std::string::npos) << recorder.events[0];
}

} // namespace
