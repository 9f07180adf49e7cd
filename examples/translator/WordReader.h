#pragma once

#include <string_view>

#include <kova/stream/KOVABlockReader.h>

namespace translator {

/// The words of a text, looked at in the block that was read.
class WordReader {
public:
    /// The block must hold kReadBlock bytes.
    explicit WordReader(KOVABlockReader& in) : in_(in) {}

    /// No word follows.
    bool isAtEnd();
    /// The next word, cut at 256 characters; empty at the end. It lives until the next call.
    std::string_view next();
    /// Takes the next word if it is this one; `wanted` is in lower case, the word need not be.
    bool accept(std::string_view wanted);
    /// Takes the next word if it is a number, which may be infinite or none.
    bool acceptNumber(float& value);
    /// The rest of the line without the blanks around it; false when it is longer than kReadBlock.
    bool restOfLine(std::string_view& text);

    /// Where the last word began that was taken or asked for.
    long long wordOffset() const noexcept { return wordOffset_; }

private:
    void lookAhead(int count);
    void findWord();
    char const* wordEnd() const noexcept;

    KOVABlockReader& in_;
    char const* begin_ = nullptr; ///< where the block's unread part begins
    char const* at_ = nullptr;    ///< where ours does
    char const* end_ = nullptr;
    long long wordOffset_ = 0;
};

} // namespace translator
