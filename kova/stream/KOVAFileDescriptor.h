#pragma once

#include <cstdint>
#include <cstdio>

#include <kova/core/KOVAReferenceCount.h>
#include <kova/core/KOVAReferenceHandle.h>
#include <kova/core/export.h>

class KOVAFilePath;

/// A file number of the C runtime, shared by counting. It closes the file only if it opened it.
class KOVA_API KOVAFileDescriptor : public KOVAReferenceCount {
public:
    /// Bit 1 reads, bit 2 writes. When a file is opened: Write and ReadWrite create or truncate it and
    /// only write; None and Read only read. Read and ReadWrite are binary; None and Write translate line
    /// ends where the system does. Callers depend on these, ReadWrite included.
    enum IOMode : std::int32_t { None = 0, Read = 1, Write = 2, ReadWrite = 3 };

    /// Opens a file; raises "CANNOT_OPEN_FILE" when that fails.
    KOVAFileDescriptor(char const* name, IOMode mode);
    KOVAFileDescriptor(KOVAFilePath const& path, IOMode mode);
    /// Wraps a file that somebody else opened and will close. With None the mode is taken from what the
    /// file's owner may do.
    KOVAFileDescriptor(int file, IOMode mode);
    KOVAFileDescriptor(std::FILE* stream, IOMode mode);
    KOVAFileDescriptor(KOVAFileDescriptor const&) = delete;
    KOVAFileDescriptor& operator=(KOVAFileDescriptor const&) = delete;
    ~KOVAFileDescriptor() override;

    /// Moves by an amount from the current position and returns the new one; offset(0) tells it.
    long offset(long amount) const;
    /// Moves to a position and returns it.
    long seek(long position) const;
    long fileSize() const;

    /// From now on line ends pass as they are, where the system translates them: for standard input and output
    /// that carry data.
    void setBinary() const noexcept;

    /// Bytes read or written at the position `at`, at the current one for -1; -1 for an error.
    int readBytes(char* const buffer, unsigned int count, long at);
    int writeBytes(char const* const buffer, unsigned int count, long at);
    /// Does nothing: there is no buffer. The place where a flush to disk would go.
    void commit() {}

    int fileNumber() const noexcept { return file_; }
    IOMode mode() const noexcept { return mode_; }
    bool owns() const noexcept { return owns_; }

private:
    friend class KOVAFileInputStream;
    friend class KOVAFileOutputStream;
    struct Console {
        int file;
        IOMode mode;
    };
    /// Raised for the console's handle, and once more so that nobody deletes it.
    explicit constexpr KOVAFileDescriptor(Console console) noexcept
        : KOVAReferenceCount(2), file_(console.file), mode_(console.mode), owns_(false) {}

    std::int32_t file_;
    IOMode mode_;
    bool owns_;
};

/// Holds a descriptor; the last handle to go closes a file that the descriptor owns.
class KOVA_API KOVAFileDescriptorHandle : public KOVAReferenceHandle {
public:
    explicit KOVAFileDescriptorHandle(KOVAFileDescriptor* descriptor = nullptr) : KOVAReferenceHandle(descriptor) {}
    KOVAFileDescriptorHandle(KOVAFileDescriptorHandle const&) = default;
    KOVAFileDescriptorHandle& operator=(KOVAFileDescriptorHandle const&) = default;
    ~KOVAFileDescriptorHandle() override = default;

    /// Null for an invalid handle.
    KOVAFileDescriptor* operator->() const noexcept { return static_cast<KOVAFileDescriptor*>(GetInstance()); }

private:
    friend class KOVAFileInputStream;
    friend class KOVAFileOutputStream;
    explicit constexpr KOVAFileDescriptorHandle(Raised raised) noexcept : KOVAReferenceHandle(raised) {}
};
