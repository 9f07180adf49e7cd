#include <kova/stream/KOVAStreamFormatter.h>

#include <algorithm>
#include <charconv>
#include <cstdarg>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <string>
#include <utility>

#include <kova/options/KOVAValue.h>
#include <kova/stream/KOVAOutputStream.h>
#include <kova/text/Gk_String.h>
#include <kova/text/KOVAString.h>
#include <kova/text/numbers.h>

static_assert(sizeof(void*) != 4 || sizeof(KOVAStreamFormatter) == 196);
static_assert(sizeof(void*) != 4 || sizeof(KOVAStreamFormatter::KOVAStreamFormatterObject) == 12);
static_assert(sizeof(void*) != 4 || sizeof(KOVAStreamFormatter::KOVAStreamFormatterMargin) == 20);

namespace {

// Default formats are known by their address: a caller's own "%d" goes through printf.
constexpr char kDoubleFormat[] = "%lf";
constexpr char kIntFormat[] = "%d";
constexpr char kUIntFormat[] = "%u";
constexpr char kULongFormat[] = "%ul";
constexpr char kLongFormat[] = "%ld";

char formatBuffer[512];

/// The stars of a format's first conversion, each of which takes an argument ahead of the value.
int countStars(char const* format) {
    char const* at = std::strchr(format, '%');
    while (at && at[1] == '%')
        at = std::strchr(at + 2, '%');
    int stars = 0;
    if (at) {
        for (++at; *at && std::strchr("-+ #0123456789.*lL", *at); ++at)
            stars += *at == '*' ? 1 : 0;
    }
    return stars;
}

} // namespace

// --- objects

class KOVAStreamFormatter::LongKey final : public KOVAStreamFormatterObject {
public:
    explicit LongKey(long key) noexcept : key_(key) {}
    void dump(KOVAStreamFormatter& formatter) const override { formatter.dump(key_); }

private:
    long key_;
};

class KOVAStreamFormatter::PointerKey final : public KOVAStreamFormatterObject {
public:
    explicit PointerKey(void const* key) noexcept : key_(key) {}
    /// Through the int format; through the long format where an int does not hold the address.
    void dump(KOVAStreamFormatter& formatter) const override {
        std::intptr_t const key = reinterpret_cast<std::intptr_t>(key_);
        if (static_cast<int>(key) == key)
            formatter.dump(static_cast<int>(key));
        else
            formatter.dump(static_cast<long>(key));
    }

private:
    void const* key_;
};

KOVAStreamFormatter::KOVAStreamFormatterObject::~KOVAStreamFormatterObject() = default;

void KOVAStreamFormatter::KOVAStreamFormatterObject::dump(KOVAStreamFormatter& formatter) const {
    formatter.dump(text_);
}

KOVAStreamFormatter::KOVAStreamFormatterMargin::~KOVAStreamFormatterMargin() = default;

void KOVAStreamFormatter::KOVAStreamFormatterMargin::dump(KOVAStreamFormatter& formatter) const {
    for (int i = 0; i < level_; ++i)
        formatter.dump("    ");
}

void KOVAStreamFormatter::KOVAStreamFormatterMargin::incr() {
    ++level_;
}

void KOVAStreamFormatter::KOVAStreamFormatterMargin::decr() {
    --level_;
}

// --- construction and settings

KOVAStreamFormatter::KOVAStreamFormatter(KOVAOutputStream* output)
    : output_(output), margin(new KOVAStreamFormatterMargin(this)), blank(new KOVAStreamFormatterObject(" ")),
      newline(new KOVAStreamFormatterObject("\n")), empty(new KOVAStreamFormatterObject("")) {
    resetFormat();
}

KOVAStreamFormatter::KOVAStreamFormatter(KOVAStreamFormatter const& other) = default;

KOVAStreamFormatter& KOVAStreamFormatter::operator=(KOVAStreamFormatter const& other) {
    if (this == &other)
        return *this;
    leaveMargin();
    output_ = other.output_;
    doubleFormat_ = other.doubleFormat_;
    intFormat_ = other.intFormat_;
    uintFormat_ = other.uintFormat_;
    ulongFormat_ = other.ulongFormat_;
    longFormat_ = other.longFormat_;
    precisionGiven_ = other.precisionGiven_;
    precision_ = other.precision_;
    std::copy_n(other.buffer_, sizeof buffer_, buffer_);
    margin = other.margin;
    blank = other.blank;
    newline = other.newline;
    empty = other.empty;
    return *this;
}

/// The margin may live on in others' hands.
void KOVAStreamFormatter::leaveMargin() {
    if (margin.IsValid() && margin->formatter_ == this)
        margin->formatter_ = nullptr;
}

KOVAStreamFormatter::~KOVAStreamFormatter() {
    if (output_)
        output_->flush();
    leaveMargin();
}

KOVAOutputStream* KOVAStreamFormatter::installOutputStream(KOVAOutputStream* output) noexcept {
    return std::exchange(output_, output);
}

void KOVAStreamFormatter::resetFormat() noexcept {
    doubleFormat_ = kDoubleFormat;
    intFormat_ = kIntFormat;
    uintFormat_ = kUIntFormat;
    ulongFormat_ = kULongFormat;
    longFormat_ = kLongFormat;
}

char const* KOVAStreamFormatter::setIntFormat(char const* format) noexcept {
    return std::exchange(intFormat_, format);
}

char const* KOVAStreamFormatter::setUIntFormat(char const* format) noexcept {
    return std::exchange(uintFormat_, format);
}

