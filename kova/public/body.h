#pragma once

#include <utility>

#include <kova/public/KOVIObject.h>
#include <kova/public/KOVIObjectImpl.h>

namespace kova::detail {

/// The body of a handle as its class; null when there is none.
template <class Body> Body* bodyOf(KOVIObject const& handle) noexcept {
    return static_cast<Body*>(KOVIObjectImpl::Cast(handle.GetData()));
}

/// The body of a valid handle; null when it has none: a derived handle may call itself valid all the same.
template <class Body> Body* validBodyOf(KOVIObject const& handle) {
    return handle.IsValid() ? bodyOf<Body>(handle) : nullptr;
}

/// A new body, as KOVIObject::SetData takes it.
template <class Body, class... Arguments> void* newBody(Arguments&&... arguments) {
    return static_cast<KOVIObjectImpl*>(new Body(std::forward<Arguments>(arguments)...));
}

} // namespace kova::detail
