#include <kova/diagnostics/KOVAErrorTracker.h>

#include <kova/diagnostics/KOVAEventBus.h>
#include <kova/diagnostics/KOVAMessageEvents.h>

static_assert(sizeof(void*) != 4 || sizeof(KOVAErrorTracker) == 8);

KOVAErrorTracker* KOVAErrorTracker::_pTracker = nullptr;

KOVIResult KOVAErrorTracker::Initialize() {
    if (!_pTracker) {
        _pTracker = new KOVAErrorTracker;
        KOVAEventBus::GetEventBus().AddListener(_pTracker);
    }
    return 0;
}

KOVIResult KOVAErrorTracker::Reset() {
    if (_pTracker)
        _pTracker->ClearErrorList();
    return 0;
}

KOVAErrorTracker::~KOVAErrorTracker() {
    if (_pTracker) {
        KOVAEventBus::GetEventBus().RemoveListener(_pTracker);
        _pTracker = nullptr;
    }
    ClearErrorList();
}

void KOVAErrorTracker::ClearErrorList() {
    for (int i = 0; i < errors_.size(); ++i)
        delete errors_[i];
    errors_.clear();
}

void KOVAErrorTracker::HandleEvent(KOVAEvent& event) {
    // The name decides; the cast guards against a foreign event of the same name.
    KOVAErrorEvent* const error = event.IsA("KOVAErrorEvent") ? dynamic_cast<KOVAErrorEvent*>(&event) : nullptr;
    if (error)
        errors_.add(new KOVAError(error->GetError()));
}

KOVAError* KOVAErrorTracker::GetLastError() {
    return GetError(GetErrorCount() - 1);
}

KOVAError* KOVAErrorTracker::GetError(int index) {
    return index >= 0 && index < GetErrorCount() ? errors_[index] : nullptr;
}
