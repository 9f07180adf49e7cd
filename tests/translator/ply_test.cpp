#include "Translation.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <thread>

#include "support/test.h"

#ifndef _WIN32
#  include <sys/stat.h>
#endif

namespace {

/// The bytes of numbers, one after the other.
template <class... Number> std::string bytes(bool isBig, Number... numbers) {
    std::string all;
    auto const add = [&](auto number) {
        std::string each(reinterpret_cast<char const*>(&number), sizeof number);
        if (isBig) std::reverse(each.begin(), each.end());
        all += each;
    };
    (add(numbers), ...);
    return all;
}

std::string lines(std::string const& text) { return text + "\n"; }
template <class... Rest> std::string lines(std::string const& text, Rest const&... rest) {
    return text + "\n" + lines(rest...);
}

std::string const kAscii = lines("ply", "format ascii 1.0");
std::string const kXyz = lines("property float x", "property float y", "property float z");
std::string const kRgb = lines("property uchar red", "property uchar green", "property uchar blue");
std::string const kFaces = lines("element face 1", "property list uchar int vertex_indices");

/// What is written of vertices with their faces; `extras` are the properties behind the coordinates.
std::string written(std::string const& extras, Texts const& vertices, Texts const& faces) {
    std::string text = kAscii + "element vertex " + std::to_string(vertices.size()) + "\n" + kXyz + extras +
                       "element face " + std::to_string(faces.size()) +
                       "\nproperty list uchar int vertex_indices\nend_header\n";
    for (std::string const& vertex : vertices) text += vertex + "\n";
    for (std::string const& face : faces) text += "3 " + face + "\n";
    return text;
}
std::string const kSquare = written("", {"0 0 0", "1 0 0", "1 1.5 0", "0 1.5 -0"}, {"0 1 2", "0 2 3"});
std::string const kTriangle = written("", {"0 0 0", "1 0 0", "0 1 0"}, {"0 1 2"});

class Ply : public testing::Test {
protected:
    /// The result's number.
    unsigned translate(std::string const& from, std::string const& to, char const* encoding = "Ascii",
                       KOVIUnit const& unit = {}) {
        events_.events.clear();
        std::string const input = folder.path(from);
        std::string const output = folder.path(to);
        toolkit::Job job{input.c_str(), output.c_str(), {}, unit};
        job.options.Add("/PLY/Export/Encoding", encoding);
        return toolkit::translate(formats_, job).GetReturnCode();
    }
    std::string run(std::string const& contents) {
        folder.write("in.ply", contents);
        unsigned const number = translate("in.ply", "out.ply");
        return number == 0 ? folder.read("out.ply") : std::to_string(number) + " " + events_.events.back();
    }

