#pragma once

#include <cstdio>

#include <kova/core/export.h>
#include <kova/stream/KOVAFileDescriptor.h>
#include <kova/stream/KOVAOutputStream.h>

/// Writes to a file without a buffer: each write is one call of the system. Write in blocks.
///
/// Files opened by name are in text mode, created or truncated. A write that fails is not reported;
/// where that matters, write through a descriptor in binary mode and compare its offset(0)
/// with what was written.
class KOVA_API KOVAFileOutputStream : public KOVAOutputStream {
public:
    /// The console: file number 1, which is never closed.
    KOVAFileOutputStream();
    /// Both raise "CANNOT_OPEN_FILE" when the file cannot be opened.
    explicit KOVAFileOutputStream(char const* name);
    explicit KOVAFileOutputStream(KOVAFilePath const& path);
    /// The stream stays the caller's, who closes it after this one.
    explicit KOVAFileOutputStream(std::FILE* stream);
    /// Takes a reference.
    explicit KOVAFileOutputStream(KOVAFileDescriptor* descriptor);
    /// Share the descriptor.
    KOVAFileOutputStream(KOVAFileOutputStream const& other);
    KOVAFileOutputStream& operator=(KOVAFileOutputStream const& other);
    ~KOVAFileOutputStream() override;

    void write(char const* const buffer, int count) override;
    void flush() override;
    /// Does nothing: the file is closed with the last handle to a descriptor that opened it.
    void close() override;

    /// Standard output.
    static KOVAFileOutputStream console;

private:
    explicit constexpr KOVAFileOutputStream(KOVAFileDescriptorHandle::Raised descriptor) noexcept
        : KOVAOutputStream(nullptr), descriptor_(descriptor) {}

    static KOVA_LOCAL KOVAFileDescriptor consoleDescriptor_;

    KOVAFileDescriptorHandle descriptor_;
};
