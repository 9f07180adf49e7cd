#include <kova/diagnostics/KOVAEventBus.h>

#include <ctime>

#include <kova/diagnostics/KOVAEvent.h>
#include <kova/diagnostics/KOVAEventListener.h>
#include <kova/platform/clock.h>

static_assert(sizeof(void*) != 4 || sizeof(KOVAEventBus) == 4);
static_assert(sizeof(void*) != 4 || sizeof(KOVAEventListener) == 4);

namespace {

/// Deliveries under way, one within the other. While there is any, entries keep their places: a removed
/// one becomes null, and the last delivery closes the gaps.
int deliveries = 0;
bool gaps = false;

void closeGaps(KOVAArrayHeader*& listeners) {
    for (int i = kovaArrayCount(listeners) - 1; i >= 0; --i) {
        if (!static_cast<KOVAEventListener**>(listeners->data)[i])
            kovaArrayRemoveAt(listeners, i);
    }
    gaps = false;
}

/// Counts one delivery while it lives. The former number is put back, not counted down to: the next
/// delivery need not wait for two changes of one variable.
class Delivery {
public:
    explicit Delivery(KOVAArrayHeader*& listeners) noexcept : listeners_(listeners), before_(deliveries) {
        deliveries = before_ + 1;
    }
    Delivery(Delivery const&) = delete;
    Delivery& operator=(Delivery const&) = delete;
    ~Delivery() {
        deliveries = before_;
        if (gaps && before_ == 0)
            closeGaps(listeners_);
    }

private:
    KOVAArrayHeader*& listeners_;
    int before_;
};

void stamp(KOVAEvent& event) {
    event.SetClock(kova::detail::processorMilliseconds());
    event.SetTime(static_cast<long>(std::time(nullptr)));
}

} // namespace

KOVAEventListener::~KOVAEventListener() = default;

KOVAEventBus::KOVAEventBus() : listeners_(kovaArrayAllocate(10, static_cast<int>(sizeof(KOVAEventListener*)))) {}

KOVAEventBus::~KOVAEventBus() {
    kovaArrayFree(listeners_);
}

void KOVAEventBus::Send(KOVAEvent& event) {
    if (event.IsTimed())
        stamp(event);
    int const count = listeners_ ? listeners_->count : 0;
    if (count < 1)
        return;
    Delivery const delivery(listeners_);
    for (int i = 0; i < count; ++i) {
        // Read anew each time: a listener that is added may move the block.
        if (KOVAEventListener* const listener = entries()[i])
            listener->HandleEvent(event);
    }
}

int KOVAEventBus::find(KOVAEventListener const* listener) const {
    for (int i = 0, n = kovaArrayCount(listeners_); i < n; ++i) {
        if (entries()[i] == listener)
            return i;
    }
    return -1;
}

void KOVAEventBus::AddListener(KOVAEventListener* listener) {
    if (listener && find(listener) < 0)
        kovaArrayAdd(listeners_, &listener);
}

void KOVAEventBus::RemoveListener(KOVAEventListener* listener) {
    int const at = listener ? find(listener) : -1;
    if (at < 0)
        return;
    if (deliveries > 0) {
        entries()[at] = nullptr;
        gaps = true;
    } else {
        kovaArrayRemoveAt(listeners_, at);
    }
}
