#include <kova/platform/environment.h>

namespace {

char lower(char c) noexcept {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}

/// The value of an entry whose name is the given one; null otherwise.
char const* valueOf(char const* entry, char const* name) noexcept {
    for (; *name; ++entry, ++name) {
        if (*entry != *name && (lower(*entry) != lower(*name) || *entry == '\0'))
            return nullptr;
        if (*entry == '=')
            return nullptr; // a name with "=" in it
    }
    return *entry == '=' ? entry + 1 : nullptr;
}

} // namespace

namespace kova::detail {

char const* environmentValue(char const* name) noexcept {
    for (char const* const* entry = environmentBlock(); *entry; ++entry) {
        if (char const* const value = valueOf(*entry, name))
            return value;
    }
    return nullptr;
}

} // namespace kova::detail
