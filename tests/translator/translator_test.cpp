#include "Translation.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <map>
#include <sstream>

#include <kova/model/KOVACallbackShared.h>

#include "Placement.h"
#include "support/test.h"

#ifndef _WIN32
#  include <csignal>
#  include <fcntl.h>
#  include <sys/resource.h>
#  include <sys/stat.h>
#  include <unistd.h>
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

/// The bits of all corners of a binary file, which must be as long as it says.
std::string corners(std::string const& file) {
    std::uint32_t count = 0;
    std::memcpy(&count, file.data() + 80, sizeof count);
    EXPECT_EQ(file.size(), 84 + 50 * std::size_t{count});
    EXPECT_NE(file.substr(0, 5), "solid");
    std::string all;
    for (std::size_t at = 84; at < file.size(); at += 50) all += file.substr(at + 12, 36);
    return all;
}

class Translator : public testing::Test {
protected:
    /// Translates a file of the folder to another, in ASCII where the new name begins with "ascii"; returns
    /// the result's number.
    unsigned translate(std::string const& from, std::string const& to) {
        events_.events.clear();
        std::string const input = folder.path(from);
        std::string const output = folder.path(to);
        toolkit::Job job{input.c_str(), output.c_str()};
        job.options.Add("/STL/Export/Ascii", to.rfind("ascii", 0) == 0);
        return toolkit::translate(formats_, job).GetReturnCode();
    }
    /// Translates contents to "out.obj".
    unsigned run(std::string const& contents, std::string const& name = "in.stl") {
        folder.write(name, contents);
        return translate(name, "out.obj");
    }
    std::string output() const { return folder.read("out.obj"); }
    /// The one error that was reported; what was reported otherwise.
    std::string error() const {
        std::string all;
        for (std::string const& event : events_.events) all += event;
        return events_.events.size() == 1 && all.rfind("80 Error : ", 0) == 0 ? all.substr(11)
                                                                              : "not one error: " + all;
    }
    /// Goes through formats and back to binary STL; the corners must come out as they went in.
    void expectKept(std::string const& contents) {
        std::string const wanted = corners(contents);
        for (Texts const& formats : {Texts{"a.obj"},
                                     {"ascii.stl"},
                                     {"a.PLY"},
                                     {"a.stl", "A.OBJ", "ascii.stl", "b.obj", "c.obj", "b.ply", "c.ply", "d.obj"}}) {
            std::string name = "in.stl";
            folder.write(name, contents);
            for (std::string const& next : formats) {
                EXPECT_EQ(translate(name, next), 0U);
                name = next;
            }
            EXPECT_EQ(translate(name, "back.stl"), 0U);
            EXPECT_TRUE(corners(folder.read("back.stl")) == wanted) << formats[0];
        }
    }

    test::Folder folder{"translations"};
    toolkit::Formats formats_;
    test::MessageRecorder events_;
};

TEST_F(Translator, WeldsExactlyEqualCorners) {
    EXPECT_EQ(run(binary("made by hand", kSquare)), 0U);
    EXPECT_EQ(output(), kSquareObj);
    EXPECT_EQ(events_.events, (Texts{"50 translations/in.stl: binary STL, 2 triangles, 4 vertices\n",
                                     "50 translations/in.stl: bounding box (0, 0, 0) to (1, 1.5, 0)\n",
                                     "50 translations/in.stl: surface area 1.5, not closed, unit unknown\n",
                                     "50 translations/out.obj: OBJ, 2 faces, 4 vertices, 52 bytes\n"}));
    // A header that begins like ASCII changes nothing.
    EXPECT_EQ(run(binary("solid facet normal", kSquare)), 0U);
    EXPECT_EQ(output(), kSquareObj);
    // A vertex keeps the bits of its first corner.
    EXPECT_EQ(run(binary("", {{-0.0F, 0, 1, 0, -0.0F, 1, 0, 0, 1}})), 0U);
    EXPECT_EQ(output(), "v -0 0 1\nf 1 1 1\n");
}

