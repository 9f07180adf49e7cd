#include <kova/stream/KOVAOutputStream.h>

static_assert(sizeof(void*) != 4 || sizeof(KOVAOutputStream) == 8);

KOVAOutputStream::~KOVAOutputStream() = default;

void KOVAOutputStream::writeChar(char c) {
    write(&c, 1);
}
