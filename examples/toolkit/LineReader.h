#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include <kova/stream/KOVABlockReader.h>

namespace toolkit {

/// The lines of a text, looked at in the block that was read. Lines end with LF or CR LF, the last one
/// perhaps with nothing. Where lines may be continued, one that ends in a backslash goes on in the next,
/// unless a comment ("#") has begun in it.
class LineReader {
public:
    /// The block must hold kReadBlock bytes.
    explicit LineReader(KOVABlockReader& in, bool mayBeContinued = true) : in_(in), mayBeContinued_(mayBeContinued) {}

    /// The next line without its end; false at the end, and for a line longer than kReadBlock. It lives
    /// until the next call.
    bool next(std::string_view& line);
    bool isTooLong() const noexcept { return isTooLong_; }
    /// Ends the reading of lines: what follows the last of them is next in the block.
    void leave() noexcept {
        in_.take(static_cast<std::size_t>(at_ - begin_));
        begin_ = at_ = end_ = nullptr;
    }

    /// Of the line, or where it is continued, of its first part; from 1.
    long long number() const noexcept { return number_; }

private:
    bool nextPart(std::string_view& part);
    bool joinParts(std::string_view& line);

    KOVABlockReader& in_;
    bool mayBeContinued_;
    char const* begin_ = nullptr; ///< where the block's unread part begins
    char const* at_ = nullptr;    ///< where ours does
    char const* end_ = nullptr;
    std::string joined_;
    long long number_ = 0;
    long long parts_ = 0;
    bool isTooLong_ = false;
};

} // namespace toolkit
