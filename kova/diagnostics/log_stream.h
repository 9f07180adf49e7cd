#pragma once

#include <string_view>

#include <kova/diagnostics/line_buffer.h>
#include <kova/stream/KOVAFileOutputStream.h>

class KOVAEvent;

namespace kova::detail {

/// What a logger writes to when it makes the stream itself.
class LogStream final : public KOVAFileOutputStream {
public:
    /// Takes a reference.
    explicit LogStream(KOVAFileDescriptor* descriptor);

    /// A terminal whose user did not ask for plain text.
    bool showsColour() const noexcept { return colour_; }
    /// A write can end the process: its file may be a pipe that nobody reads.
    bool mayBreak() const noexcept { return mayBreak_; }

private:
    bool mayBreak_;
    bool colour_;
};

/// The whole description of an event, however many pieces it is written in; empty for an event that has none.
class Description final : public KOVAOutputStream {
public:
    explicit Description(KOVAEvent& event);
    void write(char const* const buffer, int count) override;
    void flush() override {}
    void close() override {}

    std::string_view text() const noexcept { return text_.view(); }

private:
    LineBuffer text_;
};

/// Writes a text with one call of the stream. A stream that is full, closed or broken loses it, and that is
/// all: no signal, and neither what streams raise nor a standard exception gets out.
void writeWhole(KOVAOutputStream& stream, std::string_view text);

} // namespace kova::detail
