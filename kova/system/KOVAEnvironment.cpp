#include <kova/system/KOVAEnvironment.h>

#include <cstring>
#include <string>
#include <vector>

#include <kova/core/results.h>
#include <kova/diagnostics/KOVAInfo.h>
#include <kova/diagnostics/report.h>
#include <kova/platform/environment.h>
#include <kova/text/conversion.h>
#include <kova/text/words.h>

using kova::detail::environmentBlock;
using kova::detail::environmentValue;
using kova::detail::kFailure;
using kova::detail::kSuccess;

static_assert(sizeof(KOVAEnvironment) == sizeof(KOVAProperties));

namespace {

char entryBuffer[32768];

/// As environmentValue, for any name.
char const* anyValue(KOVAString const& name) {
    for (char const* const* entry = environmentBlock(); *entry; ++entry) {
        char const* const separator = std::strchr(*entry, '=');
        if (separator && KOVAString(std::string(*entry, separator).c_str()).equalsIgnoreCase(name))
            return separator + 1;
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
    char const* const narrow = ascii && name.length() > 0 ? static_cast<char const*>(name) : "";
    char const* const found = ascii ? environmentValue(narrow) : anyValue(name);
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

void KOVAEnvironment::GetArguments(int argc, char const* const* argv, KOVADynamicArray<KOVAString>& arguments) {
    std::vector<std::u16string> wide;
    bool const isWide = kova::detail::wideArguments(wide);
    for (std::u16string const& each : wide)
        arguments.add(KOVAString(reinterpret_cast<unsigned short const*>(each.c_str())));
    for (int i = 0; !isWide && argv && i < argc && argv[i]; ++i)
        arguments.add(KOVAString(argv[i]));
}
