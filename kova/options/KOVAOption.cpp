#include <kova/options/KOVAOption.h>

#include <cstring>
#include <utility>

#include <kova/core/results.h>
#include <kova/diagnostics/KOVADebug.h>
#include <kova/diagnostics/KOVAError.h>
#include <kova/diagnostics/KOVATrace.h>
#include <kova/diagnostics/KOVAWarning.h>
#include <kova/system/KOVAEnvironment.h>
#include <kova/system/KOVAFloatUtil.h>
#include <kova/text/numbers.h>

static_assert(sizeof(void*) != 4 || sizeof(KOVAOption) == 80);
static_assert(sizeof(void*) != 4 || sizeof(KOVAOptionsArray) == 8);

using kova::detail::kEmptyOption;
using kova::detail::kErrorEncountered;
using kova::detail::kInvalidArgument;
using kova::detail::kSuccess;

namespace {

char const* shown(KOVAString const& text) {
    return text.length() > 0 ? static_cast<char const*>(text) : "";
}

char const* nameOf(KOVAValue::KOVAValueType type) {
    return KOVAValue::KOVAValueTypeNames[type];
}

void trace(char const* name, int value) {
    KOVAOption::log.Printf(KOVA_TRACE_DEBUG, "KOVAOption::GetValue('%s'): %i", name, value);
}

void trace(char const* name, double value) {
    KOVAOption::log.Printf(KOVA_TRACE_DEBUG, "KOVAOption::GetValue('%s'): %f", name, value);
}

void trace(char const* name, bool value) {
    KOVAOption::log.Printf(KOVA_TRACE_DEBUG, "KOVAOption::GetValue('%s'): %s", name, value ? "TRUE" : "FALSE");
}

void trace(char const* name, KOVAString const& value) {
    KOVAOption::log.Printf(KOVA_TRACE_DEBUG, "KOVAOption::GetValue('%s'): %s", name,
                           shown(value.length() > 256 ? value.substring(0, 256) : value));
}

} // namespace

KOVAOption::KOVAOption() = default;

KOVAOption::KOVAOption(KOVAString name) : name_(std::move(name)) {}

KOVAOption::KOVAOption(KOVAString name, KOVAValue const& value, bool isPrivate)
    : default_(value), current_(value), name_(std::move(name)), private_(isPrivate) {}

KOVAOption::KOVAOption(KOVAOptionName const& name, int value, bool isPrivate)
    : KOVAOption(KOVAString(name), KOVAValue(value), isPrivate) {}

KOVAOption::KOVAOption(KOVAOptionName const& name, double value, bool isPrivate)
    : KOVAOption(KOVAString(name), KOVAValue(value), isPrivate) {}

KOVAOption::KOVAOption(KOVAOptionName const& name, bool value, bool isPrivate)
    : KOVAOption(KOVAString(name), KOVAValue(value), isPrivate) {}

KOVAOption::KOVAOption(KOVAOptionName const& name, KOVAString const& value, bool isPrivate)
    : KOVAOption(KOVAString(name), KOVAValue(value), isPrivate) {}

KOVAOption::KOVAOption(KOVAOptionName const& name, KOVAValue const& value, bool isPrivate)
    : KOVAOption(KOVAString(name), value, isPrivate) {}

KOVAOption::KOVAOption(KOVAOptionName const& name, char const* value, bool isPrivate)
    : KOVAOption(KOVAString(name), KOVAValue(value), isPrivate) {}

KOVAOption::KOVAOption(KOVAOption const& other) : KOVAOption() {
    *this = other;
}

KOVAOption& KOVAOption::operator=(KOVAOption const& other) {
    if (!default_.IsValid())
        default_ = other.default_;
    current_ = other.current_;
    name_ = other.name_;
    private_ = other.private_;
    return *this;
}

KOVAOption::~KOVAOption() = default;

