#pragma once

#include <map>
#include <string>
#include <vector>

#include <kova/core/KOVIResult.h>
#include <kova/system/KOVALibrary.h>

#include "Format.h"

namespace toolkit {

/// The format libraries that stand beside the program, each loaded when it is asked for. Readers, writers and values
/// of options that came from them must be gone before this goes.
class Formats {
public:
    Formats();
    Formats(Formats const&) = delete;
    Formats& operator=(Formats const&) = delete;
    ~Formats();

    /// That of a file, by the end of its name. Null where there is none, or where its library will not do: that is
    /// reported, and the result is Invalid Argument or Invalid Component.
    Format const* of(char const* file, KOVIResult& result);
    /// The same without a word about an unknown format; null for one that will not do, which is reported once.
    Format const* of(char const* file);
    /// Those that will do; the others are reported once.
    std::vector<Format const*> all();

private:
    struct Entry {
        KOVALibraryHandle library;
        Format const* format = nullptr;
        KOVIResult result; ///< undetermined as long as nobody asked
    };

    static KOVIResult load(std::string const& extension, Entry& entry);
    std::string known() const;

    std::map<std::string, Entry> byExtension_;
};

} // namespace toolkit
