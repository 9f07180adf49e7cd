#include "files.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <string>

#include <kova/system/KOVAFilePath.h>

#include "report.h"

namespace translator {

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

File openToRead(char const* name, KOVIResult& result) {
    File file(KOVAFilePath(name).OpenFile(KOVAString("rb")));
    if (!file) {
        int const error = errno;
        result = fail(error == ENOENT ? kFileNotFound : kFileOpenError, name, kNowhere, "cannot be opened: %s",
                      std::strerror(error));
    }
    return file;
}

} // namespace translator
