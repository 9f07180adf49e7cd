#pragma once

#include <cstdio>
#include <filesystem>
#include <memory>

#include <kova/core/KOVIResult.h>
#include <kova/system/KOVAFilePath.h>

namespace toolkit {

struct CloseFile {
    void operator()(std::FILE* file) const noexcept { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

/// The name as the standard library's file operations take it: in the system's own encoding.
std::filesystem::path systemPath(char const* name);

/// And back.
KOVAFilePath libraryPath(std::filesystem::path const& path);

/// Whether two names lead to one file, or would if it were there.
bool isSameFile(char const* a, char const* b);

/// Null where the file cannot be opened; that is reported, and the result is File Not Found or File Open Error.
File openToRead(char const* name, KOVIResult& result);

} // namespace toolkit
