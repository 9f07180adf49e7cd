#pragma once

#include <cstdint>

#include <kova/core/export.h>
#include <kova/stream/KOVAFilterOutputStream.h>
#include <kova/text/Gk_String.h>

/// Collects what is written and passes it to the next stream in packets of a fixed size.
///
/// Callers depend on writeChar going straight to the next stream, ahead of what still waits here; use
/// write(char) to keep the order.
class KOVA_API Gk_PacketOutputStream : public KOVAFilterOutputStream {
public:
    /// A packet has at least one byte.
    Gk_PacketOutputStream(KOVAOutputStream* next, int packetSize);
    Gk_PacketOutputStream(Gk_PacketOutputStream const&) = delete;
    Gk_PacketOutputStream& operator=(Gk_PacketOutputStream const&) = delete;
    /// Passes on what still waits; the next stream must be there until then.
    ~Gk_PacketOutputStream() override;

    void write(char c) { write(&c, 1); }
    void write(char const* const buffer, int count) override;
    /// Passes on what waits, also when that is nothing, and flushes the next stream.
    void flush() override;

private:
    void pass();

    Gk_String buffer_;
    std::int32_t fill_ = 0;
};
