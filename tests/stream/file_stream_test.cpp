#include <cstdio>
#include <memory>

#include "support/test.h"

namespace {

#ifdef _WIN32
constexpr char kLineEnd[] = "\r\n";
#else
constexpr char kLineEnd[] = "\n";
#endif

/// Throws the token, so that EXPECT_EQ can name it.
template <class Function> std::string raised(Function const& function) {
    try {
        function();
        return "nothing";
    } catch (Gk_Exception const& e) { return e.token(); }
}

std::string readAll(KOVAInputStream& in, int count) {
    std::string text(static_cast<std::size_t>(count), '\0');
    int const got = in.read(&text[0], count);
    return text.substr(0, got > 0 ? static_cast<std::size_t>(got) : 0);
}

class Streams : public testing::Test {
protected:
    test::Folder folder{"stream-files"};
};

TEST_F(Streams, ModesOpenAsTheyAlwaysHave) {
    using D = KOVAFileDescriptor;
    std::string const name = folder.write("file", "old text");
    for (D::IOMode mode : {D::Write, D::ReadWrite}) {
        {
            D file(name.c_str(), mode);
            EXPECT_TRUE(file.owns());
            char byte = 0;
            EXPECT_EQ(file.readBytes(&byte, 1, -1), -1); // ReadWrite too only writes
            EXPECT_EQ(file.fileSize(), 0);
            EXPECT_EQ(file.writeBytes("a\nb", 3, -1), 3);
        }
        EXPECT_EQ(folder.read("file"), mode == D::Write ? std::string("a") + kLineEnd + "b" : "a\nb");
    }
    folder.write("file", "a\r\nb");
    for (D::IOMode mode : {D::None, D::Read}) {
        D file(name.c_str(), mode);
        char bytes[8];
        int const translated = sizeof kLineEnd == 3 && mode == D::None ? 3 : 4;
        EXPECT_EQ(file.readBytes(bytes, 8, -1), translated);
        EXPECT_EQ(file.writeBytes("x", 1, -1), -1);
    }
}

TEST_F(Streams, WrappedFilesStayOpen) {
    using D = KOVAFileDescriptor;
    std::string const name = folder.write("file", "abc");
    std::FILE* const file = std::fopen(name.c_str(), "rb");
    {
        D wrapped(file, D::None);
        EXPECT_EQ(wrapped.mode(), D::ReadWrite); // what the owner of the file may do
        EXPECT_FALSE(wrapped.owns());
        EXPECT_EQ(D(wrapped.fileNumber(), D::Write).mode(), D::Write);
        EXPECT_EQ((Numbers{wrapped.seek(2), wrapped.offset(-1), wrapped.fileSize(), wrapped.offset(0)}),
                  (Numbers{2, 1, 3, 1}));
        char c = 0;
        EXPECT_EQ(wrapped.readBytes(&c, 1, 2), 1);
        EXPECT_EQ(c, 'c');
    }
    EXPECT_EQ(std::fclose(file), 0);
}

TEST_F(Streams, OpeningFails) {
    std::string const none = folder.path("none/file");
    for (char const* name : {none.c_str(), "stream-files", static_cast<char const*>(nullptr)}) { // one is a folder
        EXPECT_EQ(raised([&] { KOVAFileInputStream in(name); }), "CANNOT_OPEN_FILE");
        EXPECT_EQ(raised([&] { KOVAFileInputStream in{KOVAFilePath(name)}; }), "CANNOT_OPEN_FILE");
        EXPECT_EQ(raised([&] { KOVAFileOutputStream out(name); }), "CANNOT_OPEN_FILE");
    }
    EXPECT_EQ(KOVAFileInputStream(static_cast<std::FILE*>(nullptr)).readChar(), -1);
}

TEST_F(Streams, ReadsAndMoves) {
    folder.write("file", "abc\377efgh");
    KOVAFileInputStream in("stream-files\\file"); // either separator
    EXPECT_EQ(readAll(in, 3), "abc");
    EXPECT_EQ(in.readChar(), 255);
    EXPECT_EQ(in.available(), 4);
    EXPECT_EQ(in.skip(2), 6); // a position, not a count
    EXPECT_TRUE(in.add(Gk_String("xyz", 3)));
    EXPECT_EQ(in.getCurrentOffset(), 3);
    in.setOffset(7);
    EXPECT_EQ((Numbers{in.readChar(), in.readChar(), in.read(nullptr, 5)}), (Numbers{'h', -1, 0}));
    char c = 0;
    EXPECT_EQ(in.read(&c, 0), 0);
    EXPECT_EQ(in.read(&c, -1), 0);
}

TEST_F(Streams, DuplicatesKeepTheirOwnPlaces) {
    folder.write("file", "abcdefgh");
    KOVAFileInputStream in{KOVAFilePath("stream-files/file")};
    EXPECT_EQ(readAll(in, 2), "ab");
    std::unique_ptr<KOVAInputStream> const copy(in.duplicate());
    EXPECT_EQ(readAll(*copy, 3), "cde");
    EXPECT_EQ((Numbers{in.getCurrentOffset(), in.readChar(), copy->readChar(), copy->available()}),
              (Numbers{2, 'c', 'f', 2}));
    EXPECT_EQ(copy->skip(std::numeric_limits<long>::max()), 2147483647);
    copy->setOffset(6);
    EXPECT_TRUE(copy->add(Gk_String("ab")));
    EXPECT_EQ(copy->getCurrentOffset(), 3);
    EXPECT_TRUE(copy->add(Gk_String("more than was read")));
    EXPECT_EQ(copy->getCurrentOffset(), 0);
    EXPECT_EQ(in.skip(2), 5);
    in.setOffset(1);
    EXPECT_EQ(readAll(in, 9), "bcdefgh");
    EXPECT_EQ(readAll(in, 9), "");
    EXPECT_EQ(in.getCurrentOffset(), 8);
}

TEST_F(Streams, CopiesOfAnOutputShareTheFile) {
    {
        KOVAFileOutputStream out(folder.path("out").c_str());
        out.write("abc", 3);
        KOVAFileOutputStream copy(out);
        copy.writeChar('d');
        copy.close();
        out.write(nullptr, 3);
        out.write("xyz", -1);
        out = KOVAFileOutputStream(new KOVAFileDescriptor(folder.path("other").c_str(), KOVAFileDescriptor::ReadWrite));
        out.write("o", 1);
        copy.writeChar('e');
    }
    EXPECT_EQ(folder.read("out") + folder.read("other"), "abcdeo");
}

TEST(Stream, TheBaseClassSkipsAndRefuses) {
    /// Gives 20000 bytes, at most 5000 a time, then -1.
    class Source : public KOVAInputStream {
    public:
        Source() : KOVAInputStream(nullptr) {}
        KOVAInputStream* duplicate() override { return new Source(*this); }
        int read(char* const buffer, int count) override {
            ++reads;
            int const given = std::min({count, 5000, left});
            std::fill(buffer, buffer + given, 'x');
            left -= given;
            return given > 0 ? given : -1;
        }
        int left = 20000;
        int reads = 0;
    };
    Source in;
    EXPECT_EQ((Numbers{in.skip(0), in.skip(-5), in.reads, in.skip(12000), in.left, in.skip(9000)}),
              (Numbers{0, 0, 0, 12000, 8000, 8000}));
    EXPECT_EQ(raised([&] { in.available(); }) + raised([&] { in.add(Gk_String("x")); }) +
                  raised([&] { in.getCurrentOffset(); }) + raised([&] { in.setOffset(1); }),
              "Gk_IOExceptionGk_IOExceptionGk_IOExceptionGk_IOException");
}

TEST(Stream, TheConsole) {
    testing::internal::CaptureStdout();
    KOVAFileOutputStream::console.write("hello\n", 6);
    { KOVAFileOutputStream const another; }
    KOVAFileOutputStream::console.writeChar('!'); // still open
    EXPECT_FALSE(KOVAFileOutputStream::console == Gk_Marker("x"));
    std::string text = testing::internal::GetCapturedStdout();
    text.erase(std::remove(text.begin(), text.end(), '\r'), text.end());
    EXPECT_EQ(text, "hello\n!");
    EXPECT_EQ(KOVAFileInputStream::console.available(), -1 - KOVAFileInputStream::console.getCurrentOffset());
}

} // namespace
