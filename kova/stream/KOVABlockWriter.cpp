#include <kova/stream/KOVABlockWriter.h>

#include <algorithm>
#include <cstring>
#include <utility>

#include <kova/stream/KOVAOutputStream.h>

KOVABlockWriter::KOVABlockWriter(KOVAOutputStream& stream, int blockSize)
    : stream_(stream), block_(static_cast<std::size_t>(std::max(blockSize, 1))) {}

KOVABlockWriter::~KOVABlockWriter() {
    try {
        flush();
    } catch (...) { // NOLINT(bugprone-empty-catch): who wants to know flushes before
    }
}

void KOVABlockWriter::flush() {
    std::size_t const count = std::exchange(fill_, 0);
    written_ += static_cast<long long>(count);
    if (count > 0)
        stream_.write(block_.data(), static_cast<int>(count));
}

void KOVABlockWriter::makeRoom(int count) {
    flush();
    block_.resize(std::max(block_.size(), static_cast<std::size_t>(count)));
}

void KOVABlockWriter::write(std::string_view bytes) {
    while (!bytes.empty()) {
        if (fill_ == block_.size())
            flush();
        std::size_t const part = std::min(bytes.size(), block_.size() - fill_);
        std::memcpy(block_.data() + fill_, bytes.data(), part);
        fill_ += part;
        bytes.remove_prefix(part);
    }
}
