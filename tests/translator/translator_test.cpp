#include "Translation.h"

#include <cstdint>

#include "support/test.h"

#ifndef _WIN32
#  include <csignal>
#  include <sys/resource.h>
#endif

namespace {

std::string bytesOf(void const* data, std::size_t size) { return std::string(static_cast<char const*>(data), size); }

/// Corners of a triangle: nine coordinates.
using Corners = std::vector<float>;

std::string binary(std::string header, std::vector<Corners> const& triangles) {
    header.resize(80, '\0');
    std::uint32_t const count = static_cast<std::uint32_t>(triangles.size());
    std::string file = header + bytesOf(&count, 4);
    for (Corners const& corners : triangles)
        file += std::string(12, '\0') + bytesOf(corners.data(), 36) + std::string(2, '\0');
    return file;
}

std::string facet(char const* a, char const* b, char const* c) {
    std::string text = "facet normal nan 0 1\n outer loop\n";
    for (char const* corner : {a, b, c}) text += std::string("  vertex ") + corner + "\n";
    return text + " endloop\nendfacet\n";
}

// Two triangles over four corners; -0 is 0.
std::vector<Corners> const kSquare = {{0, 0, 0, 1, 0, 0, 0, 1.5F, 0}, {1, 0, -0.0F, 1, 1.5F, 0, -0.0F, 1.5F, 0}};
constexpr char kSquareObj[] = "v 0 0 0\nv 1 0 0\nv 0 1.5 0\nv 1 1.5 0\nf 1 2 3\nf 2 4 3\n";

class Translator : public testing::Test {
protected:
    /// Translates contents; returns the result's number.
    unsigned run(std::string const& contents) {
        events_.events.clear();
        return translator::translate(folder.write("in.stl", contents).c_str(), folder.path("out.obj").c_str())
            .GetReturnCode();
    }
    std::string output() const { return folder.read("out.obj"); }
    /// The one error that was reported; what was reported otherwise.
    std::string error() const {
        std::string all;
        for (std::string const& event : events_.events) all += event;
        return events_.events.size() == 1 && all.rfind("80 Error : ", 0) == 0 ? all.substr(11)
                                                                              : "not one error: " + all;
    }

