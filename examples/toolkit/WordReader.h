#pragma once

#include <cstddef>
#include <cstring>
#include <string_view>

#include <kova/stream/KOVABlockReader.h>

#include "characters.h"

namespace toolkit {

/// The words of a text, looked at in the block that was read.
class WordReader {
public:
    /// The block must hold kReadBlock bytes.
    explicit WordReader(KOVABlockReader& in) : in_(in) {}

    /// No word follows.
    bool isAtEnd();
    /// The next word, cut at 256 characters; empty at the end. It lives until the next call.
    std::string_view next();
    /// Takes the next word if it is this one; `wanted` is made of small letters, the word need not be. (Most
    /// words are spelled like that: where `wanted` is known here, that is one comparison of a few bytes.)
    bool accept(std::string_view wanted) {
        findWord();
        if (static_cast<std::size_t>(end_ - at_) <= wanted.size() || !isSpace(at_[wanted.size()]) ||
            std::memcmp(at_, wanted.data(), wanted.size()) != 0)
            return acceptAnyCase(wanted);
        at_ += wanted.size();
        return true;
    }
    /// Takes the next word if it is a number, which may be infinite or none.
    bool acceptNumber(float& value);
    /// The rest of the line without the blanks around it; false when it is longer than kReadBlock.
    bool restOfLine(std::string_view& text);

    /// Where the last word began that was taken or asked for.
    long long wordOffset() const noexcept { return in_.offset() + (word_ - begin_); }

private:
    static constexpr int kLongestWord = 256;

    void lookAhead(int count);
    void skipBlanks() noexcept {
        while (at_ != end_ && isSpace(*at_))
            ++at_;
    }
    /// Goes to the next word and sees to it that all of it is in the block.
    void findWord() {
        skipBlanks();
        if (end_ - at_ <= kLongestWord)
            findWordInNextBlock();
        word_ = at_;
    }
    void findWordInNextBlock();
    bool acceptAnyCase(std::string_view wanted);
    char const* wordEnd() const noexcept;

    KOVABlockReader& in_;
    char const* begin_ = nullptr; ///< where the block's unread part begins
    char const* at_ = nullptr;    ///< where ours does
    char const* end_ = nullptr;
    char const* word_ = nullptr;
};

} // namespace toolkit
