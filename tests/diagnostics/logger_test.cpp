#include <csignal>

#include "support/test.h"

#include <fcntl.h>
#ifdef _WIN32
#  include <io.h>
static int pipe(int (&ends)[2]) { return _pipe(ends, 4096, _O_BINARY); }
#else
#  include <unistd.h>
#endif

namespace {

/// Makes a file number mean another file while it lives.
class Redirected {
public:
    Redirected(int number, int to) : number_(number), saved_(dup(number)) { dup2(to, number); }
    ~Redirected() {
        dup2(saved_, number_);
        close(saved_);
    }

private:
    int number_;
    int saved_;
};

void reportAll() {
    KOVADebug::Printf("d");
    KOVAVerbose::Printf("v");
    KOVAInfo::PrintfAsItIs("i");
    KOVAWarning::Printf("w");
    KOVAError::Printf("e");
    KOVAAssert::Printf("a");
}

class Loggers : public testing::Test {
protected:
    /// What a console logger writes to standard output and, behind a bar, to standard error.
    std::string console(int level) {
        using D = KOVAFileDescriptor; // ReadWrite: line ends as they are
        {
            D const out(folder.path("out").c_str(), D::ReadWrite), errors(folder.path("err").c_str(), D::ReadWrite);
            Redirected const one(1, out.fileNumber()), two(2, errors.fileNumber());
            KOVAConsoleLogger logger;
            logger.Initialize(level);
            logger.Initialize(0); // is set up already
            reportAll();
            logger.Finalize();
            reportAll();
            logger.Initialize(level); // anew
            KOVAAssert::Printf("z");
        }
        return folder.read("out") + "|" + folder.read("err");
    }

    /// A file with the system's line ends.
    std::string read(char const* name) {
        std::ifstream in(folder.path(name));
        return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    }

