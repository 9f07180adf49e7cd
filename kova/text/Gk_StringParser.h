#pragma once

#include <kova/core/export.h>
#include <kova/text/Gk_String.h>

/// Classifies and converts one token.
///
///     Gk_StringParser token(source.next());
///     if (token.isInteger(0))
///         count = token.intValue();
///
/// Shares the token's characters. The positions `start` count from the token's beginning. Numbers are the
/// same in every locale.
class KOVA_API Gk_StringParser : public Gk_String {
public:
    explicit Gk_StringParser(Gk_String const& token) : Gk_String(token) {}

    /// How many digits follow from start on; end() is then the first other character. 0 beyond the text.
    int countDigits(int start);
    int countHexDigits(int start);

    /// "0x" (no "0X") and hexadecimal digits, or decimal digits, and nothing behind them.
    bool isUnsignedInteger(int start);
    /// The same, behind a sign or none.
    bool isInteger(int start);
    /// A sign or none, digits with a point or without, and perhaps "e" and an integer. Callers depend on
    /// what follows a number without "e" being accepted: "12abc" is a real, but no integer.
    bool isReal(int start);

    // Conversions stop where the number does; a token that begins with none is 0. Text behind the number
    // is no error: it goes through the assertion hook, which honours a request to abort.

    /// As strtol and strtoul with base 0: "0x1f" is hexadecimal, "017" octal. What is out of range becomes
    /// the nearest limit.
    long intValue();
    unsigned long uIntValue();
    /// The same with the range of an int, which is less than a long's on some systems.
    int intValue32();
    unsigned int uIntValue32();
    /// As strtod in the "C" locale. Callers depend on a conversion that stops at a point being continued
    /// there: "1.5.25" is 1.5 and .25, 1.75.
    double realValue();

    /// The text equals s.
    bool isString(char const* s) const;
    /// 0 for an empty token.
    char firstChar() const { return at(0); }

    /// Where the last conversion or digit count stopped; null before.
    char const* end() const noexcept { return end_; }
    /// The last conversion has looked at what stands behind the number.
    bool isChecked() const noexcept { return checked_; }

private:
    /// 0 beyond the text.
    char at(int i) const { return i >= 0 && i < len() ? (*this)[i] : '\0'; }
    int countDigits(int start, unsigned base);
    template <class T> KOVA_LOCAL T integer();
    void setEnd(char const* end, char const* limit);

    char* end_ = nullptr;
    bool checked_ = false;
};
