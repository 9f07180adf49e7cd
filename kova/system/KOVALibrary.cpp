#include <kova/system/KOVALibrary.h>

#include <algorithm>
#include <cstring>
#include <exception>
#include <filesystem>
#include <string>
#include <system_error>

#include <kova/core/results.h>
#include <kova/diagnostics/KOVADebug.h>
#include <kova/diagnostics/KOVAError.h>
#include <kova/diagnostics/KOVATrace.h>
#include <kova/diagnostics/KOVAWarning.h>
#include <kova/platform/files.h>
#include <kova/platform/modules.h>
#include <kova/system/KOVAEnvironment.h>
#include <kova/system/KOVALibraryManager.h>

using kova::detail::kFailure;
using kova::detail::kInvalidArgument;
using kova::detail::kSuccess;

static_assert(sizeof(void*) != 4 ||
              sizeof(KOVALibrary) == sizeof(KOVAReferenceCount) + 4 + 64 + 4 + 2 * sizeof(KOVAString));
static_assert(sizeof(KOVALibraryHandle) == sizeof(KOVAReferenceHandle));

namespace {

namespace fs = std::filesystem;

/// Sets a flag while it lives.
class Hold {
public:
    explicit Hold(bool& flag) noexcept : flag_(flag) { flag_ = true; }
    Hold(Hold const&) = delete;
    Hold& operator=(Hold const&) = delete;
    ~Hold() { flag_ = false; }

private:
    bool& flag_;
};

/// The module's file; its bare name where only the loader's own rules are left.
fs::path moduleFile(char const* library) {
    std::string const name = std::string(library) + 'n' + kova::detail::moduleExtension();
    fs::path file = kova::detail::systemPath(name.c_str());
    std::error_code error;
    if (file.has_parent_path()) {
        fs::path const whole = fs::absolute(file, error);
        return error ? file : whole;
    }
    for (fs::path const& folder : kova::detail::moduleFolders()) {
        if (fs::is_regular_file(folder / file, error))
            return folder / file;
    }
    return file;
}

} // namespace

/// A reference of the library to itself, which is not traced: whoever holds it may let go while a function of its
/// own is at work. Then it is destroyed at the end.
class KOVALibrary::SelfReference {
public:
    explicit SelfReference(KOVALibrary& library) : library_(library), held_(library.GetReferenceCount() > 0) {
        library_.KOVAReferenceCount::RaiseReference();
    }
    SelfReference(SelfReference const&) = delete;
    SelfReference& operator=(SelfReference const&) = delete;
    ~SelfReference() {
        bool const destroyed = isLast();
        library_.KOVAReferenceCount::LowerReference();
        if (!destroyed)
            return;
        if (std::uncaught_exceptions() > exceptions_)
            library_.unloadable_ = false; // what was thrown may need the module's code
        delete &library_;
    }

    /// Everybody else has let go. Never for a library that nobody held: it is no handle's, or being destroyed.
    bool isLast() const noexcept { return held_ && library_.IsLastCall(); }

private:
    KOVALibrary& library_;
    bool const held_;
    int const exceptions_ = std::uncaught_exceptions();
};

KOVALibrary::KOVALibrary(char const* name, char const* initialisationFunction, char const* finalisationFunction)
    : KOVAReferenceCount(0), initialisationFunction_(initialisationFunction),
      finalisationFunction_(finalisationFunction) {
    std::size_t const length = name ? std::strlen(name) : 0;
    std::memcpy(name_, name ? name : "", std::min(length, kNameSize - 1));
    cut_ = length >= kNameSize;
    if (cut_) {
        KOVADebug::Printf("%s library name is too long and was truncated to %s.\n", name, name_);
        KOVADebug::Printf("%s library will not be loaded.\n", name);
    }
}

KOVALibrary::~KOVALibrary() {
    try {
        FinalizeAndUnload();
    } catch (...) { // NOLINT(bugprone-empty-catch): what was thrown may need the module's code, which stays
    }
}

unsigned int KOVALibrary::RaiseReference() {
    unsigned int const count = KOVAReferenceCount::RaiseReference();
    KOVALibraryManager::log.Printf(KOVA_TRACE_DEBUG, "%s Library refcount=%d", name_, static_cast<int>(count));
    return count;
}

unsigned int KOVALibrary::LowerReference() {
    unsigned int const count = KOVAReferenceCount::LowerReference();
    KOVALibraryManager::log.Printf(KOVA_TRACE_DEBUG, "%s Library refcount=%d", name_, static_cast<int>(count));
    return count;
}

void KOVALibrary::load() {
    KOVALibraryManager::log.Printf(KOVA_TRACE_MESSAGE, "Loading %s library", name_);
    std::string reason;
    if (!cut_)
        module_ = kova::detail::openModule(moduleFile(name_), reason);
    if (module_)
        return;
    if (!reason.empty())
        KOVALibraryManager::log.Printf(KOVA_TRACE_DEBUG, "%s library: %s", name_, reason.c_str());
    KOVAWarning::Printf("%s library not loaded.", name_);
}

bool KOVALibrary::call(KOVAString const& functionName) {
    void* function = nullptr;
    GetFunction(functionName, function);
    if (function)
        reinterpret_cast<void (*)()>(function)();
    return function != nullptr;
}

KOVIResult KOVALibrary::LoadAndInitialize() {
    if (initialising_)
        return kSuccess;
    SelfReference const self(*this);
    Hold const guard(initialising_);
    if (!module_)
        load();
    if (module_ && !initialised_)
        initialised_ = call(initialisationFunction_);
    return kSuccess;
}

KOVIResult KOVALibrary::GetFunction(char const* functionName, void*& function) {
    if (!functionName || !*functionName)
        return kInvalidArgument;
    SelfReference const self(*this);
    if (!module_ || !initialised_)
        LoadAndInitialize();
    // What is about to be unloaded has no functions to give.
    function = module_ && !self.isLast() ? kova::detail::findSymbol(module_, functionName) : nullptr;
    if (function)
        return kSuccess;
    KOVAError::Printf("No %s function in %s library.\n", functionName, name_);
    return kFailure;
}

KOVIResult KOVALibrary::FinalizeAndUnload() {
    if (!module_ || initialising_)
        return kSuccess;
    SelfReference const self(*this);
    Hold const guard(initialising_);
    if (initialised_ && unloadable_ && call(finalisationFunction_))
        initialised_ = false;
    bool allowed = true;
    if (KOVAEnvironment::GetVariable("KOVAFreeLibraries", allowed).IsFailure())
        allowed = true;
    if (!allowed)
        KOVALibraryManager::log.Printf(KOVA_TRACE_MESSAGE, "Unloading %s library disabled", name_);
    if (unloadable_ && allowed) {
        KOVALibraryManager::log.Printf(KOVA_TRACE_MESSAGE, "Unloading %s library", name_);
        void* const unloaded = module_;
        module_ = nullptr;
        initialised_ = false;
        kova::detail::closeModule(unloaded);
    }
    return kSuccess;
}
