#pragma once

#include "support/test.h"

namespace test {

/// Entries are letters of this text.
inline char letters[] = "abcdef";

inline void* entry(char c) { return &letters[c - 'a']; }

template <class Iterator> std::string text(Iterator from, Iterator end) {
    std::string result;
    for (; from != end; ++from) result += *static_cast<char*>(*from);
    return result;
}

inline std::string forwards(KOVAList const& list) { return text(list.Begin(), list.End()); }

inline std::string backwards(KOVAList const& list) { return text(list.ReverseBegin(), list.ReverseEnd()); }

inline void empty(KOVAList& list) {
    while (!list.IsEmpty()) list.PopFront();
}

inline void fill(KOVAList& list, char const* entries) {
    for (; *entries; ++entries) list.PushBack(entry(*entries));
}

} // namespace test
