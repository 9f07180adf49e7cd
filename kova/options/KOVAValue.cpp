#include <kova/options/KOVAValue.h>

#include <cstring>

#include <kova/core/results.h>
#include <kova/stream/KOVAStreamFormatter.h>
#include <kova/system/KOVAFloatUtil.h>
#include <kova/text/numbers.h>
#include <kova/text/words.h>

static_assert(sizeof(void*) != 4 || sizeof(KOVAValue) == 32);

using kova::detail::kFailure;
using kova::detail::kInvalidArgument;
using kova::detail::kSuccess;

namespace {

/// What the text begins with, as atoi reads it; numbers beyond an int become its limits.
int leadingInt(KOVAString const& text) {
    char const* const narrow = text;
    char const* end = nullptr;
    return narrow ? kova::detail::readInteger<int>(narrow, narrow + std::strlen(narrow), 10, end) : 0;
}

} // namespace

char const* const KOVAValue::KOVAValueTypeNames[6] = {"unknown", "double", "int", "bool", "string", nullptr};

KOVAValue::KOVAValue() noexcept : double_(0.0), type_(Unknown) {}

KOVAValue::KOVAValue(int value) noexcept : KOVAValue() {
    int_ = value;
    type_ = Int;
}

KOVAValue::KOVAValue(bool value) noexcept : KOVAValue() {
    bool_ = value;
    type_ = Bool;
}

KOVAValue::KOVAValue(double value) noexcept : double_(value), type_(Double) {}

KOVAValue::KOVAValue(char const* value) : text_(value), double_(0.0), type_(String) {}

KOVAValue::KOVAValue(KOVAString const& value) : KOVAValue() {
    text_ = value;
    type_ = String;
}

KOVAValue::KOVAValue(KOVAValue const& other) : KOVAValue() {
    *this = other;
}

KOVAValue& KOVAValue::operator=(KOVAValue const& other) {
    type_ = other.type_;
    switch (type_) {
    case Double: double_ = other.double_; break;
    case Int: int_ = other.int_; break;
    case Bool: bool_ = other.bool_; break;
    case String: text_ = other.text_; break;
    default: break;
    }
    return *this;
}

KOVAValue::~KOVAValue() {
    double_ = 0.0;
    type_ = Unknown;
}

KOVIResult KOVAValue::SetValue(int value) {
    int_ = value;
    type_ = Int;
    return kSuccess;
}

KOVIResult KOVAValue::SetValue(bool value) {
    bool_ = value;
    type_ = Bool;
    return kSuccess;
}

KOVIResult KOVAValue::SetValue(double value) {
    double_ = value;
    type_ = Double;
    return kSuccess;
}

KOVIResult KOVAValue::SetValue(KOVAString const& value) {
    text_ = value;
    type_ = String;
    return kSuccess;
}

/// Whether the text is one of the words, and which side it stands for.
bool KOVAValue::isWord(bool& value) const noexcept {
    bool const yes = kova::detail::isYes(text_);
    bool const no = !yes && kova::detail::isNo(text_);
    if (yes || no)
        value = yes;
    return yes || no;
}

KOVIResult KOVAValue::GetValue(int& value) const {
    bool word = false;
    switch (type_) {
    case Double: value = double_ != 0.0 ? 1 : 0; break;
    case Int: value = int_; break;
    case Bool: value = bool_ ? 1 : 0; break;
    case String: value = isWord(word) ? (word ? 1 : 0) : leadingInt(text_); break;
    default: return kInvalidArgument;
    }
    return kSuccess;
}

KOVIResult KOVAValue::GetValue(bool& value) const {
    switch (type_) {
    case Double: value = double_ != 0.0; break;
    case Int: value = int_ != 0; break;
    case Bool: value = bool_; break;
    case String:
        if (!isWord(value)) {
            value = leadingInt(text_) != 0;
            bool const isZero = text_.length() == 1 && text_[0] == '0';
            return value || isZero ? kSuccess : kFailure;
        }
        break;
    default: return kInvalidArgument;
    }
    return kSuccess;
}

KOVIResult KOVAValue::GetValue(double& value) const {
    bool word = false;
    switch (type_) {
    case Double: value = double_; break;
    case Int: value = int_; break;
    case Bool: value = bool_ ? 1.0 : 0.0; break;
    case String: value = isWord(word) ? (word ? 1.0 : 0.0) : KOVAFloatUtil::kovastrtod(text_, nullptr); break;
    default: return kInvalidArgument;
    }
    return kSuccess;
}

KOVIResult KOVAValue::GetValue(KOVAString& value) const {
    switch (type_) {
    case Double: value = KOVAString::valueOf(double_); break;
    case Int: value = KOVAString::valueOf(int{int_}); break;
    case Bool: value = bool_ ? KOVAString::KOVA_TRUE : KOVAString::KOVA_FALSE; break;
    case String: value = text_; break;
    default: return kInvalidArgument;
    }
    return kSuccess;
}

KOVIResult KOVAValue::GetValueType(KOVAValueType& type) const {
    type = static_cast<KOVAValueType>(type_);
    return kSuccess;
}

void KOVAValue::Dump(KOVAStreamFormatter& formatter) const {
    switch (type_) {
    case Double: formatter << double_; break;
    case Int: formatter << int{int_}; break;
    case Bool: formatter << (bool_ ? 1 : 0); break;
    case String: formatter << text_; break;
    default: break;
    }
}

KOVAValue::operator char const*() const {
    KOVAString text;
    if (type_ != String && GetValue(text).IsSuccess() && text_ != text)
        text_ = text; // only then: a text that was handed out lives on
    return text_;
}

bool KOVAValue::operator==(KOVAValue const& other) const noexcept {
    if (type_ != other.type_)
        return false;
    switch (type_) {
    case Double: return double_ == other.double_;
    case Int: return int_ == other.int_;
    case Bool: return bool_ == other.bool_;
    case String: return text_.equals(other.text_);
    default: return false;
    }
}

unsigned int KOVAValue::GetHashCode(int value) noexcept {
    // Shifts to the right keep the sign, everything else wraps around.
    auto const shiftedRight = [](std::uint32_t bits, int by) {
        return static_cast<std::uint32_t>(static_cast<std::int32_t>(bits) >> by);
    };
    std::uint32_t h = static_cast<std::uint32_t>(value);
    h += ~(h << 15);
    h ^= shiftedRight(h, 10);
    h *= 9;
    h ^= shiftedRight(h, 6);
    h += ~(h << 11);
    return h ^ shiftedRight(h, 16);
}

unsigned int KOVAValue::GetHashCode() const noexcept {
    constexpr double kTwoTo63 = 9223372036854775808.0;
    switch (type_) {
    case Double: {
        if (!(double_ > -kTwoTo63 && double_ < kTwoTo63))
            return 0;
        auto const truncated = static_cast<std::uint64_t>(static_cast<std::int64_t>(double_));
        return GetHashCode(static_cast<int>(static_cast<std::uint32_t>(truncated)));
    }
    case Int: return GetHashCode(int_);
    case Bool: return GetHashCode(bool_ ? 1 : 0);
    case String: return text_.hashCode();
    default: return 0;
    }
}
