#include <kova/options/KOVAProperties.h>

#include <kova/core/results.h>

using kova::detail::kFailure;
using kova::detail::kSuccess;

KOVAProperties::KOVAProperties() : KOVAReferenceCount(0) {}

KOVAProperties::KOVAProperties(KOVAProperties const& other) = default;

KOVAProperties& KOVAProperties::operator=(KOVAProperties const& other) {
    values_ = other.values_;
    return *this;
}

KOVAProperties::~KOVAProperties() = default;

KOVIResult KOVAProperties::Get(int index, KOVAString& name, KOVAValue& value) const {
    if (index < 0 || index >= values_.size())
        return kFailure;
    name = values_.name(index);
    value = values_.value(index);
    return kSuccess;
}

KOVIResult KOVAProperties::Get(KOVAString const& name, KOVAValue& value) const {
    int const found = values_.find(name);
    if (found < 0)
        return kFailure;
    value = values_.value(found);
    return kSuccess;
}

KOVIResult KOVAProperties::Set(KOVAString const& assignment) {
    int const separator = assignment.indexOf('=');
    if (separator < 1)
        return kFailure;
    KOVAString const text = assignment.substring(separator + 1);
    return Set(assignment.substring(0, separator), text.length() > 0 ? KOVAValue(text) : KOVAValue(""));
}

KOVIResult KOVAProperties::Set(KOVAString const& name, KOVAValue const& value) {
    KOVAValue kept;
    kept = value; // which may be one of ours, and move
    int const position = values_.findOrAdd(name);
    if (position < 0)
        return kFailure;
    values_.value(position) = kept;
    return kSuccess;
}

int KOVAProperties::GetCount() const {
    return values_.size();
}
