#include <memory>

#include "support/test.h"

namespace {

std::string readAll(KOVAInputStream& in, int atOnce) {
    std::string text, part(static_cast<std::size_t>(atOnce), '\0');
    for (int got = in.read(&part[0], atOnce); got > 0; got = in.read(&part[0], atOnce))
        text.append(part, 0, static_cast<std::size_t>(got));
    return text;
}

/// Counts the reads of the stream behind it.
class CountingFilter : public KOVAFilterInputStream {
public:
    using KOVAFilterInputStream::KOVAFilterInputStream;
    int read(char* const buffer, int count) override {
        ++reads;
        return KOVAFilterInputStream::read(buffer, count);
    }
    int reads = 0;
};

class Chains : public testing::Test {
protected:
    test::Folder folder{"chained-files"};
    std::string const name = folder.write("file", "0123\n567\n9");
    KOVAFileInputStream file{name.c_str()};
};

TEST_F(Chains, PacketsFetchRarelyAndTellThePlace) {
    CountingFilter counted(&file);
    Gk_PacketInputStream packets(&counted, 4);
    EXPECT_EQ(packets.available(), 10);
    for (char const expected : std::string("0123\n567\n9")) EXPECT_EQ(packets.readChar(), expected);
    EXPECT_EQ((Numbers{packets.readChar(), counted.reads}), (Numbers{-1, 4})); // the fourth found the end
    packets.setOffset(2);
    EXPECT_EQ((Numbers{packets.readChar(), packets.getCurrentOffset(), packets.available()}), (Numbers{'2', 3, 7}));
    EXPECT_EQ((Numbers{packets.skip(5), packets.getCurrentOffset(), packets.skip(9), packets.skip(1), packets.skip(0)}),
              (Numbers{5, 8, 2, -1, 0}));
    char c = 0;
    EXPECT_EQ((Numbers{packets.read(&c, 1), packets.read(&c, 0), packets.read(nullptr, 1)}), (Numbers{-1, 0, 0}));
}

TEST_F(Chains, PushedBackTextIsReadAgain) {
    for (int const size : {1, 3, 4, 100}) {
        Gk_IndexedInputStream lines(&file);
        Gk_PacketInputStream packets(&lines, size);
        packets.setOffset(0);
        for (int back = 0; back <= 6; ++back) {
            packets.setOffset(0);
            for (int i = 0; i < 6; ++i) packets.readChar();
            EXPECT_TRUE(packets.add(Gk_String(&"0123\n5"[6 - back], back)));
            EXPECT_EQ(packets.getCurrentOffset(), 6 - back) << size;
            EXPECT_EQ(readAll(packets, 4), std::string("0123\n567\n9").substr(6 - static_cast<std::size_t>(back)))
                << size;
        }
    }
}

TEST_F(Chains, LinesAreCounted) {
    Gk_IndexedInputStream lines(&file);
    EXPECT_EQ(readAll(lines, 6), "0123\n567\n9");
    EXPECT_EQ(lines.lineCount(), 2);
    EXPECT_TRUE(lines.add(Gk_String("\n9", 2)));
    EXPECT_EQ(lines.lineCount(), 1);
    EXPECT_EQ((Numbers{lines.readChar(), lines.lineCount(), lines.readChar(), lines.readChar()}),
              (Numbers{'\n', 2, '9', -1}));
}

TEST_F(Chains, DuplicatesGoTheirOwnWay) {
    Gk_IndexedInputStream lines(&file);
    Gk_PacketInputStream packets(&lines, 4);
    EXPECT_EQ(packets.readChar(), '0');
    std::unique_ptr<KOVAInputStream> copy(packets.duplicate());
    std::unique_ptr<KOVAInputStream> const second(copy->duplicate());
    EXPECT_EQ(readAll(*copy, 3), "123\n567\n9");
    copy.reset();
    EXPECT_EQ(readAll(packets, 3) + readAll(*second, 9), "123\n567\n9123\n567\n9");
    KOVAStringInputStream text(Gk_String("x"));
    EXPECT_EQ(KOVAFilterInputStream(&text).duplicate(), nullptr);
}

TEST_F(Chains, PacketBytesAreSignedAndFiltersMayEndNowhere) {
    KOVAStringInputStream text(Gk_String("\x80\xFF"));
    Gk_PacketInputStream packets(&text, 0);
    EXPECT_EQ((Numbers{packets.readChar(), packets.readChar()}), (Numbers{-128, -1}));
    Gk_PacketInputStream none(nullptr, 4);
    EXPECT_EQ((Numbers{none.readChar(), none.available(), none.skip(1)}), (Numbers{-1, 0, -1}));
    EXPECT_EQ(none.duplicate(), nullptr);
    Gk_PacketOutputStream(nullptr, 4).write("abcdef", 6);
}

TEST(Packets, PassOnWhenFullFlushedOrDestroyed) {
    test::TextStream out;
    {
        Gk_PacketOutputStream packets(&out, 4);
        packets.write("abcde", 5);
        EXPECT_EQ(out.text, "abcd");
        packets.writeChar('!'); // overtakes
        packets.flush();
        EXPECT_EQ(out.text, "abcd!e");
        packets.write("fghi", 4);
        EXPECT_EQ(out.text, "abcd!e"); // full, but not yet passed
        packets.write('j');
        packets.write(nullptr, 3);
        EXPECT_EQ(out.text, "abcd!efghi");
    }
    EXPECT_EQ(out.text, "abcd!efghij");
    EXPECT_EQ(out.writes, 5);
}

TEST(StringStreams, ReadAndCollect) {
    KOVAStringInputStream in(Gk_String("ab"));
    char bytes[10];
    EXPECT_EQ((Numbers{in.available(), in.read(bytes, 10), in.available(), in.read(bytes, 10), in.readChar()}),
              (Numbers{1, 2, 0, 0, -1}));
    EXPECT_TRUE(in.add(Gk_String("x", 1)));
    EXPECT_STREQ(static_cast<char*>(in.contents()), "b");
    KOVAStringInputStream copy(in);
    EXPECT_TRUE(in.add(Gk_String("much longer than the text")));
    EXPECT_EQ((Numbers{in.readChar(), in.readChar(), copy.readChar(), copy.readChar()}), (Numbers{'a', 'b', 'b', -1}));
    EXPECT_THROW(in.getCurrentOffset(), Gk_Exception);
    EXPECT_EQ(in.duplicate(), nullptr);
    KOVAStringInputStream nothing{Gk_String()};
    EXPECT_EQ((Numbers{nothing.readChar(), nothing.available(), nothing.contents().len()}), (Numbers{-1, 0, 1}));

    KOVAStringOutputStream out;
    EXPECT_STREQ(out.contents(), "");
    out.writeChar('x');
    KOVAStringOutputStream const other(out);
    out.write("y\0z", 3);
    out.write("!", -1);
    EXPECT_EQ(std::string(out.contents(), 5), std::string("xy\0z\0", 5));
    EXPECT_STREQ(other.contents(), "x");
}

} // namespace
