#include <kova/stream/KOVAStringOutputStream.h>

static_assert(sizeof(void*) != 4 || sizeof(KOVAStringOutputStream) == 12);

KOVAStringOutputStream::KOVAStringOutputStream() : KOVAOutputStream(nullptr) {}

KOVAStringOutputStream::KOVAStringOutputStream(KOVAStringOutputStream const& other)
    : KOVAOutputStream(other), text_(other.text_.copy()) {}

KOVAStringOutputStream& KOVAStringOutputStream::operator=(KOVAStringOutputStream const& other) {
    text_ = other.text_.copy();
    return *this;
}

KOVAStringOutputStream::~KOVAStringOutputStream() = default;

void KOVAStringOutputStream::write(char const* const buffer, int count) {
    if (!buffer || count < 1)
        return;
    text_.append(count, buffer);
    if (buffer[count - 1] == '\0') // which append takes for the terminator
        text_.append('\0');
}

char const* KOVAStringOutputStream::contents() const {
    return text_.len() > 0 ? static_cast<char*>(text_) : "";
}
