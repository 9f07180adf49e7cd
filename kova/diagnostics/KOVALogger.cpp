#include <kova/diagnostics/KOVALogger.h>

#include <memory>

#include <kova/diagnostics/KOVAEventBus.h>
#include <kova/diagnostics/log_stream.h>
#include <kova/system/KOVAEnvironment.h>
#include <kova/system/KOVAFilePath.h>

static_assert(sizeof(void*) != 4 || sizeof(KOVALogger) == 12);

using kova::detail::LogStream;

namespace {

KOVAEventLevel levelOfUser() {
    KOVAString keyword;
    KOVAEnvironment::GetVariable("KOVALogLevel", keyword);
    return KOVAEvent::GetLevel(keyword, KOVA_LEVEL_INFO);
}

} // namespace

KOVALogger::~KOVALogger() {
    KOVALogger::Finalize();
}

void KOVALogger::HandleEvent(KOVAEvent& event) {
    if (stream_ && takes(event.GetLevel()))
        kova::detail::writeWhole(*stream_, kova::detail::Description(event).text());
}

void KOVALogger::activate(KOVAEventLevel level) {
    level_ = level;
    KOVAEventBus::GetEventBus().AddListener(this);
}

void KOVALogger::Initialize(KOVAOutputStream* stream, KOVAEventLevel level) {
    if (stream_ || !stream)
        return;
    stream_ = stream;
    activate(level == KOVA_LEVEL_UNSET ? levelOfUser() : level);
}

void KOVALogger::offer(KOVAOutputStream* stream, KOVAEventLevel level) {
    std::unique_ptr<KOVAOutputStream> made(stream);
    Initialize(stream, level);
    if (stream_ == stream)
        static_cast<void>(made.release());
}

void KOVALogger::Initialize(std::FILE* file, KOVAEventLevel level) {
    if (file)
        offer(new LogStream(new KOVAFileDescriptor(file, KOVAFileDescriptor::Write)), level);
}

void KOVALogger::Initialize(char const* fileName, KOVAEventLevel level) {
    if (fileName && *fileName)
        offer(new LogStream(new KOVAFileDescriptor(fileName, KOVAFileDescriptor::Write)), level);
}

void KOVALogger::Initialize(KOVAFilePath const& path, KOVAEventLevel level) {
    if (path.IsValid())
        offer(new LogStream(new KOVAFileDescriptor(path, KOVAFileDescriptor::Write)), level);
}

void KOVALogger::Finalize() {
    level_ = KOVA_LEVEL_NONE;
    KOVAEventBus::GetEventBus().RemoveListener(this);
    delete stream_;
    stream_ = nullptr;
}