KOVAValue::KOVAValueType KOVAOption::storedType() const {
    KOVAValue::KOVAValueType type = KOVAValue::Unknown;
    default_.GetValueType(type);
    return type;
}

/// The name as messages show it.
KOVAString KOVAOption::shortName() const {
    return name_.length() > 256 ? name_.substring(0, 256) : name_;
}

// --- setting

template <class T> KOVIResult KOVAOption::set(T const& value, KOVAValue::KOVAValueType type) {
    KOVAValue::KOVAValueType const stored = storedType();
    if (stored == KOVAValue::Unknown) {
        default_ = KOVAValue(value);
        current_ = KOVAValue(value);
    } else if (stored == type) {
        current_ = KOVAValue(value);
    } else {
        KOVAError::Printf("KOVAOption::SetValue: Specified type (%s) doesn't match stored type (%s) for option '%s'.",
                          nameOf(type), nameOf(stored), shown(shortName()));
        return kErrorEncountered;
    }
    return kSuccess;
}

KOVIResult KOVAOption::SetValue(int value) {
    KOVAValue::KOVAValueType const stored = storedType();
    if (stored == KOVAValue::Bool) {
        current_ = KOVAValue(value != 0);
        return kSuccess;
    }
    if (stored == KOVAValue::Unknown || stored == KOVAValue::Int)
        return set(value, KOVAValue::Int);
    KOVAWarning::Printf("KOVAOption::SetValue: Specified type (%s) doesn't match stored type (%s) for option '%s'.",
                        nameOf(KOVAValue::Int), nameOf(stored), shown(shortName()));
    return kErrorEncountered;
}

KOVIResult KOVAOption::SetValue(double value) {
    return set(value, KOVAValue::Double);
}

KOVIResult KOVAOption::SetValue(bool value) {
    return set(value, KOVAValue::Bool);
}

KOVIResult KOVAOption::SetValue(KOVAString const& value) {
    return set(value, KOVAValue::String);
}

KOVIResult KOVAOption::SetValue(KOVAValue const& value) {
    if (storedType() == KOVAValue::Bool && value.IsInteger()) {
        int number = 0;
        value.GetValue(number);
        return SetValue(number);
    }
    KOVAValue::KOVAValueType type = KOVAValue::Unknown;
    value.GetValueType(type);
    return set(value, type);
}

// --- reading

template <class T> KOVIResult KOVAOption::get(T& value, KOVAValue::KOVAValueType type) const {
    KOVAValue::KOVAValueType const stored = storedType();
    if (stored == KOVAValue::Unknown)
        return kEmptyOption;
    T read{};
    KOVIResult const result = current_.GetValue(read);
    if (result != kInvalidArgument) // the current value is unknown
        value = read;
    if (result.IsFailure())
        KOVADebug::Printf("KOVAOption::GetValue: Requested type (%s) doesn't match stored type (%s) for option '%s'.",
                          nameOf(type), nameOf(stored), shown(shortName()));
    if (log.IsEnabled())
        trace(shown(shortName()), read);
    return result;
}

KOVIResult KOVAOption::GetValue(int& value) const {
    return get(value, KOVAValue::Int);
}

KOVIResult KOVAOption::GetValue(double& value) const {
    return get(value, KOVAValue::Double);
}

KOVIResult KOVAOption::GetValue(bool& value) const {
    return get(value, KOVAValue::Bool);
}

KOVIResult KOVAOption::GetValue(KOVAString& value) const {
    return get(value, KOVAValue::String);
}

KOVIResult KOVAOption::GetValue(KOVAValue& value) const {
    if (!default_.IsValid())
        return kEmptyOption;
    value = current_;
    if (log.IsEnabled()) {
        KOVAString text;
        value.GetValue(text);
        trace(shown(shortName()), text);
    }
    return kSuccess;
}

// --- the environment

KOVAString KOVAOption::variableName() const {
    return KOVAString("KOVA") + name_;
}

