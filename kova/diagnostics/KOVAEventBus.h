#pragma once

#include <kova/core/KOVAArrayHeader.h>
#include <kova/core/export.h>

class KOVAEvent;
class KOVAEventListener;

/// Delivers every event to every listener, synchronously and in the order of registration. There is
/// one bus; it filters nothing, allocates nothing while it delivers, and is for one thread at a time.
///
///     KOVAEventBus::GetEventBus().AddListener(&listener);
///     KOVAEventBus::Fire(event);
///
/// Listeners may add and remove listeners, themselves included, while they are called: a removed one
/// is not called again, a new one not before the next event. Events may be fired from within.
class KOVA_API KOVAEventBus {
public:
    static KOVAEventBus& GetEventBus() noexcept { return _eventBus; }
    static void Fire(KOVAEvent& event) { _eventBus.Send(event); }

    KOVAEventBus(KOVAEventBus const&) = delete;
    KOVAEventBus& operator=(KOVAEventBus const&) = delete;
    ~KOVAEventBus();

    /// Stamps a timed event, listeners or not, then delivers it.
    void Send(KOVAEvent& event);
    /// Not owned. Ignores null and a listener that is registered already.
    void AddListener(KOVAEventListener* listener);
    /// Ignores null and a listener that is not registered.
    void RemoveListener(KOVAEventListener* listener);

    static KOVAEventBus _eventBus;

protected:
    KOVAEventBus();

private:
    KOVAEventListener** entries() const noexcept { return static_cast<KOVAEventListener**>(listeners_->data); }
    int find(KOVAEventListener const* listener) const;

    KOVAArrayHeader* listeners_;
};
