#include <kova/platform/files.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <string>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <kova/text/KOVAString.h>

namespace kova::detail {

namespace {

constexpr unsigned int kMostAtOnce = INT_MAX;

/// The one door: paths carry backslashes everywhere in the library, the system wants slashes.
std::string systemName(char const* name) {
    std::string result(name);
    std::replace(result.begin(), result.end(), '\\', '/');
    return result;
}

std::string systemName(unsigned short const* name) {
    KOVAString const text(name);
    return systemName(static_cast<char const*>(text));
}

bool isFolder(int file) noexcept {
    struct stat status;
    return ::fstat(file, &status) == 0 && S_ISDIR(status.st_mode);
}

int openByName(std::string const& name, FileAccess access) {
    if (access == FileAccess::Write)
        return ::open(name.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, S_IRUSR | S_IWUSR);
    int const file = ::open(name.c_str(), O_RDONLY | O_CLOEXEC);
    if (file >= 0 && isFolder(file)) {
        ::close(file);
        errno = EISDIR;
        return -1;
    }
    return file;
}

} // namespace

std::filesystem::path systemPath(char const* name) {
    return systemName(name);
}

std::string narrowName(std::filesystem::path const& path) {
    return path.native();
}

int openFile(char const* name, FileAccess access, FileTranslation /*translation*/) {
    return name ? openByName(systemName(name), access) : -1;
}

int openFile(unsigned short const* name, FileAccess access, FileTranslation /*translation*/) {
    return name ? openByName(systemName(name), access) : -1;
}

void closeFile(int file) noexcept {
    ::close(file);
}

int readFile(int file, char* buffer, unsigned int count) noexcept {
    ssize_t result = -1;
    do {
        result = ::read(file, buffer, std::min(count, kMostAtOnce));
    } while (result < 0 && errno == EINTR);
    return static_cast<int>(result);
}

int writeFile(int file, char const* buffer, unsigned int count) noexcept {
    unsigned int const wanted = std::min(count, kMostAtOnce);
    unsigned int written = 0;
    while (written < wanted) {
        ssize_t const result = ::write(file, buffer + written, wanted - written);
        if (result > 0)
            written += static_cast<unsigned int>(result);
        else if (result == 0 || errno != EINTR)
            return written > 0 ? static_cast<int>(written) : -1;
    }
    return static_cast<int>(written);
}

std::int64_t seekFile(int file, std::int64_t offset, SeekFrom from) noexcept {
    int const origin = from == SeekFrom::Start ? SEEK_SET : from == SeekFrom::Current ? SEEK_CUR : SEEK_END;
    return ::lseek(file, static_cast<off_t>(offset), origin);
}

void setBinaryFile(int /*file*/) noexcept {}

int fileNumber(std::FILE* stream) noexcept {
    return stream ? ::fileno(stream) : -1;
}

std::FILE* readingStream(int file) noexcept {
    int const duplicate = ::fcntl(file, F_DUPFD_CLOEXEC, 0);
    std::FILE* const stream = duplicate >= 0 ? ::fdopen(duplicate, "r") : nullptr;
    if (!stream && duplicate >= 0)
        ::close(duplicate);
    return stream;
}

FilePermissions filePermissions(int file) noexcept {
    struct stat status;
    if (::fstat(file, &status) != 0)
        return {false, false};
    return {(status.st_mode & S_IRUSR) != 0, (status.st_mode & S_IWUSR) != 0};
}

bool isPlainFile(int file) noexcept {
    struct stat status;
    return ::fstat(file, &status) == 0 && S_ISREG(status.st_mode);
}

std::FILE* openStream(unsigned short const* name, unsigned short const* mode) {
    if (!name || !mode) {
        errno = name ? EINVAL : ENOENT;
        return nullptr;
    }
    KOVAString const modeText(mode);
    std::FILE* const stream = std::fopen(systemName(name).c_str(), static_cast<char const*>(modeText));
    if (stream && isFolder(fileNumber(stream))) {
        std::fclose(stream);
        errno = EISDIR;
        return nullptr;
    }
    return stream;
}

bool removeFile(unsigned short const* name) {
    return name && ::unlink(systemName(name).c_str()) == 0;
}

KOVAString currentDirectory() {
    std::string folder(256, '\0');
    while (!::getcwd(&folder[0], folder.size())) {
        if (errno != ERANGE)
            return KOVAString();
        folder.resize(folder.size() * 2);
    }
    return KOVAString(folder.c_str());
}

unsigned long processId() noexcept {
    return static_cast<unsigned long>(::getpid());
}

} // namespace kova::detail
