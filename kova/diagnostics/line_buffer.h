#pragma once

#include <cstddef>
#include <cstring>
#include <string>
#include <string_view>

namespace kova::detail {

/// A text under construction that needs no memory of the heap as long as it is of usual length. Two calls of
/// the allocator a line are a tenth of what it takes to write one.
class LineBuffer {
public:
    LineBuffer() = default;
    LineBuffer(LineBuffer const&) = delete;
    LineBuffer& operator=(LineBuffer const&) = delete;

    void append(char const* text, std::size_t count) {
        if (long_.empty() && count <= sizeof local_ - used_) {
            std::memcpy(local_ + used_, text, count);
            used_ += count;
            return;
        }
        if (long_.empty())
            long_.assign(local_, used_);
        long_.append(text, count);
    }
    void append(char const* text) { append(text, std::strlen(text)); }

    /// Lives until the next append.
    std::string_view view() const noexcept { return long_.empty() ? std::string_view(local_, used_) : long_; }

private:
    char local_[1200];
    std::size_t used_ = 0;
    std::string long_; ///< the whole text once it has outgrown `local_`
};

} // namespace kova::detail
