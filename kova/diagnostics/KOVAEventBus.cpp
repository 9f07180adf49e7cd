#include <kova/diagnostics/KOVAEventBus.h>

#include <ctime>

#include <kova/diagnostics/KOVAEvent.h>
#include <kova/diagnostics/KOVAEventListener.h>
#include <kova/platform/clock.h>

static_assert(sizeof(void*) != 4 || sizeof(KOVAEventBus) == 4);
static_assert(sizeof(void*) != 4 || sizeof(KOVAEventListener) == 4);

bool KOVAEventBus::gaps_ = false;

KOVAEventListener::~KOVAEventListener() = default;

KOVAEventBus::~KOVAEventBus() {
    kovaArrayFree(listeners_);
}

void KOVAEventBus::stamp(KOVAEvent& event) {
    event.SetClock(kova::detail::processorMilliseconds());
    event.SetTime(static_cast<long>(std::time(nullptr)));
}

void KOVAEventBus::closeGaps() {
    for (int i = kovaArrayCount(listeners_) - 1; i >= 0; --i) {
        if (!entries()[i])
            kovaArrayRemoveAt(listeners_, i);
    }
    gaps_ = false;
}

int KOVAEventBus::find(KOVAEventListener const* listener) const {
    for (int i = 0, n = kovaArrayCount(listeners_); i < n; ++i) {
        if (entries()[i] == listener)
            return i;
    }
    return -1;
}

void KOVAEventBus::AddListener(KOVAEventListener* listener) {
    if (!listener || find(listener) >= 0)
        return;
    if (!listeners_)
        listeners_ = kovaArrayAllocate(10, static_cast<int>(sizeof(KOVAEventListener*)));
    kovaArrayAdd(listeners_, &listener);
}

void KOVAEventBus::RemoveListener(KOVAEventListener* listener) {
    int const at = listener ? find(listener) : -1;
    if (at < 0)
        return;
    if (listeners_->shareCount > 0) {
        entries()[at] = nullptr;
        gaps_ = true;
    } else {
        kovaArrayRemoveAt(listeners_, at);
    }
}
