#include "support/test.h"

namespace {

namespace fs = std::filesystem;

KOVALibrary* library(std::string const& name, char const* initialisation = "Initialise") {
    KOVALibrary* result = nullptr;
    EXPECT_EQ(KOVALibraryManager::CreateLibrary(name.c_str(), initialisation, "Finalise", result), 0);
    return result;
}

template <class T> T* variable(KOVALibrary* of, char const* name) {
    void* result = nullptr;
    EXPECT_EQ(of->GetFunction(name, result), 0) << name;
    return static_cast<T*>(result);
}

bool const traced = KOVATrace("libraries").IsEnabled(); // as it was when the library was loaded

/// Lines that begin with "~" are traces, which are there only when they are switched on.
Texts expected(Texts const& lines) {
    Texts result;
    for (std::string const& line : lines) {
        if (line[0] != '~' || traced) result.push_back(line.substr(line[0] == '~') + "\n");
    }
    return result;
}

TEST(Library, EveryMessageInOrder) {
    test::Recorder recorder;
    KOVALibrary* const good = library("test-good");
    EXPECT_EQ(library("test-good", "other"), good);
    EXPECT_FALSE(good->IsLoaded());
    int finalisations = 0;
    *variable<int*>(good, "finalisations") = &finalisations;
    void* untouched = &finalisations;
    EXPECT_TRUE(good->GetFunction("", untouched) == 0x0100000B && good->GetFunction(nullptr, untouched) == 0x0100000B);
    EXPECT_EQ(untouched, &finalisations);
    {
        KOVALibraryHandle const held(good);
        KOVALibraryManager::FreeLibraries();
        EXPECT_TRUE(good->IsLoaded() && library("test-good") == good);
    }
    EXPECT_EQ(finalisations, 0);
    KOVALibraryManager::FreeLibraries();
    EXPECT_EQ(finalisations, 1);
    EXPECT_FALSE(library("test-good")->IsLoaded()); // another one
    KOVALibraryManager::FreeLibraries();
    std::string const adding = "~50 Message : Adding test-good library", freeing = "~50 Message : Freeing libraries",
                      one = "~10 test-good Library refcount=1", two = "~10 test-good Library refcount=2",
                      none = "~10 test-good Library refcount=0", freed = "~50 Message : Freeing test-good library";
    EXPECT_EQ(recorder.events, expected({adding, one, two, one, "~50 Message : Loading test-good library", two, freeing,
                                         one, freeing, freed, none, "~50 Message : Unloading test-good library", adding,
                                         one, two, one, freeing, freed, none}));
    KOVALibrary* left = good;
    EXPECT_EQ(KOVALibraryManager::CreateLibrary(nullptr, "", "", left), 0x0100000B);
    EXPECT_TRUE(!left && KOVALibraryManager::AddLibrary(nullptr) == 0x0100000B);
}

TEST(Library, WhatIsKeptAndWhatStartsAgain) {
    struct {
        char const* free; ///< of the environment
        bool unloadable;
        int finalisations, initialisations; ///< the latter with 10 from before, when the module was kept
    } const rows[] = {{"No", true, 1, 12}, {"1", true, 1, 12}, {"yes", true, 1, 1},
                      {"", true, 1, 1},    {"", false, 0, 11}, {"No", false, 0, 11}};
    for (auto const& row : rows) {
        KOVALibrary* const good = library("test-good");
        int finalisations = 0;
        *variable<int*>(good, "finalisations") = &finalisations;
        *variable<int>(good, "initialisations") += 10;
        {
            test::Variable const free("KOVAFreeLibraries", row.free);
            good->SetUnloadable(row.unloadable);
            EXPECT_EQ(good->FinalizeAndUnload(), 0);
        }
        EXPECT_EQ((Numbers{finalisations, good->IsLoaded()}), (Numbers{row.finalisations, row.initialisations > 10}));
        EXPECT_EQ(*variable<int>(good, "initialisations"), row.initialisations);
        good->SetUnloadable(true);
        good->FinalizeAndUnload();
    }
}

TEST(Library, IsReplacedWhileItsFunctionsRun) {
    for (bool const loadedBefore : {false, true}) {
        KOVALibrary* const calling = library("test-calling");
        int finalisations = 0;
        void* function = &finalisations;
        if (loadedBefore) *variable<int*>(calling, "finalisations") = &finalisations;
        test::Variable const replaced("KOVATestReplaced", "on");
        if (loadedBefore)
            EXPECT_EQ(calling->FinalizeAndUnload(), 0);
        else
            EXPECT_TRUE(calling->GetFunction("seen", function) == 0x01000001 && !function);
        EXPECT_EQ(finalisations, loadedBefore);
        EXPECT_FALSE(library("test-calling")->IsLoaded()); // another one
        KOVALibraryManager::FreeLibraries();
    }
}

TEST(Library, AThousandLoads) {
    KOVALibrary good("test-good", "Initialise", nullptr);
    for (int i = 0; i < 1000; ++i) {
        KOVALibrary* const calling = library("test-calling");
        EXPECT_EQ(*variable<int>(calling, "initialisations") + (*variable<int>(&good, "initialisations"))++, 2);
        EXPECT_EQ(*variable<int>(calling, "seen"), 1);
        good.FinalizeAndUnload();
        library("test-bare"); // freed while the one before it is being freed
        KOVALibraryManager::FreeLibraries();
    }
}

TEST(Library, WhatIsFoundWhere) {
    KOVADynamicArray<KOVAString> names;
    ASSERT_TRUE(KOVALibraryManager::FindLibraries("test-", names) == 0 && names.size() == 3);
    EXPECT_EQ((Texts{test::text(names[0]), test::text(names[1]), test::text(names[2])}),
              (Texts{"test-bare", "test-calling", "test-good"}));
    EXPECT_TRUE(KOVALibraryManager::FindLibraries(nullptr, names) == 0x0100000B && names.size() == 3);
    EXPECT_TRUE(KOVALibraryManager::FindLibraries("test-goodn", names) == 0 && names.size() == 0);

    test::Folder const folder("decoys");
    std::string const longest = "./" + std::string(61, 'x'), tooLong = longest + "y";
    fs::path const module = KOVA_GOOD_MODULE, before = fs::current_path();
    fs::current_path("decoys");
    for (std::string const& name : {std::string("decoy"), longest})
        fs::copy_file(module, name + "n" + module.extension().string());
    struct {
        std::string name;
        char const *initialisation, *function;
        Texts messages;
    } const rows[] = {
        {longest, "", "seen", {}},
        {tooLong,
         "",
         "seen",
         {"10 " + tooLong + " library name is too long and was truncated to " + longest + ".\n",
          "10 " + tooLong + " library will not be loaded.\n", "70 Warning : " + longest + " library not loaded.",
          "80 Error : No seen function in " + longest + " library.\n"}},
        {"decoy",
         "",
         "seen",
         {"70 Warning : decoy library not loaded.", "80 Error : No seen function in decoy library.\n"}},
        {"./decoy", "", "seen", {}},
        {"test-bare", nullptr, "seen", {}},
        {"test-bare", "Initialise", "seen", {"80 Error : No Initialise function in test-bare library.\n"}},
        {"test-good", "Initialise", "malloc", {"80 Error : No malloc function in test-good library.\n"}}, // another's
    };
    for (auto const& row : rows) {
        test::Recorder recorder;
        KOVALibrary counted(row.name.c_str(), row.initialisation, nullptr);
        void* function = &recorder;
        KOVIResult const result = counted.GetFunction(row.function, function);
        EXPECT_EQ(result, function ? 0 : 0x01000001);
        Texts messages; // without traces, whose reasons are the system's
        for (std::string const& event : recorder.events) {
            if (event.find("Loading") == event.npos && event.find("library: ") == event.npos) messages.push_back(event);
        }
        EXPECT_EQ(messages, expected(row.messages));
    }
    fs::current_path(before);
}

} // namespace
