#include <kova/public/KOVIValue.h>

#include <kova/core/results.h>
#include <kova/public/KOVIValueImpl.h>
#include <kova/public/body.h>

static_assert(sizeof(void*) != 4 || sizeof(KOVIValue) == 12);
static_assert(sizeof(void*) != 4 || sizeof(KOVIValueImpl) == 56);

using kova::detail::kSuccess;
using kova::detail::newBody;
using kova::detail::validBodyOf;

namespace {

constexpr char kTag[] = "KOVIValue";

/// The handle's value; unknown when it is not valid.
KOVAValue valueOf(KOVIValue const& handle) {
    KOVAValue value;
    if (KOVIValueImpl const* const body = validBodyOf<KOVIValueImpl>(handle))
        body->GetValue(value);
    return value;
}

/// What cannot be read is 0, false, 0.0.
template <class T> T read(KOVIValue const& handle) {
    T result{};
    valueOf(handle).GetValue(result);
    return result;
}

} // namespace

KOVIValue::KOVIValue() : KOVIObject(kTag) {
    SetData(newBody<KOVIValueImpl>(kTag, KOVAValue()));
}

KOVIValue::KOVIValue(bool value) : KOVIObject(kTag) {
    SetData(newBody<KOVIValueImpl>(kTag, value));
}

KOVIValue::KOVIValue(int value) : KOVIObject(kTag) {
    SetData(newBody<KOVIValueImpl>(kTag, value));
}

KOVIValue::KOVIValue(double value) : KOVIObject(kTag) {
    SetData(newBody<KOVIValueImpl>(kTag, value));
}

KOVIValue::KOVIValue(char const* value) : KOVIObject(kTag) {
    SetData(newBody<KOVIValueImpl>(kTag, value));
}

KOVIValue::~KOVIValue() = default;

KOVIValue::KOVIValueType KOVIValue::GetType() const {
    KOVAValue::KOVAValueType type = KOVAValue::Unknown;
    valueOf(*this).GetValueType(type);
    switch (type) {
    case KOVAValue::Int: return Int;
    case KOVAValue::Double: return Double;
    case KOVAValue::String: return String;
    default: return Unknown; // a bool too
    }
}

KOVIValue::operator int() const {
    return read<int>(*this);
}

KOVIValue::operator bool() const {
    return read<bool>(*this);
}

KOVIValue::operator double() const {
    return read<double>(*this);
}

KOVIValue::operator char const*() const {
    KOVIValueImpl const* const body = validBodyOf<KOVIValueImpl>(*this);
    return body ? static_cast<char const*>(*body) : nullptr;
}

KOVIValueImpl::~KOVIValueImpl() = default;

KOVIResult KOVIValueImpl::GetValue(KOVAValue& value) const {
    value = value_;
    return kSuccess;
}
