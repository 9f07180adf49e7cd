#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include <kova/core/export.h>

class KOVAOutputStream;

/// Collects text or bytes in a block, in place, and writes whole blocks: for writers of large files.
///
///     KOVABlockWriter out(file);
///     char* const to = out.room(32);
///     out.use(std::to_chars(to, to + 32, x).ptr);
///
/// The stream stays the caller's, and must be there until this goes.
class KOVA_API KOVABlockWriter {
public:
    /// A block has at least one byte.
    explicit KOVABlockWriter(KOVAOutputStream& stream, int blockSize = 65536);
    KOVABlockWriter(KOVABlockWriter const&) = delete;
    KOVABlockWriter& operator=(KOVABlockWriter const&) = delete;
    /// Writes what still waits; what the stream throws then is lost.
    ~KOVABlockWriter();

    /// Room for count bytes, 0 or more, for the caller to fill. Lives until the next call.
    char* room(int count) {
        if (block_.size() - fill_ < static_cast<std::size_t>(count))
            makeRoom(count);
        return block_.data() + fill_;
    }
    /// Ends the text that was begun in room().
    void use(char const* end) noexcept { fill_ = static_cast<std::size_t>(end - block_.data()); }

    void write(std::string_view bytes);
    void write(char c) {
        char* const to = room(1);
        *to = c;
        use(to + 1);
    }
    /// Writes what waits; the stream itself is not flushed.
    void flush();

    /// How many bytes came through here, written or waiting.
    long long offset() const noexcept { return written_ + static_cast<long long>(fill_); }

private:
    void makeRoom(int count);

    KOVAOutputStream& stream_;
    std::vector<char> block_;
    std::size_t fill_ = 0;
    long long written_ = 0;
};
