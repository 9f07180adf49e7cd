#pragma once

#include <kova/core/export.h>
#include <kova/public/KOVIObject.h>

/// The value of an option, as an application gives and reads it. It never changes; copies share it.
///
///     KOVIValue value("On");
///     if (bool(value)) ...           // read as any kind, as KOVAValue does
class KOVA_API KOVIValue : public KOVIObject {
public:
    /// Callers depend on a bool being Unknown.
    enum KOVIValueType { Unknown = 0, Int = 1, Double = 2, String = 3 };

    /// Valid, and unknown.
    KOVIValue();
    KOVIValue(bool value);
    KOVIValue(int value);
    KOVIValue(double value);
    /// Of null: a String whose text is null, read as 0, false and 0.0.
    KOVIValue(char const* value);
    /// Any other pointer would be taken for a bool.
    template <class T> KOVIValue(T const* value) = delete;
    KOVIValue(KOVIValue const&) = default;
    KOVIValue& operator=(KOVIValue const&) = default;
    ~KOVIValue() override;

    /// Unknown for a handle that is not valid.
    KOVIValueType GetType() const;

    /// 0, false, 0.0 or null for an unknown value and for a handle that is not valid. Callers depend on a double
    /// being 1 as an int, unless it is 0.0. Hazard: the text lives in the body, until the last handle lets go of it:
    /// not at all if that is a temporary.
    operator int() const;
    operator bool() const;
    operator double() const;
    operator char const*() const;
};
