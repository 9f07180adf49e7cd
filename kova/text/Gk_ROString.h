#pragma once

#include <cstdint>
#include <string_view>

#include <kova/containers/KOVADynamicArray.h>
#include <kova/core/export.h>

class KOVAOutputStream;

/// A read-only view of an 8-bit text from an offset to the end of its character array, which it shares
/// with the string that it was made from. A terminator at the end of the array counts as a character.
class KOVA_API Gk_ROString {
public:
    /// An empty array of its own.
    Gk_ROString() = default;
    /// A copy of the characters and the terminator; of only a terminator for null.
    Gk_ROString(char const* text);
    /// A copy of n bytes, not terminated.
    Gk_ROString(char const* text, int n);
    /// Shares the array.
    Gk_ROString(KOVADynamicArray<char> const& array) : array_(array) {}

    /// Characters from the offset to the array's end, the terminator included.
    int len() const { return array_.size() - offset_; }

    int offsetVal() const { return offset_; }
    void setoffset(int offset) { offset_ = offset; }
    void offset(int d) { offset_ += d; }

    /// The characters from the offset; "" where the array has none there. Terminated only if the array
    /// is.
    operator char const*() const;
    /// The character at offset + i, unchecked.
    char const& operator[](int i) const { return array_[offset_ + i]; }

    /// The first c, counted from the offset, or -1.
    int find(char c) const;
    /// Searches t's text in this one. Callers depend on both odd results: len() when it is absent, and
    /// otherwise the distance of the match from t's own first character, which is a position only when
    /// both views share one array.
    int find(Gk_ROString const& t) const;
    /// The index in the array of the last c at or before len() - skip - 1, or -1; -1 for a view of fewer
    /// than two characters.
    int reverseFind(char c, int skip) const;

    /// How many characters of this path the leading path p covers, a "/" behind it included; -1 when it
    /// does not lead it. ("dir" covers 4 of "dir/file"; "di" none.)
    int matchPathString(Gk_ROString const& p) const;
    /// Whether this path, or its part before a "/", matches the pattern p: "*" is any run within one
    /// component; "?" one character, but not a "/" nor a "." that begins a component; "[a-z]" and "[!a-z]"
    /// or "[^a-z]" one character of a class. Letters of the pattern are lowered, those of the path are not.
    bool matchPathPattern(Gk_ROString const& p) const;

    /// Byte-wise, from the offsets to the terminators.
    bool operator==(Gk_ROString const& other) const { return text() == other.text(); }
    bool operator<(Gk_ROString const& other) const { return text() < other.text(); }

    /// The characters from the offset to the terminator, or to the array's end.
    std::string_view text() const;
    /// The characters from the offset to the array's end.
    std::string_view characters() const;

protected:
    KOVADynamicArray<char> array_;
    std::int32_t offset_ = 0;
};

/// Writes the text from the offset.
KOVA_API KOVAOutputStream& operator<<(KOVAOutputStream& out, Gk_ROString const& s);
