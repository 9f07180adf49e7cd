// The modules of library_test: "good", "bare" without functions, "calling" that uses its own library meanwhile.

#include <kova/kova.h>

extern "C" {

int initialisations = 0;
int seen = 0;
int* finalisations = nullptr; ///< counted for whoever sets it

#ifndef MODULE_bare
#  ifdef MODULE_calling
/// Where it is asked for, its own library loses its place to another.
static void replaceItself() {
    bool wanted = false;
    if (KOVAEnvironment::GetVariable("KOVATestReplaced", wanted).IsSuccess() && wanted)
        KOVALibraryManager::AddLibrary(new KOVALibrary("test-calling", nullptr, nullptr));
}
#  endif

void Initialise() {
    ++initialisations;
#  ifdef MODULE_calling
    replaceItself();
    KOVALibrary* own = nullptr;
    void* variable = nullptr;
    KOVALibraryManager::CreateLibrary("test-calling", nullptr, nullptr, own);
    if (own->GetFunction("initialisations", variable).IsSuccess()) seen = *static_cast<int*>(variable);
    own->FinalizeAndUnload();
    KOVALibraryManager::FreeLibraries();
#  endif
}

void Finalise() {
    if (finalisations) ++*finalisations;
#  ifdef MODULE_calling
    replaceItself();
    KOVALibraryManager::FreeLibraries();
#  endif
}
#endif
}
