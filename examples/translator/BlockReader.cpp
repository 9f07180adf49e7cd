#include "BlockReader.h"

#include <algorithm>
#include <cstring>

namespace translator {

namespace {
constexpr std::size_t kBlockSize = 65536;
}

BlockReader::BlockReader(KOVAInputStream& stream) : stream_(stream), buffer_(2 * kBlockSize) {}

/// Reads at most a block behind the bytes that are left; false at the end.
bool BlockReader::fill() {
    std::memmove(buffer_.data(), buffer_.data() + begin_, end_ - begin_);
    bufferOffset_ += static_cast<std::int64_t>(begin_);
    end_ -= begin_;
    begin_ = 0;
    int const count =
        stream_.read(buffer_.data() + end_, static_cast<int>(std::min(kBlockSize, buffer_.size() - end_)));
    if (count > 0)
        end_ += static_cast<std::size_t>(count);
    return count > 0;
}

std::string_view BlockReader::peek(std::size_t count) {
    count = std::min(count, kBlockSize);
    while (end_ - begin_ < count && fill()) {
    }
    return {buffer_.data() + begin_, std::min(count, end_ - begin_)};
}

} // namespace translator
