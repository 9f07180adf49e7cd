#include <clocale>
#include <cmath>
#include <cstdlib>
#include <functional>
#include <memory>

#include "support/test.h"

namespace {

std::string text(Gk_String const& s) { return s.len() > 0 ? static_cast<char*>(s) : "(none)"; }

constexpr char kBlanks[] = " \t\r\n";

class Source : public testing::Test {
protected:
    Gk_Source& over(char const* contents, char const* separators = kBlanks, bool stringMode = false) {
        stream = std::make_unique<KOVAStringInputStream>(Gk_String(contents));
        source = std::make_unique<Gk_Source>(stream.get(), stringMode);
        source->setWhiteSpace(Gk_Source::WhiteSpace(separators));
        return *source;
    }

    std::unique_ptr<KOVAStringInputStream> stream;
    std::unique_ptr<Gk_Source> source;
};

TEST_F(Source, TokensBetweenSeparators) {
    over("  ab\tcd \xFF!");
    EXPECT_EQ((Texts{text(source->next()), text(source->next())}), (Texts{"ab", "cd"}));
    EXPECT_EQ(source->top()->readChar(), ' '); // was not taken
    EXPECT_EQ((Texts{text(source->next()), text(source->next())}), (Texts{"\xFF!", "(none)"}));
    EXPECT_EQ(text(over(" a b", nullptr).next()), " a b");
    EXPECT_EQ(text(over("a b!@#", "# ").next()), "a"); // '!' shares bits with the separators
    EXPECT_EQ(text(source->next()), "b!@");
    Gk_String const kept = over("one two").next();
    source->next();
    EXPECT_EQ(text(kept), "one");
    EXPECT_FALSE(over("  x").isEmpty());
    EXPECT_EQ(text(source->next()), "x");
    EXPECT_TRUE(source->isEmpty());
    EXPECT_FALSE(source->setWhiteSpace(Gk_Source::WhiteSpace()).isSpace('x'));
    EXPECT_FALSE(source->getWhiteSpace().isSpace('\t'));
    source->install(nullptr);
    EXPECT_TRUE(source->isEmpty() && source->next().len() == 0 && source->peek().len() == 0);
}

TEST_F(Source, StringsLinesAndPatterns) {
    over("  x y", kBlanks, true);
    EXPECT_EQ((Texts{text(source->nextString()), text(source->nextString()), text(source->nextString())}),
              (Texts{"(none)", "x", "y"}));
    EXPECT_EQ(text(over("  x").nextString()), "x");
    over("a b\n\nc", "\n");
    EXPECT_EQ((Texts{text(source->nextLine()), text(source->nextLine()), text(source->nextLine())}),
              (Texts{"a b", "\n", "\nc"}));
    over("alpha beta gamma");
    EXPECT_STREQ(source->matchPattern("b*"), "beta");
    EXPECT_EQ(source->matchPattern("b*").len(), 0);
}

TEST_F(Source, Extraction) {
    over("word text -12 0x1F 017 99999999999 1.5e1 -2,5 7z");
    char letter = '?', buffer[10];
    int decimal = 0, large = 0, trailing = 0;
    long hexadecimal = 0;
    unsigned octal = 0;
    float real = 0;
    double cut = 0;
    *source >> letter >> buffer >> decimal >> hexadecimal >> octal >> large >> real >> cut >> trailing;
    EXPECT_EQ(letter, 'w');
    EXPECT_STREQ(buffer, "text");
    EXPECT_EQ((Numbers{decimal, hexadecimal, large, trailing}), (Numbers{-12, 31, 2147483647, 7}));
    EXPECT_EQ(octal, 15U);
    EXPECT_EQ(std::make_pair(real, cut), std::make_pair(15.0F, -2.0));
    unsigned long whole = 1;
    *source >> letter >> buffer >> decimal >> whole >> cut; // nothing is left
    EXPECT_EQ((Numbers{letter, buffer[0], decimal, static_cast<long>(whole), static_cast<long>(cut)}),
              (Numbers{0, 0, 0, 0, 0}));
}

/// Streams of every kind over the same bytes.
TEST(Peek, LeavesEveryKindOfStreamUnchanged) {
    test::Folder const folder("peeked");
    using Make = std::function<std::unique_ptr<KOVAInputStream>(KOVAInputStream*)>;
    auto const packets = [](int size) -> Make {
        return [size](KOVAInputStream* next) { return std::make_unique<Gk_PacketInputStream>(next, size); };
    };
    Make const kinds[] = {[](KOVAInputStream* next) { return std::make_unique<KOVAFilterInputStream>(next); },
                          [](KOVAInputStream* next) { return std::make_unique<Gk_IndexedInputStream>(next); },
                          packets(1), packets(3), packets(100)};
    for (std::string const contents : {"  ab  cd", "ab", " \t", "",
                                       " a\xFF"
                                       "b",
                                       "a\xFF", "\xFF\xFF", "\n\nx\n"}) {
        for (Make const& outer : kinds) {
            for (Make const& inner : kinds) {
                for (bool const fromFile : {true, false}) {
                    KOVAFileInputStream file(folder.write("file", contents).c_str());
                    KOVAStringInputStream memory(Gk_String(contents.c_str()));
                    auto const first = inner(fromFile ? static_cast<KOVAInputStream*>(&file) : &memory);
                    auto const second = outer(first.get());
                    Gk_Source source(second.get(), false);
                    source.setWhiteSpace(Gk_Source::WhiteSpace(kBlanks));
                    std::string const peeked = text(source.peek());
                    ASSERT_EQ(text(source.peek()), peeked);
                    ASSERT_EQ(text(source.next()), peeked);
                    // The rest is still there, behind the token and what was skipped for it.
                    std::size_t const from = std::min(contents.find_first_not_of(kBlanks), contents.size());
                    std::size_t const begun = peeked == "(none)" ? 0 : peeked.size();
                    char rest[20] = "";
                    second->read(rest, 19);
                    std::string expected = contents.substr(from + begun);
                    if (!expected.empty() && expected[0] == '\xFF') expected.erase(0, 1); // taken as the end
                    ASSERT_EQ(rest, expected);
                }
            }
        }
    }
}

TEST(Parser, Classes) {
    struct {
        char const* token;
        bool isUnsigned, isInteger, isReal;
    } const rows[] = {
        {"12", true, true, true},        {"-12", false, true, true},   {"+7", false, true, true},
        {"0x1F", true, true, true},      {"0X1F", false, false, true}, {"12abc", false, false, true},
        {".5", false, false, true},      {"5.", false, false, true},   {"1e-3", false, false, true},
        {"-1.5E+3", false, false, true}, {".", false, false, false},   {"", false, false, false},
        {"-", false, false, false},      {"0x", false, false, true},   {"1e", false, false, false},
        {"1e5x", false, false, false},   {".e5", false, false, false}, {"x1", false, false, false},
    };
    for (auto const& row : rows) {
        Gk_StringParser parser{Gk_String(row.token)};
        EXPECT_EQ(std::make_tuple(parser.isUnsignedInteger(0), parser.isInteger(0), parser.isReal(0)),
                  std::make_tuple(row.isUnsigned, row.isInteger, row.isReal))
            << row.token;
    }
    Gk_StringParser parser(Gk_String("ab12F-", 6)); // without a terminator
    EXPECT_EQ((Numbers{parser.countDigits(2), *parser.end(), parser.countHexDigits(2), *parser.end()}),
              (Numbers{2, 'F', 3, '-'}));
    EXPECT_EQ((Numbers{parser.countDigits(6), parser.countDigits(99), parser.countDigits(-1)}), (Numbers{0, 0, 0}));
    EXPECT_TRUE(parser.isString("ab12F-") && !parser.isString("ab") && !parser.isString(nullptr));
    EXPECT_EQ(parser.firstChar(), 'a');
}

TEST(Parser, Conversions) {
    struct {
        char const* token;
        long value;
        unsigned long positive;
        double real;
        char const* rest;
    } const rows[] = {
        {"-12", -12, 0UL - 12, -12, ""},
        {"0x1f", 31, 31, 31, ""},
        {"010", 8, 8, 10, ""},
        {"-017", -15, 0UL - 15, -17, ""},
        {"-0", 0, 0, -0.0, ""},
        {"08", 0, 0, 8, ""},
        {"12abc", 12, 12, 12, "abc"},
        {"abc", 0, 0, 0, "abc"},
        {"", 0, 0, 0, ""},
        {" +3", 3, 3, 3, ""},
        {"1.5.25", 1, 1, 1.75, ""},
        {"2..", 2, 2, 2, "."},
        {"1e3", 1, 1, 1000, ""},
        {"inf", 0, 0, HUGE_VAL, ""},
        {"0x1p4", 1, 1, 16, ""},
        {"99999999999999999999", std::numeric_limits<long>::max(), std::numeric_limits<unsigned long>::max(), 1e20, ""},
        {"-99999999999999999999", std::numeric_limits<long>::min(), std::numeric_limits<unsigned long>::max(), -1e20,
         ""},
    };
    // A locale with a comma, where the machine has one, changes nothing.
    std::string const before = std::setlocale(LC_NUMERIC, nullptr);
    std::setlocale(LC_NUMERIC, "de_DE.UTF-8");
    for (auto const& row : rows) {
        Gk_StringParser parser{Gk_String(row.token)};
        EXPECT_FALSE(parser.isChecked());
        EXPECT_EQ(parser.intValue(), row.value) << row.token;
        EXPECT_EQ(parser.uIntValue(), row.positive) << row.token;
        EXPECT_EQ(parser.realValue(), row.real) << row.token;
        EXPECT_STREQ(parser.end(), row.rest);
        EXPECT_TRUE(parser.isChecked());
        EXPECT_EQ(KOVAFloatUtil::kovastrtod(row.token, nullptr) == row.real, std::string(row.token) != "1.5.25");
    }
    std::setlocale(LC_NUMERIC, before.c_str());
    Gk_ErrMgr::setAbort();
    Gk_StringParser whole{Gk_String("12")}, bare{Gk_String("12", 2)}, partly{Gk_String("12x")};
    EXPECT_EQ(whole.intValue() + bare.intValue(), 24); // nothing behind the numbers, so nobody asks
    EXPECT_THROW(partly.realValue(), KOVAAbortException);
}

// The C library, in the "C" locale, is the measure; pieces of numbers meet in every order.
TEST(Numbers, ReadAsStrtodReadsThem) {
    Texts const pieces = {"",
                          "-",
                          "+",
                          "0",
                          "0x",
                          "1",
                          "9a",
                          ".",
                          "e",
                          "E-",
                          "p3",
                          "5e400",
                          "e-400",
                          "inf",
                          "NAN",
                          "(x)",
                          " ",
                          "17976931348623157",
                          "000000000000000000000",
                          "4.9e-324",
                          ","};
    for (std::string const& a : pieces)
        for (std::string const& b : pieces)
            for (std::string const& c : pieces) {
                std::string const number = a + b + c;
                char *expectedEnd = nullptr, *end = nullptr;
                double const expected = std::strtod(number.c_str(), &expectedEnd);
                double const actual = KOVAFloatUtil::kovastrtod(number.c_str(), &end);
                ASSERT_EQ(end, expectedEnd) << number;
                ASSERT_TRUE(actual == expected || (actual != actual && expected != expected)) << number;
                bool const hasSign = end != number.c_str() && actual == actual;
                ASSERT_EQ(hasSign && std::signbit(actual), hasSign && std::signbit(expected)) << number;
            }
}

TEST(Tokenizer, KeepsEmptyTokens) {
    struct {
        char const* text;
        Texts tokens;
    } const rows[] = {
        {"a,,b,", {"a", "", "b", ""}}, {",", {"", ""}}, {"abc", {"abc"}}, {"", {}}, {nullptr, {}},
    };
    for (auto const& row : rows) {
        KOVAStringTokenizer const tokens(row.text, ',');
        Texts actual;
        KOVAString token;
        for (int i = 0; tokens.GetToken(i, token).IsSuccess(); ++i) actual.push_back(test::text(token));
        EXPECT_EQ(actual, row.tokens);
        EXPECT_EQ(tokens.GetTokenCount(), static_cast<int>(row.tokens.size()));
        EXPECT_EQ(tokens.GetToken(-1, token), 0x01000001);
    }
}

} // namespace
