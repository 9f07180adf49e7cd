#pragma once

#include <string>
#include <vector>

#include <kova/diagnostics/KOVAEvent.h>
#include <kova/diagnostics/KOVAEventBus.h>
#include <kova/diagnostics/KOVAEventListener.h>
#include <kova/stream/KOVAOutputStream.h>

namespace test {

/// Keeps what is written, and how often.
class TextStream : public KOVAOutputStream {
public:
    TextStream() : KOVAOutputStream(nullptr) {}
    void write(char const* const buffer, int count) override {
        text.append(buffer, static_cast<std::size_t>(count));
        ++writes;
    }
    void flush() override {}
    void close() override {}

    std::string text;
    int writes = 0;
};

inline std::string describe(KOVAEvent& event) {
    TextStream out;
    event.GetFormattedDescription(&out);
    return out.text;
}

/// Listens while it lives and keeps each event's level and description, "80 Error : x\n".
class Recorder : public KOVAEventListener {
public:
    Recorder() { KOVAEventBus::GetEventBus().AddListener(this); }
    Recorder(Recorder const&) = delete;
    Recorder& operator=(Recorder const&) = delete;
    ~Recorder() override { KOVAEventBus::GetEventBus().RemoveListener(this); }

    void HandleEvent(KOVAEvent& event) override {
        events.push_back(std::to_string(event.GetLevel()) + " " + describe(event));
    }

    std::vector<std::string> events;
};

} // namespace test
