#pragma once

#include <cstddef>
#include <cstdint>

#include <kova/core/export.h>

/// Immutable text of 16-bit units; the library's general text value.
///
///     KOVAString name("part.stl");
///     if (name.endsWithIgnoreCase(".stl"))
///         name = name.substring(0, name.length() - 4) + ".obj";
///     puts(name);                                   // the narrow form
///
/// Operations that would change a text return a new one; only assignment changes an object. Copies
/// share one block, so they cost next to nothing.
///
/// There are two kinds of empty string. The null string is what the default constructor makes and
/// what every operation with an empty result returns; the empty text is made from an empty 8-bit or
/// wide text. Both have length 0; compareTo, equals and the ordering operators tell them apart.
///
/// No operation throws on a bad index: it gives 0, -1, false or the null string. 8-bit texts are in
/// the encoding of the current C locale; a byte that it cannot convert becomes the unit of the same
/// value.
///
/// Several threads may read one string only once its narrow form has been built.
class KOVA_API KOVAString {
public:
    static const KOVAString KOVA_YES;   ///< "Yes"
    static const KOVAString KOVA_NO;    ///< "No"
    static const KOVAString KOVA_TRUE;  ///< "True"
    static const KOVAString KOVA_FALSE; ///< "False"
    static const KOVAString KOVA_ON;    ///< "On"
    static const KOVAString KOVA_OFF;   ///< "Off"

    /// The null string.
    constexpr KOVAString() noexcept : units_(nullptr), narrow_(nullptr) {}
    /// A null pointer gives the null string.
    KOVAString(char const* text);
    KOVAString(unsigned short const* units);
    /// The text that printf would print, cut to size - 1 bytes. A null format gives the null string.
    KOVAString(int size, char const* format, ...) KOVA_PRINTF(3, 4);
    /// The text of one unit.
    KOVAString(unsigned short unit);
    KOVAString(KOVAString const& other) noexcept;
    /// The source becomes the null string.
    KOVAString(KOVAString&& other) noexcept;
    KOVAString& operator=(KOVAString const& other);
    KOVAString& operator=(KOVAString&& other) noexcept;
    virtual ~KOVAString();

    /// Number of units.
    int length() const noexcept { return units_ ? reinterpret_cast<std::int32_t const*>(units_)[-1] : 0; }
    /// Number of bytes of the narrow form.
    int GetLengthInChar() const;

    /// The terminated units, null for the null string; they live until this object is assigned or
    /// destroyed.
    operator unsigned short const*() const noexcept { return units_; }
    /// The terminated narrow form, null for the null string, built on the first call; lives as the
    /// units do.
    operator char const*() const;

    /// Unit i. Unchecked: the null string has no units at all.
    unsigned short const& operator[](int i) const noexcept { return units_[i]; }
    /// Unit i, or 0 when there is none.
    unsigned short charAt(int i) const noexcept;

    /// Copies the units begin .. end - 1 to dst + dstBegin and terminates them; end is cut to the
    /// length. Otherwise out of range: only the terminator is written. Nothing for a null dst.
    void getChars(int begin, int end, unsigned short* dst, int dstBegin) const;
    /// The same in narrow form: at most end - begin bytes for the units from begin on, where end is cut
    /// to the length in bytes. Where the locale cannot convert them, end - begin bytes are filled one a
    /// unit, "-" for a unit above 255, else its low byte. Callers depend on these being the units from
    /// index 0 on, not from begin.
    void getChars(int begin, int end, char* dst, int dstBegin) const;

    /// Writes the object's and the units' addresses, the low byte of each unit and the length as one
    /// debug message.
    void dump() const;

    // Comparison. The null string orders before everything else and equals only itself.

    /// -1, 0 or 1 by the units as numbers.
    int compareTo(KOVAString const& other) const noexcept;
    bool equals(KOVAString const& other) const noexcept;
    /// As compareTo of the lower-case forms.
    int compareToIgnoreCase(KOVAString const& other) const noexcept;
    bool equalsIgnoreCase(KOVAString const& other) const noexcept { return compareToIgnoreCase(other) == 0; }
    /// h = h * 33 + unit from 0 on, in 32 bits.
    std::uint32_t hashCode() const noexcept;

    // Searching; -1 means not found, and an empty text is never found.