TEST_F(Translator, TellsWhatTheFileSaysOfItself) {
    struct {
        std::string name, contents, format, comment, groups, units;
    } const rows[] = {
        {"a.stl", binary("made by %n\t\x01 hand  ", kSquare), "binary STL", "made by %n\t? hand", "1", ""},
        {"b.stl", binary(std::string("\0x", 2), kSquare), "binary STL", "", "1", ""},
        {"c.stl", binary(std::string(76, 'h') + "unit", kSquare), "binary STL", std::string(76, 'h') + "unit", "1", ""},
        {"d.stl", "solid\nendsolid\nsolid (UNITS=mm)\n" + facet("0 0 0", "1 0 0", "0 1 0") + "endsolid", "ASCII STL",
         "(UNITS=mm)", "1", "mm"},
        {"e.obj", "\n#\n## one\n# subunit: km, units in m; unit : Inch\nv 0 0 0\no\nf 1 1 1\ng x\ng y\nf 1 1 1\n",
         "OBJ", "one", "2", "Inch"},
        {"f.obj", "v 0 0 0\n# late units: mm\nf 1 1 1\n", "OBJ", "", "1", ""},
        {"g.obj", "#" + std::string(201, 'x') + "\n# units:\nv 0 0 0\nf 1 1 1", "OBJ", std::string(200, 'x'), "1", ""},
    };
    for (auto const& row : rows) {
        folder.write(row.name, row.contents);
        test::Recorder tasks;
        EXPECT_EQ(translate(row.name, "out.obj"), 0U);
        auto const line = [](std::string name, std::string const& text) {
            name.resize(24, ' ');
            return text.empty() ? "" : name + " : " + text + "\n";
        };
        std::string all;
        for (std::string const& event : tasks.events) all += event;
        std::size_t const date = all.find("Modification Date");
        ASSERT_NE(date, std::string::npos);
        all.erase(date, all.find('\n', date) + 1 - date);
        EXPECT_THAT(all, testing::HasSubstr(line("File Name", "translations/" + row.name) +
                                            line("Document Type", row.format) +
                                            line("Size", std::to_string(row.contents.size()) + " bytes") +
                                            line("Units", row.units) + line("Comment", row.comment) + "-----"));
        EXPECT_THAT(all, testing::HasSubstr("No. of Groups                             :    " + row.groups + "\n"));
    }
}

TEST_F(Translator, ReadsAscii) {
    std::string const first = facet("0 0 0", "1 0 0", "0 1.5 0");
    std::string const second = facet("1.0e0 0 -0", "+1 1500E-3 1e-60", "0 1.5 0");
    EXPECT_EQ(run("solid\n" + first + second + "endsolid a name\n"), 0U);
    EXPECT_EQ(output(), kSquareObj);
    EXPECT_EQ(run("\xEF\xBB\xBF  SOLID\r\n" + first + "ENDSOLID\r\nsolid\n" + second + "endsolid"), 0U);
    EXPECT_EQ(output(), kSquareObj);
    EXPECT_EQ(run("solid nothing\nendsolid nothing\n"), 0U); // "No Entity to Translate"
    EXPECT_EQ(output(), "");
}

TEST_F(Translator, TheSampleComesBack) {
    std::ifstream in(KOVA_SAMPLE, std::ios::binary);
    expectKept({std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()});
}

TEST_F(Translator, EveryFloatComesBack) {
    // More than a few blocks of every format, so that lines and words lie across their ends.
    std::vector<Corners> triangles = {
        {1e-45F, -1.17549421e-38F, 3.40282347e38F, 0.1F, 16777217.0F, -1e38F, 1.0F / 3, 8388608.5F, -7e-10F}};
    std::uint32_t bits = 1;
    while (triangles.size() < 9000) {
        Corners next;
        while (next.size() < 9) {
            float value;
            bits = bits * 1664525U + 1013904223U;
            std::memcpy(&value, &bits, sizeof value);
            if (std::isfinite(value)) next.push_back(value);
        }
        triangles.push_back(next);
    }
    expectKept(binary("", triangles));
}

