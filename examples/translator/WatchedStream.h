#pragma once

#include <algorithm>
#include <cerrno>

#include <kova/diagnostics/KOVATaskEvents.h>
#include <kova/model/KOVACallbackShared.h>
#include <kova/stream/KOVAFilterInputStream.h>

#include "tasks.h"

namespace toolkit {

/// A file while it is read: with every block somebody may end the translation, and whoever listens hears how much of
/// the file is behind: now and then in a large one, never in a small one.
class WatchedStream : public KOVAFilterInputStream {
public:
    /// A negative size is not known; then nobody hears anything.
    WatchedStream(KOVAInputStream& next, long long size) : KOVAFilterInputStream(&next), size_(size) {}

    int read(char* const buffer, int count) override {
        KOVACallbackShared::IsAborted();
        int const got = KOVAFilterInputStream::read(buffer, count);
        if (got < 0 && error_ == 0)
            error_ = errno;
        offset_ += got > 0 ? got : 0;
        if (size_ > 0 && offset_ - told_ >= std::max(size_ / kTimes, kLeast)) {
            told_ = offset_;
            fire<KOVAThirdPartyProgressEvent>(100.0 * static_cast<double>(offset_) / static_cast<double>(size_));
        }
        return got;
    }

    /// The system refused to read on, which a reader takes for the end of the file.
    bool isBroken() const noexcept { return error_ != 0; }
    int error() const noexcept { return error_; }

private:
    static constexpr long long kTimes = 200;
    static constexpr long long kLeast = 1 << 20; ///< bytes

    long long size_;
    long long offset_ = 0;
    long long told_ = 0; ///< the offset that was heard of last
    int error_ = 0;      ///< as in errno
};

} // namespace toolkit