    test::Folder folder{"logger-files"};
    test::Variable consoleLevel{"KOVAConsoleTracesLevel"}, logLevel{"KOVALogLevel"};
};

constexpr char kWorse[] = "Warning : w\nError : e\nAssert : a\n";
constexpr char kAgain[] = "Assert : z\n";

struct Row {
    char const* variable;
    int argument;
    std::string text;
};

TEST_F(Loggers, ConsoleLevels) {
    Row const rows[] = {{"", -1, std::string("i\n|") + kWorse + kAgain},
                        {"", 80, std::string("|Error : e\nAssert : a\n") + kAgain},
                        {"VERBOSE", 999, std::string("v\ni\n|") + kWorse + kAgain},
                        {"ABORT", 0, std::string("|Assert : a\n") + kAgain},
                        {"info", 0, "|"},
                        {"WARNING", 0, "|"}};
    for (Row const& row : rows) {
        consoleLevel.unset();
        if (*row.variable) consoleLevel.set(row.variable);
        EXPECT_EQ(console(row.argument), row.text) << row.variable << row.argument;
    }
}

TEST_F(Loggers, LogLevels) {
    std::string const usual = std::string("i\n") + kWorse;
    Row const rows[] = {{"", -1, usual},
                        {"WARNING", -1, usual}, // no keyword
                        {"VERBOSE", -1, "v\n" + usual},
                        {"VERBOSE", 80, "Error : e\nAssert : a\n"}};
    for (Row const& row : rows) {
        if (*row.variable) logLevel.set(row.variable);
        test::TextStream* const stream = new test::TextStream;
        KOVALogger logger;
        logger.Initialize(stream, row.argument);
        reportAll();
        EXPECT_EQ(stream->text, row.text) << row.argument;
        logger.Finalize();
        EXPECT_EQ(logger.GetOutputStream(), nullptr);
        reportAll(); // touches the deleted stream unless the logger has left the bus
    }
}

TEST_F(Loggers, AnEventIsOneWrite) {
    test::TextStream* const stream = new test::TextStream;
    KOVALogger logger;
    logger.Initialize(stream, 0);
    KOVAEndPreprocessDocumentEvent report(0);
    KOVAStartConversionTaskEvent silent;
    KOVAEventBus::Fire(report);
    KOVAEventBus::Fire(silent);
    EXPECT_EQ(stream->writes, 1);
}

TEST_F(Loggers, EveryWayToAFile) {
    std::FILE* const borrowed = std::fopen(folder.path("c").c_str(), "w");
    {
        KOVALogger a, b, c, idle;
        a.Initialize(folder.path("a").c_str(), 80);
        b.Initialize(KOVAFilePath(folder.path("b").c_str()), 80);
        c.Initialize(borrowed, 80);
        int const free = dup(1);
        close(free);
        a.Initialize(folder.path("unused").c_str(), 0);
        b.Initialize(KOVAFilePath(folder.path("unused").c_str()), 0);
        test::TextStream kept; // stays ours
        c.Initialize(&kept, 0);
        int const stillFree = dup(1);
        close(stillFree);
        EXPECT_EQ(free, stillFree) << "what could not be used is closed";
        idle.Initialize("", 0);
        idle.Initialize(static_cast<char const*>(nullptr), 0);
        idle.Initialize(static_cast<std::FILE*>(nullptr), 0);
        idle.Initialize(static_cast<KOVAOutputStream*>(nullptr), 0);
        idle.Initialize(KOVAFilePath(), 0);
        EXPECT_EQ(idle.GetOutputStream(), nullptr);
        reportAll();
        EXPECT_EQ(kept.writes, 0);
    }
    KOVALogger unopened;
    EXPECT_THROW(unopened.Initialize(folder.path("none/file").c_str(), 50), Gk_Exception);
    EXPECT_GE(std::fputs("mine\n", borrowed), 0);
    std::fclose(borrowed);
    std::string const text = "Error : e\nAssert : a\n";
    EXPECT_EQ((Texts{read("a"), read("b"), read("c")}), (Texts{text, text, text + "mine\n"}));
}

TEST_F(Loggers, Wrappers) {
    folder.write("named", "older text, longer than the new one");
    std::FILE* const file = std::fopen(folder.path("borrowed").c_str(), "w");
    {
        KOVALogFileWrapper const reading(true), writing(false), named("logger-files\\named"), borrowed(file);
        KOVALogFileWrapper const none(""), null(static_cast<char const*>(nullptr)), bad("none/none"),
            nothing(static_cast<std::FILE*>(nullptr));
        reportAll();
    }
    reportAll();
    EXPECT_EQ(std::fclose(file), 0);
    for (char const* name : {"plintex_read.log", "plintex_write.log"}) std::filesystem::rename(name, folder.path(name));
    for (char const* name : {"plintex_read.log", "plintex_write.log", "named", "borrowed"})
        EXPECT_EQ(read(name), std::string("i\n") + kWorse) << name;
}

/// As a stream that reports its errors.
class Broken : public test::TextStream {
    void write(char const*, int) override { throw Gk_IOException("WRITE_ERROR"); }
};

#ifndef _WIN32
int brokenPipes = 0;
#endif

TEST_F(Loggers, AClosedOrFullLogDisturbsNobody) {
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    close(ends[0]);
#ifndef _WIN32
    auto const before = std::signal(SIGPIPE, [](int) { ++brokenPipes; });
#endif
    KOVALogger broken, file, full;
    broken.Initialize(new Broken, 0);
    file.Initialize(new KOVAFileOutputStream(new KOVAFileDescriptor(ends[1], KOVAFileDescriptor::Write)), 0);
#ifndef _WIN32
    full.Initialize("/dev/full", 0);
#endif
    {
        Redirected const one(1, ends[1]), two(2, ends[1]);
        KOVAConsoleLogger console;
        console.Initialize(0);
        reportAll();
        close(1);
        close(2);
        reportAll();
    }
#ifndef _WIN32
    EXPECT_EQ(brokenPipes, 0);
    EXPECT_EQ(write(ends[1], "x", 1), -1); // the application's own
    EXPECT_EQ(brokenPipes, 1);
    std::signal(SIGPIPE, before);
#endif
    close(ends[1]);
}

#ifndef _WIN32
TEST_F(Loggers, ColoursOnTerminalsOnly) {
    int const user = posix_openpt(O_RDWR | O_NOCTTY);
    ASSERT_TRUE(user >= 0 && grantpt(user) == 0 && unlockpt(user) == 0);
    int const terminal = open(ptsname(user), O_RDWR | O_NOCTTY);
    test::Variable kind("TERM", "xterm"), plain("NO_COLOR");
    auto const shown = [&] {
        {
            Redirected const one(1, terminal), two(2, terminal);
            KOVAConsoleLogger logger;
            logger.Initialize(50);
            reportAll();
        }
        std::string text;
        // It arrives in pieces; the assertion comes last.
        for (char c = 0; text.find("Assert") == std::string::npos || c != '\n';)
            if (::read(user, &c, 1) == 1) text += c;
        return text;
    };
    std::string const plainText = "i\r\nWarning : w\r\nError : e\r\nAssert : a\r\n";
    EXPECT_EQ(shown(), "i\r\n\033[33mWarning : w\033[0m\r\n\033[31mError : e\033[0m\r\n\033[31mAssert : a\033[0m\r\n");
    plain.set("1");
    EXPECT_EQ(shown(), plainText);
    plain.unset();
    kind.set("dumb");
    EXPECT_EQ(shown(), plainText);
    close(terminal);
    close(user);
}
#endif

} // namespace
