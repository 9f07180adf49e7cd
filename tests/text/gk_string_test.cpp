#include "support/test.h"

namespace {

/// All characters, a terminator shown as "0".
std::string shown(Gk_String const& s) {
    std::string result;
    for (int i = 0; i < s.len(); ++i) result += s[i] ? s[i] : '0';
    return result;
}

TEST(GkString, CountsItsTerminator) {
    Gk_String const abc("abc");
    EXPECT_TRUE(abc.len() == 4 && abc.dataLen() == 3 && Gk_String().len() + Gk_String().dataLen() == 0);
    EXPECT_EQ(static_cast<char*>(Gk_String()), nullptr);
    EXPECT_EQ(shown(Gk_String("abc", 2)), "ab");
    EXPECT_EQ(Gk_String("abc", 2).dataLen(), 2);
    EXPECT_EQ(shown(Gk_String(static_cast<char const*>(nullptr))), "0");
    EXPECT_EQ(shown(Gk_String("abc", -1)), "");
    Gk_ROString view("abc");
    view.offset(1);
    EXPECT_EQ(shown(Gk_String(view)), "bc0");
    EXPECT_EQ(shown(Gk_String(Gk_ROString("abc", 3))), "abc0");
}

TEST(GkString, Appends) {
    Gk_String s("abc");
    s.append("de");
    EXPECT_EQ(shown(s), "abcde0");
    s.append(s);
    s.append(3, "xyz");
    s.append(Gk_String("!"));
    s.append('c');
    EXPECT_EQ(shown(s), "abcdeabcdexyz!0c");
    Gk_String empty;
    empty.append(Gk_ROString());
    empty.append(static_cast<char const*>(nullptr));
    EXPECT_EQ(shown(empty), "0");
}

TEST(GkString, CutsAndPads) {
    for (auto const& [n, chopped, ensured] : {std::tuple(-1, "0", "0"),
                                              {2, "ab0", "ab0"},
                                              {5, "abcde0", "abcde0"},
                                              {6, "abcde0", "abcde0"},
                                              {8, "abcde0", "abcde   0"}}) {
        Gk_String s("abcde");
        s.chop(n);
        EXPECT_EQ(shown(s), chopped) << n;
        Gk_String t("abcde");
        t.ensure(n);
        EXPECT_EQ(shown(t), ensured) << n;
    }
    Gk_String t("abcdef");
    EXPECT_EQ(shown(t.subset(1, 3)) + shown(t.subset(4, 99)) + shown(t.subset(99, 1)), "bcd0ef00");
    t.shrinkFront(2);
    t.shrinkEnd(2);
    EXPECT_EQ(shown(t), "cde");
    t.shrinkEnd(99);
    EXPECT_EQ(t.len(), 0);
}

TEST(GkString, ComparesAndShares) {
    Gk_String const a("a");
    EXPECT_TRUE(Gk_String() == Gk_String() && !(Gk_String() == Gk_String("")) && Gk_String() < Gk_String(""));
    EXPECT_TRUE(a == Gk_String("a", 1) && a < Gk_String("b") && a < Gk_String("\xE4") && !(a < a));
    Gk_String shared(a);
    Gk_String const own = a.copy();
    shared[0] = 'x';
    EXPECT_EQ(shown(a), "x0");
    EXPECT_EQ(shown(own), "a0");
    test::TextStream out;
    out << own << Gk_String() << a.rwString();
    EXPECT_EQ(out.text, "ax");
}

TEST(GkView, FindsFromItsOffset) {
    Gk_ROString view("abcabc");
    EXPECT_EQ(view.len(), 7);
    EXPECT_EQ(view.find('c'), 2);
    view.setoffset(3);
    EXPECT_EQ((Numbers{view.find('c'), view[0], view.find('x'), Gk_ROString("abc").find(Gk_ROString("x"))}),
              (Numbers{2, 'a', -1, 4}));
    Gk_ROString first(view);
    first.setoffset(0);
    EXPECT_EQ(first.find(view), -3);
    EXPECT_EQ(view.find(view), 0);
    EXPECT_EQ((std::vector<int>{first.reverseFind('b', 0), first.reverseFind('b', 3), first.reverseFind('b', 99),
                                first.reverseFind('b', -99), Gk_ROString("").reverseFind('\0', 0)}),
              (std::vector<int>{4, 1, -1, 4, -1}));
    view.setoffset(99);
    EXPECT_STREQ(static_cast<char const*>(view), "");
    EXPECT_EQ(view.find('a'), -1);
}

TEST(GkView, WritesAndLowers) {
    Gk_RWString s("ABC\xC4");
    s[0] = 'X';
    s.setoffset(2);
    s.toLower();
    static_cast<char*>(s)[-1] = '-';
    s.setoffset(0);
    EXPECT_EQ(s.text().substr(0, 3), "X-c");
}

TEST(GkView, MatchesLeadingPaths) {
    std::tuple<char const*, char const*, int> const rows[] = {
        {"dir/file", "dir", 4}, {"dir/file", "di", -1}, {"dir", "dir", 3},    {"dir", "dirs", -1}, {"/a", "/x", 1},
        {"a", "/x", 0},         {"/a", "a", -1},        {"/a", "", -1},       {"", "", 0},         {"a", "", -1},
        {"a/b/c", "a/b", 4},    {"dir/", "dir", 4},     {"dir/x", "dir/", -1}};
    for (auto const& [path, lead, covered] : rows)
        EXPECT_EQ(Gk_ROString(path).matchPathString(Gk_ROString(lead)), covered) << path << ' ' << lead;
}

TEST(GkView, MatchesPatterns) {
    struct {
        char const* pattern;
        std::vector<char const*> matched, unmatched;
    } const rows[] = {{"*.stl", {"a.stl", ".stl", "a.stl/x"}, {"a/b.stl", "a.stlx", "a.obj"}},
                      {"*/b", {"a/b", "/b", "xyz/b/c"}, {"a/c", "ab"}},
                      {"a?c", {"abc"}, {"a/c", "a", "ac"}},
                      {"?x", {"ax"}, {".x"}},
                      {"a/?x", {"a/bx"}, {"a/.x"}},
                      {"PART", {"part"}, {"PART"}},
                      {"[a-c]1", {"a1", "b1"}, {"d1", "/1"}},
                      {"[!a-c]1", {"d1"}, {"a1", "/1"}},
                      {"[^a]1", {"b1"}, {"a1"}},
                      {"[]x]", {"]", "x"}, {"a"}},
                      {"[a-]", {"a", "-"}, {"b"}},
                      {"[a", {"[a"}, {"a"}},
                      {"*a*b*c", {"xaxbxc", "abc", "aabbcc"}, {"acb", "xaxb"}}};
    for (auto const& row : rows) {
        for (char const* path : row.matched)
            EXPECT_TRUE(Gk_ROString(path).matchPathPattern(Gk_ROString(row.pattern))) << row.pattern << ' ' << path;
        for (char const* path : row.unmatched)
            EXPECT_FALSE(Gk_ROString(path).matchPathPattern(Gk_ROString(row.pattern))) << row.pattern << ' ' << path;
    }
    EXPECT_TRUE(Gk_ROString("").matchPathPattern(Gk_ROString("")));
    EXPECT_TRUE(Gk_ROString("/x").matchPathPattern(Gk_ROString("")));
    EXPECT_FALSE(Gk_ROString("x").matchPathPattern(Gk_ROString("")));
    std::string const many(200, 'a');
    std::string stars;
    for (int i = 0; i < 60; ++i) stars += "a*";
    EXPECT_FALSE(Gk_ROString(many.c_str()).matchPathPattern(Gk_ROString((stars + "b").c_str()))); // in no time
}

TEST(Marker, Compares) {
    std::tuple<char const*, char const*, int> const rows[] = {
        {"abc", "ABC", 0}, {"ab#", "abc", 0},  {"abc", "ab#", -1}, {"#abc", "ab", 0},  {"ab", "abc", 1},
        {"abc", "ab", -1}, {"abc", "abd", -1}, {"b", "a", 1},      {"#a#b", "a#b", 0}, {"a#b#", "a#b", 0},
        {"#", "", 0},      {"a\xE4", "ab", 1}, {"#ab", "#abc", 1}};
    for (auto const& [a, b, result] : rows) EXPECT_EQ(Gk_Marker(a).compare(Gk_Marker(b)), result) << a << ' ' << b;
    EXPECT_TRUE(Gk_Marker("a") < Gk_Marker("b") && Gk_Marker(nullptr) < Gk_Marker("") &&
                !(Gk_Marker("") < Gk_Marker(nullptr)));
}

} // namespace
