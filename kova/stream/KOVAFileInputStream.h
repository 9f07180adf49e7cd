#pragma once

#include <cstdint>
#include <cstdio>

#include <kova/core/export.h>
#include <kova/stream/KOVAFileDescriptor.h>
#include <kova/stream/KOVAInputStream.h>

/// Reads a file's bytes, without translation and without a buffer: each read is one call of the system.
/// Read in blocks.
class KOVA_API KOVAFileInputStream : public KOVAInputStream {
public:
    /// The console: file number 0, which is never closed.
    KOVAFileInputStream();
    /// Both raise "CANNOT_OPEN_FILE" when the file cannot be opened.
    explicit KOVAFileInputStream(char const* name);
    explicit KOVAFileInputStream(KOVAFilePath const& path);
    /// The stream stays the caller's, who closes it after this one.
    explicit KOVAFileInputStream(std::FILE* stream);
    KOVAFileInputStream& operator=(KOVAFileInputStream const&) = delete;
    ~KOVAFileInputStream() override;

    /// From then on this stream and its duplicates each keep a position of their own, never below 0.
    KOVAInputStream* duplicate() override;
    int read(char* const buffer, int count) override;
    /// Moves ahead and returns the new position. Callers depend on it being no count, as elsewhere.
    long skip(long count) override;
    /// The size at construction (-1 for the console) minus the position.
    long available() const override;
    /// Moves back by the text's len(); the characters are taken for the ones just read. True.
    bool add(Gk_String const& text) override;
    long getCurrentOffset() const override;
    void setOffset(long offset) override;

    /// Standard input.
    static KOVAFileInputStream console;

private:
    KOVAFileInputStream(KOVAFileInputStream const& other);
    explicit KOVAFileInputStream(KOVAFileDescriptor* descriptor);
    explicit constexpr KOVAFileInputStream(KOVAFileDescriptorHandle::Raised descriptor) noexcept
        : KOVAInputStream(nullptr), size_(-1), ownOffset_(-1), descriptor_(descriptor) {}
    bool followsDescriptor() const noexcept { return ownOffset_ == -1; }

    static KOVA_LOCAL KOVAFileDescriptor consoleDescriptor_;

    std::int32_t size_;
    std::int32_t ownOffset_;
    KOVAFileDescriptorHandle descriptor_;
};