    test::Folder folder{"ply"};
    toolkit::Formats formats_;
    test::MessageRecorder events_;
};

TEST_F(Ply, ReadsText) {
    std::string const three = lines("0 0 0", "1 0 0", "0 1 0");
    std::string const vertices = "element vertex 3\n" + kXyz;
    struct {
        std::string contents, written;
    } const rows[] = {
        {kSquare, kSquare},
        {kAscii + vertices + kFaces + "end_header\n" + three + "3 0 1 2", kTriangle},
        // Any order, other elements, blank lines, any types; a comment does not go on.
        {lines("ply", "comment goes not on \\", "format ascii 1.0\r", "element nothing 9000000000000000000",
               "element a 2", "property list int8 float64 l", "property uint16 u", "element vertex 4",
               "property double z", "property list char char l", "property int16 x", "property uint8 s",
               "property float32 y", "element face 1", "property uint f", "property list uint32 int8 vertex_index",
               "element b 1", "property char c", "end_header\r", "0 65535", "2 -1e3 inf 0", "", "\t0 0 0 1 0", " ",
               "0e9 2 0 1 1 255 0", "0 0 1 1 1.5", "-0 0 0 0 +1.50", "4294967295 4 0 1 2 3", "-128", "\r"),
         kSquare},
        // Colours and normals.
        {kAscii + vertices + kRgb + "property uchar alpha\n" + kFaces +
             lines("end_header", "0 0 0 0 1 2 255", "1 0 0 3 4 5 255", "0 1 0 253 254 255 255", "3 0 1 2"),
         written(kRgb, {"0 0 0 0 1 2", "1 0 0 3 4 5", "0 1 0 253 254 255"}, {"0 1 2"})},
        {kAscii + "element vertex 4\nproperty float diffuse_blue\nproperty double alpha\n" + kXyz +
             "property float diffuse_red\nproperty ushort green\nproperty float diffuse_x\n" + kFaces +
             lines("end_header", "0 1 0 0 0 1 0 7", "0.5 1 1 0 0 0 255 7", "1 0.2 0 1 0 0.5 0 7", "0 1 1 1 1 1 1 1",
                   "3 0 1 2"),
         written(kRgb + "property uchar alpha\n", {"0 0 0 255 0 0 255", "1 0 0 0 255 128 255", "0 1 0 128 0 255 51"},
                 {"0 1 2"})},
        {kAscii + vertices + "property int red\nproperty int blue\nproperty float nx\n" + kFaces +
             lines("end_header", "0 0 0 -1 1 1", "1 0 0 2 256 2", "0 1 0 3 3 3", "3 0 1 2"),
         kTriangle},
        {kAscii + vertices + "property float nx\nproperty float ny\nproperty float nz\n" + kFaces +
             lines("end_header", "0 0 0 0 0.25 1", "1 0 0 1e30 -0 -1", "0 1 0 nan 0 1", "3 0 1 2"),
         written("property float nx\nproperty float ny\nproperty float nz\n",
                 {"0 0 0 0 0.25 1", "1 0 0 1e+30 0 -1", "0 1 0 0 0 0"}, {"0 1 2"})},
        // Equal corners of different colours are different vertices.
        {kAscii + "element vertex 4\n" + kXyz + kRgb + "element face 3\nproperty list uchar int vertex_indices\n" +
             lines("end_header", "0 0 0 1 1 1", "0 0 0 1 1 1", "1 0 0 1 1 1", "0 0 0 1 1 2", "3 0 2 1", "3 3 2 1",
                   "3 1 1 1"),
         written(kRgb, {"0 0 0 1 1 1", "1 0 0 1 1 1", "0 0 0 1 1 2"}, {"0 1 0", "2 1 0", "0 0 0"})},
        {kAscii + "end_header\n", written("", {}, {})},
    };
    for (auto const& row : rows) EXPECT_EQ(run(row.contents), row.written) << row.contents;
}

TEST_F(Ply, ReadsBytes) {
    for (bool const big : {false, true}) {
        std::string file = std::string("ply\nformat binary_") + (big ? "big" : "little") + "_endian 1.0\n" +
                           lines("element odd 1", "property char a", "property ushort b", "property short c",
                                 "property uint d", "property double e", "property list short double l",
                                 "element vertex 4", "property double x", "property float y", "property char z",
                                 "element face 2", "property uchar c", "property list ushort uint vertex_indices",
                                 "property list int char l", "element nothing 7", "end_header") +
                           bytes(big, 'a', std::uint16_t{2}, std::int16_t{3}, 4U, 5.0, std::int16_t{2}, 6.0, 7.0);
        for (double const x : {0.0, 1.0, 1.0, 0.0}) file += bytes(big, x, 0.0F, std::int8_t{-2});
        file += bytes(big, '3', std::uint16_t{3}, 0U, 1U, 2U, 0);
        file += bytes(big, '3', std::uint16_t{4}, 3U, 2U, 1U, 0U, 2, 'a', 'b');
        EXPECT_EQ(run(file), written("", {"0 0 -2", "1 0 -2"}, {"0 1 1", "0 1 1", "0 1 0"})) << big;
        EXPECT_EQ(events_.events.front(), std::string("50 ply/in.ply: ") + (big ? "big-endian" : "binary") +
                                              " PLY, 2 faces, 3 triangles, 4 vertices\n");
    }
}

TEST_F(Ply, BadInputIsOneErrorAndNoOutput) {
    std::string const vertex = "element vertex 3\n" + kXyz;
    std::string const header = kAscii + vertex + kFaces + "end_header\n"; // 9 lines
    std::string const three = lines("0 0 0", "1 0 0", "0 1 0");
    std::string const start = "ply\nformat binary_little_endian 1.0\n" + vertex +
                              "element face 1\nproperty list char short vertex_index\nend_header\n";
    std::string const binary = start + bytes(false, 0.0F, 0.0F, 0.0F, 1.0F, 0.0F, 0.0F, 0.0F, 1.0F, 0.0F);
    auto const face = [&binary](std::int8_t count, std::int16_t index) {
        return binary + bytes(false, count, std::int16_t{0}, std::int16_t{1}, index);
    };
    auto const at = [&start](std::size_t offset) {
        return " (byte offset " + std::to_string(start.size() + offset) + ")";
    };
    struct {
        std::string contents, error;
    } const rows[] = {
        {"", "the file is empty (byte offset 0)"},
        {"plywood", "not a PLY file: its first line is not \"ply\" (line 1)"},
        {"ply\n", "the file breaks off within its header (line 1)"},
        {"ply\ncomment " + std::string(300000, 'x'), "a line is longer than 262144 bytes (line 2)"},
        {"ply\nend_header\n", "the header names no format (line 2)"},
        {"ply\nformat binary 1.0\n",
         "\"binary\" where ascii, binary_little_endian or binary_big_endian should follow (line 2)"},
        {"ply\nformat ascii 1.1\n", "\"1.1\" where version 1.0 should follow (line 2)"},
        {kAscii + "commentary",
         "\"commentary\" where format, element, property, comment or end_header should follow (line 3)"},
        {kAscii + "format ascii 1.0", "a second format (line 3)"},
        {kAscii + "element a 9223372036854775808", "\"9223372036854775808\" where a count should follow (line 3)"},
        {kAscii + "element", "the line breaks off where the name of an element should follow (line 3)"},
        {kAscii + "property int x", "a property of no element (line 3)"},
        {kAscii + "element vertex 1\nelement vertex 1", "a second element of this name (line 4)"},
        {kAscii + vertex + "property int x", "a second property of this name (line 7)"},
        {kAscii + vertex + "property list float int x",
         "\"float\" where the type of a list's length should follow (line 7)"},
        {kAscii + "element vertex 1\nproperty float x\nend_header\n0\n", "vertices without x, y or z (line 3)"},
        {kAscii + "element face 1\nproperty list int float vertex_index\nend_header\n1 1",
         "faces without a list of vertex_indices (line 3)"},
        {kAscii + "element vertex 9000000000000000000\n" + kXyz + "end_header\n" + three,
         "9000000000000000000 times \"vertex\" need more than the 18 bytes that are left (line 3)"},
        {header + three, "the file breaks off behind 0 of 1 times \"face\" (line 12)"},
        {header + "0 0 0\n1 0\n0 1 0\n3 0 1 2",
         "the line breaks off where a number of type float should follow (line 11)"},
        {header + "0 0 0\n1 0 x\n0 1 0\n3 0 1 2", "\"x\" where a number of type float should follow (line 11)"},
        {header + "0 0 0 0\n1 0 0\n0 1 0\n3 0 1 2", "\"0\" where the end of the line should follow (line 10)"},
        {header + "0 0 0\n1 0 1e39\n0 1 0\n3 0 1 2", "a coordinate is not a number (line 11)"},
        {header + three + "2 0 1      ", "a face with 2 corners (line 13)"},
        {header + three + "4 0 1 2", "the line breaks off where a number of type int should follow (line 13)"},
        {header + three + "3 0 1 3", "there is no vertex 3; the file has 3, from 0 (line 13)"},
        {header + three + "3 0 1.0 2", "\"1.0\" where a number of type int should follow (line 13)"},
        {header + three + "3 0 1 2\n\n3 0 1 2\n", "\"3\" where the end of the file should follow (line 15)"},
        {kAscii + vertex + "property int red\nproperty int green\nproperty int blue\nend_header\n0 0 0 0 0 256\n" +
             three + three,
         "256 for a colour, which goes from 0 to 255 (line 11)"},
        {kAscii + vertex + kRgb + "property float alpha\nend_header\n0 0 0 0 0 0 -0.5\n" + three + three,
         "-0.5 for a colour, which goes from 0 to 1 (line 12)"},
        {start, "3 times \"vertex\" need more than the 0 bytes that are left (line 3)"},
        {binary, "1 times \"face\" need more than the 0 bytes that are left (line 7)"},
        {face(2, 2), "a face with 2 corners" + at(36)},
        {face(-128, 2), "a list of -128 values" + at(36)},
        {face(3, -1), "there is no vertex -1; the file has 3, from 0" + at(41)},
        {face(4, 2), "the file breaks off where a number should follow" + at(43)},
        {face(3, 2) + "?", "bytes follow the last element" + at(43)},
        {start + bytes(false, 0.0F, INFINITY, 0.0F, 0.0, 0.0, 0.0), "a coordinate is not a number" + at(4)},
    };
    for (auto const& row : rows) {
        EXPECT_EQ(run(row.contents), "21 80 Error : ply/in.ply: " + row.error + "\n");
        EXPECT_EQ(events_.events.size(), 1U);
        EXPECT_FALSE(folder.has("out.ply"));
    }
    EXPECT_EQ(run(kAscii + kFaces + vertex + "end_header\n3 0 1 2\n" + three),
              "4 80 Error : ply/in.ply: faces in front of the vertices are not read (line 3)\n");
}

TEST_F(Ply, EveryNumberComesBack) {
    // More than a few blocks of every encoding.
    Texts vertices, faces;
    std::uint32_t bits = 1;
    for (unsigned i = 0; i < 30000; ++i) {
        std::string line;
        for (int k = 0; k < 3; ++k) {
            float value = INFINITY;
            for (; !std::isfinite(value); std::memcpy(&value, &bits, sizeof value))
                bits = bits * 1664525U + 1013904223U;
            char digits[32];
            line.append(digits, std::to_chars(digits, std::end(digits), value).ptr) += ' ';
        }
        for (unsigned const color : {i, i / 256, 255 - i, i * 7}) line += std::to_string(color % 256) + " ";
        line.pop_back();
        vertices.push_back(line);
        if (i % 3 == 2) faces.push_back(std::to_string(i - 2) + " " + std::to_string(i - 1) + " " + std::to_string(i));
    }
    std::string const model = written(kRgb + "property uchar alpha\n", vertices, faces);
    EXPECT_TRUE(run(model) == model);
    std::string last = "in.ply";
    for (char const* const next : {"big", "little", "ascii"}) {
        EXPECT_EQ(translate(last, next + std::string(".ply"), next), 0U);
        last = next + std::string(".ply");
    }
    EXPECT_LT(folder.read("big.ply").size(), model.size());
    EXPECT_TRUE(folder.read("ascii.ply") == model);
}

TEST_F(Ply, WritesColorsOfMaterials) {
    toolkit::Material const glass{"glass", {51, 102, 153, 128}};
    toolkit::Material const stone{"stone", {0.5, 0.5, 0.5, 1}};
    float const points[] = {0, 0, 0, 1, 0, 0, 0, 1, 0};
    float const colors[] = {1, 0, 0, 0, 1, 0, 0, 0, 1};
    float const alphas[] = {1, 0.2F, 0};
    int const face[] = {0, 1, 2};
    struct Row {
        toolkit::Material const* material;
        bool hasColors, hasAlphas;
        Texts colors; ///< that are written of its corners
    };
    Texts const own = {"255 0 0", "0 255 0", "0 0 255"};
    Row const none{nullptr, false, false, Texts(3, "255 255 255")};
    std::vector<Row> const opaque = {none, {&stone, false, false, Texts(3, "128 128 128")}, {&stone, true, false, own}};
    std::vector<Row> const clear = {{&glass, false, false, Texts(3, "51 102 153 128")},
                                    {nullptr, false, false, Texts(3, "255 255 255 255")},
                                    {&glass, true, false, {own[0] + " 128", own[1] + " 128", own[2] + " 128"}},
                                    {&glass, true, true, {own[0] + " 255", own[1] + " 51", own[2] + " 0"}}};
    for (auto const& rows : {opaque, clear}) {
        KOVAOptions options;
        options.AddOption(KOVAOption(KOVAOptionName(KOVAString("/PLY/Export/Encoding")), "ascii"));
        toolkit::OutputFile file(folder.path("out.ply"));
        toolkit::Scene scene;
        auto const writer = formats_.of("ply")->writer(file, toolkit::Settings(options));
        Texts vertices, faces{"0 1 2", "3 4 5", "6 7 8", "9 10 11"};
        faces.resize(rows.size());
        for (Row const& row : rows) {
            KOVASurfacicShell shell(0, 0, 0);
            shell.SetData(3, points, 0, nullptr, 3, face, row.hasColors ? 3 : 0, colors);
            writer->add({scene.addPart(""), row.material, shell, row.hasAlphas ? alphas : nullptr});
            for (std::size_t const i : {0U, 1U, 2U})
                vertices.push_back(Texts{"0 0 0 ", "1 0 0 ", "0 1 0 "}[i] + row.colors[i]);
        }
        writer->finish();
        EXPECT_TRUE(file.complete() && file.keep());
        std::string const alpha = rows.size() == clear.size() ? "property uchar alpha\n" : "";
        EXPECT_EQ(folder.read("out.ply"), written(kRgb + alpha, vertices, faces));
    }
}

TEST_F(Ply, ColorsComeFromObjAndGoThere) {
    struct {
        std::string from, contents, to, written;
        std::string warning;
    } const rows[] = {
        // A vertex without a colour is written white, so it is no other than a white one.
        {"part.obj", "v 0 0 0 1 0 0\nv 1 0 0\nv 0 1 0\nv 1 0 0 1 1 1\nf 1 2 3\nf 1 4 3\n", "part.ply",
         written(kRgb, {"0 0 0 255 0 0", "1 0 0 255 255 255", "0 1 0 255 255 255"}, {"0 1 2", "0 1 2"}), ""},
        // What differs in alpha alone is one vertex where there is none.
        {"clear.ply",
         kAscii + "element vertex 5\n" + kXyz + kRgb + "property uchar alpha\nelement face 2\n" +
             lines("property list uchar int vertex_indices", "end_header", "0 0 0 255 0 0 255", "1 0 0 0 0 0 0",
                   "0 1 0 0 0 0 0", "1 0 0 0 0 0 1", "0 1 0 0 0 0 255", "3 0 1 2", "3 0 4 3"),
         "clear.obj", "v 0 0 0 1 0 0\nv 1 0 0 0 0 0\nv 0 1 0 0 0 0\nf 1 2 3\nf 1 3 2\n",
         "70 Warning : ply/clear.obj: the alphas of vertices are left out: OBJ has none\n"},
    };
    for (auto const& row : rows) {
        folder.write(row.from, row.contents);
        EXPECT_EQ(translate(row.from, row.to), 0U);
        EXPECT_EQ(folder.read(row.to), row.written);
        std::string warnings;
        for (std::string const& event : events_.events) warnings += event[0] == '7' ? event : "";
        EXPECT_EQ(warnings, row.warning);
    }
}

TEST_F(Ply, TheUnitComesAlong) {
    folder.write("in.ply", kTriangle);
    std::string text = kTriangle;
    text.insert(kAscii.size(), "comment units = millimeter\n");
    EXPECT_EQ(translate("in.ply", "mm.ply", "ascii", "mm"), 0U);
    EXPECT_EQ(folder.read("mm.ply"), text);
    EXPECT_EQ(translate("mm.ply", "mm.stl"), 0U);
    EXPECT_EQ(folder.read("mm.stl").substr(0, 50),
              std::string("binary STL by kova-translate, units = millimeter").append(2, '\0'));
    EXPECT_EQ(translate("mm.stl", "again.ply"), 0U);
    EXPECT_EQ(folder.read("again.ply"), text);
}

#ifndef _WIN32
TEST_F(Ply, PipesWillDo) {
    ASSERT_EQ(mkfifo(folder.path("in.ply").c_str(), 0600), 0);
    std::string const huge = kAscii + "element vertex 9000000000000000000\n" + kXyz + "end_header\n0 0 0\n";
    for (std::string const& contents : {kSquare, huge}) {
        std::thread writer([&] { folder.write("in.ply", contents); });
        unsigned const number = translate("in.ply", "out.ply");
        writer.join();
        EXPECT_EQ(number == 0 ? folder.read("out.ply") : events_.events.back(),
                  contents == kSquare ? kSquare
                                      : "80 Error : ply/in.ply: the file breaks off behind 1 of "
                                        "9000000000000000000 times \"vertex\" (line 8)\n");
    }
}
#endif

} // namespace
