#include <kova/text/Gk_Source.h>

#include <cstring>

#include <kova/stream/KOVAInputStream.h>
#include <kova/text/Gk_StringParser.h>

static_assert(sizeof(void*) != 4 || sizeof(Gk_Source::WhiteSpace) == 8);
static_assert(sizeof(void*) != 4 || sizeof(Gk_Source) == 20);

Gk_Source::WhiteSpace::WhiteSpace(char const* characters)
    : characters_(characters, characters ? static_cast<int>(std::strlen(characters)) : 0) {
    for (int i = 0; i < characters_.len(); ++i)
        mask_ = static_cast<unsigned char>(mask_ | static_cast<unsigned char>(characters_[i]));
}

bool Gk_Source::WhiteSpace::isSpace(char c) const {
    if ((static_cast<unsigned char>(c) & mask_) == 0)
        return false;
    // The sets are small: a loop beats memchr.
    char const* const characters = &characters_[0];
    int const n = characters_.len();
    int i = 0;
    while (i < n && characters[i] != c)
        ++i;
    return i < n;
}

Gk_Source::Gk_Source(KOVAInputStream* stream, bool stringMode) : stream_(stream), stringMode_(stringMode) {}

Gk_Source::WhiteSpace Gk_Source::setWhiteSpace(WhiteSpace const& set) {
    WhiteSpace before(whiteSpace_);
    whiteSpace_ = set;
    return before;
}

int Gk_Source::read() {
    return stream_ ? stream_->readChar() : -1;
}

void Gk_Source::pushBack(char c) {
    scratch_.clear();
    scratch_.append(c);
    stream_->add(scratch_);
}

/// What the scratch buffer holds, terminated, in a text of its own.
Gk_String Gk_Source::taken() {
    return scratch_.len() > 0 ? Gk_String(scratch_.dataStr()) : Gk_String();
}

void Gk_Source::skipWhite() {
    int c = read();
    while (c != -1 && whiteSpace_.isSpace(static_cast<char>(c)))
        c = read();
    if (c != -1)
        pushBack(static_cast<char>(c));
}

bool Gk_Source::isEmpty() {
    skipWhite();
    return !stream_ || stream_->available() < 1;
}

Gk_String Gk_Source::token(Start start) {
    scratch_.clear();
    bool begun = false;
    int c = read();
    for (; c != -1; c = read()) {
        bool const space = whiteSpace_.isSpace(static_cast<char>(c));
        if (begun && space)
            break;
        if (!begun && space && start == Start::SkipAll)
            continue;
        bool const dropped = !begun && space && start == Start::SkipOne;
        begun = true;
        if (!dropped)
            scratch_.append(static_cast<char>(c));
    }
    Gk_String result = taken();
    if (c != -1)
        pushBack(static_cast<char>(c));
    return result;
}

Gk_String Gk_Source::next() {
    return token(Start::SkipAll);
}

Gk_String Gk_Source::nextString() {
    return token(stringMode_ ? Start::SkipOne : Start::SkipAll);
}

Gk_String Gk_Source::nextLine() {
    return token(Start::SkipNone);
}

Gk_String Gk_Source::peek() {
    Gk_String everything;
    scratch_.clear();
    long sure = 0; // bytes that the stream still has, at least
    bool begun = false;
    while (stream_) {
        if (sure < 1)
            sure = stream_->available();
        int const c = stream_->readChar();
        if (c == -1 && sure < 1)
            break;
        everything.append(static_cast<char>(c)); // also where it is a byte that only looks like the end
        --sure;
        bool const space = whiteSpace_.isSpace(static_cast<char>(c));
        if (c == -1 || (begun && space))
            break;
        begun = begun || !space;
        if (begun)
            scratch_.append(static_cast<char>(c));
    }
    if (stream_ && everything.len() > 0)
        stream_->add(everything);
    return taken();
}

Gk_ROString Gk_Source::matchPattern(Gk_ROString const& pattern) {
    for (Gk_String found = next(); found.len() > 0; found = next()) {
        if (found.dataStr().matchPathPattern(pattern))
            return found.dataStr();
    }
    return Gk_ROString();
}

Gk_Source& operator>>(Gk_Source& source, char& value) {
    value = Gk_StringParser(source.next()).firstChar();
    return source;
}

Gk_Source& operator>>(Gk_Source& source, char* buffer) {
    Gk_String const token = source.nextString();
    if (token.len() > 0)
        std::memcpy(buffer, &token[0], static_cast<std::size_t>(token.len()));
    else
        *buffer = '\0';
    return source;
}

Gk_Source& operator>>(Gk_Source& source, int& value) {
    value = Gk_StringParser(source.next()).intValue32();
    return source;
}

Gk_Source& operator>>(Gk_Source& source, long& value) {
    value = Gk_StringParser(source.next()).intValue();
    return source;
}

Gk_Source& operator>>(Gk_Source& source, unsigned int& value) {
    value = Gk_StringParser(source.next()).uIntValue32();
    return source;
}

Gk_Source& operator>>(Gk_Source& source, unsigned long& value) {
    value = Gk_StringParser(source.next()).uIntValue();
    return source;
}

Gk_Source& operator>>(Gk_Source& source, float& value) {
    value = static_cast<float>(Gk_StringParser(source.next()).realValue());
    return source;
}

Gk_Source& operator>>(Gk_Source& source, double& value) {
    value = Gk_StringParser(source.next()).realValue();
    return source;
}
