#include "Translation.h"

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <set>
#include <sstream>

#include "support/test.h"

namespace {

constexpr char kNormals[] = "/OBJ/Export/Normals";

class Obj : public testing::Test {
protected:
    toolkit::Job job(std::string const& to, std::string const& from = "in.obj") {
        return {folder_.path(from).c_str(), folder_.path(to).c_str()};
    }
    /// The result's number.
    unsigned translate(toolkit::Job const& job) {
        events_.events.clear();
        return toolkit::translate(formats_, job).GetReturnCode();
    }
    unsigned run(std::string const& contents) {
        folder_.write("in.obj", contents);
        return translate(job("out.obj"));
    }
    Texts warnings() const {
        Texts texts;
        for (std::string const& event : events_.events) {
            if (event.rfind("70 Warning : ", 0) == 0) texts.push_back(event.substr(13, event.size() - 14));
        }
        return texts;
    }
    Texts linesOf(std::string const& file) const {
        std::istringstream in(folder_.read(file));
        Texts lines;
        for (std::string line; std::getline(in, line);) lines.push_back(line);
        return lines;
    }
    std::set<std::string> normalsOf(std::string const& file) const {
        std::set<std::string> normals;
        for (std::string const& line : linesOf(file)) {
            if (line.rfind("vn ", 0) == 0) normals.insert(line);
        }
        return normals;
    }
    Texts files() const {
        Texts names;
        for (auto const& entry : std::filesystem::directory_iterator("obj"))
            names.push_back(entry.path().filename().string());
        return names;
    }

