#include <kova/system/KOVAEnvironment.h>

#include <cstring>
#include <string>

#include <kova/core/results.h>
#include <kova/diagnostics/KOVAInfo.h>
#include <kova/diagnostics/report.h>
#include <kova/platform/environment.h>
#include <kova/text/conversion.h>
#include <kova/text/words.h>

using kova::detail::environmentBlock;
using kova::detail::kFailure;
using kova::detail::kSuccess;

static_assert(sizeof(KOVAEnvironment) == sizeof(KOVAProperties));

namespace {

char entryBuffer[32768];

char lower(char c) noexcept {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}

/// The value of an entry whose name is the given one, ignoring the case of ASCII letters; null otherwise.
char const* valueOf(char const* entry, char const* name) noexcept {
    for (; *name; ++entry, ++name) {
        if (*entry != *name && (lower(*entry) != lower(*name) || *entry == '\0'))
            return nullptr;
        if (*entry == '=')
            return nullptr; // a name with "=" in it
    }
    return *entry == '=' ? entry + 1 : nullptr;
}

/// The same for any name.
char const* valueOf(char const* entry, KOVAString const& name) {
    char const* const separator = std::strchr(entry, '=');
    if (!separator)
        return nullptr;
    KOVAString const entryName(std::string(entry, separator).c_str());
    return entryName.equalsIgnoreCase(name) ? separator + 1 : nullptr;
}

template <class Name> char const* find(Name const& name) {
    for (char const* const* entry = environmentBlock(); *entry; ++entry) {
        if (char const* const value = valueOf(*entry, name))
            return value;
    }
    return nullptr;
}

} // namespace

KOVAEnvironment* KOVAEnvironment::_pVariables = nullptr;

KOVAEnvironment::KOVAEnvironment() {
    for (char const* const* entry = environmentBlock(); *entry; ++entry)
        Set(KOVAString(*entry));
}

KOVAEnvironment const* KOVAEnvironment::GetEnv() {
    if (!_pVariables)
        _pVariables = new KOVAEnvironment;
    return _pVariables;
}

KOVIResult KOVAEnvironment::GetVariable(KOVAString const& name, KOVAString& value) {
    bool const ascii =
        kova::detail::isAscii(static_cast<unsigned short const*>(name), static_cast<std::size_t>(name.length()));
    char const* const found = !ascii ? find(name) : find(name.length() > 0 ? static_cast<char const*>(name) : "");
    if (!found)
        return kFailure;
    value = KOVAString(found);
    return kSuccess;
}

KOVIResult KOVAEnvironment::GetVariable(KOVAString const& name, bool& value) {
    KOVAString text;
    KOVIResult const result = GetVariable(name, text);
    value = result.IsSuccess() && kova::detail::isYes(text);
    return result;
}

KOVIResult KOVAEnvironment::PutVariable(KOVAString const& name, KOVAString const& value) {
    KOVAString const text = name + "=" + value;
    char const* const narrow = text;
    KOVAInfo::Printf("Environment variable: %s\n", narrow);
    std::size_t const size = std::strlen(narrow) + 1;
    if (size > sizeof entryBuffer)
        return kFailure;
    std::memcpy(entryBuffer, narrow, size);
    kova::detail::collapsePercentPairs(entryBuffer);
    return kova::detail::putEnvironmentEntry(entryBuffer) ? kSuccess : kFailure;
}
