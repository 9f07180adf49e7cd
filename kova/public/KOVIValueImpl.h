#pragma once

#include <kova/core/KOVIResult.h>
#include <kova/core/export.h>
#include <kova/options/KOVAValue.h>
#include <kova/public/KOVIObjectImpl.h>

/// The body of a value.
class KOVA_API KOVIValueImpl : public KOVIObjectImpl {
public:
    KOVIValueImpl(char const* tag, KOVAValue const& value) : KOVIObjectImpl(tag), value_(value) {}
    ~KOVIValueImpl() override;

    /// A copy. Always Success.
    KOVIResult GetValue(KOVAValue& value) const;
    /// The value as text, null for an unknown one; lives as long as the body.
    operator char const*() const { return value_; }

private:
    KOVAValue value_;
};
