#pragma once

#include <cstdint>
#include <cstdio>

#include <kova/core/KOVIResult.h>
#include <kova/core/export.h>
#include <kova/options/KOVAOption.h>
#include <kova/text/KOVAString.h>

class KOVAOptionToken;
class KOVAStreamFormatter;

/// The options of one translation, found by name.
///
///     KOVAOptions options;
///     options.AddOption("/XGeneric/Import/Heal", true);
///     KOVAOption* heal = nullptr;
///     if (options.GetOption("/XGeneric/Import/Heal", heal).IsSuccess()) ...
///
/// The set holds copies. Names are split at their points, into seven parts at most; a part "*" of a stored
/// name stands for every text in its place, and an exact part wins over it. Names are told apart by case.
class KOVA_API KOVAOptions {
public:
    KOVAOptions();
    /// Both deep.
    KOVAOptions(KOVAOptions const& other);
    KOVAOptions& operator=(KOVAOptions const& other);
    ~KOVAOptions();

    /// Adds a copy, or assigns to the option that is held under the name: callers depend on that one keeping
    /// its default and type. Invalid Argument for null, an empty name, or more than seven parts.
    KOVIResult AddOption(KOVAOption const* option);
    KOVIResult AddOption(KOVAOption const& option) { return AddOption(&option); }
    KOVIResult AddOption(char const* name, bool value);
    KOVIResult AddOption(char const* name, int value);
    KOVIResult AddOption(char const* name, double value);
    KOVIResult AddOption(char const* name, KOVAString const& value);
    KOVIResult AddOption(char const* name, char const* value);
    KOVIResult AddOption(char const* name, unsigned short const* value) { return AddOption(name, KOVAString(value)); }
    /// The type is the first that the text reads as: an integer, a real, a bool (Yes, True, On, No, False, Off
    /// in any case), a text.
    KOVIResult AddOptionParseValue(char const* name, char const* text);
    /// Adds the other's options; without overwrite only those whose names are not held yet. Restarts the
    /// other's enumeration. Always Success.
    KOVIResult AddOptions(KOVAOptions& other, bool overwrite);

    /// The option inside the set, which lives until it is removed. Invalid Argument for an empty name, Failure
    /// when there is none.
    KOVIResult GetOption(KOVAString const& name, KOVAOption*& option) const;

    /// The options one after the other, depth first over the parts of their names in the order in which those
    /// were first added. Failure at the end, and from then on until InitEnumeration.
    KOVIResult GetNext(KOVAOption*& option);
    void InitEnumeration() { cursor_ = nullptr; }

    int Size() const noexcept { return size_; }
    void RemoveAll();

    /// Reads lines "name=value" as KOVACfgFile does, up to the first section; the values are parsed as
    /// AddOptionParseValue does. Failure for a file with any mistake, which adds nothing; Invalid Argument for
    /// null or an empty path; File Open Error.
    KOVIResult ReadFromFile(std::FILE* file);
    KOVIResult ReadFromFile(KOVAString const& path);

    void DumpOptions(KOVAStreamFormatter& formatter);
    /// One message for the title, and one for each option, "name=value" between prefix and suffix. Null texts
    /// are left out.
    void Dump(char const* title, char const* prefix, char const* suffix);

private:
    KOVIResult add(char const* name, KOVAValue const& value);
    bool HasOption(KOVAString const& name) const;
    static KOVAOption* GetOptionFromToken(KOVAOptionToken const& node, void const* parts, int level);

    KOVAOptionToken* root_ = nullptr;
    KOVAOptionToken* cursor_ =
        nullptr; ///< of the option returned last; null before the first, the root behind the last
    std::int32_t size_ = 0;
};
