#pragma once

#include <kova/containers/string_map.h>
#include <kova/core/KOVAReferenceCount.h>
#include <kova/core/KOVIResult.h>
#include <kova/core/export.h>
#include <kova/options/KOVAValue.h>

/// A counted set of named values.
///
///     KOVAProperties properties;
///     properties.Set("author=N. N.");
///     properties.Set("revision", KOVAValue(3));
///
/// Names are told apart by case. Copies are deep, and start without holders.
class KOVA_API KOVAProperties : public KOVAReferenceCount {
public:
    KOVAProperties();
    KOVAProperties(KOVAProperties const& other);
    /// The holders stay.
    KOVAProperties& operator=(KOVAProperties const& other);
    ~KOVAProperties() override;

#if KOVA_OVERLOADS_REVERSED
    virtual KOVIResult Get(KOVAString const& name, KOVAValue& value) const;
    virtual KOVIResult Get(int index, KOVAString& name, KOVAValue& value) const;
    virtual KOVIResult Set(KOVAString const& name, KOVAValue const& value);
    virtual KOVIResult Set(KOVAString const& assignment);
#else
    /// The entry at a position from 0 to GetCount() - 1, in no order to rely on. Failure when there is none;
    /// the outputs are then left alone.
    virtual KOVIResult Get(int index, KOVAString& name, KOVAValue& value) const;
    virtual KOVIResult Get(KOVAString const& name, KOVAValue& value) const;
    /// Sets the text behind the first "=" for the name before it, through the other Set; nothing is trimmed.
    /// Failure without "=", or without a name.
    virtual KOVIResult Set(KOVAString const& assignment);
    /// Adds the name or replaces its value.
    virtual KOVIResult Set(KOVAString const& name, KOVAValue const& value);
#endif
    virtual int GetCount() const;

private:
    kova::detail::StringMap<KOVAValue> values_;
};
