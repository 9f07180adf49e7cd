#pragma once

#include <memory>

#include <kova/containers/KOVADynamicArray.h>
#include <kova/containers/string_map.h>
#include <kova/core/KOVIResult.h>
#include <kova/core/export.h>
#include <kova/system/KOVALibrary.h>
#include <kova/text/KOVAString.h>

class KOVATrace;

/// The toolkit's libraries by name, each once.
///
///     KOVALibrary* stl = nullptr;
///     void* function = nullptr;
///     if (KOVALibraryManager::CreateLibrary("stl", "Initialise", "Finalise", stl).IsSuccess() &&
///         stl->GetFunction("Read", function).IsSuccess())
///         reinterpret_cast<Read*>(function)(...);
///     KOVALibraryManager::FreeLibraries();
///
/// What goes on is traced under the component "libraries". Call FreeLibraries before main ends: what is still
/// known is finalised when this library is unloaded, and at a program's end the modules' own static objects
/// are gone by then. One thread at a time.
class KOVA_API KOVALibraryManager {
public:
    KOVALibraryManager() = delete;

    /// Keeps the library, made with new, under its name. An entry of that name is replaced, which destroys it
    /// unless somebody else holds it. Invalid Argument for null.
    static KOVIResult AddLibrary(KOVALibrary* library);

    /// The library of that name; where none is known, a new one, which is kept. No module is loaded. Callers
    /// depend on a known library keeping its functions; those given are then ignored. The pointer lives until
    /// FreeLibraries, or until the entry is replaced: by AddLibrary of the same name, or by CreateLibrary of a
    /// name that is too long and has the same first 63 characters, or the other way round. A KOVALibraryHandle
    /// keeps it longer. Invalid Argument and null for a null name.
    static KOVIResult CreateLibrary(char const* name, char const* initialisationFunction,
                                    char const* finalisationFunction, KOVALibrary*& library);

    /// Destroys, and so finalises and unloads, the libraries that nobody else holds, in order of addition. One
    /// whose initialisation or finalisation function is running stays. Always a success.
    static KOVIResult FreeLibraries();

    /// Names of libraries that begin with the prefix and whose modules stand beside the running program or
    /// beside this library: sorted, each once, loaded or not. Invalid Argument for a null prefix, which leaves
    /// `names` alone; what stands in it otherwise is replaced.
    static KOVIResult FindLibraries(char const* prefix, KOVADynamicArray<KOVAString>& names);

private:
    friend class KOVALibrary;

    using Libraries = kova::detail::StringMap<KOVALibraryHandle>;
    KOVA_LOCAL static std::unique_ptr<Libraries> _libraries; ///< null until one is added: loading costs little
    KOVA_LOCAL static KOVATrace log;
};
