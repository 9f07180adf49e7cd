#include <kova/text/Gk_String.h>

#include <algorithm>
#include <string>

#include <kova/stream/KOVAOutputStream.h>

static_assert(sizeof(void*) != 4 || sizeof(Gk_String) == 4);

namespace {

std::string_view bytes(char const* text, int n) {
    return text && n > 0 ? std::string_view(text, static_cast<std::size_t>(n)) : std::string_view();
}

std::string_view whole(char const* text) {
    return text ? std::string_view(text) : std::string_view();
}

bool isTerminated(std::string_view text) {
    return !text.empty() && text.back() == '\0';
}

} // namespace

Gk_String::Gk_String(char const* text) {
    addTerminated(whole(text));
}

Gk_String::Gk_String(char const* text, int n) {
    addText(bytes(text, n));
}

Gk_String::Gk_String(Gk_ROString const& view) {
    addTerminated(view.characters());
}

int Gk_String::dataLen() const {
    int const n = len();
    return n > 0 && array_[n - 1] == '\0' ? n - 1 : n;
}

/// The text must not lie in this array.
void Gk_String::addTerminated(std::string_view text) {
    addText(text);
    if (!isTerminated(text))
        array_.add('\0');
}

void Gk_String::replaceLast(std::string_view text) {
    // A text that lies in this array would move.
    std::string const own(text);
    shrinkEnd(1);
    addTerminated(own);
}

void Gk_String::append(char const* text) {
    replaceLast(whole(text));
}

void Gk_String::append(Gk_String const& text) {
    append(Gk_ROString(text.array_));
}

void Gk_String::append(Gk_ROString const& view) {
    replaceLast(view.characters());
}

void Gk_String::append(int n, char const* text) {
    replaceLast(bytes(text, n));
}

void Gk_String::chop(int n) {
    n = std::max(n, 0);
    if (n < len()) {
        shrinkEnd(len() - n);
        array_.add('\0');
    }
}

void Gk_String::shrinkFront(int n) {
    array_.frontShrink(std::min(n, len()));
}

void Gk_String::shrinkEnd(int n) {
    array_.endShrink(std::min(n, len()));
}

void Gk_String::ensure(int n) {
    if (len() >= n) {
        chop(n);
        return;
    }
    int const data = dataLen();
    shrinkEnd(len() - data);
    std::string const blanks(static_cast<std::size_t>(n - data), ' ');
    addTerminated(blanks);
}

Gk_String Gk_String::subset(int start, int n) const {
    std::string_view const all = Gk_ROString(array_).characters();
    std::size_t const from = std::min(static_cast<std::size_t>(std::max(start, 0)), all.size());
    Gk_String result;
    result.addTerminated(all.substr(from, static_cast<std::size_t>(std::max(n, 0))));
    return result;
}

Gk_String Gk_String::copy() const {
    Gk_String result;
    result.array_ = array_.copy();
    return result;
}

bool Gk_String::operator==(Gk_String const& other) const {
    return (len() > 0) == (other.len() > 0) && Gk_ROString(array_) == Gk_ROString(other.array_);
}

bool Gk_String::operator<(Gk_String const& other) const {
    if (len() == 0 || other.len() == 0)
        return other.len() > 0 && len() == 0;
    return Gk_ROString(array_) < Gk_ROString(other.array_);
}

KOVAOutputStream& operator<<(KOVAOutputStream& out, Gk_String const& s) {
    return out << s.dataStr();
}
