#pragma once

#include <kova/text/Gk_ROString.h>

/// A Gk_ROString with write access to the shared characters.
class KOVA_API Gk_RWString : public Gk_ROString {
public:
    Gk_RWString() = default;
    Gk_RWString(char* text) : Gk_ROString(text) {}
    Gk_RWString(char const* text) : Gk_ROString(text) {}
    Gk_RWString(char* text, int n) : Gk_ROString(text, n) {}
    Gk_RWString(KOVADynamicArray<char> const& array) : Gk_ROString(array) {}

    /// The characters from the offset, unchecked.
    operator char*() { return array_.getArray() + offset_; }
    /// The character at offset + i, unchecked.
    char& operator[](int i) { return array_[offset_ + i]; }

    /// Lowers every character from the offset to the array's end.
    void toLower();
};
