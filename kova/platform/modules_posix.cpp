#include <kova/platform/modules.h>

#include <cinttypes>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <system_error>

#include <dlfcn.h>
#include <link.h>

namespace kova::detail {

namespace {

namespace fs = std::filesystem;

/// The file of this library. What the loader calls it may count from the folder that was current when the
/// program began; the system's table of mappings has the whole path.
fs::path ownFile() {
    std::uintptr_t const here = reinterpret_cast<std::uintptr_t>(&moduleExtension);
    std::unique_ptr<std::FILE, int (*)(std::FILE*)> const mappings(std::fopen("/proc/self/maps", "re"), &std::fclose);
    std::string own;
    char* line = nullptr;
    std::size_t room = 0;
    while (mappings && own.empty() && ::getline(&line, &room, mappings.get()) > 0) {
        std::uintptr_t first = 0;
        std::uintptr_t last = 0;
        int path = -1;
        if (std::sscanf(line, "%" SCNxPTR "-%" SCNxPTR " %*s %*s %*s %*s %n", &first, &last, &path) == 2 &&
            first <= here && here < last && path >= 0)
            own.assign(line + path, std::strcspn(line + path, "\n"));
    }
    std::free(line);
    if (!own.empty())
        return own;
    // Without the table, what the loader calls it will do where it is a whole path.
    Dl_info info = {};
    bool const isNamed = ::dladdr(reinterpret_cast<void*>(&moduleExtension), &info) != 0 && info.dli_fname;
    return isNamed && fs::path(info.dli_fname).is_absolute() ? info.dli_fname : fs::path();
}

/// The folders that the loader searches on this library's behalf; none when they are not known, because the
/// library's file was replaced or there is no table of mappings.
std::vector<fs::path> loaderFolders() {
    std::vector<fs::path> folders;
    fs::path const file = ownFile();
    // An empty name would be the program's, whose folders are others.
    void* const own = file.empty() ? nullptr : ::dlopen(file.c_str(), RTLD_LAZY | RTLD_NOLOAD);
    Dl_serinfo size = {};
    if (own && ::dlinfo(own, RTLD_DI_SERINFOSIZE, &size) == 0) {
        std::unique_ptr<char[]> const buffer(new char[size.dls_size]);
        Dl_serinfo* const found = reinterpret_cast<Dl_serinfo*>(buffer.get());
        found->dls_size = size.dls_size;
        found->dls_cnt = size.dls_cnt;
        if (::dlinfo(own, RTLD_DI_SERINFO, found) == 0) {
            Dl_serpath const* const paths = found->dls_serpath;
            for (unsigned int i = 0; i < found->dls_cnt; ++i)
                folders.emplace_back(paths[i].dls_name);
        }
    }
    if (own)
        ::dlclose(own);
    return folders;
}

void* open(fs::path const& file, std::string& reason) {
    void* const module = ::dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (!module) {
        char const* const error = ::dlerror();
        reason = error ? error : "";
    }
    return module;
}

/// An empty or relative entry of LD_LIBRARY_PATH is the current folder for the loader, or one below it. Where
/// there is one, the others are searched in its place. Where the folders are not known, there may be one.
void* openByLoaderRules(fs::path const& name, std::string& reason) {
    std::vector<fs::path> const folders = loaderFolders();
    if (folders.empty()) {
        reason = name.string() + ": the loader's search path is not known";
        return nullptr;
    }
    bool relative = false;
    for (fs::path const& folder : folders)
        relative = relative || folder.is_relative();
    if (!relative)
        return open(name, reason);
    reason = name.string() + ": relative folders of the loader's search path are left out";
    for (fs::path const& folder : folders) {
        std::error_code ignored;
        if (folder.is_absolute() && fs::is_regular_file(folder / name, ignored))
            return open(folder / name, reason);
    }
    return nullptr;
}

} // namespace

char const* moduleExtension() noexcept {
    return ".so";
}

std::vector<fs::path> moduleFolders() {
    std::vector<fs::path> folders;
    std::error_code ignored;
    for (fs::path const& file : {fs::read_symlink("/proc/self/exe", ignored), ownFile()}) {
        if (file.is_absolute() && (folders.empty() || folders.front() != file.parent_path()))
            folders.push_back(file.parent_path());
    }
    return folders;
}

void* openModule(fs::path const& file, std::string& reason) {
    return file.has_parent_path() ? open(file, reason) : openByLoaderRules(file, reason);
}

void closeModule(void* module) noexcept {
    ::dlclose(module);
}

void* findSymbol(void* module, char const* name) noexcept {
    void* const symbol = ::dlsym(module, name);
    // The loader goes on to the libraries that the module needs, where the C runtime has many a common name.
    link_map* own = nullptr;
    void* owner = nullptr;
    Dl_info info = {};
    bool const found = symbol && ::dlinfo(module, RTLD_DI_LINKMAP, &own) == 0 &&
                       ::dladdr1(symbol, &info, &owner, RTLD_DL_LINKMAP) != 0 && owner == own;
    return found ? symbol : nullptr;
}

} // namespace kova::detail
