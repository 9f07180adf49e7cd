#include "FilePairs.h"

#include <algorithm>
#include <cstdio>
#include <map>
#include <system_error>

#include <kova/stream/KOVAFileDescriptor.h>

#include "characters.h"
#include "files.h"
#include "report.h"

namespace toolkit {

namespace {

constexpr char kStandard[] = "-";

bool wasInputOpen = true;
bool wasOutputOpen = true;

bool isFolder(std::string const& name) {
    std::error_code error;
    return name.back() == '/' || name.back() == '\\' || std::filesystem::is_directory(systemPath(name.c_str()), error);
}

/// The input's own name in the folder, with the end of the output's format.
std::string nameInFolder(std::string const& folder, std::string const& input, std::string const& format) {
    std::string const name = input.substr(input.find_last_of("/\\") + 1);
    std::size_t const dot = name.rfind('.');
    std::string const stem = name.substr(0, dot == 0 ? std::string::npos : dot);
    return folder + (folder.back() == '/' || folder.back() == '\\' ? "" : "/") + stem +
           (format.front() == '.' ? "" : ".") + lowered(format);
}

KOVIResult pairWithFolder(CommandLine const& line, std::vector<FilePair>& pairs) {
    std::string const& folder = line.names.back();
    if (line.toFormat.empty())
        return fail(kInvalidArgument, folder.c_str(), kNowhere,
                    "is a folder; name the format of what goes there with --to-format");
    std::map<std::string, std::string> inputs; // by their outputs
    for (std::size_t i = 0; i + 1 < line.names.size(); ++i) {
        std::string const& input = line.names[i];
        if (input == kStandard)
            return fail(kInvalidArgument, folder.c_str(), kNowhere,
                        "is a folder, and standard input has no name to put there; name a file to write");
        pairs.push_back({input, nameInFolder(folder, input, line.toFormat)});
        // Some systems do not tell letters apart by case.
        auto const [entry, isNew] = inputs.try_emplace(lowered(pairs.back().output), input);
        if (!isNew)
            return fail(kInvalidArgument, pairs.back().output.c_str(), kNowhere,
                        "both %s and %s would be written there", entry->second.c_str(), input.c_str());
    }
    return kSuccess;
}

KOVIFile standard(std::FILE* stream, char const* name, KOVAFileDescriptor::IOMode mode) {
    KOVAFileDescriptor(stream, mode).setBinary();
    return {stream, name};
}

KOVIFile named(std::string const& name) {
    return static_cast<unsigned short const*>(textOf(name.c_str()));
}

} // namespace

/// A file takes the lowest place that is free.
void holdStandardStreams() {
    for (std::FILE* file = std::tmpfile(); file; file = std::tmpfile()) {
        int const place = KOVAFileDescriptor(file, KOVAFileDescriptor::Read).fileNumber();
        wasInputOpen = wasInputOpen && place != 0;
        wasOutputOpen = wasOutputOpen && place != 1;
        if (place > 2) {
            std::fclose(file);
            return;
        }
    }
}

KOVIResult pairFiles(CommandLine const& line, std::vector<FilePair>& pairs) {
    std::string const& last = line.names.back();
    if (std::any_of(line.names.begin(), line.names.end(), [](std::string const& name) { return name.empty(); }))
        return fail(kInvalidArgument, "''", kNowhere, "names no file");
    if (isFolder(last))
        return pairWithFolder(line, pairs);
    if (line.names.size() > 2)
        return fail(kInvalidArgument, last.c_str(), kNowhere, "is no folder; several inputs need one to go to");
    if (last == kStandard && line.showsOptions)
        return fail(kInvalidArgument, "--show-options", kNowhere,
                    "wants standard output for itself; name a file to write");
    if (line.names.front() == kStandard && !wasInputOpen)
        return fail(kFileOpenError, "standard input", kNowhere, "is closed");
    if (last == kStandard && !wasOutputOpen)
        return fail(kFileOpenError, "standard output", kNowhere, "is closed");
    pairs.push_back({line.names.front(), last});
    return kSuccess;
}

KOVIFile inputFile(std::string const& name) {
    return name == kStandard ? standard(stdin, "standard input", KOVAFileDescriptor::Read) : named(name);
}

KOVIFile outputFile(std::string const& name) {
    return name == kStandard ? standard(stdout, "standard output", KOVAFileDescriptor::Write) : named(name);
}

} // namespace toolkit
