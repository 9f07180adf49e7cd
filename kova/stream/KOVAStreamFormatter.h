#pragma once

#include <cstdint>

#include <kova/core/KOVAReferenceHandle.h>
#include <kova/core/export.h>

class Gk_ROString;
class Gk_String;
class KOVAOutputStream;
class KOVAString;
class KOVAValue;

/// Writes values as text to an output stream, with printf formats, a margin for nested blocks, and small
/// objects that are streamed like values.
///
///     KOVAStreamFormatter out(&KOVAFileOutputStream::console);
///     out << "box" << out.newline;
///     out.margin->incr();
///     out << out.margin << "width " << 12.5 << out.blank << out.format("(%d%%)", 80) << out.newline;
///     out.margin->decr();
///
/// A class prints itself through `KOVAStreamFormatter& operator<<(KOVAStreamFormatter&, T const&)`. The
/// margin is printed only where it is streamed; a newline does not print it.
///
/// The output stream stays the caller's and must outlive the formatter; without one nothing is written. While the
/// default formats are in force, numbers are written with a point in every locale. One thread at a time, over all
/// formatters.
class KOVA_API KOVAStreamFormatter {
public:
    /// A text that is streamed; base of everything that prints itself on a formatter.
    class KOVA_API KOVAStreamFormatterObject : public KOVAReferenceCount {
    public:
        /// The text stays the caller's.
        explicit KOVAStreamFormatterObject(char const* text = "") noexcept : KOVAReferenceCount(0), text_(text) {}
        KOVAStreamFormatterObject(KOVAStreamFormatterObject const&) = default;
        ~KOVAStreamFormatterObject() override;

        virtual void dump(KOVAStreamFormatter& formatter) const;

    private:
        char const* text_;
    };

    /// The indentation: four blanks a level, none below level 1.
    class KOVA_API KOVAStreamFormatterMargin : public KOVAStreamFormatterObject {
    public:
        explicit KOVAStreamFormatterMargin(KOVAStreamFormatter* formatter) noexcept : formatter_(formatter) {}
        ~KOVAStreamFormatterMargin() override;

        void dump(KOVAStreamFormatter& formatter) const override;
        virtual void incr();
        virtual void decr();

        /// The formatter that made it, null once that is gone. Copies of a formatter share its margin.
        KOVAStreamFormatter* GetFormatter() const noexcept { return formatter_; }

    private:
        friend class KOVAStreamFormatter;
        std::int32_t level_ = 0;
        KOVAStreamFormatter* formatter_;
    };

    /// Handles that can be streamed.
    class KOVAStreamFormatterObjectHandle : public KOVAReferenceHandle {
    public:
        explicit KOVAStreamFormatterObjectHandle(KOVAStreamFormatterObject* object) : KOVAReferenceHandle(object) {}
        KOVAStreamFormatterObject* operator->() const { return *this; }
        operator KOVAStreamFormatterObject*() const { return static_cast<KOVAStreamFormatterObject*>(GetInstance()); }
    };
    /// Holds a margin, which can be streamed.
    class KOVAStreamFormatterMarginHandle : public KOVAReferenceHandle {
    public:
        explicit KOVAStreamFormatterMarginHandle(KOVAStreamFormatterMargin* margin) : KOVAReferenceHandle(margin) {}
        KOVAStreamFormatterMargin* operator->() const { return *this; }
        operator KOVAStreamFormatterMargin*() const { return static_cast<KOVAStreamFormatterMargin*>(GetInstance()); }
    };

protected:
    // What the << operators call. A number is one write; a null text or object and an empty text are none.
#if KOVA_OVERLOADS_REVERSED
    virtual void dump(char c);
    virtual void dump(int value);
    virtual void dump(unsigned int value);
    virtual void dump(long value);
    virtual void dump(unsigned long value);
    virtual void dump(double value);
    virtual void dump(char const* text);
    virtual void dump(void const* address);
    virtual void dump(KOVAStreamFormatterObject const* object);
    virtual void dump(KOVAString const& text);
    virtual void dump(KOVAValue const& value);
#else
    virtual void dump(KOVAValue const& value);
    virtual void dump(KOVAString const& text);
    virtual void dump(KOVAStreamFormatterObject const* object);
    virtual void dump(void const* address); ///< as "0x1f"; null as "0"
    virtual void dump(char const* text);
    virtual void dump(double value);
    virtual void dump(unsigned long value);
    virtual void dump(long value);
    virtual void dump(unsigned int value);
    virtual void dump(int value);
    virtual void dump(char c);
#endif

public:
    /// Flushes the output.
    virtual ~KOVAStreamFormatter();

    /// Objects that print the key: how printed objects are named where they stand (define) and where others
    /// mention them (refer). Here both print the key as a number.
#if KOVA_OVERLOADS_REVERSED
    virtual KOVAStreamFormatterObjectHandle define(void const* key);
    virtual KOVAStreamFormatterObjectHandle define(long key);
    virtual KOVAStreamFormatterObjectHandle refer(void const* key);
    virtual KOVAStreamFormatterObjectHandle refer(long key);
#else
    virtual KOVAStreamFormatterObjectHandle define(long key);
    virtual KOVAStreamFormatterObjectHandle define(void const* key);
    virtual KOVAStreamFormatterObjectHandle refer(long key);
    virtual KOVAStreamFormatterObjectHandle refer(void const* key);
#endif

