#include <kova/platform/environment.h>

#include <cstdlib>

#include <windows.h>

namespace kova::detail {

char const* const* environmentBlock() noexcept {
    static char const* const none[] = {nullptr};
    return _environ ? _environ : none;
}

bool putEnvironmentEntry(char const* entry) {
    return _putenv(entry) == 0;
}

/// The system's library for that brings a dozen others, so it is loaded by who asks, and not with this one.
bool wideArguments(KOVADynamicArray<KOVAString>& arguments) {
    HMODULE const shell = LoadLibraryExW(L"shell32.dll", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    if (!shell)
        return false;
    using Split = LPWSTR*(WINAPI*)(LPCWSTR, int*);
    auto const split = reinterpret_cast<Split>(reinterpret_cast<void*>(GetProcAddress(shell, "CommandLineToArgvW")));
    int count = 0;
    LPWSTR* const words = split ? split(GetCommandLineW(), &count) : nullptr;
    for (int i = 0; words && i < count; ++i)
        arguments.add(KOVAString(reinterpret_cast<unsigned short const*>(words[i])));
    LocalFree(words);
    FreeLibrary(shell);
    return words != nullptr;
}

} // namespace kova::detail
