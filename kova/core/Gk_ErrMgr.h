#pragma once

#include <kova/core/Gk_Exception.h>
#include <kova/core/export.h>

/// How the older layer raises errors and honours requests to abort. All operations are static.
class KOVA_API Gk_ErrMgr {
public:
    /// Does nothing: the place for a breakpoint.
    static void trap();
    /// Does nothing in this build: assertions of the older layer come through here.
    static void doAssert(char const* file, int line);

    /// Reports the text as an error event, then throws a copy, catchable as Gk_Exception or Gk_Marker.
    [[noreturn]] static void raise(Gk_Exception const& e);

    /// The abort flag is the one thing here that another thread may touch.
    static void setAbort();
    static bool shouldAbort();
    /// Clears a set flag and throws KOVAAbortException; otherwise returns. Long operations call it at
    /// their safe points.
    static void checkAbort();
};
