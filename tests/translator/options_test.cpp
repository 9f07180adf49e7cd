#include "OptionTable.h"

#include <cmath>
#include <random>
#include <sstream>

#include "Translation.h"
#include "VertexGrid.h"
#include "support/test.h"

namespace {

using toolkit::OptionTable;
using toolkit::Vertex;

constexpr char kDigitsVariable[] = "KOVA/XMesh/Export/Digits";

class TranslatorOptions : public testing::Test {
protected:
    OptionTable table() { return {formats_, {formats_.of("stl")}}; }
    /// What a table shows, without the names, one line an option.
    Texts shown(OptionTable const& options) {
        std::istringstream text(options.values());
        Texts lines;
        for (std::string line; std::getline(text, line);) lines.push_back(line.substr(26));
        return lines;
    }
    /// Translates contents with options; returns the result's number.
    unsigned translate(std::string const& from, std::string const& contents, std::string const& to,
                       Texts const& assignments) {
        OptionTable options = table();
        for (std::string const& assignment : assignments)
            EXPECT_TRUE(options.set(assignment).IsSuccess()) << assignment;
        std::string const input = folder_.write(from, contents);
        std::string const output = folder_.path(to);
        toolkit::Job job{input.c_str(), output.c_str()};
        job.options = options.handle();
        events_.events.clear();
        return toolkit::translate(formats_, job).GetReturnCode();
    }

