#include <kova/diagnostics/KOVAConsoleLogger.h>

#include <string>

#include <kova/diagnostics/KOVAEvent.h>
#include <kova/diagnostics/KOVATimingLogger.h>
#include <kova/diagnostics/log_stream.h>
#include <kova/system/KOVAEnvironment.h>

static_assert(sizeof(void*) != 4 || sizeof(KOVAConsoleLogger) == 20);

using kova::detail::LogStream;

namespace {

KOVAEventLevel chosenLevel(KOVAEventLevel level) {
    KOVAString keyword;
    if (KOVAEnvironment::GetVariable("KOVAConsoleTracesLevel", keyword).IsSuccess())
        return KOVAEvent::GetLevel(keyword, KOVA_LEVEL_NONE);
    return level == KOVA_LEVEL_UNSET ? KOVA_LEVEL_INFO : level;
}

LogStream* openConsole(int file) {
    return new LogStream(new KOVAFileDescriptor(file, KOVAFileDescriptor::Write));
}

/// Warnings yellow, errors red. The colour ends before the line does.
void colour(std::string& text, KOVAEventLevel level) {
    std::size_t const end = text.find_last_not_of('\n');
    if (end == std::string::npos)
        return;
    text.insert(end + 1, "\033[0m");
    text.insert(0, level >= KOVA_LEVEL_ERROR ? "\033[31m" : "\033[33m");
}

} // namespace

KOVAConsoleLogger::~KOVAConsoleLogger() {
    KOVAConsoleLogger::Finalize();
}

void KOVAConsoleLogger::HandleEvent(KOVAEvent& event) {
    KOVAEventLevel const level = event.GetLevel();
    if (!IsInitialized() || !takes(level))
        return;
    std::string text = kova::detail::describe(event);
    LogStream& stream = level < KOVA_LEVEL_WARNING ? *out_ : *errors_;
    if (level >= KOVA_LEVEL_WARNING && stream.showsColour())
        colour(text, level);
    kova::detail::writeWhole(stream, text);
}

void KOVAConsoleLogger::Initialize(KOVAEventLevel level) {
    if (IsInitialized())
        return;
    out_ = openConsole(1);
    errors_ = openConsole(2);
    activate(chosenLevel(level));
}

void KOVAConsoleLogger::Finalize() {
    KOVALogger::Finalize();
    delete out_;
    delete errors_;
    out_ = nullptr;
    errors_ = nullptr;
}

void KOVAConsoleLogger::SetUp(KOVAEventLevel level) {
    _console.Initialize(level);
    KOVATimingLogger::SetUp();
}