TEST_F(Translator, WritesStl) {
    folder.write("in.obj", "v 0 0 0\nv 2 0 0\nv 0 2 0\nv 0 0 -2.5\n"
                           "f 1 2 3\no one part\nf 1 4 3\no one part\nf 1 4 3\ng empty\no\ng\nf 1 1 2\n");
    EXPECT_EQ(translate("in.obj", "ascii.stl"), 0U);
    auto const facet = [](char const* normal, char const* second, char const* third) {
        return std::string("  facet normal ") + normal + "\n    outer loop\n      vertex 0 0 0\n      vertex " +
               second + "\n      vertex " + third + "\n    endloop\n  endfacet\n";
    };
    std::string const part = "solid one part\n" + facet("1 0 0", "0 0 -2.5", "0 2 0") + "endsolid one part\n";
    std::string const text = "solid\n" + facet("0 0 1", "2 0 0", "0 2 0") + "endsolid\n" + part + part + "solid\n" +
                             facet("0 0 0", "0 0 0", "2 0 0") + "endsolid\n";
    EXPECT_EQ(folder.read("ascii.stl"), text);
    EXPECT_EQ(events_.events, (Texts{"50 translations/in.obj: OBJ, 4 faces, 4 triangles, 4 vertices\n",
                                     "50 translations/in.obj: bounding box (0, 0, -2.5) to (2, 2, 0)\n",
                                     "50 translations/in.obj: surface area 7, not closed, unit unknown\n",
                                     "50 translations/ascii.stl: ASCII STL, 4 triangles, " +
                                         std::to_string(text.size()) + " bytes\n"}));
    // Parts go to OBJ and come back.
    EXPECT_EQ(translate("ascii.stl", "out.obj"), 0U);
    EXPECT_EQ(output(),
              "v 0 0 0\nv 2 0 0\nv 0 2 0\nv 0 0 -2.5\nf 1 2 3\no one part\nf 1 4 3\no one part\nf 1 4 3\no\nf 1 1 2\n");
    EXPECT_EQ(translate("out.obj", "ascii.stl"), 0U);
    EXPECT_EQ(folder.read("ascii.stl"), text);
    EXPECT_EQ(translate("ascii.stl", "out.stl"), 0U);
    EXPECT_EQ(events_.events[3], "50 translations/out.stl: binary STL, 4 triangles, 284 bytes\n");
    EXPECT_EQ(folder.read("out.stl").substr(134, 12), bytesOf(Corners{1, 0, 0}.data(), 12));
    EXPECT_EQ(events_.events[0], "50 translations/ascii.stl: ASCII STL, 4 triangles\n");

    folder.write("in.obj", "o none\n");
    EXPECT_EQ(translate("in.obj", "ascii.stl"), 0U);
    EXPECT_EQ(folder.read("ascii.stl"), "solid\nendsolid\n");
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
        {"solid " + std::string(300000, 'x'), "a name is longer than 262144 bytes (byte offset 5)"},
        {"solid x\nendsolid x\ntrailing", "\"trailing\" where \"solid\" should follow (byte offset 19)"},
        {"\xEF\xBB\xBFsolid x\nfacet nromal", "\"nromal\" where \"normal\" should follow (byte offset 17)"},
    };
    for (auto const& row : rows) {
        EXPECT_EQ(run(row.contents), 21U);
        EXPECT_EQ(error(), std::string("translations/in.stl: ") + row.error + "\n");
        EXPECT_FALSE(folder.has("out.obj"));
    }
}

TEST_F(Translator, FilesThatCannotBeOpened) {
    std::filesystem::create_directory(folder.path("folder.stl"));
    struct {
        std::string input, output;
        unsigned number;
        std::string error;
    } const rows[] = {
        {folder.path("100%% none%s.stl"), folder.path("out.obj"), 13,
         "translations/100%% none%s.stl: cannot be opened: "},
        {folder.path("folder.stl"), folder.path("out.obj"), 14, "translations/folder.stl: cannot be opened: "},
        {folder.write("in.stl", binary("", kSquare)), folder.path("no/out.obj"), 14,
         "translations/no/out.obj: cannot be created: "},
        {folder.path("in.stl"), folder.path("in.step"), 11,
         "translations/in.step: not a known format; name a file that ends in .obj, .ply or .stl"},
        {folder.path("in.stl"), "./translations\\in.stl", 11, "./translations\\in.stl: is the input too; name another"},
    };
    for (auto const& row : rows) {
        events_.events.clear();
        EXPECT_EQ(toolkit::translate(formats_, {row.input.c_str(), row.output.c_str()}).GetReturnCode(), row.number);
        EXPECT_NE(events_.events.back().find("80 Error : " + row.error), std::string::npos) << events_.events.back();
        EXPECT_FALSE(folder.has("out.obj"));
    }
    EXPECT_EQ(folder.read("in.stl").size(), 184U);
}

int callsLeft = 0; ///< of the abort callback before it says so

