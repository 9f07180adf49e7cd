#include "ObjReader.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>

#include <kova/system/KOVAFloatUtil.h>

#include "characters.h"
#include "report.h"

namespace toolkit {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

/// A word ends at a blank, a comment or the line's end.
bool endsWord(char const* at, char const* end) noexcept {
    return at == end || isSpace(*at) || *at == '#';
}

std::string_view firstWord(std::string_view text) noexcept {
    char const* const end = text.data() + text.size();
    char const* stop = text.data();
    while (!endsWord(stop, end))
        ++stop;
    return text.substr(0, static_cast<std::size_t>(stop - text.data()));
}

void skipBlanks(std::string_view& text) noexcept {
    while (!text.empty() && isSpace(text.front()))
        text.remove_prefix(1);
}

/// Behind blanks only a comment or nothing is left.
bool isDone(std::string_view& text) noexcept {
    skipBlanks(text);
    return text.empty() || text.front() == '#';
}

void takeTo(std::string_view& text, char const* at) noexcept {
    text.remove_prefix(static_cast<std::size_t>(at - text.data()));
}

/// The integer at `at`, which is not 0; null where there is none.
char const* readIndex(char const* at, char const* end, long long& index) noexcept {
    auto const result = std::from_chars(at, end, index);
    return result.ec == std::errc() && index != 0 ? result.ptr : nullptr;
}

/// A corner's vertex. What may follow it, "/texture", "/texture/normal" or "//normal", is checked and left out.
/// Returns the end; null where there is no corner.
char const* readCorner(char const* begin, char const* end, long long& vertex) noexcept {
    auto const result = std::from_chars(begin, end, vertex);
    if (result.ec != std::errc())
        return nullptr;
    char const* at = result.ptr;
    if (at != end && *at == '/') {
        long long ignored = 0;
        ++at;
        if (at == end || *at != '/')
            at = readIndex(at, end, ignored);
        if (at && at != end && *at == '/')
            at = readIndex(at + 1, end, ignored);
    }
    return at && endsWord(at, end) ? at : nullptr;
}

} // namespace

KOVIResult ObjReader::unexpected(std::string_view statement, char const* wanted) {
    skipBlanks(statement);
    return failUnexpected(file_, atLine(lines_.number()), firstWord(statement), wanted);
}

/// Three coordinates; a weight or a colour may follow.
KOVIResult ObjReader::readVertex(std::string_view numbers) {
    float coordinates[3] = {};
    char const* const end = numbers.data() + numbers.size();
    for (int known = 0; !isDone(numbers) || known < 3; ++known) {
        float value = 0;
        char const* const stop = KOVAFloatUtil::read(numbers.data(), end, value);
        if (stop == numbers.data() || !endsWord(stop, end))
            return unexpected(numbers, "a number");
        if (!std::isfinite(value))
            return fail(kInvalidFile, file_, atLine(lines_.number()), "a coordinate is not a number");
        takeTo(numbers, stop);
        if (known < 3)
            coordinates[known] = value;
    }
    vertices_.push_back({coordinates[0], coordinates[1], coordinates[2]});
    return kSuccess;
}

KOVIResult ObjReader::readFace(std::string_view corners, ShellBuilder& shells) {
    char const* const end = corners.data() + corners.size();
    std::uint64_t const count = vertices_.size();
    Vertex const* first = nullptr;
    Vertex const* last = nullptr;
    int known = 0;
    for (; !isDone(corners); ++known) {
        long long index = 0;
        char const* const stop = readCorner(corners.data(), end, index);
        if (!stop)
            return unexpected(corners, "a corner");
        // Negative ones count back from the latest; 0 and what is out of range come out too large.
        std::uint64_t const number = static_cast<std::uint64_t>(index);
        std::uint64_t const at = index > 0 ? number - 1 : number + count;
        if (at >= count)
            return fail(kInvalidFile, file_, atLine(lines_.number()), "there is no vertex %lld; %zu are defined so far",
                        index, vertices_.size());
        Vertex const* const corner = &vertices_[static_cast<std::size_t>(at)];
        if (known == 0)
            first = corner;
        else if (known > 1)
            shells.triangle(*first, *last, *corner);
        last = corner;
        takeTo(corners, stop);
    }
    if (known < 3)
        return fail(kInvalidFile, file_, atLine(lines_.number()), "a face with %d corners", known);
    ++faces_;
    return kSuccess;
}

/// A name may contain "#"; a comment stands apart.
void ObjReader::readName(std::string_view name, ModelSink& sink, ShellBuilder& shells) {
    for (std::size_t i = name.find('#'); i != std::string_view::npos; i = name.find('#', i + 1)) {
        if (i == 0 || isSpace(name[i - 1]))
            name = name.substr(0, i);
    }
    std::string const text = printable(trimmed(name));
    Part*& part = parts_[text];
    if (!part)
        part = &sink.scene().addPart(text);
    shells.begin(*part, nullptr);
}

KOVIResult ObjReader::readStatement(std::string_view statement, ModelSink& sink, ShellBuilder& shells) {
    skipBlanks(statement);
    std::string_view const keyword = firstWord(statement);
    std::string_view const rest = statement.substr(keyword.size());
    if (keyword == "v")
        return readVertex(rest);
    if (keyword == "f")
        return readFace(rest, shells);
    if (!isText(keyword) || rest.find('\0') != std::string_view::npos)
        return fail(kInvalidFile, file_, atLine(lines_.number()), "not an OBJ file: it is not all text");
    if (keyword.empty() && vertices_.empty())
        takeHeaderText(statement.substr(std::min(statement.find_first_not_of('#'), statement.size())));
    if (keyword == "o" || keyword == "g")
        readName(rest, sink, shells);
    return kSuccess;
}

KOVIResult ObjReader::read(ModelSink& sink) {
    ShellBuilder shells(sink);
    std::string_view statement;
    while (lines_.next(statement)) {
        if (lines_.number() == 1 && statement.substr(0, kByteOrderMark.size()) == kByteOrderMark)
            statement.remove_prefix(kByteOrderMark.size());
        KOVIResult const result = readStatement(statement, sink, shells);
        if (result.IsFailure())
            return result;
    }
    if (lines_.isTooLong())
        return fail(kInvalidFile, file_, atLine(lines_.number()), "a line is longer than %d bytes", kReadBlock);
    if (in_.offset() < size_)
        return fail(kInvalidFile, file_, atByte(in_.offset()), "the file cannot be read to its end");
    shells.flush();
    return kSuccess;
}

std::string ObjReader::description(Found const& found) const {
    return "OBJ, " + std::to_string(faces_) + " faces, " + std::to_string(found.triangles) + " triangles, " +
           std::to_string(vertices_.size()) + " vertices";
}

} // namespace toolkit