    test::Folder folder_{"options"};
    toolkit::Formats formats_;
    test::MessageRecorder events_;
};

TEST_F(TranslatorOptions, LaterSourcesWin) {
    struct {
        Texts files, assignments;
        std::string variable, shown;
        int digits;
    } const rows[] = {
        {{}, {}, "", "0     default", 0},
        {{"\xEF\xBB\xBF#\n\n/XMesh/Export/Digits=1\n"}, {}, "", "1     file options/0, line 3", 1},
        {{"/XMesh/Export/Digits=1\n/XMESH/export/DIGITS : 2"}, {}, "", "2     file options/0, line 2", 2},
        {{"/XMesh/Export/Digits=1", "\"/XMesh/Export/Digits\"=\"3\""}, {}, "", "3     file options/1, line 1", 3},
        {{"/XMesh/Export/Digits=1", "/STL/Export/Ascii=no"}, {}, "", "1     file options/0, line 1", 1},
        {{"/XMesh/Export/Digits=1"}, {"/XMesh/Export/Digits=4"}, "", "4     command line", 4},
        {{}, {"/XMesh/Export/Digits=4", " /xmesh/Export/digits = 17 "}, "", "17    command line", 17},
        {{"/XMesh/Export/Digits=1"}, {}, "6", std::string("6     environment variable ") + kDigitsVariable, 6},
        {{"/XMesh/Export/Digits=1"},
         {"/XMesh/Export/Digits=4"},
         "0",
         std::string("0     environment variable ") + kDigitsVariable,
         0},
    };
    for (auto const& row : rows) {
        test::Variable const variable(kDigitsVariable, row.variable);
        OptionTable options = table();
        for (std::size_t i = 0; i < row.files.size(); ++i)
            EXPECT_TRUE(options.readFile(folder_.write(std::to_string(i), row.files[i]).c_str()).IsSuccess());
        for (std::string const& assignment : row.assignments) EXPECT_TRUE(options.set(assignment).IsSuccess());
        EXPECT_TRUE(options.readEnvironment().IsSuccess());
        EXPECT_EQ(shown(options)[1], row.shown);
        KOVAOptions const given = options.given();
        EXPECT_EQ(toolkit::wholeNumber(given, "/XMesh/Export/Digits"), row.digits);
    }
}

TEST_F(TranslatorOptions, EveryMistakeOfAFileIsReportedAndNothingIsTaken) {
    std::string const digits = "'/XMesh/Export/Digits' takes a whole number from 0 to 17, not ";
    std::string const tolerance = "'/XMesh/Import/WeldTol' takes a number that is not negative, not ";
    std::string const ascii = "'/STL/Export/Ascii' takes On or Off, not ";
    std::pair<std::string, std::string> const rows[] = {
        {"/XMesh/Import/WeldTool=1", "unknown option '/XMesh/Import/WeldTool'; did you mean '/XMesh/Import/WeldTol'?"},
        {"far from it = %s\x01", "unknown option 'far from it'"},
        {"no option", "NAME=VALUE should stand here"},
        {"/XMesh/Export/Digits=", "NAME=VALUE should stand here"},
        {"[section", "NAME=VALUE should stand here"},
        {"/XMesh/Export/Digits=18", digits + "'18'"},
        {"/XMesh/Export/Digits=-1", digits + "'-1'"},
        {"/XMesh/Export/Digits=4.5", digits + "'4.5'"},
        {"/XMesh/Export/Digits=4294967297", digits + "'4294967297'"},
        {"/xmesh/export/digits=1,2", digits + "'1,2'"},
        {"/XMesh/Import/WeldTol=-1e-9", tolerance + "'-1e-9'"},
        {"/XMesh/Import/WeldTol=nan", tolerance + "'nan'"},
        {"/XMesh/Import/WeldTol=1e999", tolerance + "'1e999'"},
        {"/XMesh/Import/WeldTol=0.1mm", tolerance + "'0.1mm'"},
        {"/STL/Export/Ascii=1", ascii + "'1'"},
        {"/STL/Export/Ascii=%n\x01", ascii + "'%n?'"},
        {"/XMesh/Import/Degenerate=dropped", "'/XMesh/Import/Degenerate' takes keep, drop or fail, not 'dropped'"},
    };
    std::string contents;
    Texts errors;
    for (auto const& [line, error] : rows) {
        contents += line + "\n/STL/Export/Ascii = On\n";
        errors.push_back("80 Error : options/bad: " + error + " (line " + std::to_string(2 * errors.size() + 1) +
                         ")\n");
    }
    OptionTable options = table();
    EXPECT_EQ(options.readFile(folder_.write("bad", contents).c_str()).GetReturnCode(), 11U);
    EXPECT_EQ(events_.events, errors);
    EXPECT_EQ(shown(options), (Texts{"Off   default", "0     default", "keep  default", "0     default"}));
}

TEST_F(TranslatorOptions, OtherOptionsAreToldOff) {
    std::string const file = folder_.write("some", "/xgeneric/import/HEAL=On\n/STL/Export/Ascii=True\n[more]\nx=y\n");
    OptionTable options = table();
    EXPECT_TRUE(options.readFile(file.c_str()).IsSuccess());
    EXPECT_THAT(events_.events, testing::UnorderedElementsAre(
                                    "70 Warning : options/some: '/xgeneric/import/HEAL' has no effect here (line 1)\n",
                                    "70 Warning : options/some: what stands behind a [section] is left out\n"));
    KOVAOptions const given = options.given();
    EXPECT_TRUE(toolkit::isOn(given, "/STL/Export/Ascii"));
    for (char const* const assignment : {"", "=", "x", "x=", "=x"}) {
        events_.events.clear();
        EXPECT_EQ(options.set(assignment).GetReturnCode(), 11U);
        EXPECT_EQ(events_.events,
                  (Texts{std::string("80 Error : --set: NAME=VALUE should follow, not '") + assignment + "'\n"}));
    }
}

TEST_F(TranslatorOptions, MistakesInTheEnvironment) {
    struct {
        char const* variable;
        char const* value;
        char const* error; ///< none where it is taken
        char const* shown;
    } const rows[] = {
        {kDigitsVariable, "3x", "environment: '/XMesh/Export/Digits' takes a whole number from 0 to 17, not '3x'", ""},
        {kDigitsVariable, "00", "KOVA/XMesh/Export/Digits: zero is written 0 here, not '00'", ""},
        {"KOVA/XMesh/Import/WeldTol", "-0.0", "KOVA/XMesh/Import/WeldTol: zero is written 0 here, not '-0.0'", ""},
        {"KOVA/STL/Export/Ascii", "1", "environment: '/STL/Export/Ascii' takes On or Off, not '1'", ""},
        {"KOVA/STL/Export/Ascii", "NO", nullptr, "Off   environment variable KOVA/STL/Export/Ascii"},
        {"KOVA/XMesh/Import/WeldTol", "1e-3", nullptr, "0.001  environment variable KOVA/XMesh/Import/WeldTol"},
        {"KOVA/XMesh/Import/Degenerate", "Fail", nullptr, "Fail  environment variable KOVA/XMesh/Import/Degenerate"},
    };
    for (auto const& row : rows) {
        test::Variable const variable(row.variable, row.value);
        OptionTable options = table();
        events_.events.clear();
        EXPECT_EQ(options.readEnvironment().GetReturnCode(), row.error ? 11U : 0U) << row.value;
        EXPECT_EQ(events_.events.size(), 1U);
        if (row.error)
            EXPECT_EQ(events_.events[0], std::string("80 Error : ") + row.error + "\n");
        else
            EXPECT_THAT(shown(options), testing::Contains(row.shown));
    }
}

TEST_F(TranslatorOptions, ChangeTheOutput) {
    std::string const thirds = "v 0.333333333 1234567 -2e-9\nv 1 0 0\nv 0 1 0\nf 1 2 3\n";
    // The second triangle has its corners on a line, and one for itself; the third is as thin as 0.01.
    std::string const thin = "v 0 0 0\nv 1 0 0\nv 0 1 0\nv 3 0 0\nv 1 0.01 0\nf 1 2 3\nf 1 2 4\nf 1 2 5\nf 5 3 1\n";
    std::string const all = "v 0 0 0\nv 1 0 0\nv 0 1 0\nv 3 0 0\nv 1 0.01 0\nf 1 2 3\nf 1 2 4\nf 1 2 5\nf 5 3 1\n";
    struct {
        std::string contents;
        Texts assignments;
        std::string obj;
        long long dropped; ///< -1 where it is not said
    } const rows[] = {
        {thirds, {}, "v 0.33333334 1234567 -2e-09\nv 1 0 0\nv 0 1 0\nf 1 2 3\n", -1},
        {thirds, {"/XMesh/Export/Digits=3"}, "v 0.333 1.23e+06 -2e-09\nv 1 0 0\nv 0 1 0\nf 1 2 3\n", -1},
        {thirds,
         {"/XMesh/Export/Digits=17"},
         "v 0.3333333432674408 1234567 -1.9999999434361371e-09\nv 1 0 0\nv 0 1 0\nf 1 2 3\n",
         -1},
        {thin, {}, all, -1},
        {thin,
         {"/XMesh/Import/Degenerate=DROP"},
         "v 0 0 0\nv 1 0 0\nv 0 1 0\nv 1 0.01 0\nf 1 2 3\nf 1 2 4\nf 4 3 1\n",
         1},
        {thin, {"/XMesh/Import/WeldTol=0.009"}, all, -1},
        {thin,
         {"/XMesh/Import/WeldTol=0.011"},
         "v 0 0 0\nv 1 0 0\nv 0 1 0\nv 3 0 0\nf 1 2 3\nf 1 2 4\nf 1 2 2\nf 2 3 1\n",
         -1},
        {thin,
         {"/XMesh/Import/WeldTol=0.011", "/XMesh/Import/Degenerate=drop"},
         "v 0 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 3\nf 2 3 1\n",
         2},
        {thin, {"/XMesh/Import/WeldTol=1e300", "/XMesh/Import/Degenerate=drop"}, "", 4},
    };
    for (auto const& row : rows) {
        EXPECT_EQ(translate("in.obj", row.contents, "out.obj", row.assignments), 0U);
        EXPECT_EQ(folder_.read("out.obj"), row.obj);
        std::string const note =
            "50 options/in.obj: " + std::to_string(row.dropped) + " triangles without area dropped\n";
        EXPECT_EQ(testing::Value(events_.events, testing::Contains(note)), row.dropped >= 0) << note;
    }
    // STL: neither welded nor with what was dropped.
    Texts const drop = {"/XMesh/Import/WeldTol=1", "/XMesh/Import/Degenerate=drop"};
    EXPECT_EQ(translate("in.obj", thin, "out.stl", drop), 0U);
    EXPECT_EQ(folder_.read("out.stl").size(), 84U + 3 * 50);
    EXPECT_EQ(folder_.read("out.stl")[80], 3);
    EXPECT_EQ(translate("in.obj", thirds, "out.stl", {"/STL/Export/Ascii=yes", "/XMesh/Export/Digits=1"}), 0U);
    EXPECT_NE(folder_.read("out.stl").find("facet normal -2e-15 -2e-15 -1\n"), std::string::npos)
        << folder_.read("out.stl");
    EXPECT_NE(folder_.read("out.stl").find("vertex 0.3 1e+06 -2e-09\n"), std::string::npos);
}

TEST_F(TranslatorOptions, FailsForATriangleWithoutArea) {
    std::string const thin = "v 0 0 0\nv 1 0 0\nv 0 1 0\nv 3 0 0\nf 1 2 3\nf 2 4 1\nf 1 1 1";
    for (char const* const name : {"out.obj", "out.stl"}) {
        EXPECT_EQ(translate("in.obj", thin, name, {"/XMesh/Import/Degenerate=fail"}), 21U);
        EXPECT_EQ(events_.events, (Texts{"80 Error : options/in.obj: triangle 2 has no area\n"}));
        EXPECT_FALSE(folder_.has(name));
    }
}

TEST(VertexGrid, FindsTheEarliestWithinTheTolerance) {
    for (double const tolerance : {1e-300, 1e-45, 1e-3, 0.125, 2.0, 1e30, 1e300}) {
        for (int const scale : {-149, -4, 96}) {
            toolkit::VertexGrid grid(tolerance);
            std::vector<Vertex> wanted;
            std::minstd_rand random;
            // Small whole numbers of a power of two: exact, whatever the processor's precision.
            auto const coordinate = [&] { return std::ldexp(static_cast<float>(random() % 33) - 16, scale); };
            for (int i = 0; i < 2500; ++i) {
                Vertex const v = {coordinate(), coordinate(), coordinate()};
                std::size_t at = 0;
                while (at < wanted.size() && std::hypot(double{wanted[at].x} - v.x, double{wanted[at].y} - v.y,
                                                        double{wanted[at].z} - v.z) > tolerance)
                    ++at;
                bool const isNew = at == wanted.size();
                if (isNew) wanted.push_back(v);
                ASSERT_EQ(grid.add(v), at + 1) << tolerance << " " << scale;
                // What is taken away again leaves no trace.
                if (isNew && i % 5 == 0) {
                    grid.removeLast();
                    ASSERT_EQ(grid.add(v), at + 1);
                }
            }
            EXPECT_EQ(grid.vertices(), wanted);
        }
    }
}

} // namespace
