#include "Logs.h"

#include <cerrno>
#include <cstring>

#include "report.h"

namespace toolkit {

KOVIResult Logs::open(File& file, KOVALogger& logger, std::string const& name, std::vector<std::string> const& others) {
    for (std::string const& other : others) {
        if (!other.empty() && isSameFile(name.c_str(), other.c_str()))
            return fail(kInvalidArgument, name.c_str(), kNowhere,
                        "cannot be a log: the run needs it for something else");
    }
    file = openFile(systemPath(name.c_str()), "w");
    if (!file)
        return fail(kFileOpenError, name.c_str(), kNowhere, "cannot be created: %s", std::strerror(errno));
    logger.Initialize(file.get(), KOVA_LEVEL_UNSET);
    return kSuccess;
}

KOVIResult Logs::open(std::string const& text, std::string const& json, std::vector<std::string> const& others) {
    KOVIResult const result = text.empty() ? kSuccess : open(textFile_, text_, text, others);
    if (result.IsFailure() || json.empty())
        return result;
    std::vector<std::string> taken = others;
    taken.push_back(text);
    return open(jsonFile_, json_, json, taken);
}

} // namespace toolkit
