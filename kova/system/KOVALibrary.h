#pragma once

#include <cstddef>

#include <kova/core/KOVAReferenceCount.h>
#include <kova/core/KOVAReferenceHandle.h>
#include <kova/core/KOVIResult.h>
#include <kova/core/export.h>
#include <kova/text/KOVAString.h>

/// One of the toolkit's libraries, loaded when it is first needed. KOVALibraryManager makes and keeps them.
///
/// The module's file is named as the library, with "n" and the system's extension behind it: "stln.dll",
/// "stln.so". A name without a folder is looked for beside the running program, then beside this library, then
/// by the loader's own rules, but never in the current folder. On Windows those rules are the folders of the
/// program, of the system and of AddDllDirectory, not PATH; what the module itself needs is found there or
/// beside it.
///
/// A module that cannot be unloaded (on Linux, one that exports inline variables or static variables of
/// templates; hidden visibility prevents that) keeps its static variables when it is loaded again.
///
/// Hazard: a module must have no thread-local variables. Those of other threads may be destroyed after the module
/// was unloaded, when their code is gone.
///
/// A library whose last holder lets go while one of its two functions is running is destroyed after that.
class KOVA_API KOVALibrary : public KOVAReferenceCount {
public:
    /// Loads nothing. The functions are named as the module exports them; they take no arguments, and either
    /// name may be empty or null. A name of 64 characters or more is cut to 63, which two debug messages say.
    /// Callers depend on a library whose name was cut never being loaded. A null name is the empty one.
    KOVALibrary(char const* name, char const* initialisationFunction, char const* finalisationFunction);
    KOVALibrary(KOVALibrary const&) = delete;
    KOVALibrary& operator=(KOVALibrary const&) = delete;
    /// Finalises and unloads. What the finalisation function throws is lost, and the module then stays.
    ~KOVALibrary() override;

    /// Both are traced with the new count.
    unsigned int RaiseReference() override;
    unsigned int LowerReference() override;

    char* GetLibraryName() noexcept { return name_; }
    bool IsLoaded() const noexcept { return module_ != nullptr; }
    /// False: never finalised and never unloaded, not even by the destructor.
    void SetUnloadable(bool unloadable) noexcept { unloadable_ = unloadable; }

    /// Loads the module and calls its initialisation function, each unless that has been done. Callers depend on
    /// the success that it always reports: a module that does not load is a warning, and fails in GetFunction.
    /// Callers depend, too, on a library without initialisation function staying uninitialised: the next call
    /// looks for the function again.
    KOVIResult LoadAndInitialize();

    /// The address of what the module itself exports under the name, a function or a variable; it is good until
    /// the module is unloaded. Loads and initialises first. Failure, an error message and null when there is
    /// none, or when the initialisation function made the last holder let go; Invalid Argument for a null or empty
    /// name, which leaves `function` alone. The initialisation function may ask for the library's functions, too.
    KOVIResult GetFunction(char const* functionName, void*& function);

    /// Calls the finalisation function of an initialised library, then unloads the module. Callers depend on the
    /// environment variable "KOVAFreeLibraries" preventing only the latter, when it is set to something else than
    /// "Yes", "True" or "On". Afterwards the library can be loaded and initialised again. Always a success; does
    /// nothing while the module is being loaded, initialised or finalised.
    KOVIResult FinalizeAndUnload();

private:
    friend class KOVALibraryManager;
    class KOVA_LOCAL SelfReference;
    static constexpr std::size_t kNameSize = 64;

    KOVA_LOCAL void load();
    KOVA_LOCAL bool call(KOVAString const& functionName);

    void* module_ = nullptr;
    char name_[kNameSize] = {};
    bool unloadable_ = true;
    bool initialised_ = false;
    bool initialising_ = false; ///< the loader or one of the two functions is at work
    bool cut_ = false;          ///< the name was too long
    KOVAString initialisationFunction_;
    KOVAString finalisationFunction_;
};

/// Holds a library.
class KOVA_API KOVALibraryHandle : public KOVAReferenceHandle {
public:
    KOVALibraryHandle(KOVALibrary* library = nullptr) : KOVAReferenceHandle(library) {}

    /// Hazard: null for an empty handle, unchecked; ask IsValid.
    KOVALibrary* operator->() const { return static_cast<KOVALibrary*>(GetInstance()); }
    operator KOVALibrary*() const { return static_cast<KOVALibrary*>(GetInstance()); }
};
