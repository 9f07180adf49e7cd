#pragma once

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <string>

class KOVAString;

/// The system's file calls. Names are taken with backslashes or slashes, narrow in the locale's
/// encoding or wide; a null name is refused. Interrupted calls go on by themselves.
namespace kova::detail {

/// A narrow name as the standard library's paths have it, and back.
std::filesystem::path systemPath(char const* name);
std::string narrowName(std::filesystem::path const& path);

enum class FileAccess { Read, Write };
enum class FileTranslation { Text, Binary };
enum class SeekFrom { Start, Current, End };

/// A file number, or -1. Writing creates (for the owner alone) or truncates. Folders are refused.
int openFile(char const* name, FileAccess access, FileTranslation translation);
int openFile(unsigned short const* name, FileAccess access, FileTranslation translation);
void closeFile(int file) noexcept;

/// Bytes read or written, or -1. Writing stops short of `count` only when the system refuses more.
int readFile(int file, char* buffer, unsigned int count) noexcept;
int writeFile(int file, char const* buffer, unsigned int count) noexcept;

/// The new position, or -1.
std::int64_t seekFile(int file, std::int64_t offset, SeekFrom from) noexcept;

/// Line ends pass as they are from now on.
void setBinaryFile(int file) noexcept;

/// The stream's file number; -1 for a null stream.
int fileNumber(std::FILE* stream) noexcept;

/// A stream that reads a duplicate of the file number, from where it stands; null when that cannot be.
std::FILE* readingStream(int file) noexcept;

/// What the file's owner may do.
struct FilePermissions {
    bool read;
    bool write;
};
FilePermissions filePermissions(int file) noexcept;

/// A file on a disk: no terminal, pipe or device.
bool isPlainFile(int file) noexcept;

/// As fopen, errno included; a folder does not open.
std::FILE* openStream(unsigned short const* name, unsigned short const* mode);
bool removeFile(unsigned short const* name);
KOVAString currentDirectory();
unsigned long processId() noexcept;

} // namespace kova::detail
