#pragma once

#include <kova/containers/KOVADynamicArray.h>
#include <kova/core/KOVIResult.h>
#include <kova/core/export.h>
#include <kova/options/KOVAOptionName.h>
#include <kova/options/KOVAValue.h>
#include <kova/text/KOVAString.h>

class KOVAOptions;
class KOVATrace;

/// One typed setting of a translation: a name, a default and a current value. Its type is that of its
/// default and never changes; reads convert as KOVAValue does.
///
///     KOVAOption heal(KOVAOptionName::XGeneric_Import_Heal, true);
///     bool on;
///     heal.GetValue(on, true);       // "KOVA/XGeneric/Import/Heal" in the environment wins
///
/// An option without a default is empty: nearly everything asked of it is answered by 0x01000008, and it
/// takes the type of the first value that is set. Typed reads are traced under the component "options".
class KOVA_API KOVAOption {
public:
    KOVAOption();
    KOVAOption(KOVAOptionName const& name, int value, bool isPrivate = false);
    KOVAOption(KOVAOptionName const& name, double value, bool isPrivate = false);
    KOVAOption(KOVAOptionName const& name, bool value, bool isPrivate = false);
    KOVAOption(KOVAOptionName const& name, KOVAString const& value, bool isPrivate = false);
    KOVAOption(KOVAOptionName const& name, KOVAValue const& value, bool isPrivate = false);
    /// Here lest a literal be taken for a bool.
    KOVAOption(KOVAOptionName const& name, char const* value, bool isPrivate = false);
    KOVAOption(KOVAOptionName const& name, unsigned short const* value, bool isPrivate = false)
        : KOVAOption(name, KOVAString(value), isPrivate) {}
    KOVAOption(KOVAOption const& other);
    /// Callers depend on an option that has a default keeping it, and with it its type; everything else is
    /// taken over.
    KOVAOption& operator=(KOVAOption const& other);
    ~KOVAOption();

    // A value of another type is refused with Error Encountered and an error message (a warning for an int:
    // callers depend on the difference), and changes nothing. Only an int is taken by a bool option too.

    KOVIResult SetValue(int value);
    KOVIResult SetValue(double value);
    KOVIResult SetValue(bool value);
    KOVIResult SetValue(KOVAString const& value);
    KOVIResult SetValue(KOVAValue const& value);
    KOVIResult SetValue(char const* value) { return SetValue(KOVAString(value)); }
    KOVIResult SetValue(unsigned short const* value) { return SetValue(KOVAString(value)); }

    // The current value. The result is that of the conversion; a failure is reported as a debug message.

    KOVIResult GetValue(int& value) const;
    KOVIResult GetValue(double& value) const;
    KOVIResult GetValue(bool& value) const;
    KOVIResult GetValue(KOVAString& value) const;
    KOVIResult GetValue(KOVAValue& value) const;

    // With useEnvironment, the variable "KOVA" + name wins, with a warning. A number is accepted when it is
    // not 0 or the text is exactly "0" (so "0.0" is refused); a bool when the variable is there at all.

    KOVIResult GetValue(int& value, bool useEnvironment) const;
    KOVIResult GetValue(double& value, bool useEnvironment) const;
    KOVIResult GetValue(bool& value, bool useEnvironment) const;
    KOVIResult GetValue(KOVAString& value, bool useEnvironment) const;

    KOVIResult GetDefaultValue(int& value) const;
    KOVIResult GetDefaultValue(double& value) const;
    KOVIResult GetDefaultValue(bool& value) const;
    KOVIResult GetDefaultValue(KOVAString& value) const;
    KOVIResult GetDefaultValue(KOVAValue& value) const;

    KOVIResult IsPrivate(bool& isPrivate) const;
    KOVIResult GetName(KOVAString& name) const;
    KOVIResult GetValueType(KOVAValue::KOVAValueType& type) const;

    static KOVATrace log;

private:
    friend class KOVAOptions;

    explicit KOVAOption(KOVAString name);
    KOVAOption(KOVAString name, KOVAValue const& value, bool isPrivate);

    KOVAValue::KOVAValueType storedType() const;
    template <class T> KOVA_LOCAL KOVIResult set(T const& value, KOVAValue::KOVAValueType type);
    template <class T> KOVA_LOCAL KOVIResult get(T& value, KOVAValue::KOVAValueType type) const;
    template <class T> KOVA_LOCAL KOVIResult getDefault(T& value) const;
    KOVAString variableName() const;
    KOVAString shortName() const;

    KOVAValue default_;
    KOVAValue current_;
    KOVAString name_;
    bool private_ = false;
};

/// Options in an array. Copies share it.
class KOVA_API KOVAOptionsArray {
public:
    KOVAOptionsArray();
    KOVAOptionsArray(KOVAOptionsArray const& other);
    /// Shares nothing for null.
    explicit KOVAOptionsArray(KOVAOptionsArray const* other);
    KOVAOptionsArray& operator=(KOVAOptionsArray const& other);
    virtual ~KOVAOptionsArray();

    KOVADynamicArray<KOVAOption>& array() { return array_; }
    KOVADynamicArray<KOVAOption> const& array() const { return array_; }

private:
    KOVADynamicArray<KOVAOption> array_;
};