TEST_F(Translator, UnitsAndPlacements) {
    // A corner of a cube: three triangles.
    std::string const corner = "# units = inch\nv 0 0 0\nv 1 0 0\nv 0 1 0\nv 0 0 1\nf 1 3 2\nf 1 2 4\nf 1 4 3\n";
    struct {
        char const *from, *to;
        Texts placements;
        std::string vertices, unit;
    } const rows[] = {
        {"unknown", "unknown", {}, "0 0 0,0 1 0,1 0 0,0 0 1", "unit inch"},
        {"unknown", "MM", {}, "0 0 0,0 25.4 0,25.4 0 0,0 0 25.4", "unit inch, scaled by 25.4 to millimeter"},
        {"ft", "in", {}, "0 0 0,0 12 0,12 0 0,0 0 12", "unit foot, scaled by 12 to inch"},
        {"cm", "unknown", {}, "0 0 0,0 1 0,1 0 0,0 0 1", "unit centimeter"},
        {"meter", "meter", {"rotate 0 0 2 90"}, "0 0 0,-1 0 0,0 1 0,0 0 1", "unit meter"},
        {"meter",
         "km",
         {"rotate 0 0 -1, 450"},
         "0 0 0,0.001 0 0,0 -0.001 0,0 0 0.001",
         "unit meter, scaled by 0.001 to km"},
        {"meter",
         "cm",
         {"1 0 0 5 0 1 0 6 0 0 1 7"},
         "500 600 700,500 700 700,600 600 700,500 600 800",
         "unit meter, scaled by 100 to centimeter"},
        // A mirror turns the triangles.
        {"mm", "mm", {"-1 0 0 0 0 1 0 0 0 0 1 0"}, "0 0 0,-1 0 0,0 1 0,0 0 1", "unit millimeter"},
        {"mm",
         "mm",
         {"1 0 0 0 0 1 0 0 0 0 1 0", "rotate 1 0 0 180"},
         "0 0 0,0 1 0,1 0 0,0 0 1,0 -1 0,0 0 -1",
         "unit millimeter"},
    };
    for (auto const& row : rows) {
        std::string const input = folder.write("in.obj", corner);
        std::string const output = folder.path("out.obj");
        toolkit::Job job{input.c_str(), output.c_str()};
        job.fromUnit = row.from;
        job.toUnit = row.to;
        for (std::string const& text : row.placements)
            EXPECT_TRUE(toolkit::readPlacement(text, job.placements.emplace_back()));
        events_.events.clear();
        EXPECT_EQ(toolkit::translate(formats_, job).GetReturnCode(), 0U);
        std::string vertices;
        std::istringstream lines(this->output());
        for (std::string line; std::getline(lines, line);) {
            if (line[0] == 'v') vertices += (vertices.empty() ? "" : ",") + line.substr(2);
        }
        EXPECT_EQ(vertices, row.vertices);
        EXPECT_NE(events_.events[2].find(", " + row.unit + "\n"), std::string::npos) << events_.events[2];
    }
    for (char const* const text : {"", "1 2 3", "rotate 0 0 0 90", "rotate 1 0 0", "1 0 0 0 0 1 0 0 0 0 0 0",
                                   "1 0 0 x 0 1 0 0 0 0 1 0", "rotate 1 0 0 nan"}) {
        KOVAAssemblyComponentTransform placement;
        EXPECT_FALSE(toolkit::readPlacement(text, placement)) << text;
    }
    // A name that states the unit goes on to be right.
    folder.write("in.stl", "solid a (Units: MM)\n" + facet("0 0 0", "1 0 0", "0 1 0") + "endsolid\n");
    toolkit::Job ascii{"translations/in.stl", "translations/ascii.stl"};
    ascii.toUnit = "cm";
    ascii.options.Add("/STL/Export/Ascii", true);
    EXPECT_EQ(toolkit::translate(formats_, ascii).GetReturnCode(), 0U);
    EXPECT_EQ(folder.read("ascii.stl").rfind("solid a (Units: centimeter)\n", 0), 0U);
    EXPECT_EQ(translate("ascii.stl", "out.obj"), 0U);
    EXPECT_EQ(output().rfind("# units = centimeter\nv 0 0 0\nv 0.1 0 0\n", 0), 0U);

    folder.write("in.obj", "v 1e38 0 0\nv 0 1 0\nv 0 0 1\nf 1 2 3\n");
    toolkit::Job job{"translations/in.obj", "translations/none.obj"};
    job.fromUnit = "km";
    job.toUnit = "mm";
    EXPECT_EQ(toolkit::translate(formats_, job).GetReturnCode(), 17U);
    EXPECT_FALSE(folder.has("none.obj"));
}

