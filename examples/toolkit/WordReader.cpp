#include "WordReader.h"

#include <algorithm>
#include <cstddef>

#include <kova/system/KOVAFloatUtil.h>

#include "ModelReader.h"

namespace toolkit {

void WordReader::lookAhead(int count) {
    in_.take(static_cast<std::size_t>(at_ - begin_));
    std::string_view const view = in_.lookAhead(count);
    begin_ = at_ = word_ = view.data();
    end_ = begin_ + view.size();
}

void WordReader::findWordInNextBlock() {
    while (at_ == end_) {
        lookAhead(kLongestWord + 1);
        if (at_ == end_)
            return;
        skipBlanks();
    }
    lookAhead(kLongestWord + 1);
}

char const* WordReader::wordEnd() const noexcept {
    char const* const limit = at_ + std::min<std::ptrdiff_t>(end_ - at_, kLongestWord);
    return std::find_if(at_, limit, isSpace);
}

bool WordReader::isAtEnd() {
    findWord();
    return at_ == end_;
}

std::string_view WordReader::next() {
    findWord();
    char const* const begin = at_;
    at_ = wordEnd();
    return {begin, static_cast<std::size_t>(at_ - begin)};
}

bool WordReader::acceptAnyCase(std::string_view wanted) {
    char const* const end = wordEnd();
    if (!equalsIgnoringCase({at_, static_cast<std::size_t>(end - at_)}, wanted))
        return false;
    at_ = end;
    return true;
}

bool WordReader::acceptNumber(float& value) {
    findWord();
    char const* const limit = at_ + std::min<std::ptrdiff_t>(end_ - at_, kLongestWord);
    char const* const end = KOVAFloatUtil::read(at_, limit, value);
    if (end == at_ || (end != end_ && !isSpace(*end)))
        return false;
    at_ = end;
    return true;
}

bool WordReader::restOfLine(std::string_view& text) {
    auto const isLineEnd = [](char c) { return c == '\n' || c == '\r'; };
    char const* end = std::find_if(at_, end_, isLineEnd);
    if (end == end_) {
        lookAhead(kReadBlock);
        end = std::find_if(at_, end_, isLineEnd);
    }
    word_ = at_;
    if (end == end_ && end_ - at_ == kReadBlock)
        return false;
    text = trimmed({at_, static_cast<std::size_t>(end - at_)});
    at_ = end;
    return true;
}

} // namespace toolkit
