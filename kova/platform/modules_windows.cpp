#include <kova/platform/modules.h>

#include <windows.h>

namespace kova::detail {

namespace {

namespace fs = std::filesystem;

/// The file of a module; of the program itself for null.
fs::path fileOf(HMODULE module) {
    std::wstring name(MAX_PATH, L'\0');
    for (;;) {
        DWORD const length = GetModuleFileNameW(module, &name[0], static_cast<DWORD>(name.size()));
        if (length < name.size()) {
            name.resize(length);
            return name;
        }
        name.resize(name.size() * 2);
    }
}

HMODULE ownModule() {
    HMODULE module = nullptr;
    DWORD const how = GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
    return GetModuleHandleExW(how, reinterpret_cast<LPCWSTR>(&moduleExtension), &module) ? module : nullptr;
}

} // namespace

char const* moduleExtension() noexcept {
    return ".dll";
}

std::vector<fs::path> moduleFolders() {
    std::vector<fs::path> folders;
    for (HMODULE const module : {static_cast<HMODULE>(nullptr), ownModule()}) {
        fs::path const folder = fileOf(module).parent_path();
        if (folder.is_absolute() && (folders.empty() || folders.front() != folder))
            folders.push_back(folder);
    }
    return folders;
}

void* openModule(fs::path const& file, std::string& reason) {
    // The folders of the program, of the system and of AddDllDirectory, for the module and for what it needs;
    // the latter also beside the module. Neither the current folder nor PATH.
    DWORD const folders =
        LOAD_LIBRARY_SEARCH_DEFAULT_DIRS | (file.is_absolute() ? LOAD_LIBRARY_SEARCH_DLL_LOAD_DIR : 0);
    DWORD mode = 0;
    SetThreadErrorMode(SEM_FAILCRITICALERRORS, &mode); // no dialogue about a damaged file
    HMODULE const module = LoadLibraryExW(fs::path(file).make_preferred().c_str(), nullptr, folders);
    DWORD const error = GetLastError();
    SetThreadErrorMode(mode, nullptr);
    if (!module)
        reason = "Windows error " + std::to_string(error);
    return module;
}

void closeModule(void* module) noexcept {
    FreeLibrary(static_cast<HMODULE>(module));
}

void* findSymbol(void* module, char const* name) noexcept {
    return reinterpret_cast<void*>(GetProcAddress(static_cast<HMODULE>(module), name));
}

} // namespace kova::detail
