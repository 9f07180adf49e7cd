#include <kova/stream/KOVAFilterOutputStream.h>

static_assert(sizeof(KOVAFilterOutputStream) == sizeof(KOVAOutputStream));

KOVAFilterOutputStream::~KOVAFilterOutputStream() = default;

void KOVAFilterOutputStream::writeChar(char c) {
    if (next_)
        next_->writeChar(c);
}

void KOVAFilterOutputStream::write(char const* const buffer, int count) {
    if (next_)
        next_->write(buffer, count);
}

void KOVAFilterOutputStream::flush() {
    if (next_)
        next_->flush();
}

void KOVAFilterOutputStream::close() {
    if (next_)
        next_->close();
}
