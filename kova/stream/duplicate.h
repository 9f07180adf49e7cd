#pragma once

#include <memory>

#include <kova/stream/KOVAInputStream.h>

namespace kova::detail {

/// A copy of a filter over a next stream of its own, which goes with it. Filters themselves own
/// nothing.
template <class Filter> class OwningDuplicate final : public Filter {
public:
    OwningDuplicate(Filter const& original, std::unique_ptr<KOVAInputStream> next)
        : Filter(original), owned_(std::move(next)) {
        this->next_ = owned_.get();
    }

private:
    std::unique_ptr<KOVAInputStream> owned_;
};

template <class Filter> KOVAInputStream* duplicateOver(Filter const& original, KOVAInputStream* next) {
    std::unique_ptr<KOVAInputStream> copy(next ? next->duplicate() : nullptr);
    return copy ? new OwningDuplicate<Filter>(original, std::move(copy)) : nullptr;
}

} // namespace kova::detail
