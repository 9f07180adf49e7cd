#pragma once

#include <kova/core/export.h>
#include <kova/text/Gk_Marker.h>

/// An error of the older layer: one text token, not owned (in practice a literal). Thrown through
/// Gk_ErrMgr::raise, which cuts a derived type to this one; tell exceptions apart by their token:
///
///     try { KOVAFileInputStream in("part.stl"); ... }
///     catch (Gk_Exception const& e) { if (e == "CANNOT_OPEN_FILE") ... }
class KOVA_API Gk_Exception : public Gk_Marker {
public:
    /// The cause is accepted for callers' sake and not kept.
    Gk_Exception(char const* text, Gk_Exception* cause = nullptr) noexcept : Gk_Marker(text) {
        static_cast<void>(cause);
    }

    /// The tokens have the same text. (Null tokens equal only null.)
    bool operator==(Gk_Marker const& other) const noexcept { return Gk_Marker::operator==(other); }
};

/// A failure of input or output.
class KOVA_API Gk_IOException : public Gk_Exception {
public:
    Gk_IOException(char const* text, Gk_Exception* cause = nullptr) noexcept : Gk_Exception(text, cause) {}
};

/// Thrown by Gk_ErrMgr::checkAbort when an abort was requested.
class KOVA_API KOVAAbortException {};

/// Memory could not be had.
class KOVA_API KOVAAllocException {};
