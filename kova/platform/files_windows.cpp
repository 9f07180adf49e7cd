#include <kova/platform/files.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdlib>

#include <fcntl.h>
#include <io.h>
#include <process.h>
#include <sys/stat.h>
#include <wchar.h>

#include <kova/text/KOVAString.h>

namespace kova::detail {

namespace {

constexpr unsigned int kMostAtOnce = INT_MAX;

static_assert(sizeof(wchar_t) == sizeof(unsigned short));

wchar_t const* wide(unsigned short const* units) noexcept {
    return reinterpret_cast<wchar_t const*>(units);
}

int flags(FileAccess access, FileTranslation translation) noexcept {
    int const use = access == FileAccess::Write ? _O_WRONLY | _O_CREAT | _O_TRUNC : _O_RDONLY;
    return use | (translation == FileTranslation::Binary ? _O_BINARY : _O_TEXT);
}

int permissions(FileAccess access) noexcept {
    return access == FileAccess::Write ? _S_IREAD | _S_IWRITE : 0;
}

} // namespace

std::filesystem::path systemPath(char const* name) {
    KOVAString const text(name);
    return wide(text);
}

std::string narrowName(std::filesystem::path const& path) {
    KOVAString const text(reinterpret_cast<unsigned short const*>(path.c_str()));
    return static_cast<char const*>(text);
}

int openFile(char const* name, FileAccess access, FileTranslation translation) {
    return name ? _open(name, flags(access, translation), permissions(access)) : -1;
}

int openFile(unsigned short const* name, FileAccess access, FileTranslation translation) {
    return name ? _wopen(wide(name), flags(access, translation), permissions(access)) : -1;
}

void closeFile(int file) noexcept {
    _close(file);
}

int readFile(int file, char* buffer, unsigned int count) noexcept {
    return _read(file, buffer, std::min(count, kMostAtOnce));
}

int writeFile(int file, char const* buffer, unsigned int count) noexcept {
    return _write(file, buffer, std::min(count, kMostAtOnce));
}

std::int64_t seekFile(int file, std::int64_t offset, SeekFrom from) noexcept {
    int const origin = from == SeekFrom::Start ? SEEK_SET : from == SeekFrom::Current ? SEEK_CUR : SEEK_END;
    return _lseeki64(file, offset, origin);
}

void setBinaryFile(int file) noexcept {
    _setmode(file, _O_BINARY);
}

int fileNumber(std::FILE* stream) noexcept {
    return stream ? _fileno(stream) : -1;
}

std::FILE* readingStream(int file) noexcept {
    int const duplicate = _dup(file);
    std::FILE* const stream = duplicate >= 0 ? _fdopen(duplicate, "rt") : nullptr;
    if (!stream && duplicate >= 0)
        _close(duplicate);
    return stream;
}

FilePermissions filePermissions(int file) noexcept {
    struct _stat status;
    if (_fstat(file, &status) != 0)
        return {false, false};
    return {(status.st_mode & _S_IREAD) != 0, (status.st_mode & _S_IWRITE) != 0};
}

bool isPlainFile(int file) noexcept {
    struct _stat status;
    return _fstat(file, &status) == 0 && (status.st_mode & _S_IFMT) == _S_IFREG;
}

std::FILE* openStream(unsigned short const* name, unsigned short const* mode) {
    if (!name || !mode) {
        errno = name ? EINVAL : ENOENT;
        return nullptr;
    }
    return _wfopen(wide(name), wide(mode));
}

bool removeFile(unsigned short const* name) {
    return name && _wremove(wide(name)) == 0;
}

KOVAString currentDirectory() {
    wchar_t* const folder = _wgetcwd(nullptr, 0);
    KOVAString const result(reinterpret_cast<unsigned short const*>(folder));
    std::free(folder);
    return result;
}

unsigned long processId() noexcept {
    return static_cast<unsigned long>(_getpid());
}

} // namespace kova::detail