    test::Folder folder{"translations"};
    test::Recorder events_;
};

TEST_F(Translator, WeldsExactlyEqualCorners) {
    EXPECT_EQ(run(binary("made by hand", kSquare)), 0U);
    EXPECT_EQ(output(), kSquareObj);
    EXPECT_EQ(events_.events, (Texts{"50 translations/in.stl: binary STL, 2 triangles, 4 vertices\n",
                                     "50 translations/in.stl: bounding box (0, 0, 0) to (1, 1.5, 0)\n",
                                     "50 translations/out.obj: OBJ, 2 faces, 4 vertices, 52 bytes\n"}));
    // A header that begins like ASCII changes nothing.
    EXPECT_EQ(run(binary("solid facet normal", kSquare)), 0U);
    EXPECT_EQ(output(), kSquareObj);
}

TEST_F(Translator, ReadsAscii) {
    std::string const first = facet("0 0 0", "1 0 0", "0 1.5 0");
    std::string const second = facet("1.0e0 0 -0", "+1 1500E-3 1e-60", "0 1.5 0");
    EXPECT_EQ(run("solid a name facet\n" + first + second + "endsolid a name\n"), 0U);
    EXPECT_EQ(output(), kSquareObj);
    EXPECT_EQ(run("  SOLID\r\n" + first + "ENDSOLID\r\nsolid\n" + second + "endsolid"), 0U);
    EXPECT_EQ(output(), kSquareObj);
    EXPECT_EQ(run("solid nothing\nendsolid nothing\n"), 0U); // "No Entity to Translate"
    EXPECT_EQ(output(), "");
    // More than one block of the reader.
    std::string many = "solid\n";
    for (int i = 0; i < 3000; ++i) many += first;
    EXPECT_EQ(run(many + "endsolid\n"), 0U);
    EXPECT_EQ(output().size(), 3 * 8U + 3000 * 8U + 2U);
}

TEST_F(Translator, BadInputIsOneErrorAndNoOutput) {
    std::string const good = binary("", kSquare);
    std::string huge = good;
    huge.replace(80, 4, "\xFF\xFF\xFF\xFF");
    std::vector<Corners> nan = kSquare;
    nan[1][4] = std::numeric_limits<float>::quiet_NaN();
    std::string const ok = facet("0 0 0", "1 0 0", "0 1 0");
    struct {
        std::string contents;
        char const* error;
    } const rows[] = {
        {"", "the file is empty (byte offset 0)"},
        {"garbage", "neither ASCII nor binary STL: it ends within the header (byte offset 7)"},
        {good.substr(0, 150), "2 triangles need 184 bytes, but the file has 150 (byte offset 80)"},
        {huge, "4294967295 triangles need 214748364834 bytes, but the file has 184 (byte offset 80)"},
        {good + "??", "2 bytes follow the last of 2 triangles (byte offset 184)"},
        {binary("", nan), "a coordinate of triangle 2 is not a number (byte offset 162)"},
        {"solid x\n" + ok.substr(0, 60), "the file breaks off where a number should follow (byte offset 68)"},
        {"solid x\n" + ok, "the file breaks off where \"facet\" or \"endsolid\" should follow (byte offset 104)"},
        {"solid x\n" + facet("0 0 0", "1 nan 0", "0 1 0"), "a coordinate is not a number (byte offset 67)"},
        {"solid x\n" + facet("0 0 0", "1 0 1e39", "0 1 0"), "a coordinate is not a number (byte offset 69)"},
        {"solid x\n" + facet("0 0 0", "1 0x 0", "0 1 0"), "\"0x\" where a number should follow (byte offset 67)"},
        {"solid x\nfacet nromal", "\"nromal\" where \"normal\" should follow (byte offset 14)"},
        {"solid x\nendsolid x\ntrailing", "\"trailing\" where \"solid\" should follow (byte offset 19)"},
    };
    for (auto const& row : rows) {
        EXPECT_EQ(run(row.contents), 21U);
        EXPECT_EQ(error(), std::string("translations/in.stl: ") + row.error + "\n");
        EXPECT_FALSE(folder.has("out.obj"));
    }
}

TEST_F(Translator, FilesThatCannotBeOpened) {
    struct {
        std::string input, output;
        unsigned number;
        std::string error;
    } const rows[] = {
        {folder.path("100%% none%s.stl"), folder.path("out.obj"), 13,
         "translations/100%% none%s.stl: cannot be opened: "},
        {"translations", folder.path("out.obj"), 14, "translations: cannot be opened: "},
        {folder.write("in.stl", binary("", kSquare)), folder.path("no/out.obj"), 14,
         "translations/no/out.obj: cannot be created: "},
        {folder.path("in.stl"), folder.path("in.stl"), 11, "translations/in.stl: not a format that can be written"},
    };
    for (auto const& row : rows) {
        events_.events.clear();
        EXPECT_EQ(translator::translate(row.input.c_str(), row.output.c_str()).GetReturnCode(), row.number);
        EXPECT_NE(events_.events.back().find("80 Error : " + row.error), std::string::npos) << events_.events.back();
        EXPECT_FALSE(folder.has("out.obj"));
    }
    EXPECT_EQ(folder.read("in.stl").size(), 184U);
}

#ifndef _WIN32
TEST_F(Translator, AFullDiskLeavesNothing) {
    rlimit before{};
    getrlimit(RLIMIT_FSIZE, &before);
    std::string const contents = binary("", std::vector<Corners>(5000, kSquare[0]));
    std::string const input = folder.write("in.stl", contents);
    auto const handler = std::signal(SIGXFSZ, SIG_IGN);
    rlimit const small{1000, before.rlim_max};
    setrlimit(RLIMIT_FSIZE, &small);
    unsigned const number = translator::translate(input.c_str(), "translations\\out.obj").GetReturnCode();
    setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, handler);
    EXPECT_EQ(number, 15U);
    EXPECT_NE(events_.events.back().find("is the disk full? (byte offset 1000)"), std::string::npos)
        << events_.events.back();
    EXPECT_FALSE(folder.has("out.obj"));
}
#endif

} // namespace
