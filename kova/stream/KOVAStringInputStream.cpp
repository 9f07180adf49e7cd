#include <kova/stream/KOVAStringInputStream.h>

#include <algorithm>
#include <cstring>

#include <kova/core/Gk_ErrMgr.h>

static_assert(sizeof(void*) != 4 || sizeof(KOVAStringInputStream) == 16);

KOVAStringInputStream::KOVAStringInputStream(Gk_String const& text) : KOVAInputStream(nullptr), text_(text.copy()) {
    Gk_ErrMgr::checkAbort();
    if (text_.len() == 0)
        Gk_ErrMgr::doAssert(__FILE__, __LINE__);
    if (text_.len() == 0 || text_[text_.len() - 1] != '\0')
        Gk_ErrMgr::doAssert(__FILE__, __LINE__);
}

KOVAStringInputStream::KOVAStringInputStream(KOVAStringInputStream const& other)
    : KOVAInputStream(other), text_(other.text_.copy()), position_(other.position_) {}

KOVAStringInputStream& KOVAStringInputStream::operator=(KOVAStringInputStream const& other) {
    text_ = other.text_.copy();
    position_ = other.position_;
    return *this;
}

KOVAStringInputStream::~KOVAStringInputStream() = default;

KOVAInputStream* KOVAStringInputStream::duplicate() {
    Gk_ErrMgr::checkAbort();
    Gk_ErrMgr::doAssert(__FILE__, __LINE__);
    return nullptr;
}

long KOVAStringInputStream::available() const {
    return text_.len() - position_ - 1 > 0 ? 1 : 0;
}

int KOVAStringInputStream::read(char* const buffer, int count) {
    if (!buffer || count < 1 || !KOVAStringInputStream::available())
        return 0;
    int const copied = std::min(count, text_.len() - 1 - position_);
    std::memcpy(buffer, static_cast<char*>(text_) + position_, static_cast<std::size_t>(copied));
    position_ += copied;
    return copied;
}

bool KOVAStringInputStream::add(Gk_String const& text) {
    position_ = std::max(position_ - text.len(), 0);
    return true;
}

Gk_String KOVAStringInputStream::contents() const {
    return text_.subset(position_, text_.len() - position_);
}
