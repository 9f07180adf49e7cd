#pragma once

#include <string>

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

/// The description of the event; "" for an event that has none.
std::string describe(KOVAEvent& event);

/// Writes a text with one call of the stream. A stream that is full, closed or broken loses it, and that is
/// all: no signal, and neither what streams raise nor a standard exception gets out.
void writeWhole(KOVAOutputStream& stream, std::string const& text);

} // namespace kova::detail
