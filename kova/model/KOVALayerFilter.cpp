#include <kova/model/KOVALayerFilter.h>

#include <kova/core/results.h>

using kova::detail::kFailure;
using kova::detail::kSuccess;

static_assert(sizeof(void*) != 4 || sizeof(KOVALayerFilter) == 16);

KOVALayerFilter::KOVALayerFilter() = default;

KOVALayerFilter::KOVALayerFilter(int count, int* layers, KOVAString const& name, bool current, eLayerFilterType type) {
    Set(count, layers, name, current, type);
}

KOVALayerFilter::KOVALayerFilter(KOVALayerFilter const& other)
    : current_(other.current_), type_(other.type_), layers_(other.layers_) {
    keepName(other.name_.get());
}

KOVALayerFilter& KOVALayerFilter::operator=(KOVALayerFilter const& other) {
    if (this != &other) {
        keepName(other.name_.get());
        current_ = other.current_;
        type_ = other.type_;
        layers_ = other.layers_;
    }
    return *this;
}

KOVALayerFilter::~KOVALayerFilter() = default;

/// A copy of the name; null for none.
void KOVALayerFilter::keepName(KOVAString const* name) {
    name_.reset(name ? new KOVAString(*name) : nullptr);
}

KOVIResult KOVALayerFilter::Set(int count, int* layers, KOVAString const& name, bool current, eLayerFilterType type) {
    if (layers ? count < 1 : count != 0)
        return kFailure;
    KOVADynamicArray<std::int32_t> fresh;
    fresh.append(layers, count);
    if (fresh.size() != count)
        return kFailure; // memory ran out
    keepName(name.length() > 0 ? &name : nullptr);
    layers_ = fresh;
    current_ = current;
    type_ = type;
    return kSuccess;
}

KOVIResult KOVALayerFilter::GetName(KOVAString& name) const {
    if (!name_)
        return kFailure;
    name = *name_;
    return kSuccess;
}

KOVIResult KOVALayerFilter::SetName(KOVAString const& name) {
    if (name.length() < 1)
        return kFailure;
    keepName(&name);
    return kSuccess;
}

KOVIResult KOVALayerFilter::IsCurrent(bool& current) const {
    current = current_;
    return kSuccess;
}

KOVIResult KOVALayerFilter::SetCurrent(bool current) {
    current_ = current;
    return kSuccess;
}

KOVIResult KOVALayerFilter::IsALLLayerFilter(bool& all) const {
    all = type_ == AllLayers;
    return kSuccess;
}

KOVIResult KOVALayerFilter::GetLayerFilterType(eLayerFilterType& type) const {
    type = type_;
    return kSuccess;
}

KOVIResult KOVALayerFilter::SetLayerFilterType(eLayerFilterType type) {
    type_ = type;
    return kSuccess;
}

KOVIResult KOVALayerFilter::GetNumLayers(int& count) const {
    count = layers_.size();
    return kSuccess;
}

KOVIResult KOVALayerFilter::GetLayerAt(int i, int& layer) const {
    bool const found = i >= 0 && i < layers_.size();
    layer = found ? layers_[i] : -1;
    return found ? kSuccess : kFailure;
}
