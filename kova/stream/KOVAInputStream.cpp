#include <kova/stream/KOVAInputStream.h>

#include <algorithm>

#include <kova/core/Gk_ErrMgr.h>

static_assert(sizeof(void*) != 4 || sizeof(KOVAInputStream) == 8);

namespace {

constexpr int kScratchSize = 8192;

/// Bytes that nobody wants; one buffer for all streams, made by the first that needs it, for good.
char* scratchBuffer() {
    static char* const buffer = new char[kScratchSize];
    return buffer;
}

[[noreturn]] void raiseUnsupported() {
    Gk_ErrMgr::raise(Gk_IOException("Gk_IOException"));
}

} // namespace

KOVAInputStream::~KOVAInputStream() {
    next_ = nullptr;
}

int KOVAInputStream::readChar() {
    char c = 0;
    int const result = read(&c, 1);
    return result == -1 || result == 0 ? -1 : static_cast<unsigned char>(c);
}

long KOVAInputStream::skip(long count) {
    if (count < 1)
        return 0;
    long remaining = count;
    while (remaining > 0) {
        int const result = read(scratchBuffer(), static_cast<int>(std::min<long>(remaining, kScratchSize)));
        if (result == -1)
            break;
        remaining -= result;
    }
    return count - remaining;
}

long KOVAInputStream::available() const {
    raiseUnsupported();
}

bool KOVAInputStream::add(Gk_String const& /*text*/) {
    raiseUnsupported();
}

long KOVAInputStream::getCurrentOffset() const {
    raiseUnsupported();
}

void KOVAInputStream::setOffset(long /*offset*/) {
    raiseUnsupported();
}