    int indexOf(unsigned short unit) const noexcept { return indexOf(unit, 0); }
    int indexOf(unsigned short unit, int from) const noexcept;
    int indexOf(KOVAString const& str) const noexcept { return indexOf(str, 0); }
    int indexOf(KOVAString const& str, int from) const noexcept;
    int lastIndexOf(unsigned short unit) const noexcept { return lastIndexOf(unit, length() - 1); }
    /// The last index at or before from.
    int lastIndexOf(unsigned short unit, int from) const noexcept;
    /// The last index behind from.
    int lastIndexOfAfter(unsigned short unit, int from) const noexcept;
    int lastIndexOf(KOVAString const& str) const noexcept { return lastIndexOf(str, length() - 1); }
    /// The last position at or before from at which str begins.
    int lastIndexOf(KOVAString const& str, int from) const noexcept;
    bool startsWith(KOVAString const& str) const noexcept { return startsWith(str, 0); }
    bool startsWith(KOVAString const& str, int offset) const noexcept;
    bool endsWith(unsigned short unit) const noexcept;
    bool endsWith(KOVAString const& str) const noexcept;
    bool endsWithIgnoreCase(KOVAString const& str) const noexcept;

    // Derived strings.

    /// The units begin .. end - 1; the null string when the range is empty or does not fit.
    KOVAString substring(int begin, int end) const;
    KOVAString substring(int begin) const { return substring(begin, length()); }
    KOVAString concat(KOVAString const& other) const;
    KOVAString replace(unsigned short oldUnit, unsigned short newUnit) const;
    KOVAString toLowerCase() const;
    KOVAString toUpperCase() const;
    /// Without white space at both ends. Callers depend on a text that does not end with white space
    /// losing its final unit: "abc" gives "ab", "abc " gives "abc", "a" gives the null string.
    KOVAString trim() const;
    /// trim() leaves nothing; so it is true of "a" as well.
    bool isWhitespace() const { return trim().length() < 1; }

    // The text of a value. Hazard: the last form reads count units unchecked.

    static KOVAString valueOf(double value); ///< six decimals
    static KOVAString valueOf(float value);  ///< six decimals
    static KOVAString valueOf(int value);
    static KOVAString valueOf(long value);
    static KOVAString valueOf(bool value); ///< "true" or "false"
    static KOVAString valueOf(unsigned short unit);
    static KOVAString valueOf(unsigned short const* units);
    /// Here lest a literal be taken for a bool.
    static KOVAString valueOf(char const* text) { return KOVAString(text); }
    static KOVAString valueOf(unsigned short const* data, int offset, int count);

private:
    friend class KOVAFileHeader;
    friend class KOVAOptionName;
    /// Shares a block that is never released, made when the program is compiled.
    struct Static {
        unsigned short* units;
    };
    constexpr explicit KOVAString(Static block) noexcept : units_(block.units), narrow_(nullptr) {}

    /// Takes over a block with its one reference.
    static KOVAString adopt(unsigned short* units) noexcept {
        KOVAString result;
        result.units_ = units;
        return result;
    }
    /// This text where it has units, else the null string.
    KOVAString orNull() const noexcept { return length() > 0 ? *this : KOVAString(); }
    template <class Function> KOVA_LOCAL KOVAString mapped(Function const& function) const;

    unsigned short* units_; ///< in a shared block, behind its reference count and its length
    mutable char* narrow_;  ///< owned
};

inline KOVAString operator+(KOVAString const& left, KOVAString const& right) {
    return left.concat(right);
}

inline bool operator==(KOVAString const& left, KOVAString const& right) noexcept {
    return left.equals(right);
}

inline bool operator!=(KOVAString const& left, KOVAString const& right) noexcept {
    return !left.equals(right);
}

// With a literal, whose comparison with a string would otherwise be ambiguous.
inline bool operator==(KOVAString const& left, char const* right) {
    return left.equals(KOVAString(right));
}

inline bool operator!=(KOVAString const& left, char const* right) {
    return !left.equals(KOVAString(right));
}

inline bool operator<(KOVAString const& left, KOVAString const& right) noexcept {
    return left.compareTo(right) < 0;
}

inline bool operator<=(KOVAString const& left, KOVAString const& right) noexcept {
    return left.compareTo(right) <= 0;
}

inline bool operator>(KOVAString const& left, KOVAString const& right) noexcept {
    return left.compareTo(right) > 0;
}

inline bool operator>=(KOVAString const& left, KOVAString const& right) noexcept {
    return left.compareTo(right) >= 0;
}
