#pragma once

#include <kova/core/export.h>
#include <kova/text/Gk_String.h>

class KOVAInputStream;

/// Reads the tokens of a stream, which white space separates.
///
///     Gk_PacketInputStream packets(&file, 65536);
///     Gk_Source in(&packets, false);
///     in.setWhiteSpace(Gk_Source::WhiteSpace(" \t\r\n"));
///     int count;
///     double x;
///     in >> count >> x;
///
/// The stream is not owned. At its end every token is empty, and reads as 0. A byte that the stream's
/// readChar gives as -1 ends the input.
class KOVA_API Gk_Source {
public:
    /// A set of separators.
    class KOVA_API WhiteSpace {
    public:
        /// Those characters; none for null.
        explicit WhiteSpace(char const* characters = nullptr);
        bool isSpace(char c) const;

    private:
        Gk_String characters_;   ///< without a terminator
        unsigned char mask_ = 0; ///< all characters or-ed: most others are told apart by it alone
    };

    /// Nothing is white space until setWhiteSpace. For stringMode see nextString.
    Gk_Source(KOVAInputStream* stream, bool stringMode);

    void install(KOVAInputStream* stream) { stream_ = stream; }
    KOVAInputStream* top() const { return stream_; }
    KOVAInputStream* operator->() const { return stream_; }

    /// Returns the set before.
    WhiteSpace setWhiteSpace(WhiteSpace const& set);
    WhiteSpace getWhiteSpace() const { return whiteSpace_; }

    void skipWhite();
    /// Skips white space; true when nothing is left.
    bool isEmpty();

    /// The next token, terminated; without any character at the end of the input. What separates it from
    /// the token behind is not taken.
    Gk_String next();
    /// The same; but in stringMode only one separator is skipped, so that another right behind it gives an
    /// empty token.
    Gk_String nextString();
    /// The next character, whatever it is, and those up to the next separator, which is not taken. With
    /// line ends for white space, these are lines.
    Gk_String nextLine();
    /// What next() would return; the stream stays where it is. The stream must support available and add.
    Gk_String peek();
    /// Takes tokens until one matches the pattern (Gk_ROString::matchPathPattern); an empty view when none
    /// does.
    Gk_ROString matchPattern(Gk_ROString const& pattern);

private:
    enum class Start { SkipAll, SkipOne, SkipNone };

    int read();
    void pushBack(char c);
    Gk_String token(Start start);
    Gk_String taken();

    KOVAInputStream* stream_;
    WhiteSpace whiteSpace_;
    Gk_String scratch_;
    bool stringMode_;
};

// One token each: its first character (0 when empty); nextString() with its terminator, hazard: unchecked;
// its number. Numbers are cut to the type's range.

KOVA_API Gk_Source& operator>>(Gk_Source& source, char& value);
KOVA_API Gk_Source& operator>>(Gk_Source& source, char* buffer);
KOVA_API Gk_Source& operator>>(Gk_Source& source, int& value);
KOVA_API Gk_Source& operator>>(Gk_Source& source, long& value);
KOVA_API Gk_Source& operator>>(Gk_Source& source, unsigned int& value);
KOVA_API Gk_Source& operator>>(Gk_Source& source, unsigned long& value);
KOVA_API Gk_Source& operator>>(Gk_Source& source, float& value);
KOVA_API Gk_Source& operator>>(Gk_Source& source, double& value);
