#pragma once

#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>

#include <kova/core/KOVIResult.h>
#include <kova/text/KOVAString.h>

namespace toolkit {

struct CloseFile {
    void operator()(std::FILE* file) const noexcept { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

// A file's name is held as bytes: the system's own, or UTF-8 where those are wide. Messages show them as they are.

/// A name as the standard library's file operations take it.
std::filesystem::path systemPath(char const* name);

/// A name as the library's texts have it, and back.
KOVAString textOf(char const* name);
std::string nameFrom(KOVAString const& text);

/// As std::fopen, errno included.
File openFile(std::filesystem::path const& path, char const* mode);

/// Without links and detours; of a file that is not there, its place.
std::string wholePath(char const* name);

/// Whether two names lead to one file, or would if it were there.
bool isSameFile(char const* a, char const* b);

/// Null where it cannot be opened to be read; that is reported, and the result is File Not Found or File Open Error.
File openToRead(char const* name, KOVIResult& result);

} // namespace toolkit
