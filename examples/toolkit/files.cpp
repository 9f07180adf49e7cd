#include "files.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <string>
#include <system_error>

#include <kova/system/KOVAFilePath.h>

#include "narrow.h"
#include "report.h"

namespace toolkit {

namespace fs = std::filesystem;

namespace {

constexpr bool kNamesAreWide = sizeof(fs::path::value_type) > 1;

/// What is no UTF-8 stands for the characters of the same numbers.
[[maybe_unused]] fs::path widePath(char const* name) {
    try {
        return fs::u8path(name);
    } catch (std::system_error const&) {
        return {std::u16string(name, name + std::strlen(name))};
    }
}

} // namespace

fs::path systemPath(char const* name) {
    if constexpr (kNamesAreWide)
        return widePath(name);
    std::string text(name);
    std::replace(text.begin(), text.end(), '\\', '/');
    return text;
}

KOVAString textOf(char const* name) {
    if constexpr (kNamesAreWide)
        return {reinterpret_cast<unsigned short const*>(widePath(name).c_str())};
    return {name};
}

std::string nameFrom(KOVAString const& text) {
    if constexpr (kNamesAreWide)
        return fs::path(std::u16string(static_cast<unsigned short const*>(text),
                                       static_cast<unsigned short const*>(text) + text.length()))
            .u8string();
    return narrow(text);
}

File openFile(fs::path const& path, char const* mode) {
    KOVAString const name = textOf(path.u8string().c_str());
    return File(KOVAFilePath(name).OpenFile(KOVAString(mode)));
}

std::string wholePath(char const* name) {
    std::error_code error;
    fs::path const path = fs::absolute(systemPath(name), error);
    fs::path const whole = fs::weakly_canonical(path, error);
    return (error ? path : whole).u8string();
}

bool isSameFile(char const* a, char const* b) {
    std::error_code error;
    return fs::equivalent(systemPath(a), systemPath(b), error) || wholePath(a) == wholePath(b);
}

File openToRead(char const* name, KOVIResult& result) {
    File file = openFile(systemPath(name), "rb");
    if (!file) {
        int const error = errno;
        result = fail(error == ENOENT ? kFileNotFound : kFileOpenError, name, kNowhere, "cannot be opened: %s",
                      std::strerror(error));
    }
    return file;
}

} // namespace toolkit
