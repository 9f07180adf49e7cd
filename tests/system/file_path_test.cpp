#include <kova/system/KOVAFilePath.h>

#include <gtest/gtest.h>

#include <clocale>
#include <filesystem>
#include <string>

#include "support/Folder.h"
#include "support/Recorder.h"

namespace {

std::string text(KOVAString const& s) {
    return s.length() > 0 ? static_cast<char const*>(s) : "";
}

std::string text(KOVAFilePath const& path) {
    return text(path.GetPath());
}

TEST(FilePath, TakesNamesApart) {
    struct {
        char const* path;
        char const* stored;
        char const* directory;
        char const* name;
        char const* stem;     ///< without any extension
        char const* longStem; ///< without the last
        char const* extension;
        bool absolute;
    } const rows[] = {
        {"a/b/c.tar.gz", "a\\b\\c.tar.gz", "a\\b", "c.tar.gz", "c", "c.tar", "gz", false},
        {"dir\\", "dir\\", "dir", "", "", "", "", false},
        {"model", "model", "", "model", "model", "model", "", false},
        {"a.b/c", "a.b\\c", "a.b", "c", "c", "c", "", false},
        {"a.b/c.d", "a.b\\c.d", "a.b", "c.d", "c", "c", "d", false},
        {".hidden", ".hidden", "", ".hidden", "", "", "hidden", false},
        {"x.", "x.", "", "x.", "x", "x", "", false},
        {"/root", "\\root", "", "root", "root", "root", "", true},
        {"C:/x", "C:\\x", "C:", "x", "x", "x", "", true},
        {"C:x", "C:x", "", "C:x", "C:x", "C:x", "", false},
        {"", "", "", "", "", "", "", false},
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.path);
        KOVAFilePath const path(row.path);
        EXPECT_EQ(text(path), row.stored);
        EXPECT_EQ(text(path.GetDirectory()), row.directory);
        EXPECT_EQ(text(path.GetName()), row.name);
        EXPECT_EQ(text(path.GetNameWithoutExtension()), row.stem);
        EXPECT_EQ(text(path.GetNameWithoutLastExtension()), row.longStem);
        EXPECT_EQ(text(path.GetLastExtension()), row.extension);
        EXPECT_EQ(path.IsAbsolute(), row.absolute);
        EXPECT_EQ(path.IsValid(), *row.stored != 0);
        EXPECT_EQ(text(KOVAFilePath(path)), row.stored);
        EXPECT_EQ(text(KOVAFilePath(&path)), row.stored);
        EXPECT_EQ(text(KOVAFilePath(KOVAString(row.path))), row.stored);
    }
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

    struct {
        char const* path;
        char const* added;
        char const* result;
    } const sums[] = {{"a", "x", "a\\x"},         {"a\\", "x", "a\\x"},           {"a", ".x", "a.x"},
                      {"\\data", "x", "\\datax"}, {"\\data\\", "x", "\\data\\x"}, {"a/b", "c/d", "a\\b\\c\\d"}};
    for (auto const& row : sums)
        EXPECT_EQ(text(KOVAFilePath(row.path) + KOVAString(row.added)), row.result) << row.path;

    struct {
        char const* path;
        char const* base;
        char const* result;
    } const resolved[] = {{"..\\x", "a\\b\\f", "a\\x"},
                          {".\\x", "a\\f", "a\\x"},
                          {".hidden", "a\\f", "a\\idden"},
                          {"x", "f", "x"},
                          {"..\\x", "a\\f", "a\\x"},
                          {"..\\..\\x", "a\\b\\c\\f", "a\\x"},
                          {"/x", "a\\f", "\\x"},
                          {"..", "a\\b\\f", "a\\"},
                          {".", "a\\f", "a\\"},
                          {"C:\\x", "a\\f", "C:\\x"}};
    for (auto const& row : resolved)
        EXPECT_EQ(text(KOVAFilePath(row.path).ResolveAgainst(KOVAFilePath(row.base))), row.result) << row.path;
}

TEST(FilePath, AssignsAndReportsNull) {
    test::Recorder recorder;
    KOVAFilePath path("a/b.c");
    KOVAFilePath& same = path;
    path = same;
    EXPECT_EQ(text(path), "a\\b.c");
    path = KOVAFilePath();
    EXPECT_FALSE(path.IsValid() || path.IsAbsolute());
    EXPECT_EQ(text(path.GetName()) + text(path.GetLastExtension()), "");
    path = KOVAFilePath("x/y.z");
    EXPECT_EQ(text(path.GetName()), "y.z");
    EXPECT_FALSE(KOVAFilePath(static_cast<char const*>(nullptr)).IsValid());
    EXPECT_FALSE(KOVAFilePath(static_cast<KOVAFilePath const*>(nullptr)).IsValid());
    EXPECT_TRUE(recorder.events.empty());
    EXPECT_FALSE(KOVAFilePath(static_cast<unsigned short const*>(nullptr)).IsValid());
    EXPECT_EQ(recorder.events, std::vector<std::string>{"90 Assert : Invalid KOVAFilePath\n"});
}

TEST(FilePath, GetCharsStaysWithinTheBuffer) {
    KOVAFilePath const path("abcdef");
    char bytes[] = "########";
    path.GetChars(bytes, 4);
    EXPECT_EQ(std::string(bytes, 5), std::string("abc\0#", 5));
    path.GetChars(bytes, 1);
    EXPECT_EQ(bytes[0], 0);
    path.GetChars(bytes + 1, 0);
    EXPECT_EQ(bytes[1], 'b');
    unsigned short units[8] = {9, 9, 9, 9, 9, 9, 9, 9};
    path.GetChars(units, 3);
    EXPECT_EQ(units[1], 'b');
    EXPECT_EQ(units[2], 0);
    EXPECT_EQ(units[3], 9);
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
