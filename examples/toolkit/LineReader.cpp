#include "LineReader.h"

#include <cstddef>
#include <cstring>

#include "ModelReader.h"

namespace toolkit {

namespace {

char const* find(char c, char const* begin, char const* end) noexcept {
    return begin == end ? nullptr
                        : static_cast<char const*>(std::memchr(begin, c, static_cast<std::size_t>(end - begin)));
}

bool isContinued(std::string_view part) noexcept {
    return !part.empty() && part.back() == '\\' && !find('#', part.data(), part.data() + part.size());
}

} // namespace

bool LineReader::nextPart(std::string_view& part) {
    char const* stop = find('\n', at_, end_);
    if (!stop) {
        in_.take(static_cast<std::size_t>(at_ - begin_));
        std::string_view const view = in_.lookAhead(kReadBlock);
        begin_ = at_ = view.data();
        end_ = begin_ + view.size();
        stop = find('\n', at_, end_);
        isTooLong_ = !stop && end_ - at_ >= kReadBlock;
    }
    if (at_ == end_ && !stop)
        return false;
    ++parts_;
    char const* const end = stop ? stop : end_;
    part = {at_, static_cast<std::size_t>(end - at_)};
    if (!part.empty() && part.back() == '\r')
        part.remove_suffix(1);
    at_ = stop ? stop + 1 : end_;
    return true;
}

/// A blank stands between the parts.
bool LineReader::joinParts(std::string_view& line) {
    joined_.clear();
    bool continued = true;
    while (continued && !isTooLong_) {
        continued = isContinued(line);
        joined_.append(line, 0, line.size() - (continued ? 1 : 0)) += ' ';
        continued = continued && nextPart(line);
        isTooLong_ = isTooLong_ || joined_.size() > static_cast<std::size_t>(kReadBlock);
    }
    line = joined_;
    return !isTooLong_;
}

bool LineReader::next(std::string_view& line) {
    if (!nextPart(line))
        return false;
    number_ = parts_;
    if (isTooLong_)
        return false;
    return !mayBeContinued_ || !isContinued(line) || joinParts(line);
}

} // namespace toolkit
