#pragma once

#include <map>
#include <string>
#include <string_view>
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

    // By the end that its files' names have, in any case: "obj", or ".obj".

    bool knows(std::string_view extension) { return find(extension) != byExtension_.end(); }
    /// Null for one that is not known, or whose library will not do, which is reported once.
    Format const* of(std::string_view extension);
    /// The same for a file. Null is reported, and the result is Invalid Argument or Invalid Component; `option` is
    /// the argument that would name the format; null where the argument is to blame, which stands for the file then.
    Format const* of(std::string_view extension, char const* file, char const* option, KOVIResult& result);
    /// Those that will do; the others are reported once.
    std::vector<Format const*> all();
    /// The same as lines "obj  OBJ".
    std::string description();

private:
    struct Entry {
        KOVALibraryHandle library;
        Format const* format = nullptr;
        KOVIResult result; ///< undetermined as long as nobody asked
    };

    using Entries = std::map<std::string, Entry>;

    Entries::iterator find(std::string_view extension);
    static KOVIResult load(std::string const& extension, Entry& entry);
    std::string known() const;

    Entries byExtension_;
};

/// What the file's name says; empty where it says nothing.
std::string extensionOf(char const* file);

} // namespace toolkit
