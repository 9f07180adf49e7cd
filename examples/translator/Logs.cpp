#include "Logs.h"

#include <cerrno>
#include <cstring>

#include <kova/system/KOVAFilePath.h>

#include "report.h"

namespace toolkit {

KOVIResult Logs::open(File& file, KOVALogger& logger, char const* name, std::vector<char const*> const& others) {
    for (char const* const other : others) {
        if (other && isSameFile(name, other))
            return fail(kInvalidArgument, name, kNowhere, "cannot be a log: the run needs it for something else");
    }
    file.reset(KOVAFilePath(name).OpenFile(KOVAString("w")));
    if (!file)
        return fail(kFileOpenError, name, kNowhere, "cannot be created: %s", std::strerror(errno));
    logger.Initialize(file.get(), KOVA_LEVEL_UNSET);
    return kSuccess;
}

KOVIResult Logs::open(char const* text, char const* json, std::vector<char const*> const& others) {
    KOVIResult const result = text ? open(textFile_, text_, text, others) : kSuccess;
    if (result.IsFailure() || !json)
        return result;
    std::vector<char const*> taken = others;
    taken.push_back(text);
    return open(jsonFile_, json_, json, taken);
}

} // namespace toolkit
