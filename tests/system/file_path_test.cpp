#include "support/test.h"

namespace {

using test::text;

std::string text(KOVAFilePath const& path) { return text(path.GetPath()); }

TEST(FilePath, TakesNamesApart) {
    // As written, as stored; directory, name, name without extensions, without the last, last extension.
    char const* const rows[][7] = {
        {"a/b/c.tar.gz", "a\\b\\c.tar.gz", "a\\b", "c.tar.gz", "c", "c.tar", "gz"},
        {"dir\\", "dir\\", "dir", "", "", "", ""},
        {"model", "model", "", "model", "model", "model", ""},
        {"a.b/c", "a.b\\c", "a.b", "c", "c", "c", ""},
        {"a.b/c.d", "a.b\\c.d", "a.b", "c.d", "c", "c", "d"},
        {".hidden", ".hidden", "", ".hidden", "", "", "hidden"},
        {"x.", "x.", "", "x.", "x", "x", ""},
        {"/root", "\\root", "", "root", "root", "root", ""},
        {"", "", "", "", "", "", ""},
    };
    for (auto const& row : rows) {
        KOVAFilePath const path(row[0]);
        EXPECT_EQ(
            (Texts{text(path), text(path.GetDirectory()), text(path.GetName()), text(path.GetNameWithoutExtension()),
                   text(path.GetNameWithoutLastExtension()), text(path.GetLastExtension())}),
            Texts(row + 1, row + 7));
        EXPECT_EQ(path.IsValid(), *row[0] != 0);
        EXPECT_EQ((Texts{text(KOVAFilePath(path)), text(KOVAFilePath(&path)), text(KOVAFilePath(KOVAString(row[0])))}),
                  Texts(3, row[1]));
    }
    for (char const* absolute : {"/root", "\\x", "C:/x", "C:\\x"})
        EXPECT_TRUE(KOVAFilePath(absolute).IsAbsolute()) << absolute;
    for (char const* relative : {"", "x", "C:x", "C:", "x/y"})
        EXPECT_FALSE(KOVAFilePath(relative).IsAbsolute()) << relative;
}

TEST(FilePath, Derives) {
    EXPECT_EQ(text(KOVAFilePath("out.tmp.txt", ".log")), "out.log");
    EXPECT_EQ(text(KOVAFilePath("a.b/out", ".log")), "a.b\\out.log");
    EXPECT_EQ(text(KOVAFilePath("a.b/out", nullptr)) + text(KOVAFilePath(nullptr, ".log")), "");
    EXPECT_EQ(text(KOVAFilePath("model").ReplaceLastExtension("log")), "model.log");
    EXPECT_EQ(text(KOVAFilePath("a.b/c.d.e").ReplaceLastExtension(".x")), "a.b\\c.d.x");
    KOVAFilePath const part("dir/Part.STP");
    for (char const* ext : {"stp", ".stp", "STP", "p.stp"})
        EXPECT_EQ(part.HasExtension(KOVAString(ext)), ext[1] != '.') << ext;
    EXPECT_FALSE(part.HasExtension(KOVAString()) || part.HasExtension(KOVAString("tp")));

    char const* const sums[][3] = {
        {"a", "x", "a\\x"},         {"a\\", "x", "a\\x"},           {"a", ".x", "a.x"},
        {"\\data", "x", "\\datax"}, {"\\data\\", "x", "\\data\\x"}, {"a/b", "c/d", "a\\b\\c\\d"}};
    for (auto const& [path, added, result] : sums)
        EXPECT_EQ(text(KOVAFilePath(path) + KOVAString(added)), result) << path;

    char const* const resolved[][3] = {{"..\\x", "a\\b\\f", "a\\x"},    {".\\x", "a\\f", "a\\x"},
                                       {".hidden", "a\\f", "a\\idden"}, {"x", "f", "x"},
                                       {"..\\x", "a\\f", "a\\x"},       {"..\\..\\x", "a\\b\\c\\f", "a\\x"},
                                       {"/x", "a\\f", "\\x"},           {"..\\x", "\\a\\f", "\\a\\x"},
                                       {"..", "a\\b\\f", "a\\"},        {".", "a\\f", "a\\"},
                                       {"C:\\x", "a\\f", "C:\\x"}};
    for (auto const& [path, base, result] : resolved)
        EXPECT_EQ(text(KOVAFilePath(path).ResolveAgainst(KOVAFilePath(base))), result) << path;
}

TEST(FilePath, AssignsAndReportsNull) {
    test::Recorder recorder;
    KOVAFilePath path("a/b.c");
    KOVAFilePath& same = path;
    path = same;
    EXPECT_EQ(text(path), "a\\b.c");
    path = KOVAFilePath();
    EXPECT_EQ(text(path.GetName()) + text(path.GetLastExtension()), "");
    EXPECT_FALSE(path.IsValid() || path.IsAbsolute() || KOVAFilePath(static_cast<char const*>(nullptr)).IsValid() ||
                 KOVAFilePath(static_cast<KOVAFilePath const*>(nullptr)).IsValid());
    EXPECT_TRUE(recorder.events.empty());
    EXPECT_FALSE(KOVAFilePath(static_cast<unsigned short const*>(nullptr)).IsValid());
    EXPECT_EQ(recorder.events, Texts{"90 Assert : Invalid KOVAFilePath\n"});
}

TEST(FilePath, GetCharsStaysWithinTheBuffer) {
    KOVAFilePath const path("abcdef");
    char bytes[] = "########";
    path.GetChars(bytes, 4);
    path.GetChars(bytes + 5, 1);
    path.GetChars(bytes + 6, 0);
    EXPECT_EQ(std::string(bytes, 8), std::string("abc\0#\0##", 8));
    unsigned short units[] = {9, 9, 9, 9};
    path.GetChars(units, 3);
    EXPECT_TRUE(units[1] == 'b' && units[2] == 0 && units[3] == 9);
}

TEST(FilePath, WorksOnFiles) {
    test::Folder const folder("path-files");
    folder.write("a.txt", "text");
    KOVAFilePath const path("path-files/a.txt");
    EXPECT_TRUE(path.DoesFileExist());
    EXPECT_FALSE(KOVAFilePath("path-files").DoesFileExist()); // a folder is no file
    EXPECT_FALSE(KOVAFilePath().DoesFileExist() || KOVAFilePath().RemoveFile());
    EXPECT_EQ(path.OpenFile(static_cast<unsigned short const*>(nullptr)), nullptr);
    std::FILE* const file = path.OpenFile(KOVAString("rb"));
    ASSERT_NE(file, nullptr);
    EXPECT_EQ(std::fgetc(file), 't');
    std::fclose(file);
    EXPECT_TRUE(path.RemoveFile());
    EXPECT_FALSE(path.DoesFileExist() || path.RemoveFile());
    // Bytes of a name survive, whatever the locale makes of them.
    KOVAFilePath const umlaut("path-files/t\xE4st");
    std::FILE* const created = umlaut.OpenFile(KOVAString("wb"));
    ASSERT_NE(created, nullptr);
    std::fclose(created);
    EXPECT_TRUE(umlaut.DoesFileExist() && umlaut.RemoveFile());
}

TEST(FilePath, CurrentFolderAndTemporaryNames) {
    std::string const here = text(KOVAFilePath::GetCurrentWorkingDirectory());
    std::string expected = std::filesystem::current_path().string();
    std::replace(expected.begin(), expected.end(), '/', '\\');
    EXPECT_EQ(here, expected);
    KOVAFilePath first, second;
    KOVAFilePath::GetTemporaryFilePath(first);
    KOVAFilePath::GetTemporaryFilePath(second);
    EXPECT_NE(text(first), text(second));
    EXPECT_EQ(text(first).rfind(".\\KOVATemp", 0), 0U);
    EXPECT_FALSE(first.DoesFileExist());
}

} // namespace
