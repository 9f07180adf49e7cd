#include "Formats.h"

#include <algorithm>
#include <cstring>

#include <kova/options/KOVAOptionName.h>
#include <kova/system/KOVAFilePath.h>
#include <kova/system/KOVALibraryManager.h>

#include "characters.h"
#include "narrow.h"
#include "report.h"

namespace toolkit {

namespace {

/// In small letters and digits.
bool isExtension(std::string const& text) {
    return !text.empty() && std::all_of(text.begin(), text.end(),
                                        [](char c) { return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9'); });
}

/// The library is loaded, and not initialised: none of its functions is called before its version is known.
KOVIResult checkVersion(std::string const& name) {
    KOVALibrary library(name.c_str(), "", "");
    void* data = nullptr;
    if (library.GetFunction(kInterfaceName, data).IsFailure())
        return fail(kInvalidComponent, name.c_str(), kNowhere,
                    "it does not say for which version of the interface to formats it was made");
    auto const version = static_cast<FormatInterface const*>(data)->version;
    if (version != kInterfaceVersion)
        return fail(kInvalidComponent, name.c_str(), kNowhere,
                    "made for version %lu of the interface to formats; this program has version %lu",
                    static_cast<unsigned long>(version), static_cast<unsigned long>(kInterfaceVersion));
    return kSuccess;
}

} // namespace

Formats::Formats() {
    KOVADynamicArray<KOVAString> libraries;
    KOVALibraryManager::FindLibraries(kLibraryPrefix, libraries);
    for (int i = 0; i < libraries.size(); ++i) {
        std::string const name = narrow(libraries[i]);
        std::string const extension = name.substr(std::strlen(kLibraryPrefix));
        if (isExtension(extension))
            byExtension_[extension];
    }
}

Formats::~Formats() {
    byExtension_.clear();
    KOVALibraryManager::FreeLibraries();
}

/// The ends of names: ".obj, .ply or .stl".
std::string Formats::known() const {
    std::string text;
    std::size_t left = byExtension_.size();
    for (auto const& [extension, entry] : byExtension_) {
        text += "." + extension;
        --left;
        text += left > 1 ? ", " : left == 1 ? " or " : "";
    }
    return text;
}

KOVIResult Formats::load(std::string const& extension, Entry& entry) {
    std::string const name = kLibraryPrefix + extension;
    KOVIResult result = checkVersion(name);
    if (result.IsFailure())
        return result;
    KOVALibrary* library = nullptr;
    result = KOVALibraryManager::CreateLibrary(name.c_str(), kInitializeName, kFinalizeName, library);
    void* function = nullptr;
    if (result.IsSuccess())
        result = library->GetFunction(kFormatName, function);
    if (result.IsFailure())
        return kInvalidComponent;
    entry.library = KOVALibraryHandle(library);
    entry.format = reinterpret_cast<FormatFunction>(function)();
    if (!entry.format)
        return fail(kInvalidComponent, name.c_str(), kNowhere, "it is not ready");
    for (OptionDescription const& option : entry.format->options())
        KOVAOptionName(KOVAString(option.name));
    return kSuccess;
}

Formats::Entries::iterator Formats::find(std::string_view extension) {
    return byExtension_.find(lowered(extension.substr(extension.substr(0, 1) == "." ? 1 : 0)));
}

Format const* Formats::of(std::string_view extension) {
    auto const found = find(extension);
    if (found == byExtension_.end())
        return nullptr;
    Entry& entry = found->second;
    if (entry.result.IsUndetermined())
        entry.result = load(found->first, entry);
    return entry.result.IsSuccess() ? entry.format : nullptr;
}

Format const* Formats::of(std::string_view extension, char const* file, char const* option, KOVIResult& result) {
    auto const found = find(extension);
    if (Format const* const format = of(extension)) {
        result = kSuccess;
        return format;
    }
    if (found != byExtension_.end())
        result = found->second.result;
    else if (byExtension_.empty())
        result = fail(kInvalidComponent, file, kNowhere, "no format library stands beside the program");
    else if (option)
        result =
            fail(kInvalidArgument, file, kNowhere,
                 "not a known format; name a file that ends in %s, or its format with %s", known().c_str(), option);
    else
        result = fail(kInvalidArgument, file, kNowhere, "not a known format, which are %s", known().c_str());
    return nullptr;
}

std::vector<Format const*> Formats::all() {
    std::vector<Format const*> formats;
    for (auto const& [extension, entry] : byExtension_) {
        if (Format const* const format = of(extension))
            formats.push_back(format);
    }
    return formats;
}

std::string Formats::description() {
    std::string text;
    for (auto const& [extension, entry] : byExtension_) {
        if (Format const* const format = of(extension))
            text += extension + "  " + format->name() + '\n';
    }
    return text;
}

std::string extensionOf(char const* file) {
    return narrow(KOVAFilePath(file).GetLastExtension());
}

} // namespace toolkit
