#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include <kova/stream/KOVAFileDescriptor.h>
#include <kova/stream/KOVAOutputStream.h>

#include "files.h"

namespace toolkit {

/// A new binary file. It is written under a name of its own in the same folder and takes the place of an older file
/// only when it is kept; otherwise nothing has happened. (Of the file itself where the name is a link to it. Pipes,
/// devices and open streams are written as they are.) It counts what the system takes, and is silent about what it
/// refuses.
class OutputFile : public KOVAOutputStream {
public:
    explicit OutputFile(std::string name);
    /// An open stream and what messages call it. It stays the caller's.
    OutputFile(std::FILE* stream, std::string name);
    OutputFile(OutputFile const&) = delete;
    OutputFile& operator=(OutputFile const&) = delete;
    ~OutputFile() override;

    char const* name() const noexcept { return name_.c_str(); }
    /// Whether it could be created.
    bool isOpen() const noexcept { return file_ || isStream_; }
    /// What the system says of the operation that failed first.
    std::string const& reason() const noexcept { return reason_; }
    /// Streams and devices have none, for files beside them.
    bool hasFolder() const noexcept { return !target_.empty(); }
    /// For who will overwrite, before anything is written: what cannot be positioned keeps all in a temporary file
    /// until it is complete. False where that cannot be made.
    bool allowOverwriting();

    void write(char const* const buffer, int count) override;
    /// Replaces bytes that were written.
    void overwrite(long at, std::string_view bytes);
    void flush() override {}
    void close() override {}
    /// Closes the file; false when not all that was written reached it. Nothing may be written any more.
    bool complete();
    /// Lets a complete file take its place, once; false when that is refused.
    bool keep();
    /// Bytes that the system took.
    long long size() const noexcept { return size_; }

private:
    void open();
    void passOn();
    void noteReason(int error);

    std::string name_;
    std::filesystem::path target_;  ///< empty for what is no file
    std::filesystem::path written_; ///< where the bytes are until they are kept, or passed on
    File file_;                     ///< none for a stream
    KOVAFileDescriptorHandle descriptor_;
    File held_; ///< what is written until it is passed on
    KOVAFileDescriptorHandle destination_;
    bool isStream_ = false;
    long long size_ = 0;
    bool isSound_ = true; ///< the system took all so far
    std::string reason_;
    bool isRemovedAtEnd_ = false;
};

} // namespace toolkit
