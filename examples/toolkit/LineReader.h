#pragma once

#include <string>
#include <string_view>

#include <kova/stream/KOVABlockReader.h>

namespace toolkit {

/// The lines of a text, looked at in the block that was read. Lines end with LF or CR LF, the last one
/// perhaps with nothing. One that ends in a backslash goes on in the next, unless a comment ("#") has
/// begun in it.
class LineReader {
public:
    /// The block must hold kReadBlock bytes.
    explicit LineReader(KOVABlockReader& in) : in_(in) {}

    /// The next line without its end; false at the end, and for a line longer than kReadBlock. It lives
    /// until the next call.
    bool next(std::string_view& line);
    bool isTooLong() const noexcept { return isTooLong_; }

    /// Of the line, or where it is continued, of its first part; from 1.
    long long number() const noexcept { return number_; }

private:
    bool nextPart(std::string_view& part);
    bool joinParts(std::string_view& line);

    KOVABlockReader& in_;
    char const* begin_ = nullptr; ///< where the block's unread part begins
    char const* at_ = nullptr;    ///< where ours does
    char const* end_ = nullptr;
    std::string joined_;
    long long number_ = 0;
    long long parts_ = 0;
    bool isTooLong_ = false;
};

} // namespace toolkit
