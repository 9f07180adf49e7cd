#pragma once

#include <string_view>
#include <vector>

#include <kova/core/export.h>

class KOVAInputStream;

/// Reads a stream in large blocks and shows them in place, for readers of large files: no call for each
/// byte, no copy of what is looked at.
///
///     KOVABlockReader in(file);
///     for (std::string_view at = in.lookAhead(50); at.size() >= 50; at = in.lookAhead(50)) {
///         ... at.data() ...
///         in.take(50);
///     }
///
/// The stream stays the caller's, who must not read from it meanwhile: it is ahead of what was taken.
class KOVA_API KOVABlockReader {
public:
    /// A block has at least one byte.
    explicit KOVABlockReader(KOVAInputStream& stream, int blockSize = 65536);

    /// What has been read and not yet taken: at least `wanted` bytes (or a whole block, where that is
    /// less), fewer only at the end of the stream. Lives until the next call.
    std::string_view lookAhead(int wanted) {
        if (static_cast<long long>(end_ - begin_) < wanted)
            fill(wanted);
        return {block_.data() + begin_, end_ - begin_};
    }
    /// Takes bytes that were looked at. Hazard: that there were so many is not checked.
    void take(std::size_t count) noexcept { begin_ += count; }

    /// The position of the next byte, counted from where reading began.
    long long offset() const noexcept { return taken_ + static_cast<long long>(begin_); }

private:
    void fill(int wanted);

    KOVAInputStream& stream_;
    std::vector<char> block_;
    std::size_t begin_ = 0;
    std::size_t end_ = 0;
    long long taken_ = 0; ///< bytes that have left the block
};
