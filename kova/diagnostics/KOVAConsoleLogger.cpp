#include <kova/diagnostics/KOVAConsoleLogger.h>

#include <string>
#include <string_view>

#include <kova/diagnostics/KOVAEvent.h>
#include <kova/diagnostics/KOVATimingLogger.h>
#include <kova/diagnostics/log_stream.h>
#include <kova/platform/terminal.h>
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
std::string coloured(std::string_view text, KOVAEventLevel level) {
    std::string result(text);
    std::size_t const end = result.find_last_not_of('\n');
    if (end != std::string::npos) {
        result.insert(end + 1, "\033[0m");
        result.insert(0, level >= KOVA_LEVEL_ERROR ? "\033[31m" : "\033[33m");
    }
    return result;
}

} // namespace

KOVAConsoleLogger::~KOVAConsoleLogger() {
    KOVAConsoleLogger::Finalize();
}

void KOVAConsoleLogger::HandleEvent(KOVAEvent& event) {
    KOVAEventLevel const level = event.GetLevel();
    if (!IsInitialized() || !takes(level))
        return;
    kova::detail::Description const description(event);
    if (level < KOVA_LEVEL_WARNING)
        kova::detail::writeWhole(*out_, description.text());
    else if (errors_->showsColour())
        kova::detail::writeWhole(*errors_, coloured(description.text(), level));
    else
        kova::detail::writeWhole(*errors_, description.text());
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
    if (out_ != errors_)
        delete out_;
    delete errors_;
    out_ = nullptr;
    errors_ = nullptr;
}

void KOVAConsoleLogger::FreeStandardOutput() {
    if (out_ != errors_)
        delete out_;
    out_ = errors_;
}

bool KOVAConsoleLogger::IsTerminal() noexcept {
    return kova::detail::isTerminal(2);
}

bool KOVAConsoleLogger::CanErase() noexcept {
    return kova::detail::showsColour(2);
}

void KOVAConsoleLogger::SetUp(KOVAEventLevel level) {
    _console.Initialize(level);
    KOVATimingLogger::SetUp();
}