    test::Folder folder_{"obj"};
    toolkit::Formats formats_;
    test::MessageRecorder events_;
};

TEST_F(Obj, Reads) {
    std::string const square = "v 0 0 0\nv 1 0 0\nv 1 1 0\nv 0 1 0\n";
    std::string const fan = square + "f 1 2 3\nf 1 3 4\n";
    std::string const normals = "vn 0 0 2 7\nvn 0.6 -0 0.8\n";
    std::string const fanWithNormals = square + "vn 0 0 1\nvn 0.6 0 0.8\nf 1//1 2//1 3//2\nf 1//1 3//2 4//1\n";
    struct {
        std::string contents, obj;
    } const rows[] = {
        {"", ""},
        {square + "f 1 2 3 4", fan},
        {square + "f 1/1 2/9 3/-1 4/7\n", fan},
        {square + normals + "f 1//1 2//1 3//-1 4//1\n", fanWithNormals},
        {square + normals + "\tf  1/1/1 2/9/-2  3/-1/2 4/7/1 \n", fanWithNormals},
        {square + normals + "f 1//1 2//1 3//1 4\n", square + "vn 0 0 1\nf 1//1 2//1 3//1\nf 1 3 4\n"},
        {square + "vn 0 0 0\nf 1//1 2//1 3//1 4//1", fan},
        {square + "f -4 -3 -2 -1\nv 5 5 5\n", fan},
        {square + "vt nan\ns off\nusemtl #1\nl 1 9\np 0\nf 1 2 3 4\n", fan},
        {"# f 1 2\n\n" + square + "  # comment\nf 1 2 3# 4\nf 1 3 4 # f\n", fan},
        {"v 0 0 0 1\r\nv 1 0 0 .5 .5 .5 .5\r\nv 1 1 0\r\n\r\nv +0 1e0 0.0e-5\r\nf 1 2 3 4\r\n", fan},
        {square + "f 1 2\\\n3 \\\r\n 4\n", fan},
        {"# a comment ends with its line \\\n" + square + "f 1 2 3 4 \\", fan},
        {"\xEF\xBB\xBF" + square + "f 1 2 3 4\n", fan},
        // Objects, groups and what ends them; the same object and groups are one part again.
        {square + "o\nf 1 2 3\ng  a #1 b#2 # c\nf 1 3 4\n", square + "f 1 2 3\ng a\nf 1 3 4\n"},
        {square + "g a#\\ \nf 1 2 3\no b\ng c\tc\x01 c\nf 1 3 4\n",
         square + "g a#\\ \nf 1 2 3\no b\ng c c?\nf 1 3 4\n"},
        {square + "g x y\nf 1 2 3\no b\nf 1 3 4\ng\nf 1 2 4\no\nf 2 3 4\ng y x\nf 1 1 1\n",
         square + "g x y\nf 1 2 3\no b\nf 1 3 4\ng\nf 1 2 4\no\nf 2 3 4\ng x y\nf 1 1 1\n"},
        // The same name right behind its faces is another object; without a name nothing is.
        {square +
             "o a\no a\ng x\nf 1 2 3\ng y\nf 1 3 4\no a\nf 1 2 4\ng x\nf 2 3 4\ng y\nf 3 2 1\no\nf 4 3 1\no\nf 4 2 1\n",
         square + "o a\ng x\nf 1 2 3\ng y\nf 1 3 4\no a\nf 1 2 4\ng x\nf 2 3 4\ng y\nf 3 2 1\no\nf 4 3 1\nf 4 2 1\n"},
        {square + "o a\ng x\nf 1 2 3\no b\nf 1 3 4\no a\ng y\nf 1 2 4\no a\ng x\nf 2 3 4\n",
         square + "o a\ng x\nf 1 2 3\no b\nf 1 3 4\no a\ng y\nf 1 2 4\no a\ng x\nf 2 3 4\n"},
        // Colours are six numbers; a vertex without one stays so, and is shared, beside one that has.
        {"v 0 0 0 1 0 .5\nv 1 0 0 1 1 1 9\nv 1 1 0\nv 0 1 0\nf 2 3 4\nf 1 2 3\nf 2 3 4\nv 1 1 0 1 1 1\nf 5 3 1\n",
         "v 1 0 0\nv 1 1 0\nv 0 1 0\nv 0 0 0 1 0 0.5\nv 1 1 0 1 1 1\nf 1 2 3\nf 4 1 2\nf 1 2 3\nf 5 2 4\n"},
    };
    for (auto const& row : rows) {
        EXPECT_EQ(run(row.contents), 0U) << row.contents;
        EXPECT_EQ(folder_.read("out.obj"), row.obj) << row.contents;
        EXPECT_EQ(translate(job("again.obj", "out.obj")), 0U);
        EXPECT_EQ(folder_.read("again.obj"), row.obj);
    }
}

TEST_F(Obj, BadInputIsOneErrorAndNoOutput) {
    std::string const three = "v 0 0 0\nv 1 0 0\nv 1 1 0\n";
    std::string const nul("comment\0\n", 9);
    std::string continued = "f 1 2 3";
    while (continued.size() < 300000) continued += " \\\n 1 2 3 1 2 3 1 2 3";
    struct {
        std::string contents;
        char const* error;
    } const rows[] = {
        {three + "f 1 2 3\nf 1 2 0\n", "there is no vertex 0; 3 are defined so far (line 5)"},
        {three + "f 1 2 4\nv 0 0 0", "there is no vertex 4; 3 are defined so far (line 4)"},
        {three + "\n#\nf -1 -4 -2", "there is no vertex -4; 3 are defined so far (line 6)"},
        {three + "f 1 2 -9223372036854775808",
         "there is no vertex -9223372036854775808; 3 are defined so far (line 4)"},
        {three + "f 1 2 9223372036854775808", "\"9223372036854775808\" where a corner should follow (line 4)"},
        {three + "f 1 \\\n2 \\\n\nf 1 2 3", "a face with 2 corners (line 4)"},
        {three + "f", "a face with 0 corners (line 4)"},
        {three + "f 1 2 3.5", "\"3.5\" where a corner should follow (line 4)"},
        {three + "f 1/ 2 3", "\"1/\" where a corner should follow (line 4)"},
        {three + "f 1/1/ 2 3", "\"1/1/\" where a corner should follow (line 4)"},
        {three + "f 1/0 2 3", "\"1/0\" where a corner should follow (line 4)"},
        {three + "vn 0 0 1\nf 1//1 2//1 3//2", "there is no normal 2; 1 are defined so far (line 5)"},
        {three + "vn 0 0 1\nf 1//1 2//0 3//1", "there is no normal 0; 1 are defined so far (line 5)"},
        {three + "f 1/1/-1 2 3", "there is no normal -1; 0 are defined so far (line 4)"},
        {"vn 0 nan 1\n", "a coordinate is not a number (line 1)"},
        {"vn 0 1\n", "the line breaks off where a number should follow (line 1)"},
        {three + "f 1//x#2 2 3", "\"1//x\" where a corner should follow (line 4)"},
        {"v 0 0\n", "the line breaks off where a number should follow (line 1)"},
        {"v 0 0 # 0\n", "the line breaks off where a number should follow (line 1)"},
        {"\n\nv 0 1,5 0\n", "\"1,5\" where a number should follow (line 3)"},
        {"v 0 0 0 1 x\n", "\"x\" where a number should follow (line 1)"},
        {"v 0 1e39 0\n", "a coordinate is not a number (line 1)"},
        {"v 0 0 -inf\n", "a coordinate is not a number (line 1)"},
        {"v nan 0 0\n", "a coordinate is not a number (line 1)"},
        {three + nul, "not an OBJ file: it is not all text (line 4)"},
        {three + "# " + nul, "not an OBJ file: it is not all text (line 4)"},
        {"\x7F"
         "ELF",
         "not an OBJ file: it is not all text (line 1)"},
        {"\n#" + std::string(300000, '-') + "\n", "a line is longer than 262144 bytes (line 2)"},
        {three + continued, "a line is longer than 262144 bytes (line 4)"},
    };
    for (auto const& row : rows) {
        EXPECT_EQ(run(row.contents), 21U);
        EXPECT_EQ(events_.events, Texts{std::string("80 Error : obj/in.obj: ") + row.error + "\n"});
        EXPECT_FALSE(folder_.has("out.obj"));
    }
}

std::string const kTriangle = "v 0 0 0\nv 1 0 0\nv 0 1 0\n";

TEST_F(Obj, Materials) {
    std::string const none = "there is no material \"";
    struct {
        std::string library, contents, materials, faces;
        Texts warnings;
    } const rows[] = {
        {"newmtl a b\nKd 1 .5 0 # c\nillum 2\nd 0.25\nnewmtl c\\ \nnewmtl d\nKd .5\nTr 0.75\n",
         "mtllib lib.mtl\nusemtl d\nf 1 2 3\nusemtl c\\ \nf 1 2 3\nusemtl a b\nf 1 2 3\nusemtl\nf 1 2 3\n",
         "newmtl d\nKd 0.5 0.5 0.5\nd 0.25\nnewmtl c\\ \nKd 1 1 1\nd 1\nnewmtl a_b\nKd 1 0.5 0\nd 0.25\n",
         "usemtl d\nf 1 2 3\nusemtl c\\ \nf 1 2 3\nusemtl a_b\nf 1 2 3\nusemtl\nf 1 2 3\n",
         {}},
        {"\xEF\xBB\xBFnewmtl x\nKd 7 -1 0\r\nnewmtl x y\nnewmtl x_y\nTr 2",
         "mtllib none lib.mtl # 1\nmtllib lib.mtl\ng a\nusemtl x y\nf 1 2 3\nusemtl x_y\nf 1 2 3\nusemtl x\nf 1 2 3\n",
         "newmtl x_y\nKd 1 1 1\nd 1\nnewmtl x_y_2\nKd 1 1 1\nd 0\nnewmtl x\nKd 1 0 0\nd 1\n",
         "g a\nusemtl x_y\nf 1 2 3\nusemtl x_y_2\nf 1 2 3\nusemtl x\nf 1 2 3\n",
         {"obj/in.obj: the material library \"none\" cannot be opened (line 4)"}},
        {"Kd 1 1 1\nnewmtl\nnewmtl x\nKd 1 2\nKd a\nKd 1 0 nan\nKd 1 0 0 0\nKd\nd\nTr x\nd 1 1\nKd 0 0 1\n\x01\nKd 1 0 "
         "0",
         "mtllib lib.mtl\nusemtl x\nf 1 2 3\nusemtl y\nf 1 2 3\nusemtl z\nf 1 2 3\nusemtl y\nf 1 2 3\n",
         "newmtl x\nKd 0 0 1\nd 1\n",
         "usemtl x\nf 1 2 3\nusemtl\nf 1 2 3\nf 1 2 3\nf 1 2 3\n",
         {"obj/lib.mtl: it belongs to no material (line 1)", "obj/lib.mtl: 10 more mistakes",
          "obj/in.obj: " + none + "y\" and 1 more; what uses it has none (line 7)"}},
        {"",
         "mtllib a folder\nusemtl y\nf 1 2 3",
         "",
         "f 1 2 3\n",
         {"obj/in.obj: the material library \"a folder\" cannot be opened (line 4)",
          "obj/in.obj: " + none + "y\"; what uses it has none (line 5)"}},
        {"newmtl x\n" + std::string(300000, '-'),
         "mtllib my lib.mtl\nusemtl x\nf 1 2 3",
         "newmtl x\nKd 1 1 1\nd 1\n",
         "usemtl x\nf 1 2 3\n",
         {"obj/my lib.mtl: a line is too long (line 2)"}},
    };
    std::filesystem::create_directory(folder_.path("a folder"));
    for (auto const& row : rows) {
        folder_.write(row.contents.find("my lib") != std::string::npos ? "my lib.mtl" : "lib.mtl", row.library);
        folder_.write("in.obj", kTriangle + row.contents);
        EXPECT_EQ(translate(job("o ut.obj")), 0U);
        EXPECT_EQ(warnings(), row.warnings);
        EXPECT_EQ(folder_.read("o_ut.mtl"), row.materials);
        EXPECT_EQ(folder_.read("o ut.obj"), (row.materials.empty() ? "" : "mtllib o_ut.mtl\n") + kTriangle + row.faces);
        std::filesystem::remove(folder_.path("o_ut.mtl"));
    }
}

TEST_F(Obj, OlderFilesStayWhenTheMaterialsCannotBeWritten) {
    folder_.write("lib.mtl", "newmtl x");
    folder_.write("in.obj", kTriangle + "mtllib lib.mtl\nusemtl x\nf 1 2 3\nf 1 1 1\n");
    folder_.write("out.obj", "older");
    folder_.write("out.mtl", "older too");
    toolkit::Job strict = job("out.obj");
    strict.options.Add("/XMesh/Import/Degenerate", "fail");
    EXPECT_EQ(translate(strict), 21U);
    EXPECT_EQ(folder_.read("out.mtl"), "older too");
    EXPECT_EQ(translate(job("lib.obj")), 11U);
    EXPECT_EQ(events_.events,
              Texts{"80 Error : obj/lib.mtl: is a file that was read with an input; name another file to write\n"});
    std::filesystem::remove(folder_.path("out.mtl"));
    std::filesystem::create_directory(folder_.path("out.mtl"));
    EXPECT_EQ(translate(job("out.obj")), 14U);
    ASSERT_EQ(events_.events.size(), 1U);
    EXPECT_EQ(events_.events[0].rfind("80 Error : obj/out.mtl: cannot be created: ", 0), 0U) << events_.events[0];
    EXPECT_EQ(folder_.read("out.obj"), "older");
    EXPECT_THAT(files(), testing::UnorderedElementsAre("in.obj", "lib.mtl", "out.mtl", "out.obj"));
}

TEST_F(Obj, NormalsHaveLengthOne) {
    // The last vertex makes triangles without area, and the last normal is none.
    std::string contents;
    std::uint32_t bits = 7;
    auto const number = [&bits] {
        bits = bits * 1664525U + 1013904223U;
        return " " + std::to_string(static_cast<double>(bits >> 8) / 4e6 - 2.0);
    };
    for (int i = 0; i < 300; ++i)
        contents += "v" + number() + number() + number() + "\nvn" + number() + number() + number() + "\n";
    contents += "vn 0 0 0\n";
    for (int i = 1; i < 298; ++i) {
        std::string const at = std::to_string(i);
        std::string const next = std::to_string(i % 50 == 0 ? i : i + 1);
        std::string const normal = i % 3 == 0 ? "" : "//" + (i % 5 == 0 ? "301" : at);
        contents += "f " + at + normal + " " + next + normal + " " + std::to_string(i + 2) + normal + "\n";
    }
    folder_.write("in.obj", contents);
    struct {
        char const* word;
        std::size_t normals, facesWithout;
    } const rows[] = {{"none", 0, 297}, {"Keep", 158, 139}, {"face", 292, 5}, {"model", 292, 5}};
    for (auto const& row : rows) {
        toolkit::Job wanted = job("out.obj");
        wanted.options.Add(kNormals, row.word);
        EXPECT_EQ(translate(wanted), 0U);
        std::set<std::string> const normals = normalsOf("out.obj");
        for (std::string const& line : normals) {
            double n[3] = {};
            std::sscanf(line.c_str(), "vn %lf %lf %lf", n, n + 1, n + 2);
            EXPECT_NEAR(std::sqrt(n[0] * n[0] + n[1] * n[1] + n[2] * n[2]), 1, 2e-7) << line;
        }
        std::size_t facesWithout = 0;
        for (std::string const& line : linesOf("out.obj"))
            facesWithout += line[0] == 'f' && line.find("//") == std::string::npos ? 1 : 0;
        EXPECT_EQ(normals.size(), row.normals) << row.word;
        EXPECT_EQ(facesWithout, row.facesWithout) << row.word;
        // Read and written once more, a normal keeps its bits, and those of faces point where their corners say.
        EXPECT_EQ(translate(job("again.obj", "out.obj")), 0U);
        EXPECT_EQ(normalsOf("again.obj"), normals);
        EXPECT_EQ(warnings().empty(), row.word[0] == 'n' || row.word[0] == 'f');
    }
}

TEST_F(Obj, TellsWhatIsOddInColoursAndNormals) {
    EXPECT_EQ(
        run(kTriangle +
            "v 0 0 0 0 0 1.5\nvn 0 0 1\nvn 1 0 -.1\nvn 1 0 0\nf 1//1 2//1 3//1\nf 1//1 3//1 2//1\nf 1//2 2//2 3//2\n"
            "f 1//3 2//3 3//3\nf 1//1 2//2 3//2\nf 1 3 2\n"),
        0U);
    EXPECT_EQ(warnings(), (Texts{"obj/in.obj: 1 vertices whose colours go beyond 0 to 1",
                                 "obj/in.obj: 2 triangles whose normals point to the other side"}));
}

TEST_F(Obj, EveryObjectComesToStlAndToFilesOfItsOwn) {
    folder_.write("lib.mtl", "newmtl red\nKd 1 0 0\n");
    folder_.write("in.obj", "# units: mm\nmtllib lib.mtl\n" + kTriangle +
                                "v 0 0 2\no lid\nusemtl red\nf 1 2 3\ng a b\no\nf 1 2 4\no lid\ng\nf 2 3 4\n");
    toolkit::Job ascii = job("out.stl");
    ascii.options.Add("/STL/Export/Ascii", true);
    EXPECT_EQ(translate(ascii), 0U);
    std::string names;
    for (std::string const& line : linesOf("out.stl"))
        names += line.find("solid") != std::string::npos ? line + "," : "";
    EXPECT_EQ(names, "solid lid,endsolid lid,solid a b,endsolid a b,solid lid,endsolid lid,");

    toolkit::Job split = job("out.obj");
    split.isSplit = true;
    split.toUnit = KOVIUnit("cm");
    EXPECT_EQ(translate(split), 0U);
    EXPECT_THAT(files(), testing::UnorderedElementsAre("in.obj", "lib.mtl", "out.stl", "out-lid.obj", "out-lid.mtl",
                                                       "out-a_b.obj", "out-a_b.mtl"));
    EXPECT_EQ(folder_.read("out-a_b.obj"), "# units = centimeter\nmtllib out-a_b.mtl\n"
                                           "v 0 0 0\nv 0.1 0 0\nv 0 0 0.2\ng a b\nusemtl red\nf 1 2 3\n");
    EXPECT_EQ(folder_.read("out-lid.mtl"), "newmtl red\nKd 1 0 0\nd 1\n");
    EXPECT_EQ(translate(job("back.stl", "out-lid.obj")), 0U);
    EXPECT_EQ(events_.events[0], "50 obj/out-lid.obj: OBJ, 2 faces, 2 triangles, 4 vertices\n");
}

} // namespace
