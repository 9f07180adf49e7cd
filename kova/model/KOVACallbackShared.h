#pragma once

#include <kova/core/export.h>

/// Where long conversions ask whether the user wants to stop.
///
///     KOVACallbackShared::m_AbortCallback = &cancelButtonWasPressed;
///     ...
///     for (Face const& face : faces) {
///         KOVACallbackShared::IsAborted();
///         translate(face);
///     }
class KOVA_API KOVACallbackShared {
    KOVACallbackShared() = default;
    ~KOVACallbackShared() = default;

public:
    /// The application's question, true to stop; null when it has none. Set directly.
    static bool (*m_AbortCallback)();

    /// Throws KOVAAbortException when the abort flag of Gk_ErrMgr is set or the callback, which is called
    /// either way, returns true; otherwise false. Callers depend on it leaving the flag set.
    static bool IsAborted();
};
