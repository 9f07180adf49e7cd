#pragma once

#include <string_view>

#include <kova/containers/KOVADynamicArray.h>
#include <kova/core/export.h>
#include <kova/text/Gk_ROString.h>

/// A growable 8-bit text of the older layer. Its terminator is one of its characters.
///
///     Gk_String path("dir");
///     path.append("/file");                 // "dir/file", len() 9, dataLen() 8
///
/// Copies and views share the characters; copy() has its own. Indexes are not checked.
class KOVA_API Gk_String {
public:
    /// Empty: no character, no terminator.
    Gk_String() = default;
    /// A null text gives only a terminator.
    Gk_String(char const* text);
    /// Exactly n bytes; no terminator is added.
    Gk_String(char const* text, int n);
    /// The view's characters, terminated.
    Gk_String(Gk_ROString const& view);

    /// Characters, the terminator included.
    int len() const { return array_.size(); }
    /// Characters without a terminator at the end.
    int dataLen() const;

    char& operator[](int i) { return array_[i]; }
    char const& operator[](int i) const { return array_[i]; }
    /// The characters; null when there is none.
    operator char*() const { return len() > 0 ? const_cast<char*>(array_.getArray()) : nullptr; }

    void clear() { array_.clear(); }

    /// Adds c behind the terminator; the caller adds a new terminator when one is needed.
    void append(char c) { array_.add(c); }
    /// These take away the last character (the terminator, when there is one) and add the new text,
    /// terminated.
    void append(char const* text);
    void append(Gk_String const& text);
    void append(Gk_ROString const& view);
    void append(int n, char const* bytes);

    /// Cuts the text to its first n characters and terminates it, when n is below len().
    void chop(int n);
    /// Take away n characters, at most all; a terminator counts as one.
    void shrinkFront(int n);
    void shrinkEnd(int n);
    /// Cuts to n characters as chop does, or pads with blanks to n characters and terminates.
    void ensure(int n);

    /// At most n characters from start, terminated.
    Gk_String subset(int start, int n) const;
    /// Views of the shared characters from offset 0.
    Gk_ROString rwString() const { return Gk_ROString(array_); }
    Gk_ROString dataStr() const { return Gk_ROString(array_); }
    /// The deep copy.
    Gk_String copy() const;

    /// Byte-wise to the terminators. A text without any character equals only another such text, and
    /// orders first.
    bool operator==(Gk_String const& other) const;
    bool operator<(Gk_String const& other) const;

private:
    friend class Gk_Unit;
    /// Takes over one of the holds on a text.
    explicit constexpr Gk_String(KOVAArrayHeader* held) noexcept : array_(held) {}

    void addText(std::string_view text) { array_.append(text.data(), static_cast<int>(text.size())); }
    void addTerminated(std::string_view text);
    void replaceLast(std::string_view text);

    KOVADynamicArray<char> array_;
};

/// Writes the characters up to the terminator.
KOVA_API KOVAOutputStream& operator<<(KOVAOutputStream& out, Gk_String const& s);
