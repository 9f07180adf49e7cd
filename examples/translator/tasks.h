#pragma once

#include <utility>

#include <kova/diagnostics/KOVAEventBus.h>
#include <kova/diagnostics/KOVATaskEvents.h>

namespace toolkit {

template <class Event, class... Arguments> void fire(Arguments&&... arguments) {
    Event event(std::forward<Arguments>(arguments)...);
    KOVAEventBus::Fire(event);
}

} // namespace toolkit
