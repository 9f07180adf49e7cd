#pragma once

#include <string_view>

#include <kova/stream/KOVAFileDescriptor.h>
#include <kova/stream/KOVAOutputStream.h>

#include "files.h"

namespace translator {

/// A new binary file that is removed again unless it is kept. (The file itself where the name is a link to
/// it, and never a device.) It counts what the system takes, and is silent about what it refuses.
class OutputFile : public KOVAOutputStream {
public:
    explicit OutputFile(char const* name);
    OutputFile(OutputFile const&) = delete;
    OutputFile& operator=(OutputFile const&) = delete;
    ~OutputFile() override;

    /// Whether it could be created; if not, errno tells why.
    bool isOpen() const noexcept { return file_ != nullptr; }
    /// Not so for a pipe.
    bool canBePositioned() const { return descriptor_->offset(0) != -1; }

    void write(char const* const buffer, int count) override;
    /// Replaces bytes that were written.
    void overwrite(long at, std::string_view bytes);
    void flush() override {}
    void close() override {}
    /// Closes the file and keeps it; false when not all that was written reached it.
    bool keep();
    /// Bytes that the system took.
    long long size() const noexcept { return size_; }

private:
    void remove();

    char const* name_;
    File file_;
    KOVAFileDescriptorHandle descriptor_;
    long long size_ = 0;
    bool isComplete_ = true;
};

} // namespace translator
