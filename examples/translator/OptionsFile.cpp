#include "OptionsFile.h"

#include <cstdio>

#include "files.h"
#include "report.h"

namespace toolkit {

namespace {

/// Some editors put one in front.
void skipByteOrderMark(std::FILE* file) {
    for (int const wanted : {0xEF, 0xBB, 0xBF}) {
        int const c = std::getc(file);
        if (c != wanted) {
            std::ungetc(c, file);
            return;
        }
    }
}

} // namespace

KOVIResult OptionsFile::read(char const* file) {
    KOVIResult result = kSuccess;
    File const stream = openToRead(file, result);
    if (!stream)
        return result;
    skipByteOrderMark(stream.get());
    KOVACfgFileSection* const options = createSection("");
    KOVACfgFileSection* current = options;
    int keys = 0;
    int errors = 0;
    for (long number = 1; loadLine(stream.get(), number, current); ++number) {
        if (GetErrorCount() > errors) {
            errors = GetErrorCount();
            lines_.push_back({"", "", number});
        } else if (options->GetNumKeys() > keys) {
            KOVACfgFileKey const* const key = options->GetKey(keys++);
            char const* const name = key->GetName();
            Gk_String const values = key->GetAllValues();
            char const* const value = values;
            lines_.push_back({name, value, number});
        }
    }
    if (std::ferror(stream.get()) != 0)
        return fail(kInvalidFile, file, kNowhere, "the file cannot be read to its end");
    if (GetSectionCount() > 1)
        warn(file, kNowhere, "what stands behind a [section] is left out");
    return kSuccess;
}

} // namespace toolkit
