#pragma once

#include <cstdint>

#include <kova/core/export.h>
#include <kova/stream/KOVAFilterInputStream.h>
#include <kova/text/Gk_String.h>

/// Reads the next stream in packets of a fixed size.
///
///     KOVAFileInputStream file("part.stl");
///     Gk_PacketInputStream in(&file, 65536);
class KOVA_API Gk_PacketInputStream : public KOVAFilterInputStream {
public:
    /// A packet has at least one byte.
    Gk_PacketInputStream(KOVAInputStream* next, int packetSize);
    ~Gk_PacketInputStream() override;

    /// The duplicate has what is buffered, and a duplicate of the next stream.
    KOVAInputStream* duplicate() override;
    /// Callers depend on the byte being signed here: 128 to 255 come back negative, and 255 looks like
    /// the end.
    int readChar() override;
    /// Returns the number of bytes read, -1 when there is none.
    int read(char* const buffer, int count) override;
    /// Returns the number of bytes skipped, -1 when there is none.
    long skip(long count) override;
    long available() const override;
    /// The text is read again, also where it reaches behind what is buffered: the next stream is then
    /// given back all of it. True.
    bool add(Gk_String const& text) override;
    /// The offset of the next byte that this stream delivers.
    long getCurrentOffset() const override;
    void setOffset(long offset) override;

protected:
    Gk_PacketInputStream(Gk_PacketInputStream const& other);

    /// Fills the buffer anew; it is empty after a failure.
    virtual void fetchPacket();

private:
    int buffered() const noexcept { return filled_ - position_; }
    bool fetched();

    Gk_String buffer_;
    std::int32_t position_ = 0;
    std::int32_t filled_ = 0;
};
