#include "PlyValues.h"

#include <charconv>
#include <cstddef>
#include <cstdint>
#include <string>
#include <type_traits>

#include <kova/system/KOVAFloatUtil.h>

#include "ModelReader.h"
#include "bytes.h"
#include "characters.h"

namespace toolkit {

namespace {

/// The number that is the whole word; false where there is none.
template <class Number> bool readWhole(std::string_view word, double& value) noexcept {
    char const* const end = word.data() + word.size();
    Number number{};
    bool isNumber = false;
    if constexpr (std::is_floating_point_v<Number>) {
        isNumber = !word.empty() && KOVAFloatUtil::read(word.data(), end, number) == end;
    } else {
        auto const result = std::from_chars(word.data(), end, number);
        isNumber = result.ec == std::errc() && result.ptr == end;
    }
    value = static_cast<double>(number);
    return isNumber;
}

double load(PlyType type, char const* bytes, ByteOrder order) noexcept {
    switch (type) {
    case PlyType::Int8: return loadNumber<std::int8_t>(bytes, order);
    case PlyType::UInt8: return loadNumber<std::uint8_t>(bytes, order);
    case PlyType::Int16: return loadNumber<std::int16_t>(bytes, order);
    case PlyType::UInt16: return loadNumber<std::uint16_t>(bytes, order);
    case PlyType::Int32: return loadNumber<std::int32_t>(bytes, order);
    case PlyType::UInt32: return loadNumber<std::uint32_t>(bytes, order);
    case PlyType::Float32: return double{loadNumber<float>(bytes, order)};
    default: return loadNumber<double>(bytes, order);
    }
}

} // namespace

PlyValues::PlyValues(Input const& input)
    : in_(input.stream, kReadBlock), lines_(in_, false), size_(input.size), file_(input.name) {}

bool PlyValues::nextLine(std::string_view& line) {
    if (lines_.next(line))
        return true;
    if (lines_.isTooLong())
        throw PlyFailure{
            fail(kInvalidFile, file_, atLine(lines_.number()), "a line is longer than %d bytes", kReadBlock)};
    if (in_.offset() < size_)
        throw PlyFailure{fail(kInvalidFile, file_, atByte(in_.offset()), "the file cannot be read to its end")};
    return false;
}

std::string_view PlyValues::headerLine() {
    std::string_view line;
    if (!nextLine(line))
        throw PlyFailure{fail(kInvalidFile, file_, place(), "the file breaks off within its header")};
    return trimmed(line);
}

void PlyValues::endHeader(PlyEncoding encoding) {
    encoding_ = encoding;
    lines_.leave();
}

/// Blank lines do no harm.
void PlyValues::beginElement(PlyElement const& element, long long behind) {
    if (!isText())
        return;
    rest_ = {};
    while (rest_.empty()) {
        if (!nextLine(rest_))
            throw PlyFailure{fail(kInvalidFile, file_, place(), "the file breaks off behind %lld of %lld times \"%s\"",
                                  behind, element.count, printable(element.name.substr(0, 40)).c_str())};
        rest_ = trimmed(rest_);
    }
}

/// A float is read as one: by way of a double it might be rounded twice.
double PlyValues::fromText(PlyType type) {
    std::string_view const word = takeWord(rest_);
    PlyTypeInfo const& info = infoOf(type);
    double value = 0;
    bool isNumber = false;
    if (info.isInteger)
        isNumber = readWhole<long long>(word, value) && value >= info.least && value <= info.most;
    else
        isNumber = type == PlyType::Float32 ? readWhole<float>(word, value) : readWhole<double>(word, value);
    if (!isNumber)
        throw PlyFailure{failUnexpected(file_, place(), word, ("a number of type " + std::string(info.name)).c_str())};
    return value;
}

double PlyValues::fromBytes(PlyType type) {
    int const size = infoOf(type).size;
    std::string_view const bytes = in_.lookAhead(size);
    valueAt_ = in_.offset();
    if (bytes.size() < static_cast<std::size_t>(size))
        throw PlyFailure{
            failUnexpected(file_, atByte(valueAt_ + static_cast<long long>(bytes.size())), {}, "a number")};
    double const value = load(type, bytes.data(), orderOf(encoding_));
    in_.take(static_cast<std::size_t>(size));
    return value;
}

double PlyValues::next(PlyType type) {
    return isText() ? fromText(type) : fromBytes(type);
}

void PlyValues::endElement() {
    std::string_view const word = isText() ? takeWord(rest_) : std::string_view();
    if (!word.empty())
        throw PlyFailure{failUnexpected(file_, place(), word, "the end of the line")};
}

void PlyValues::expectEnd() {
    rest_ = {};
    while (isText() && trimmed(rest_).empty()) {
        if (!nextLine(rest_))
            return;
    }
    if (isText())
        throw PlyFailure{failUnexpected(file_, place(), takeWord(rest_), "the end of the file")};
    if (!isEmpty())
        throw PlyFailure{fail(kInvalidFile, file_, atByte(in_.offset()), "bytes follow the last element")};
}

} // namespace toolkit
