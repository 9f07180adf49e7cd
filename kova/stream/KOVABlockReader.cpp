#include <kova/stream/KOVABlockReader.h>

#include <algorithm>
#include <cstring>

#include <kova/stream/KOVAInputStream.h>

KOVABlockReader::KOVABlockReader(KOVAInputStream& stream, int blockSize)
    : stream_(stream), block_(static_cast<std::size_t>(std::max(blockSize, 1))) {}

void KOVABlockReader::fill(int wanted) {
    std::memmove(block_.data(), block_.data() + begin_, end_ - begin_);
    taken_ += static_cast<long long>(begin_);
    end_ -= begin_;
    begin_ = 0;
    std::size_t const goal = std::min(static_cast<std::size_t>(wanted), block_.size());
    while (end_ < goal) {
        int const got = stream_.read(block_.data() + end_, static_cast<int>(block_.size() - end_));
        if (got < 1)
            return;
        end_ += static_cast<std::size_t>(got);
    }
}
