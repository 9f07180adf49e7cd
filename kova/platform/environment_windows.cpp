#include <kova/platform/environment.h>

#include <cstdlib>

#include <wchar.h>

/// Of the C runtime, for the code that calls main; its headers leave it out. The arrays stay the runtime's.
extern "C" int __cdecl __wgetmainargs(int* argc, wchar_t*** argv, wchar_t*** environment, int expandsWildcards,
                                      int* startup);

namespace kova::detail {

char const* const* environmentBlock() noexcept {
    static char const* const none[] = {nullptr};
    return _environ ? _environ : none;
}

bool putEnvironmentEntry(char const* entry) {
    return _putenv(entry) == 0;
}

bool wideArguments(std::vector<std::u16string>& arguments) {
    constexpr int kExpandWildcards = 1;
    int count = 0;
    wchar_t** words = nullptr;
    wchar_t** variables = nullptr;
    int startup = 0;
    if (__wgetmainargs(&count, &words, &variables, kExpandWildcards, &startup) != 0)
        return false;
    for (int i = 0; i < count; ++i)
        arguments.emplace_back(reinterpret_cast<char16_t const*>(words[i]));
    return true;
}

} // namespace kova::detail