KOVIResult KOVAOption::GetValue(int& value, bool useEnvironment) const {
    KOVAString text;
    if (useEnvironment && KOVAEnvironment::GetVariable(variableName(), text).IsSuccess()) {
        char const* const narrow = shown(text);
        char const* end = nullptr;
        int const number = kova::detail::readInteger<int>(narrow, narrow + std::strlen(narrow), 10, end);
        if (number != 0 || std::strcmp(narrow, "0") == 0) {
            value = number;
            KOVAWarning::Printf("%s value overridden to %d by environment variable", shown(variableName()), number);
            return kSuccess;
        }
    }
    return GetValue(value);
}

KOVIResult KOVAOption::GetValue(double& value, bool useEnvironment) const {
    KOVAString text;
    if (useEnvironment && KOVAEnvironment::GetVariable(variableName(), text).IsSuccess()) {
        double const number = KOVAFloatUtil::kovastrtod(text, nullptr);
        if (number != 0.0 || std::strcmp(shown(text), "0") == 0) {
            value = number;
            KOVAWarning::Printf("%s value overridden to %7.3g by environment variable", shown(variableName()), number);
            return kSuccess;
        }
    }
    return GetValue(value);
}

KOVIResult KOVAOption::GetValue(bool& value, bool useEnvironment) const {
    bool on = false;
    if (!useEnvironment || KOVAEnvironment::GetVariable(variableName(), on).IsFailure())
        return GetValue(value);
    value = on;
    KOVAWarning::Printf("%s value overridden to %s by environment variable", shown(variableName()), on ? "On" : "Off");
    return kSuccess;
}

KOVIResult KOVAOption::GetValue(KOVAString& value, bool useEnvironment) const {
    if (!useEnvironment || KOVAEnvironment::GetVariable(variableName(), value).IsFailure())
        return GetValue(value);
    KOVAWarning::Printf("%s value overridden to %s by environment variable", shown(variableName()), shown(value));
    return kSuccess;
}

// --- the rest

template <class T> KOVIResult KOVAOption::getDefault(T& value) const {
    return default_.IsValid() ? default_.GetValue(value) : kEmptyOption;
}

KOVIResult KOVAOption::GetDefaultValue(int& value) const {
    return getDefault(value);
}

KOVIResult KOVAOption::GetDefaultValue(double& value) const {
    return getDefault(value);
}

KOVIResult KOVAOption::GetDefaultValue(bool& value) const {
    return getDefault(value);
}

KOVIResult KOVAOption::GetDefaultValue(KOVAString& value) const {
    return getDefault(value);
}

KOVIResult KOVAOption::GetDefaultValue(KOVAValue& value) const {
    if (!default_.IsValid())
        return kEmptyOption;
    value = default_;
    return kSuccess;
}

KOVIResult KOVAOption::IsPrivate(bool& isPrivate) const {
    if (!default_.IsValid())
        return kEmptyOption;
    isPrivate = private_;
    return kSuccess;
}

KOVIResult KOVAOption::GetName(KOVAString& name) const {
    if (!default_.IsValid())
        return kEmptyOption;
    name = name_;
    return kSuccess;
}

KOVIResult KOVAOption::GetValueType(KOVAValue::KOVAValueType& type) const {
    if (!default_.IsValid())
        return kEmptyOption;
    type = storedType();
    return kSuccess;
}

// --- KOVAOptionsArray

KOVAOptionsArray::KOVAOptionsArray() = default;

KOVAOptionsArray::KOVAOptionsArray(KOVAOptionsArray const& other) = default;

KOVAOptionsArray::KOVAOptionsArray(KOVAOptionsArray const* other) {
    if (other)
        array_ = other->array_;
}

KOVAOptionsArray& KOVAOptionsArray::operator=(KOVAOptionsArray const& other) = default;

KOVAOptionsArray::~KOVAOptionsArray() = default;
