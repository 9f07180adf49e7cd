#include <kova/stream/KOVAFilterInputStream.h>

#include <kova/stream/duplicate.h>

static_assert(sizeof(KOVAFilterInputStream) == sizeof(KOVAInputStream));

KOVAFilterInputStream::~KOVAFilterInputStream() = default;

KOVAInputStream* KOVAFilterInputStream::duplicate() {
    return kova::detail::duplicateOver(*this, next_);
}

int KOVAFilterInputStream::readChar() {
    return next_ ? next_->readChar() : -1;
}

int KOVAFilterInputStream::read(char* const buffer, int count) {
    return next_ ? next_->read(buffer, count) : -1;
}

long KOVAFilterInputStream::skip(long count) {
    return next_ ? next_->skip(count) : 0;
}

long KOVAFilterInputStream::available() const {
    return next_ ? next_->available() : 0;
}

bool KOVAFilterInputStream::add(Gk_String const& text) {
    return next_ && next_->add(text);
}

long KOVAFilterInputStream::getCurrentOffset() const {
    return next_ ? next_->getCurrentOffset() : 0;
}

void KOVAFilterInputStream::setOffset(long offset) {
    if (next_)
        next_->setOffset(offset);
}
