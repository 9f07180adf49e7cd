#pragma once

#include <kova/core/KOVIResult.h>
#include <kova/core/export.h>
#include <kova/public/KOVIFile.h>
#include <kova/public/KOVIName.h>
#include <kova/public/KOVIObject.h>
#include <kova/public/KOVIValue.h>

/// The options of a translation, as an application sets them.
///
///     KOVIOptions options;
///     KOVIResult result = options.Load("coarse.options");
///     result &= options.Add(KOVIOptionName::SewTolerance, 0.01);
///
/// Operations give Invalid Object for a handle that is not valid, and Invalid Argument when one of their
/// arguments is not; Error Encountered when one of a derived class calls itself valid and has no body. Copies share the
/// set: what is added to one is in all.
class KOVA_API KOVIOptions : public KOVIObject {
public:
    KOVIOptions();
    KOVIOptions(KOVIOptions const&) = default;
    KOVIOptions& operator=(KOVIOptions const&) = default;
    ~KOVIOptions() override;

    /// Adds what a file of lines "name=value" has, as KOVAOptions::ReadFromFile does: all, or nothing and Failure
    /// where it has any mistake. File Open Error when it cannot be opened.
    KOVIResult Load(KOVIFile const& file);
    /// Callers depend on the name being a known one of KOVAOptionName from then on, whatever becomes of the
    /// handle. An option of that name that has a default keeps it, and gets the new value.
    KOVIResult Add(KOVIOptionName const& name, KOVIValue const& value);

    /// Callers depend on 16777226, the number of Invalid Object, for a handle that is not valid.
    int GetOptionsCount() const;
    /// The option at a position, from 0 on, in the order in which KOVAOptions enumerates them; adding may change
    /// it. Invalid Argument for a position that there is not, 0x01000008 for an option that was added without a
    /// value; both leave the outputs alone. The outputs get bodies of their own and need not be valid.
    KOVIResult GetOptionAt(int index, KOVIOptionName& name, KOVIValue& value) const;
};