TEST_F(Translator, SplitsIntoParts) {
    folder.write("in.obj",
                 "v 0 0 0\nv 1 0 0\nv 0 1 0\no a/b\nf 1 2 3\no c\nf 1 2 3\nf 2 3 1\no a/b\nf 3 1 2\no a?b\nf 3 2 1\n");
    toolkit::Job job{"translations/in.obj", "translations/out.obj"};
    job.isSplit = true;
    job.placements.resize(2);
    EXPECT_EQ(toolkit::translate(formats_, job).GetReturnCode(), 0U);
    std::map<std::string, int> faces;
    for (auto const& entry : std::filesystem::directory_iterator("translations")) {
        std::string const text = folder.read(entry.path().filename().string());
        faces[entry.path().filename().string()] = static_cast<int>(std::count(text.begin(), text.end(), 'f'));
    }
    EXPECT_EQ(faces, (std::map<std::string, int>{{"in.obj", 5},
                                                 {"out-a_b.obj", 2},
                                                 {"out-c.obj", 2},
                                                 {"out-a_b-2.obj", 1},
                                                 {"out-a_b_2.obj", 2},
                                                 {"out-c_2.obj", 2},
                                                 {"out-a_b_2-2.obj", 1}}));
}

TEST_F(Translator, AnAbortAnywhereLeavesEverythingAsItWas) {
    folder.write("in.stl", binary("", std::vector<Corners>(20000, kSquare[0])));
    for (std::string const name : {"out.obj", "ascii.stl"}) {
        unsigned number = 3;
        for (int i = 0; number == 3; ++i) {
            folder.write(name, "old");
            callsLeft = i;
            KOVACallbackShared::m_AbortCallback = [] { return callsLeft-- == 0; };
            number = translate("in.stl", name);
            KOVACallbackShared::m_AbortCallback = nullptr;
            if (number == 3) {
                EXPECT_EQ(folder.read(name), "old");
                EXPECT_EQ(events_.events, Texts());
                auto const files = std::filesystem::directory_iterator("translations");
                EXPECT_EQ(std::distance(begin(files), end(files)), name == "out.obj" ? 2 : 3);
            } else {
                EXPECT_GT(i, 5) << "hardly ever asked";
            }
        }
        EXPECT_EQ(number, 0U);
        EXPECT_NE(folder.read(name), "old");
    }
}

#ifndef _WIN32
TEST_F(Translator, AFullDiskLeavesNothing) {
    folder.write("in.stl", binary("", std::vector<Corners>(5000, kSquare[0])));
    rlimit before{};
    getrlimit(RLIMIT_FSIZE, &before);
    auto const handler = std::signal(SIGXFSZ, SIG_IGN);
    for (char const* const name : {"out.obj", "out.stl", "ascii.stl"}) {
        rlimit const small{1000, before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &small);
        unsigned const number = translate("in.stl", name);
        setrlimit(RLIMIT_FSIZE, &before);
        EXPECT_EQ(number, 15U);
        EXPECT_NE(error().find("could be written: File too large (byte offset 1000)"), std::string::npos) << error();
        EXPECT_FALSE(folder.has(name));
    }
    std::signal(SIGXFSZ, handler);
}

TEST_F(Translator, PipesAndStreamsGetWholeFiles) {
    folder.write("in.stl", binary("", kSquare));
    ASSERT_EQ(translate("in.stl", "file.stl"), 0U);
    ASSERT_EQ(mkfifo(folder.path("pipe.stl").c_str(), 0600), 0);
    int const pipe = open(folder.path("pipe.stl").c_str(), O_RDONLY | O_NONBLOCK);
    EXPECT_EQ(translate("in.stl", "pipe.stl"), 0U);
    std::string text(1000, ' ');
    text.resize(static_cast<std::size_t>(std::max<ssize_t>(read(pipe, text.data(), text.size()), 0)));
    EXPECT_EQ(text, folder.read("file.stl"));
    close(pipe);
    // From where a stream stands to the end of one that appends.
    folder.write("in", "before" + binary("", kSquare));
    folder.write("out", "before");
    std::FILE* const in = std::fopen(folder.path("in").c_str(), "rb");
    std::FILE* const out = std::fopen(folder.path("out").c_str(), "ab");
    EXPECT_EQ(lseek(fileno(in), 6, SEEK_SET), 6);
    toolkit::Job job{KOVIFile(in, "in"), KOVIFile(out, "out")};
    job.fromFormat = job.toFormat = "STL";
    EXPECT_EQ(toolkit::translate(formats_, job), 0);
    EXPECT_EQ(folder.read("out"), "before" + text);
    std::fclose(in);
    std::fclose(out);
}
#endif

} // namespace
