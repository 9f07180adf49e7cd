#pragma once

#include <kova/containers/KOVADynamicArray.h>
#include <kova/core/KOVIResult.h>
#include <kova/core/export.h>
#include <kova/text/KOVAString.h>

#ifndef KOVA_OPTION_NAMES
/// The file with the table of names.
#  define KOVA_OPTION_NAMES "kova/options/option_names.def"
#endif

/// The name of an option that translations understand. Making one registers it, so that names which users
/// give can be checked.
///
///     options.AddOption(KOVAOption(KOVAOptionName::XGeneric_Import_Heal, true));
///     if (KOVAOptionName::IsValid(given).IsFailure())
///         KOVAError::Printf("%s", (char const*)KOVAOptionName::DescribeUnknown(given));
///
/// A name is a path of levels, "/XGeneric/Import/Heal". Its parts between points say under which value of
/// another option it applies, "/XGeneric/Import/Mode/Assem.true/Flatten".
class KOVA_API KOVAOptionName {
public:
    /// Registers the name, for the life of the process.
    explicit KOVAOptionName(KOVAString const& name);
    /// Copies are not registered. Callers depend on the narrow text being shared: it lives as long as the
    /// name that it was copied from.
    KOVAOptionName(KOVAOptionName const& other);
    KOVAOptionName& operator=(KOVAOptionName const& other);
    ~KOVAOptionName();

    operator KOVAString() const { return name_; }
    operator char const*() const { return narrow_; }

    /// How well a candidate, which may hold "*" for whole parts between points, fits a known name: 0 when
    /// they are equal ignoring case; 65535 when they do not fit; else the sum of 2^i for each part i that is
    /// a "*". Always Success.
    static KOVIResult Match(KOVAString const& known, KOVAString const& candidate, int& score);
    /// Success when the candidate fits a registered name with a score below 65535, else Failure.
    static KOVIResult IsValid(KOVAString const& candidate);

    /// The registered names that are spelled most like an unknown one, the nearest first: at most three, none
    /// when all are far. Case, and letters that changed places, hardly count.
    static KOVADynamicArray<KOVAString> Nearest(KOVAString const& unknown);
    /// "unknown option 'X'; did you mean 'Y'?", without the question when no name is near.
    static KOVAString DescribeUnknown(KOVAString const& unknown);

    // The constants. (References, because loading 939 of them must cost next to nothing: what they refer to
    // is made when the library is compiled, and never destroyed.)
#define KOVA_OPTION_NAME(identifier, text) static KOVAOptionName const& identifier;
#include KOVA_OPTION_NAMES
#undef KOVA_OPTION_NAME

private:
    class KOVA_LOCAL Registry;
    struct KOVA_LOCAL Table;
    union KOVA_LOCAL Storage;

    constexpr KOVAOptionName(unsigned short* units, char const* narrow) noexcept
        : name_(KOVAString::Static{units}), narrow_(narrow) {}

    KOVAString name_;
    char const* narrow_;
};