char const* KOVAStreamFormatter::setLongFormat(char const* format) noexcept {
    return std::exchange(longFormat_, format);
}

char const* KOVAStreamFormatter::setULongFormat(char const* format) noexcept {
    return std::exchange(ulongFormat_, format);
}

char const* KOVAStreamFormatter::setDoubleFormat(char const* format, bool precisionGiven, int precision) noexcept {
    precisionGiven_ = precisionGiven;
    precision_ = precision;
    return std::exchange(doubleFormat_, format);
}

// --- writing

/// Through printf, whole however long it is. A null format writes nothing.
template <class... Arguments> void KOVAStreamFormatter::dumpFormatted(char const* format, Arguments... arguments) {
    if (!format)
        return;
    int const length = std::snprintf(buffer_, sizeof buffer_, format, arguments...);
    if (length < static_cast<int>(sizeof buffer_)) {
        if (length > 0)
            output_->write(buffer_, length);
        return;
    }
    std::string text(static_cast<std::size_t>(length), '\0');
    std::snprintf(text.data(), text.size() + 1, format, arguments...);
    output_->write(text.data(), length);
}

template <class Number>
void KOVAStreamFormatter::dumpNumber(char const* format, char const* defaultFormat, Number value) {
    if (!output_)
        return;
    if (format == defaultFormat) {
        char* const end = std::to_chars(buffer_, buffer_ + sizeof buffer_, value).ptr;
        output_->write(buffer_, static_cast<int>(end - buffer_));
    } else {
        dumpFormatted(format, value);
    }
}

void KOVAStreamFormatter::dump(char c) {
    if (output_)
        output_->writeChar(c);
}

void KOVAStreamFormatter::dump(int value) {
    dumpNumber(intFormat_, kIntFormat, value);
}

void KOVAStreamFormatter::dump(unsigned int value) {
    dumpNumber(uintFormat_, kUIntFormat, value);
}

void KOVAStreamFormatter::dump(long value) {
    dumpNumber(longFormat_, kLongFormat, value);
}

void KOVAStreamFormatter::dump(unsigned long value) {
    if (output_ && ulongFormat_ == kULongFormat) {
        char* const end = std::to_chars(buffer_, buffer_ + sizeof buffer_, value).ptr;
        *end = 'l';
        output_->write(buffer_, static_cast<int>(end + 1 - buffer_));
    } else {
        dumpNumber(ulongFormat_, kULongFormat, value);
    }
}

void KOVAStreamFormatter::dump(double value) {
    if (!output_ || !doubleFormat_)
        return;
    if (doubleFormat_ == kDoubleFormat) {
        char text[kova::detail::kLongestFixed];
        output_->write(text, static_cast<int>(kova::detail::formatFixed(value, text) - text));
    } else {
        int const precision = precisionGiven_ ? precision_ : -1;
        switch (countStars(doubleFormat_)) {
        case 0: dumpFormatted(doubleFormat_, value); break;
        case 1: dumpFormatted(doubleFormat_, precision, value); break;
        default: dumpFormatted(doubleFormat_, precision, precision, value); break;
        }
    }
}

void KOVAStreamFormatter::dump(char const* text) {
    if (output_ && text && *text)
        output_->write(text, static_cast<int>(std::strlen(text)));
}

void KOVAStreamFormatter::dump(void const* address) {
    if (!output_)
        return;
    char* digits = std::copy_n(address ? "0x" : "", address ? 2 : 0, buffer_);
    digits = std::to_chars(digits, buffer_ + sizeof buffer_, reinterpret_cast<std::uintptr_t>(address), 16).ptr;
    output_->write(buffer_, static_cast<int>(digits - buffer_));
}

void KOVAStreamFormatter::dump(KOVAString const& text) {
    if (!output_ || text.length() < 1)
        return;
    char const* const narrow = text;
    output_->write(narrow, static_cast<int>(std::strlen(narrow)));
}

void KOVAStreamFormatter::dump(KOVAValue const& value) {
    if (output_)
        value.Dump(*this);
}

void KOVAStreamFormatter::dump(KOVAStreamFormatterObject const* object) {
    if (output_ && object)
        object->dump(*this);
}

KOVAStreamFormatterObjectHandle KOVAStreamFormatter::define(long key) {
    return KOVAStreamFormatterObjectHandle(new LongKey(key));
}

KOVAStreamFormatterObjectHandle KOVAStreamFormatter::define(void const* key) {
    return KOVAStreamFormatterObjectHandle(new PointerKey(key));
}

KOVAStreamFormatterObjectHandle KOVAStreamFormatter::refer(long key) {
    return KOVAStreamFormatterObjectHandle(new LongKey(key));
}

KOVAStreamFormatterObjectHandle KOVAStreamFormatter::refer(void const* key) {
    return KOVAStreamFormatterObjectHandle(new PointerKey(key));
}

KOVAStreamFormatterObjectHandle KOVAStreamFormatter::format(char const* fmt, ...) {
    std::va_list arguments;
    va_start(arguments, fmt);
    if (!fmt || std::vsnprintf(formatBuffer, sizeof formatBuffer, fmt, arguments) < 0)
        formatBuffer[0] = '\0';
    va_end(arguments);
    return KOVAStreamFormatterObjectHandle(new KOVAStreamFormatterObject(formatBuffer));
}

KOVAStreamFormatter& operator<<(KOVAStreamFormatter& out, Gk_ROString const& text) {
    return out << std::string(text.text()).c_str();
}

KOVAStreamFormatter& operator<<(KOVAStreamFormatter& out, Gk_String const& text) {
    return out << text.dataStr();
}
