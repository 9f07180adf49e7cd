#pragma once

#include <kova/containers/KOVADynamicArray.h>
#include <kova/core/KOVIResult.h>
#include <kova/core/export.h>
#include <kova/diagnostics/KOVAError.h>
#include <kova/diagnostics/KOVAEventListener.h>

/// The listener that remembers every error event's error, oldest first.
///
///     KOVAErrorTracker::Initialize();
///     ...
///     if (KOVAError::GetErrorCount() > 0)
///         return KOVAError::GetLastError()->GetErrorType();
///
/// Pointers to recorded errors live until the list is cleared.
class KOVA_API KOVAErrorTracker : public KOVAEventListener {
public:
    /// Makes the one tracker and registers it; nothing when there is one. Always a success.
    static KOVIResult Initialize();
    /// The tracker, or null. Deleting it ends the recording.
    static KOVAErrorTracker* GetInstance() noexcept { return _pTracker; }
    /// Clears the tracker's list, if there is a tracker. Always a success.
    static KOVIResult Reset();

    KOVAErrorTracker(KOVAErrorTracker const&) = delete;
    KOVAErrorTracker& operator=(KOVAErrorTracker const&) = delete;

    /// Records a copy of an error event's error; ignores other events.
    void HandleEvent(KOVAEvent& event) override;
    ~KOVAErrorTracker() override;
    /// The error recorded last, or null.
    virtual KOVAError* GetLastError();

    int GetErrorCount() const { return errors_.size(); }
    /// Error number `index`, the oldest being 0; null when there is none.
    KOVAError* GetError(int index);
    void ClearErrorList();

    static KOVAErrorTracker* _pTracker;

private:
    KOVAErrorTracker() = default;

    KOVADynamicArray<KOVAError*> errors_; ///< owned; each stays where it is when more are recorded
};
