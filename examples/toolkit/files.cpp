#include "files.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <string>
#include <system_error>

#include "report.h"

namespace toolkit {

std::filesystem::path systemPath(char const* name) {
    using Unit = std::filesystem::path::value_type;
    if constexpr (sizeof(Unit) == 1) {
        std::string text(name);
        std::replace(text.begin(), text.end(), '\\', '/');
        return text;
    } else {
        KOVAString const text = KOVAFilePath(name).GetPath();
        unsigned short const* const units = text;
        return std::basic_string<Unit>(units, units + text.length());
    }
}

KOVAFilePath libraryPath(std::filesystem::path const& path) {
    if constexpr (sizeof(std::filesystem::path::value_type) == 1)
        return {path.string().c_str()};
    else
        return {reinterpret_cast<unsigned short const*>(path.c_str())};
}

bool isSameFile(char const* a, char const* b) {
    std::error_code error;
    if (std::filesystem::equivalent(systemPath(a), systemPath(b), error))
        return true;
    std::filesystem::path const first = std::filesystem::weakly_canonical(systemPath(a), error);
    return !error && first == std::filesystem::weakly_canonical(systemPath(b), error) && !error;
}

File openToRead(char const* name, KOVIResult& result) {
    File file(KOVAFilePath(name).OpenFile(KOVAString("rb")));
    if (!file) {
        int const error = errno;
        result = fail(error == ENOENT ? kFileNotFound : kFileOpenError, name, kNowhere, "cannot be opened: %s",
                      std::strerror(error));
    }
    return file;
}

} // namespace toolkit
