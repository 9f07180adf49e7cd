#pragma once

#include <kova/core/KOVAArrayHeader.h>
#include <kova/core/export.h>
#include <kova/diagnostics/KOVAEvent.h>
#include <kova/diagnostics/KOVAEventListener.h>

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
    void Send(KOVAEvent& event) {
        if (event.IsTimed())
            stamp(event);
        int const count = listeners_ ? listeners_->count : 0;
        if (count == 1) {
            // Whatever the listener does to the bus, no place after its own is read.
            call(0, event);
        } else if (count > 1) {
            Delivery const delivery(*this);
            for (int i = 0; i < count; ++i)
                call(i, event);
        }
    }
    /// Not owned. Ignores null and a listener that is registered already.
    void AddListener(KOVAEventListener* listener);
    /// Ignores null and a listener that is not registered.
    void RemoveListener(KOVAEventListener* listener);

    static KOVAEventBus _eventBus;

protected:
    constexpr KOVAEventBus() noexcept = default;

private:
    /// Holds the array of listeners for a delivery. While there is any such holder, entries keep their
    /// places: a removed one becomes null, and the last delivery closes the gaps.
    class Delivery {
    public:
        explicit Delivery(KOVAEventBus& bus) noexcept : bus_(bus) { ++bus_.listeners_->shareCount; }
        Delivery(Delivery const&) = delete;
        Delivery& operator=(Delivery const&) = delete;
        ~Delivery() {
            if (--bus_.listeners_->shareCount == 0 && gaps_)
                bus_.closeGaps();
        }

    private:
        KOVAEventBus& bus_;
    };

    /// Reads the entry anew each time: a listener that is added may move the block.
    void call(int index, KOVAEvent& event) const {
        if (KOVAEventListener* const listener = entries()[index])
            listener->HandleEvent(event);
    }
    KOVAEventListener** entries() const noexcept { return static_cast<KOVAEventListener**>(listeners_->data); }
    static void stamp(KOVAEvent& event);
    void closeGaps();
    int find(KOVAEventListener const* listener) const;

    KOVAArrayHeader* listeners_ = nullptr; ///< made for the first of them

    static bool gaps_;
};
