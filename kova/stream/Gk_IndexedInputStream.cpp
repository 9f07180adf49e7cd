#include <kova/stream/Gk_IndexedInputStream.h>

#include <algorithm>

#include <kova/stream/duplicate.h>
#include <kova/text/Gk_String.h>

static_assert(sizeof(void*) != 4 || sizeof(Gk_IndexedInputStream) == 12);

namespace {

std::int32_t lineFeeds(char const* text, int count) {
    return static_cast<std::int32_t>(std::count(text, text + count, '\n'));
}

} // namespace

Gk_IndexedInputStream::~Gk_IndexedInputStream() = default;

KOVAInputStream* Gk_IndexedInputStream::duplicate() {
    return kova::detail::duplicateOver(*this, next_);
}

int Gk_IndexedInputStream::readChar() {
    int const c = KOVAFilterInputStream::readChar();
    if (c == '\n')
        ++lineCount_;
    return c;
}

int Gk_IndexedInputStream::read(char* const buffer, int count) {
    int const result = KOVAFilterInputStream::read(buffer, count);
    if (result > 0)
        lineCount_ += lineFeeds(buffer, result);
    return result;
}

bool Gk_IndexedInputStream::add(Gk_String const& text) {
    if (text.len() > 0)
        lineCount_ -= lineFeeds(text, text.len());
    KOVAFilterInputStream::add(text);
    return true;
}
