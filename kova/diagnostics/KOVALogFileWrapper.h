#pragma once

#include <cstdio>

#include <kova/core/export.h>
#include <kova/diagnostics/KOVALogger.h>

/// A log file, written while this lives; the environment variable "KOVALogLevel" decides the level.
///
///     KOVALogFileWrapper const log("translation.log");
///
/// A file that exists is truncated. One that cannot be opened is no log, and nothing is said about it.
class KOVA_API KOVALogFileWrapper {
public:
    /// "plintex_read.log" for reading, else "plintex_write.log", in the current folder.
    explicit KOVALogFileWrapper(bool reading);
    /// No log for a null or empty name.
    explicit KOVALogFileWrapper(char const* fileName);
    /// Borrows the file: it stays the caller's, who closes it after this. What is logged passes by the file's
    /// own buffer.
    explicit KOVALogFileWrapper(std::FILE* file);
    /// A wide name would be taken for the bool.
    explicit KOVALogFileWrapper(void const*) = delete;
    KOVALogFileWrapper(KOVALogFileWrapper const&) = delete;
    KOVALogFileWrapper& operator=(KOVALogFileWrapper const&) = delete;
    ~KOVALogFileWrapper();

private:
    std::FILE* file_;
    KOVALogger logger_;
    bool borrowed_;
};
