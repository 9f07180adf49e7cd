#include <cstring>
#include <random>

#include "support/test.h"

namespace {

/// Counts flushes as well.
struct Sink : test::TextStream {
    void flush() override { ++flushes; }
    int flushes = 0;
};

class Formatter : public testing::Test {
protected:
    /// What was written since the last call.
    std::string taken() { return std::exchange(sink.text, ""); }
    template <class T> std::string printed(T const& value) {
        out << value;
        return taken();
    }

    Sink sink;
    KOVAStreamFormatter out{&sink};
};

template <class T> std::string byPrintf(char const* format, T value) {
    char text[700];
    std::snprintf(text, sizeof text, format, value);
    return text;
}

TEST_F(Formatter, EachTypeIsOneWrite) {
    out << 'c' << 7 << 7U << -7L << 7UL << 3.5 << "text" << KOVAString("wide") << KOVAValue(true)
        << static_cast<char const*>(nullptr) << "" << KOVAString() << KOVAValue()
        << static_cast<KOVAStreamFormatter::KOVAStreamFormatterObject*>(nullptr)
        << reinterpret_cast<void const*>(std::uintptr_t{0x1000}) << static_cast<void const*>(nullptr) << out.empty;
    EXPECT_EQ(taken(), "c77-77l3.500000textwide10x10000");
    EXPECT_EQ(sink.writes, 11);
    EXPECT_EQ(printed(std::numeric_limits<unsigned long>::max()),
              std::to_string(std::numeric_limits<unsigned long>::max()) + "l");
    void const* const highest = reinterpret_cast<void const*>(std::numeric_limits<std::uintptr_t>::max());
    EXPECT_EQ(printed(highest), sizeof(void*) == 8 ? "0xffffffffffffffff" : "0xffffffff");
}

// The default formats do not go through printf; the texts must not tell.
TEST_F(Formatter, DefaultFormatsAreWhatPrintfPrints) {
    std::mt19937_64 random(7);
    std::vector<double> doubles = {0.0,     -0.0,     0.5,       1e-7,   5e-7,     0.0000005,      2.5e-6,
                                   1e22,    1e23,     1e308,     -1e308, 4.9e-324, 999999.9999995, 0.1,
                                   1.0 / 3, INFINITY, -INFINITY, NAN,    -NAN};
    for (int i = 0; i < 20000; ++i) {
        std::uint64_t const bits = random();
        double any = 0;
        std::memcpy(&any, &bits, sizeof any);
        doubles.push_back(any);
        doubles.push_back(static_cast<double>(static_cast<std::int64_t>(bits)) / 1e13);
    }
    for (double const value : doubles) ASSERT_EQ(printed(value), byPrintf("%lf", value));
    for (int i = 0; i < 2000; ++i) {
        long const value = static_cast<long>(random()) >> random() % 32;
        ASSERT_EQ(printed(value), byPrintf("%ld", value));
        ASSERT_EQ(printed(static_cast<int>(value)), byPrintf("%d", static_cast<int>(value)));
        ASSERT_EQ(printed(static_cast<unsigned>(value)), byPrintf("%u", static_cast<unsigned>(value)));
    }
}

TEST_F(Formatter, FormatsAreKeptUntilReset) {
    EXPECT_STREQ(out.setIntFormat("<%04d>"), "%d");
    EXPECT_STREQ(out.setUIntFormat("%x"), "%u");
    EXPECT_STREQ(out.setLongFormat("%+ld"), "%ld");
    EXPECT_STREQ(out.setULongFormat("%lo"), "%ul");
    EXPECT_STREQ(out.setDoubleFormat("%.*lf", true, 3), "%lf");
    out << 7 << 255U << 1L << 8UL << 3.5;
    EXPECT_EQ(taken(), "<0007>ff+1103.500");
    KOVAStreamFormatter copy(out);
    out.resetFormat(); // the precision stays given, and "%lf" has no use for it
    out << 7 << 255U << 1L << 8UL << 3.5;
    EXPECT_EQ(taken(), "725518l3.500000");
    copy << 7;
    EXPECT_EQ(taken(), "<0007>");
    EXPECT_STREQ(out.setDoubleFormat("%.*lg", false, 3), "%lf");
    EXPECT_EQ(printed(0.1234567), "0.123457");
    EXPECT_STREQ(out.setDoubleFormat("%.300lf", false, 0), "%.*lg"); // longer than any buffer
    EXPECT_EQ(printed(1e308), byPrintf("%.300lf", 1e308));
    out.setDoubleFormat("%%%g*", false, 0); // this star is no precision
    EXPECT_EQ(printed(2.5), "%2.5*");
    out.setDoubleFormat("%*.*lf", true, 4);
    EXPECT_EQ(printed(2.5), "2.5000");
    EXPECT_EQ(printed(Gk_String("ab", 2)) + printed(Gk_ROString("cd")), "abcd");
    out.setIntFormat(nullptr);
    out.setDoubleFormat(nullptr, true, 1);
    out << 1 << 2.0;
    EXPECT_EQ(taken(), "");
}

TEST_F(Formatter, MarginAndObjects) {
    out << out.margin;
    out.margin->incr();
    out.margin->incr();
    out << out.margin << "a" << out.blank << "b" << out.newline;
    for (int i = 0; i < 3; ++i) out.margin->decr();
    out << out.margin << "c";
    EXPECT_EQ(taken(), "        a b\nc");
    out << out.define(5L) << out.refer(-5L) << out.define(reinterpret_cast<void const*>(std::uintptr_t{16}))
        << out.refer(static_cast<void const*>(nullptr));
    EXPECT_EQ(taken(), "5-5160");
    auto const first = out.format("%d", 1);
    auto const second = KOVAStreamFormatter(nullptr).format("%d", 2);
    out << first << second << out.format("%s", std::string(600, 'x').c_str());
    EXPECT_EQ(taken(), "22" + std::string(511, 'x'));
    KOVAStreamFormatterMarginHandle const kept = out.margin;
    {
        KOVAStreamFormatter const other(&sink);
        out = other;
        EXPECT_EQ(out.margin->GetFormatter(), &other);
    }
    EXPECT_EQ((Numbers{kept->GetFormatter() == nullptr, out.margin->GetFormatter() == nullptr, sink.flushes}),
              (Numbers{1, 1, 1}));
}

TEST_F(Formatter, WithoutOutputNothingIsWritten) {
    EXPECT_EQ(out.installOutputStream(nullptr), &sink);
    out << 'c' << 1 << 2U << 3L << 4UL << 5.0 << "t" << KOVAString("w") << KOVAValue(1) << out.newline << out.margin
        << static_cast<void const*>(this);
    EXPECT_EQ(sink.writes, 0);
    EXPECT_EQ(out.installOutputStream(&sink), nullptr);
    EXPECT_EQ(printed(1), "1");
}

} // namespace
