#pragma once

#include <cstdint>

/// Severity of an event. A listener at a level takes the events whose level is greater or equal.
enum KOVAEventLevel : std::int32_t {
    KOVA_LEVEL_UNSET = -1,   ///< for loggers: no level given, the environment decides
    KOVA_LEVEL_ALL = 0,      ///< keyword "ALL"
    KOVA_LEVEL_DEBUG = 10,   ///< "DEBUG"
    KOVA_LEVEL_VERBOSE = 30, ///< "VERBOSE"
    KOVA_LEVEL_INFO = 50,    ///< "INFO"
    /// No keyword on purpose: a level read from the environment is never exactly this one.
    KOVA_LEVEL_WARNING = 70,
    KOVA_LEVEL_ERROR = 80, ///< "ERROR"
    KOVA_LEVEL_ABORT = 90, ///< "ABORT"; also assertion failures
    KOVA_LEVEL_NONE = 999  ///< "NONE"
};
