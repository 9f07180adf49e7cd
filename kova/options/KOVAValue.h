#pragma once

#include <cstdint>

#include <kova/core/KOVIResult.h>
#include <kova/core/export.h>
#include <kova/text/KOVAString.h>

class KOVAStreamFormatter;

/// A double, int, bool or text, or unknown: nothing was set yet. It is read as any kind.
///
///     KOVAValue heal("Yes");
///     bool on = false;
///     if (heal.GetValue(on).IsSuccess() && on) ...
///
/// | holds  | as int       | as bool     | as double    | as text           |
/// |--------|--------------|-------------|--------------|-------------------|
/// | double | 1 unless 0.0 | not 0.0     | the value    | "%f"              |
/// | int    | the value    | not 0       | the value    | "%i"              |
/// | bool   | 0 or 1       | the value   | 0.0 or 1.0   | "True" or "False" |
/// | string | word, number | word, number| word, number | the text          |
///
/// The words are Yes, True, On and No, False, Off, in any case. Any other text is read as the number that
/// it begins with, 0 when it begins with none. Texts of numbers are the same in every locale.
class KOVA_API KOVAValue {
public:
    /// The numbers are fixed: they travel through the public interface.
    enum KOVAValueType { Unknown = 0, Double = 1, Int = 2, Bool = 3, String = 4 };
    /// Indexed by type; a null pointer follows the last.
    static char const* const KOVAValueTypeNames[6];

    KOVAValue() noexcept;
    KOVAValue(int value) noexcept;
    KOVAValue(bool value) noexcept;
    KOVAValue(double value) noexcept;
    KOVAValue(char const* value);
    KOVAValue(KOVAString const& value);
    KOVAValue(unsigned short const* value) : KOVAValue(KOVAString(value)) {}
    KOVAValue(KOVAValue const& other);
    /// Takes over the type and what belongs to it; a text is replaced only by a text.
    KOVAValue& operator=(KOVAValue const& other);
    ~KOVAValue();

    // Setting always succeeds. Numbers leave the text that was there.
    KOVIResult SetValue(int value);
    KOVIResult SetValue(bool value);
    KOVIResult SetValue(double value);
    KOVIResult SetValue(KOVAString const& value);
    /// Here lest a literal be taken for a bool.
    KOVIResult SetValue(char const* value) { return SetValue(KOVAString(value)); }
    KOVIResult SetValue(unsigned short const* value) { return SetValue(KOVAString(value)); }

    // Reading an unknown value is an Invalid Argument and leaves the output alone. Callers depend on a
    // double reading as int 1 unless it is 0.0: it is not truncated.
    KOVIResult GetValue(int& value) const;
    /// Failure for a text that is no word and whose number is 0, unless it is exactly "0"; the output is
    /// false then.
    KOVIResult GetValue(bool& value) const;
    KOVIResult GetValue(double& value) const;
    KOVIResult GetValue(KOVAString& value) const;

    KOVIResult GetValueType(KOVAValueType& type) const;
    bool IsValid() const noexcept { return type_ != Unknown; }
    bool IsInteger() const noexcept { return type_ == Int; }

    /// A bool prints as 0 or 1, an unknown value prints nothing.
    void Dump(KOVAStreamFormatter& formatter) const;
    /// The value as text, which lives until the value changes. Callers depend on the text staying in the
    /// value, whatever its type. Null when that is the null string. Hazard: `if (value)` asks whether there is a
    /// text, not what it says.
    operator char const*() const;

    /// Same type and same value, texts by case. Callers depend on an unknown value equalling nothing, not
    /// even itself.
    bool operator==(KOVAValue const& other) const noexcept;
    bool operator!=(KOVAValue const& other) const noexcept { return !(*this == other); }
    // Here for literals.
    bool operator==(char const* text) const { return *this == KOVAValue(text); }
    bool operator!=(char const* text) const { return !(*this == text); }
    bool operator==(int number) const noexcept { return *this == KOVAValue(number); }
    bool operator!=(int number) const noexcept { return !(*this == number); }

    /// The hash of an int; these numbers are compatible with those of other builds.
    static unsigned int GetHashCode(int value) noexcept;
    /// 0 for an unknown value; the text's hash code; otherwise the hash of the number as an int, a double
    /// truncated (0 where 64 bits do not hold it).
    unsigned int GetHashCode() const noexcept;

private:
    bool isWord(bool& value) const noexcept;

    mutable KOVAString text_;
    union {
        double double_;
        std::int32_t int_;
        bool bool_;
    };
    std::int32_t type_;
};
