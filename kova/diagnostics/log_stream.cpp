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
    return KOVAEnvironment::GetVariable("NO_COLOR", value).IsSuccess();
}

/// Descriptions may be written piece by piece.
class Collector final : public KOVAOutputStream {
public:
    explicit Collector(std::string& text) noexcept : KOVAOutputStream(nullptr), text_(text) {}
    void write(char const* const buffer, int count) override {
        if (buffer && count > 0)
            text_.append(buffer, static_cast<std::size_t>(count));
    }
    void flush() override {}
    void close() override {}

private:
    std::string& text_;
};

} // namespace

LogStream::LogStream(KOVAFileDescriptor* descriptor)
    : KOVAFileOutputStream(descriptor), mayBreak_(!isPlainFile(descriptor->fileNumber())),
      colour_(detail::showsColour(descriptor->fileNumber()) && !userWantsPlainText()) {}

std::string describe(KOVAEvent& event) {
    std::string text;
    text.reserve(240);
    Collector collector(text);
    event.GetFormattedDescription(&collector);
    return text;
}

void writeWhole(KOVAOutputStream& stream, std::string const& text) {
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
