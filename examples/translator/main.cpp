// kova-translate INPUT OUTPUT: reads a model in one format and writes it in another.

#include <clocale>
#include <csignal>
#include <vector>

#include <kova/core/Gk_ErrMgr.h>
#include <kova/diagnostics/KOVATimingLogger.h>

#include "CommandLine.h"
#include "Console.h"
#include "Formats.h"
#include "Logs.h"
#include "OptionTable.h"
#include "Translation.h"
#include "report.h"
#include "tasks.h"

namespace {

using toolkit::CommandLine;
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
std::vector<Format const*> formatsOf(CommandLine const& line, Formats& formats) {
    if (line.showsOptions || line.wish == CommandLine::ListOptions)
        return formats.all();
    std::vector<Format const*> used;
    for (char const* const name : line.names) {
        if (Format const* const format = formats.of(name))
            used.push_back(format);
    }
    return used;
}

/// All sources are looked at, so that every mistake is reported at once. The result is that of the first.
KOVIResult readOptions(CommandLine const& line, toolkit::OptionTable& options) {
    KOVIResult result = kSuccess;
    auto const join = [&result](KOVIResult next) { result = result.IsFailure() ? result : next; };
    for (char const* const file : line.optionFiles)
        join(options.readFile(file));
    for (char const* const assignment : line.assignments)
        join(options.set(assignment));
    join(options.readEnvironment());
    return result;
}

/// Everything between the program's start and end that a log shows.
KOVIResult runProduct(CommandLine const& line, Formats& formats, toolkit::Console& console) {
    toolkit::OptionTable options(formats, formatsOf(line, formats));
    KOVIResult const result = readOptions(line, options);
    KOVAOptions given = options.given();
    KOVATaskEvent::SetRunOptions(&given);
    fire<KOVAStartOptionsTaskEvent>();
    KOVATaskEvent::SetRunOptions(nullptr);
    fire<KOVAEndOptionsTaskEvent>(result);
    if (result.IsFailure())
        return result;
    if (line.showsOptions)
        options.show();
    if (line.names.empty())
        return kSuccess;
    toolkit::Job job{line.names[0], line.names[1]};
    job.options = options.handle();
    job.fromUnit = line.fromUnit;
    job.toUnit = line.toUnit;
    job.placements = line.placements;
    job.isSplit = line.isSplit;
    for (char const* const log : {line.log, line.jsonLog}) {
        if (log)
            job.logs.push_back(log);
    }
    console.setInputSize(line.names[0]);
    return toolkit::translate(formats, job);
}

KOVIResult run(CommandLine const& line, Formats& formats, toolkit::Console& console) {
    std::vector<char const*> files = line.optionFiles;
    files.insert(files.end(), line.names.begin(), line.names.end());
    toolkit::Logs logs;
    KOVIResult result = logs.open(line.log, line.jsonLog, files);
    if (result.IsFailure())
        return result;
    if (line.level != KOVA_LEVEL_UNSET)
        console.setLevel(line.level);
    // Behind console and logs, so that a duration follows the report of its task.
    if (line.isTimed)
        KOVATimingLogger::_timing.Initialize();
    KOVATimingLogger::SetUp();
    fire<KOVAStartProductEvent>("KOVA", kProgram);
    result = runProduct(line, formats, console);
    fire<KOVAEndProductEvent>(result);
    KOVATimingLogger::Stop();
    return result;
}

KOVIResult run(std::vector<char const*> const& arguments, toolkit::Console& console) {
    CommandLine line;
    KOVIResult const result = toolkit::readCommandLine(arguments, line);
    if (result.IsFailure())
        return result;
    Formats formats;
    switch (line.wish) {
    case CommandLine::Help:
        toolkit::print(toolkit::kUsage);
        toolkit::print(toolkit::kHelp);
        return kSuccess;
    case CommandLine::Version: toolkit::print(kProgram); return kSuccess;
    case CommandLine::ListOptions: toolkit::OptionTable(formats, formats.all()).list(); return kSuccess;
    case CommandLine::Translate: break;
    }
    return run(line, formats, console);
}

} // namespace

int main(int argc, char** argv) {
    // File names are in the user's encoding; numbers stay in the "C" locale.
    std::setlocale(LC_CTYPE, "");
    for (int const signal : kEndingSignals) {
        // Whoever started the program may want it to ignore the signal.
        if (std::signal(signal, abortTranslation) == SIG_IGN)
            std::signal(signal, SIG_IGN);
    }
#ifdef SIGPIPE
    // A pipe that nobody reads any more is an output that cannot be written.
    std::signal(SIGPIPE, SIG_IGN);
#endif
    toolkit::Console console;
    return static_cast<int>(run({argv + 1, argv + argc}, console).GetReturnCode());
}
