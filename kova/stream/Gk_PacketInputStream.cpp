#include <kova/stream/Gk_PacketInputStream.h>

#include <algorithm>
#include <cstring>

#include <kova/stream/duplicate.h>

static_assert(sizeof(void*) != 4 || sizeof(Gk_PacketInputStream) == 20);

Gk_PacketInputStream::Gk_PacketInputStream(KOVAInputStream* next, int packetSize) : KOVAFilterInputStream(next) {
    buffer_.ensure(std::max(packetSize, 1));
}

Gk_PacketInputStream::Gk_PacketInputStream(Gk_PacketInputStream const& other)
    : KOVAFilterInputStream(other), buffer_(other.buffer_.copy()), position_(other.position_), filled_(other.filled_) {}

Gk_PacketInputStream::~Gk_PacketInputStream() = default;

KOVAInputStream* Gk_PacketInputStream::duplicate() {
    return kova::detail::duplicateOver(*this, next_);
}

void Gk_PacketInputStream::fetchPacket() {
    filled_ = std::max(KOVAFilterInputStream::read(buffer_, buffer_.dataLen()), 0);
    position_ = 0;
}

/// Something is buffered, if need be by another packet.
bool Gk_PacketInputStream::fetched() {
    if (buffered() < 1)
        fetchPacket();
    return buffered() > 0;
}

int Gk_PacketInputStream::readChar() {
    return fetched() ? static_cast<signed char>(buffer_[position_++]) : -1;
}

int Gk_PacketInputStream::read(char* const buffer, int count) {
    if (!buffer || count < 1)
        return 0;
    int copied = 0;
    while (copied < count && fetched()) {
        int const part = std::min(buffered(), count - copied);
        std::memcpy(buffer + copied, static_cast<char*>(buffer_) + position_, static_cast<std::size_t>(part));
        position_ += part;
        copied += part;
    }
    return copied > 0 ? copied : -1;
}

long Gk_PacketInputStream::skip(long count) {
    if (count < 1)
        return 0;
    long skipped = 0;
    while (skipped < count && fetched()) {
        long const part = std::min<long>(buffered(), count - skipped);
        position_ += static_cast<std::int32_t>(part);
        skipped += part;
    }
    return skipped > 0 ? skipped : -1;
}

long Gk_PacketInputStream::available() const {
    return KOVAFilterInputStream::available() + buffered();
}

bool Gk_PacketInputStream::add(Gk_String const& text) {
    int const before = text.len() - position_; // what the buffer does not hold
    if (before <= 0) {
        position_ -= text.len();
        return true;
    }
    Gk_String whole(static_cast<char const*>(static_cast<char*>(text)), before);
    for (int i = 0; i < filled_; ++i)
        whole.append(buffer_[i]);
    KOVAFilterInputStream::add(whole);
    position_ = 0;
    filled_ = 0;
    return true;
}

long Gk_PacketInputStream::getCurrentOffset() const {
    return KOVAFilterInputStream::getCurrentOffset() - buffered();
}

void Gk_PacketInputStream::setOffset(long offset) {
    KOVAFilterInputStream::setOffset(offset);
    position_ = 0;
    filled_ = 0;
}
