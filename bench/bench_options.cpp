// Names, options and environment variables.

#include <cctype>
#include <cstdlib>
#include <cstring>
#include <list>
#include <string>
#include <unordered_map>
#include <variant>
#include <vector>

#include <strings.h>
#include <unistd.h>

#include <kova/kova.h>

#include "rows.h"

namespace {

constexpr std::size_t kNames = 939;

/// The library's names, and more of the same kind.
std::vector<std::string> names() {
    std::vector<std::string> all = {
#define KOVA_OPTION_NAME(identifier, text) text,
#include <kova/options/option_names.def>
#undef KOVA_OPTION_NAME
    };
    std::size_t const own = all.size();
    for (std::size_t i = 0; all.size() < kNames; ++i) {
        std::string const name = "/F" + std::to_string(i / own) + all[i % own].substr(1);
        all.push_back(name);
        KOVAOptionName const registered{KOVAString(name.c_str())};
    }
    return all;
}

struct FoldedHash {
    std::size_t operator()(std::string const& text) const {
        std::size_t hash = 0;
        for (char const c : text)
            hash = hash * 31 + static_cast<std::size_t>(std::tolower(static_cast<unsigned char>(c)));
        return hash;
    }
};

struct FoldedEqual {
    bool operator()(std::string const& a, std::string const& b) const {
        return a.size() == b.size() && strncasecmp(a.data(), b.data(), a.size()) == 0;
    }
};

void nameRows(std::vector<std::string> const& all) {
    static std::unordered_map<std::string, int, FoldedHash, FoldedEqual> peer;
    static std::list<std::string> texts;
    for (std::string const& name : all)
        peer.emplace(name, 0);
    struct {
        char const* row;
        char const* name;
        char const* peerName;
        double target;
    } const rows[] = {
        {"valid name, hit", "/xgeneric/import/mode/assem.true/flatten", "/xgeneric/import/mode/assem.true/flatten",
         1.0},
        {"valid name, miss", "/xgeneric/import/mode/assem.true/flat", "/xgeneric/import/mode/assem.true/flat", 1.0},
        {"valid name, wildcard", "/xgeneric/import/mode/assem.*", "/xgeneric/import/mode/assem.true/flatten", 10.0},
        {"valid name, wildcard miss", "/xgeneric/import/mode/none.*", "/xgeneric/import/mode/assem.true/flatten", 10.0},
    };
    for (auto const& row : rows) {
        KOVAString const name(row.name);
        std::string const& peerName = texts.emplace_back(row.peerName);
        bench::plainRow(
            row.row, row.target, [name] { return KOVAOptionName::IsValid(name).IsSuccess(); },
            [&peerName] { return peer.find(peerName) != peer.end(); });
    }
}

void optionRows(std::vector<std::string> const& all) {
    static KOVAOptions options;
    static std::unordered_map<std::string, std::variant<int, double, bool, std::string>> peer;
    for (std::size_t i = 0; i < all.size(); ++i) {
        options.AddOption(all[i].c_str(), static_cast<int>(i));
        peer.emplace(all[i], static_cast<int>(i));
    }
    for (std::string const name :
         {"/XGeneric/Import/Heal", "/XGeneric/Import/Mode/Solid/Tplgy.false/Trim.true/Stitch"}) {
        KOVAString const ourName(name.c_str());
        bench::plainRow(
            "get option " + std::to_string(name.size()), 2.0,
            [ourName] {
                KOVAOption* option = nullptr;
                options.GetOption(ourName, option);
                return option;
            },
            [name] { return &peer.find(name)->second; });
    }
}

void environmentRows() {
    // Behind a block of ordinary length.
    for (int i = 0; i < 60; ++i)
        setenv(("FILLER_VARIABLE_" + std::to_string(i)).c_str(), "of some length, as paths are", 1);
    setenv("KOVALOGLEVEL", "INFO", 1);
    KOVAString const name("KOVALogLevel");
    bench::plainRow(
        "environment variable", 1.2,
        [name] {
            KOVAString value;
            KOVAEnvironment::GetVariable(name, value);
            return value;
        },
        [name] {
            char const* const wanted = name;
            std::size_t const length = std::strlen(wanted);
            char** entry = environ;
            while (*entry && (strncasecmp(*entry, wanted, length) != 0 || (*entry)[length] != '='))
                ++entry;
            return KOVAString(*entry ? *entry + length + 1 : nullptr);
        });
}

} // namespace

int main(int argc, char** argv) {
    std::vector<std::string> const all = names();
    nameRows(all);
    optionRows(all);
    environmentRows();
    return bench::run(argc, argv);
}
