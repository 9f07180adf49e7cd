#include <kova/diagnostics/log_stream.h>

#include <exception>
#include <typeinfo>

#include <kova/core/Gk_Exception.h>
#include <kova/diagnostics/KOVAEvent.h>
#include <kova/platform/files.h>
#include <kova/platform/signals.h>
#include <kova/platform/terminal.h>
#include <kova/system/KOVAEnvironment.h>

namespace kova::detail {

namespace {

bool userWantsPlainText() {
    KOVAString value;
    return KOVAEnvironment::GetVariable("NO_COLOR", value).IsSuccess() && value.length() > 0;
}

} // namespace

LogStream::LogStream(KOVAFileDescriptor* descriptor)
    : KOVAFileOutputStream(descriptor), mayBreak_(!isPlainFile(descriptor->fileNumber())),
      colour_(detail::showsColour(descriptor->fileNumber()) && !userWantsPlainText()) {}

Description::Description(KOVAEvent& event) : KOVAOutputStream(nullptr) {
    event.GetFormattedDescription(this);
}

void Description::write(char const* const buffer, int count) {
    if (buffer && count > 0)
        text_.append(buffer, static_cast<std::size_t>(count));
}

void writeWhole(KOVAOutputStream& stream, std::string_view text) {
    if (text.empty())
        return;
    bool const mayBreak = typeid(stream) != typeid(LogStream) || static_cast<LogStream&>(stream).mayBreak();
    PipeSignalHold const hold(mayBreak);
    try {
        stream.write(text.data(), static_cast<int>(text.size()));
        stream.flush();
    } catch (Gk_Exception const&) {   // NOLINT(bugprone-empty-catch): there is nowhere to report it
    } catch (std::exception const&) { // NOLINT(bugprone-empty-catch)
    }
}

} // namespace kova::detail
