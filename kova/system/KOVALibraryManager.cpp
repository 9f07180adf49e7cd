#include <kova/system/KOVALibraryManager.h>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <filesystem>
#include <memory>
#include <set>
#include <string>
#include <system_error>
#include <vector>

#include <kova/core/results.h>
#include <kova/diagnostics/KOVATrace.h>
#include <kova/platform/files.h>
#include <kova/platform/modules.h>

using kova::detail::kFailure;
using kova::detail::kInvalidArgument;
using kova::detail::kSuccess;

namespace {

namespace fs = std::filesystem;

/// The library whose module has this file name, "" when it is none's.
std::string libraryOf(std::string const& file) {
    std::string const ending = std::string("n") + kova::detail::moduleExtension();
    bool const ends =
        file.size() > ending.size() && file.compare(file.size() - ending.size(), ending.size(), ending) == 0;
    return ends ? file.substr(0, file.size() - ending.size()) : std::string();
}

} // namespace

KOVIResult KOVALibraryManager::AddLibrary(KOVALibrary* library) {
    if (!library)
        return kInvalidArgument;
    log.Printf(KOVA_TRACE_MESSAGE, "Adding %s library", library->GetLibraryName());
    if (!_libraries)
        _libraries = std::make_unique<Libraries>();
    int const position = _libraries->findOrAdd(library->GetLibraryName());
    if (position < 0)
        return kFailure;
    _libraries->value(position) = KOVALibraryHandle(library);
    return kSuccess;
}

KOVIResult KOVALibraryManager::CreateLibrary(char const* name, char const* initialisationFunction,
                                             char const* finalisationFunction, KOVALibrary*& library) {
    library = nullptr;
    if (!name)
        return kInvalidArgument;
    std::size_t const length = std::strlen(name);
    bool const cut = length >= KOVALibrary::kNameSize;
    std::string const kept(name, std::min(length, KOVALibrary::kNameSize - 1));
    int const known = _libraries ? _libraries->find(kept.c_str()) : -1;
    // A name that was cut is not the shorter name that it now looks like.
    if (known >= 0 && _libraries->value(known).IsValid() && _libraries->value(known)->cut_ == cut) {
        library = _libraries->value(known);
        return kSuccess;
    }
    auto created = std::make_unique<KOVALibrary>(name, initialisationFunction, finalisationFunction);
    KOVIResult const result = AddLibrary(created.get());
    if (result.IsSuccess())
        library = created.release();
    return result;
}

KOVIResult KOVALibraryManager::FreeLibraries() {
    log.Printf(KOVA_TRACE_MESSAGE, "Freeing libraries");
    if (!_libraries)
        return kSuccess;
    std::vector<KOVAString> unheld;
    for (int i = 0; i < _libraries->size(); ++i) {
        if (_libraries->value(i).IsLastCall())
            unheld.push_back(_libraries->name(i));
    }
    for (KOVAString const& name : unheld) {
        // Each finalisation function may come back here, or take hold of another library.
        int freed = _libraries->find(name);
        if (freed < 0 || !_libraries->value(freed).IsLastCall())
            continue;
        log.Printf(KOVA_TRACE_MESSAGE, "Freeing %s library", _libraries->value(freed)->GetLibraryName());
        _libraries->value(freed) = KOVALibraryHandle();
        freed = _libraries->find(name);
        if (freed >= 0 && !_libraries->value(freed).IsValid())
            _libraries->remove(freed);
    }
    return kSuccess;
}

KOVIResult KOVALibraryManager::FindLibraries(char const* prefix, KOVADynamicArray<KOVAString>& names) {
    if (!prefix)
        return kInvalidArgument;
    std::set<std::string> found;
    for (fs::path const& folder : kova::detail::moduleFolders()) {
        std::error_code error;
        for (fs::directory_iterator file(folder, error), end; !error && file != end; file.increment(error)) {
            std::string const name = libraryOf(kova::detail::narrowName(file->path().filename()));
            std::error_code ignored;
            if (!name.empty() && name.size() < KOVALibrary::kNameSize && name.rfind(prefix, 0) == 0 &&
                file->is_regular_file(ignored))
                found.insert(name);
        }
    }
    names = KOVADynamicArray<KOVAString>();
    for (std::string const& name : found)
        names.add(KOVAString(name.c_str()));
    return kSuccess;
}
