#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include <kova/stream/KOVAInputStream.h>

namespace translator {

/// Reads a stream in blocks, so that the source is asked rarely, and counts bytes.
class BlockReader {
public:
    explicit BlockReader(KOVAInputStream& stream);

    /// The next bytes without taking them: `count` of them (at most 65536), fewer only at the end.
    std::string_view peek(std::size_t count);
    /// Takes bytes that were peeked.
    void take(std::size_t count) noexcept { begin_ += count; }
    /// The next byte without taking it, -1 at the end.
    int peekByte() { return begin_ < end_ || fill() ? static_cast<unsigned char>(buffer_[begin_]) : -1; }

    /// Position of the next byte.
    std::int64_t offset() const noexcept { return bufferOffset_ + static_cast<std::int64_t>(begin_); }

private:
    bool fill();

    KOVAInputStream& stream_;
    std::vector<char> buffer_;
    std::size_t begin_ = 0;
    std::size_t end_ = 0;
    std::int64_t bufferOffset_ = 0; ///< of the buffer's first byte
};

} // namespace translator
