#include "PlyHeader.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <iterator>

#include "characters.h"
#include "report.h"

namespace toolkit {

namespace {

/// In the order of PlyEncoding.
constexpr std::string_view kEncodings[] = {"binary_little_endian", "binary_big_endian", "ascii"};

constexpr double kTwo31 = 2147483648.0;

/// In the order of PlyType.
constexpr PlyTypeInfo kTypes[] = {
    {"char", "int8", 1, true, -128, 127},           {"uchar", "uint8", 1, true, 0, 255},
    {"short", "int16", 2, true, -32768, 32767},     {"ushort", "uint16", 2, true, 0, 65535},
    {"int", "int32", 4, true, -kTwo31, kTwo31 - 1}, {"uint", "uint32", 4, true, 0, 2 * kTwo31 - 1},
    {"float", "float32", 4, false, 0, 0},           {"double", "float64", 8, false, 0, 0},
};

/// The words of a statement, one after the other.
class Words {
public:
    Words(std::string_view text, char const* file, long long line) : rest_(text), file_(file), line_(line) {}

    std::string_view next() noexcept {
        word_ = takeWord(rest_);
        return word_;
    }
    std::string_view word() const noexcept { return word_; }
    /// The last word is not what was wanted.
    KOVIResult unexpected(char const* wanted) const { return failUnexpected(file_, atLine(line_), word_, wanted); }
    KOVIResult fault(char const* text) const { return fail(kInvalidFile, file_, atLine(line_), "%s", text); }
    KOVIResult expectEnd() {
        if (next().empty())
            return kSuccess;
        return unexpected("the end of the line");
    }

private:
    std::string_view rest_;
    std::string_view word_;
    char const* file_;
    long long line_;
};

KOVIResult readFormat(Words& words, PlyHeader& header) {
    if (header.encoding)
        return words.fault("a second format");
    auto const* const found = std::find(std::begin(kEncodings), std::end(kEncodings), words.next());
    if (found == std::end(kEncodings))
        return words.unexpected("ascii, binary_little_endian or binary_big_endian");
    header.encoding = static_cast<PlyEncoding>(found - std::begin(kEncodings));
    if (words.next() != "1.0")
        return words.unexpected("version 1.0");
    return words.expectEnd();
}

KOVIResult readElement(Words& words, PlyHeader& header, long long line) {
    std::string const name(words.next());
    if (name.empty())
        return words.unexpected("the name of an element");
    if (!header.names.insert(name).second)
        return words.fault("a second element of this name");
    std::string_view const text = words.next();
    long long count = 0;
    auto const result = std::from_chars(text.data(), text.data() + text.size(), count);
    if (result.ec != std::errc() || result.ptr != text.data() + text.size() || count < 0)
        return words.unexpected("a count");
    header.elements.push_back({name, count, line, {}});
    return words.expectEnd();
}

std::optional<PlyType> typeOf(std::string_view name) noexcept {
    auto const* const found = std::find_if(std::begin(kTypes), std::end(kTypes), [name](PlyTypeInfo const& type) {
        return type.name == name || type.sizedName == name;
    });
    return found == std::end(kTypes) ? std::nullopt : std::make_optional(static_cast<PlyType>(found - kTypes));
}

KOVIResult readProperty(Words& words, PlyHeader& header) {
    if (header.elements.empty())
        return words.fault("a property of no element");
    std::optional<PlyType> countType;
    if (words.next() == "list") {
        std::string_view const name = words.next();
        countType = typeOf(name);
        if (!countType || !infoOf(*countType).isInteger)
            return words.unexpected("the type of a list's length");
        words.next();
    }
    std::optional<PlyType> const type = typeOf(words.word());
    if (!type)
        return words.unexpected("the type of a property");
    std::string const name(words.next());
    if (name.empty())
        return words.unexpected("the name of a property");
    PlyElement& element = header.elements.back();
    if (!header.names.insert(element.name + ' ' + name).second)
        return words.fault("a second property of this name");
    element.properties.push_back({name, *type, countType});
    return words.expectEnd();
}

} // namespace

char const* nameOf(PlyEncoding encoding) noexcept {
    constexpr char const* kNames[] = {"binary PLY", "big-endian PLY", "ASCII PLY"};
    return kNames[static_cast<std::size_t>(encoding)];
}

std::string_view keywordOf(PlyEncoding encoding) noexcept {
    return kEncodings[static_cast<std::size_t>(encoding)];
}

PlyTypeInfo const& infoOf(PlyType type) noexcept {
    return kTypes[static_cast<std::size_t>(type)];
}

KOVIResult PlyHeader::take(std::string_view statement, char const* file, long long line) {
    Words words(statement, file, line);
    std::string_view const keyword = words.next();
    if (keyword == "format")
        return readFormat(words, *this);
    if (keyword == "element")
        return readElement(words, *this, line);
    if (keyword == "property")
        return readProperty(words, *this);
    return words.unexpected("format, element, property, comment or end_header");
}

} // namespace toolkit
