#pragma once

#include <utility>

#include <kova/core/KOVIResult.h>
#include <kova/core/export.h>
#include <kova/public/KOVIObjectImpl.h>
#include <kova/text/KOVAString.h>

/// The body of a name.
class KOVA_API KOVINameImpl : public KOVIObjectImpl {
public:
    KOVINameImpl(char const* tag, KOVAString name) : KOVIObjectImpl(tag), name_(std::move(name)) {}
    ~KOVINameImpl() override;

    /// The name itself, in contrast to KOVIObjectImpl's. Always Success. Hazard: all handles of the body see a
    /// name that is set, and the narrow text of the former one ends.
    KOVIResult SetName(KOVAString const& name);
    KOVIResult GetName(KOVAString& name) const;
    /// In 8 bits; lives as long as the body, or until another name is set.
    char const* GetText() const { return name_; }

private:
    KOVAString name_;
};
