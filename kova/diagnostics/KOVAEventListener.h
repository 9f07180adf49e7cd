#pragma once

#include <kova/core/export.h>

class KOVAEvent;

/// Receives the events of the bus once it is registered there. It is not registered by being
/// constructed, and must be removed from the bus before it is destroyed.
class KOVA_API KOVAEventListener {
public:
    virtual void HandleEvent(KOVAEvent& event) = 0;
    virtual ~KOVAEventListener();

protected:
    KOVAEventListener() = default;
    KOVAEventListener(KOVAEventListener const&) = default;
    KOVAEventListener& operator=(KOVAEventListener const&) = default;
};