    // Here for literals, which suit both forms.
    KOVAStreamFormatterObjectHandle define(int key) {
        return define(static_cast<long>(key));
    }
    KOVAStreamFormatterObjectHandle refer(int key) {
        return refer(static_cast<long>(key));
    }

    /// A formatted text, cut to 511 characters, to be streamed at once. Callers depend on all results
    /// sharing one buffer: the next call, on any formatter, changes what an earlier result prints.
    virtual KOVAStreamFormatterObjectHandle format(char const* fmt, ...) KOVA_PRINTF(2, 3);

    explicit KOVAStreamFormatter(KOVAOutputStream* output);
    /// Both write to the same output, and share the margin and the other objects.
    KOVAStreamFormatter(KOVAStreamFormatter const& other);
    KOVAStreamFormatter& operator=(KOVAStreamFormatter const& other);

    /// Returns the output that was installed before.
    KOVAOutputStream* installOutputStream(KOVAOutputStream* output) noexcept;

    // The formats: "%lf", "%d", "%u", "%ld", and "%ul" for an unsigned long. Callers depend on the last,
    // which is no length modifier: 7 prints as "7l". The setters keep the pointer, so the text must live as
    // long as its use, and return the format before. Hazard: a format must suit its type, as for printf.

    /// Back to the defaults. Callers depend on the precision and its flag staying as they are.
    void resetFormat() noexcept;
    char const* setIntFormat(char const* format) noexcept;
    char const* setUIntFormat(char const* format) noexcept;
    char const* setLongFormat(char const* format) noexcept;
    char const* setULongFormat(char const* format) noexcept;
    /// With precisionGiven, the precision is passed ahead of the value to a format with a star, "%.*lf". A
    /// format without one ignores it; a star without a given precision prints as if it were not there.
    char const* setDoubleFormat(char const* format, bool precisionGiven, int precision) noexcept;

    friend KOVAStreamFormatter& operator<<(KOVAStreamFormatter& out, char c) {
        return out.put(c);
    }
    friend KOVAStreamFormatter& operator<<(KOVAStreamFormatter& out, int value) {
        return out.put(value);
    }
    friend KOVAStreamFormatter& operator<<(KOVAStreamFormatter& out, unsigned int value) {
        return out.put(value);
    }
    friend KOVAStreamFormatter& operator<<(KOVAStreamFormatter& out, long value) {
        return out.put(value);
    }
    friend KOVAStreamFormatter& operator<<(KOVAStreamFormatter& out, unsigned long value) {
        return out.put(value);
    }
    friend KOVAStreamFormatter& operator<<(KOVAStreamFormatter& out, double value) {
        return out.put(value);
    }
    friend KOVAStreamFormatter& operator<<(KOVAStreamFormatter& out, char const* text) {
        return out.put(text);
    }
    friend KOVAStreamFormatter& operator<<(KOVAStreamFormatter& out, void const* address) {
        return out.put(address);
    }
    friend KOVAStreamFormatter& operator<<(KOVAStreamFormatter& out, KOVAString const& text) {
        return out.put(text);
    }
    friend KOVAStreamFormatter& operator<<(KOVAStreamFormatter& out, KOVAValue const& value) {
        return out.put(value);
    }
    friend KOVAStreamFormatter& operator<<(KOVAStreamFormatter& out, KOVAStreamFormatterObject const* object) {
        return out.put(object);
    }

private:
    class LongKey;
    class PointerKey;

    void leaveMargin();
    template <class T> KOVAStreamFormatter& put(T const& value) {
        dump(value);
        return *this;
    }
    template <class Number> KOVA_LOCAL void dumpNumber(char const* format, char const* defaultFormat, Number value);
    template <class... Arguments> KOVA_LOCAL void dumpFormatted(char const* format, Arguments... arguments);

    KOVAOutputStream* output_;
    char const* doubleFormat_;
    char const* intFormat_;
    char const* uintFormat_;
    char const* ulongFormat_;
    char const* longFormat_;
    bool precisionGiven_ = false;
    std::int32_t precision_ = 10;
    char buffer_[128] = {};

public:
    KOVAStreamFormatterMarginHandle margin;
    KOVAStreamFormatterObjectHandle blank;   ///< prints " "
    KOVAStreamFormatterObjectHandle newline; ///< prints a line feed
    KOVAStreamFormatterObjectHandle empty;   ///< prints nothing
};

/// Their characters up to the terminator, or to the end where there is none.
KOVA_API KOVAStreamFormatter& operator<<(KOVAStreamFormatter& out, Gk_ROString const& text);
KOVA_API KOVAStreamFormatter& operator<<(KOVAStreamFormatter& out, Gk_String const& text);

using KOVAStreamFormatterObjectHandle = KOVAStreamFormatter::KOVAStreamFormatterObjectHandle;
using KOVAStreamFormatterMarginHandle = KOVAStreamFormatter::KOVAStreamFormatterMarginHandle;
