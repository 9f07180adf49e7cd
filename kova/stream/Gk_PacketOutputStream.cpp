#include <kova/stream/Gk_PacketOutputStream.h>

#include <algorithm>
#include <cstring>

static_assert(sizeof(void*) != 4 || sizeof(Gk_PacketOutputStream) == 16);

Gk_PacketOutputStream::Gk_PacketOutputStream(KOVAOutputStream* next, int packetSize) : KOVAFilterOutputStream(next) {
    buffer_.ensure(std::max(packetSize, 1));
}

Gk_PacketOutputStream::~Gk_PacketOutputStream() {
    if (fill_ > 0)
        pass();
}

void Gk_PacketOutputStream::pass() {
    KOVAFilterOutputStream::write(buffer_, fill_);
    fill_ = 0;
}

void Gk_PacketOutputStream::write(char const* const buffer, int count) {
    int const size = buffer_.dataLen();
    for (int done = 0; buffer && done < count;) {
        // A full packet waits until there is more: a flush at its end then passes it as one.
        if (fill_ >= size)
            pass();
        int const part = std::min(size - fill_, count - done);
        std::memcpy(static_cast<char*>(buffer_) + fill_, buffer + done, static_cast<std::size_t>(part));
        fill_ += part;
        done += part;
    }
}

void Gk_PacketOutputStream::flush() {
    pass();
    KOVAFilterOutputStream::flush();
}
