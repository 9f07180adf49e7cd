// kova-translate: reads models in one format and writes them in another.

#include <cerrno>
#include <csignal>
#include <cstddef>
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include <kova/core/Gk_ErrMgr.h>
#include <kova/diagnostics/KOVAInfo.h>
#include <kova/diagnostics/KOVATimingLogger.h>

#include "CommandLine.h"
#include "Console.h"
#include "FilePairs.h"
#include "Formats.h"
#include "Logs.h"
#include "OptionTable.h"
#include "Translation.h"
#include "report.h"
#include "tasks.h"

namespace {

using toolkit::CommandLine;
using toolkit::FilePair;
using toolkit::fire;
using toolkit::Format;
using toolkit::Formats;
using toolkit::kSuccess;

constexpr char kProgram[] = "kova-translate " KOVA_TRANSLATE_VERSION;

constexpr int kEndingSignals[] = {
    SIGINT,
    SIGTERM,
#ifdef SIGHUP
    SIGHUP,
#endif
};

/// The first signal ends the translation at the next safe point; a second one ends the program as ever.
extern "C" void abortTranslation(int signal) {
    std::signal(signal, SIG_DFL);
    Gk_ErrMgr::setAbort();
}

/// Those that the run needs. A file of an unknown format is reported when it is translated.
std::vector<Format const*> formatsOf(CommandLine const& line, std::vector<FilePair> const& pairs, Formats& formats) {
    if (line.showsOptions)
        return formats.all();
    std::vector<Format const*> used;
    auto const add = [&](std::string const& given, std::string const& file) {
        if (Format const* const format = formats.of(given.empty() ? toolkit::extensionOf(file.c_str()) : given))
            used.push_back(format);
    };
    for (FilePair const& pair : pairs) {
        add(line.fromFormat, pair.input);
        add(line.toFormat, pair.output);
    }
    return used;
}

/// All sources are looked at, so that every mistake is reported at once. The result is that of the first.
KOVIResult readOptions(CommandLine const& line, toolkit::OptionTable& options) {
    KOVIResult result = kSuccess;
    auto const join = [&result](KOVIResult next) { result = result.IsFailure() ? result : next; };
    for (std::string const& file : line.optionFiles)
        join(options.readFile(file.c_str()));
    for (std::string const& assignment : line.assignments)
        join(options.set(assignment));
    join(options.readEnvironment());
    return result;
}

/// All are tried, until somebody ends the run. The result is that of the first that fails.
KOVIResult translateAll(CommandLine const& line, std::vector<FilePair> const& pairs, KOVIOptions const& options,
                        Formats& formats, toolkit::Console& console) {
    toolkit::TakenFiles taken;
    for (std::string const& log : {line.log, line.jsonLog})
        taken.add(log, "a log of this run");
    for (std::string const& file : line.optionFiles)
        taken.add(file, "an options file of this run");
    for (FilePair const& pair : pairs) {
        if (pair.input != "-")
            taken.add(pair.input, "an input of this run");
    }
    KOVIResult result = kSuccess;
    int done = 0;
    int failed = 0;
    for (FilePair const& pair : pairs) {
        toolkit::Job job{toolkit::inputFile(pair.input), toolkit::outputFile(pair.output)};
        job.fromFormat = line.fromFormat;
        job.toFormat = line.toFormat;
        job.options = options;
        job.fromUnit = line.fromUnit;
        job.toUnit = line.toUnit;
        job.placements = line.placements;
        job.isSplit = line.isSplit;
        console.setInputSize(pair.input);
        KOVIResult const next = toolkit::translate(formats, job, taken);
        if (next == toolkit::kAborted) {
            result = next;
            break;
        }
        ++(next.IsFailure() ? failed : done);
        if (next.IsFailure() && result.IsSuccess())
            result = next;
    }
    std::size_t const untried = pairs.size() - static_cast<std::size_t>(done + failed);
    std::string const more = untried > 0 ? ", " + std::to_string(untried) + " not" : "";
    if (pairs.size() > 1)
        KOVAInfo::PrintfAsItIs("%zu files: %d translated, %d failed%s", pairs.size(), done, failed, more.c_str());
    return result;
}

/// Everything between the program's start and end that a log shows.
KOVIResult runProduct(CommandLine const& line, std::vector<FilePair> const& pairs, Formats& formats,
                      toolkit::Console& console) {
    toolkit::OptionTable options(formats, formatsOf(line, pairs, formats));
    KOVIResult const result = readOptions(line, options);
    KOVAOptions given = options.given();
    KOVATaskEvent::SetRunOptions(&given);
    fire<KOVAStartOptionsTaskEvent>();
    KOVATaskEvent::SetRunOptions(nullptr);
    fire<KOVAEndOptionsTaskEvent>(result);
    if (result.IsFailure())
        return result;
    if (line.showsOptions)
        std::fputs(options.values().c_str(), stdout);
    return translateAll(line, pairs, options.handle(), formats, console);
}

/// A format that an argument names is wrong before any file is, and so is a log that has a model's name: "--log *.stl"
/// would lose the first of the models.
KOVIResult checkFormats(CommandLine const& line, Formats& formats) {
    KOVIResult result = kSuccess;
    if (!line.fromFormat.empty())
        formats.of(line.fromFormat, ("--from-format=" + line.fromFormat).c_str(), nullptr, result);
    if (result.IsSuccess() && !line.toFormat.empty())
        formats.of(line.toFormat, ("--to-format=" + line.toFormat).c_str(), nullptr, result);
    for (std::string const& log : {line.log, line.jsonLog}) {
        if (result.IsSuccess() && formats.knows(toolkit::extensionOf(log.c_str())))
            result = toolkit::fail(toolkit::kInvalidArgument, log.c_str(), toolkit::kNowhere,
                                   "cannot be a log: its name is a model's");
    }
    return result;
}

KOVIResult run(CommandLine const& line, Formats& formats, toolkit::Console& console) {
    std::vector<FilePair> pairs;
    KOVIResult result = checkFormats(line, formats);
    if (result.IsSuccess() && !line.names.empty())
        result = toolkit::pairFiles(line, pairs);
    std::vector<std::string> files = line.optionFiles;
    for (FilePair const& pair : pairs)
        files.insert(files.end(), {pair.input, pair.output});
    toolkit::Logs logs;
    if (result.IsSuccess())
        result = logs.open(line.log, line.jsonLog, files);
    if (result.IsFailure())
        return result;
    // Behind console and logs, so that a duration follows the report of its task.
    if (line.isTimed)
        KOVATimingLogger::_timing.Initialize();
    KOVATimingLogger::SetUp();
    fire<KOVAStartProductEvent>("KOVA", kProgram);
    result = runProduct(line, pairs, formats, console);
    fire<KOVAEndProductEvent>(result);
    KOVATimingLogger::Stop();
    return result;
}

KOVIResult run(std::vector<std::string> const& arguments, toolkit::Console& console) {
    CommandLine line;
    KOVIResult const result = toolkit::readCommandLine(arguments, line);
    if (result.IsFailure())
        return result;
    // Who asks for times wants to see them.
    bool const isBrief = line.isTimed && line.talk == CommandLine::ByTerminal;
    console.show(isBrief ? CommandLine::Brief : line.talk, line.level);
    Formats formats;
    switch (line.wish) {
    case CommandLine::Help: std::fputs(toolkit::helpText().c_str(), stdout); return kSuccess;
    case CommandLine::Version: std::puts(kProgram); return kSuccess;
    case CommandLine::ListFormats: std::fputs(formats.description().c_str(), stdout); return kSuccess;
    case CommandLine::ListOptions:
        std::fputs(toolkit::OptionTable(formats, formats.all()).description().c_str(), stdout);
        return kSuccess;
    case CommandLine::Translate: break;
    }
    return run(line, formats, console);
}

std::vector<std::string> argumentsOf(int argc, char const* const* argv) {
    KOVADynamicArray<KOVAString> all;
    KOVAEnvironment::GetArguments(argc, argv, all);
    std::vector<std::string> arguments;
    for (int i = 1; i < all.size(); ++i)
        arguments.push_back(toolkit::nameFrom(all[i]));
    return arguments;
}

} // namespace

// The locale stays "C": there every byte of a name or a text comes through as it is, whatever its encoding.
int main(int argc, char** argv) {
    for (int const signal : kEndingSignals) {
        // Whoever started the program may want it to ignore the signal.
        if (std::signal(signal, abortTranslation) == SIG_IGN)
            std::signal(signal, SIG_IGN);
    }
#ifdef SIGPIPE
    // A pipe that nobody reads any more is an output that cannot be written.
    std::signal(SIGPIPE, SIG_IGN);
#endif
    toolkit::holdStandardStreams();
    toolkit::Console console;
    KOVIResult result = run(argumentsOf(argc, argv), console);
    if (result.IsSuccess() && (std::fflush(stdout) != 0 || std::ferror(stdout) != 0))
        result = toolkit::fail(toolkit::kFileSaveError, "standard output", toolkit::kNowhere, "cannot be written: %s",
                               std::strerror(errno));
    return static_cast<int>(result.GetReturnCode());
}
