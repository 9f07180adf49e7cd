#include <kova/text/Gk_ROString.h>

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <cstring>

#include <kova/stream/KOVAOutputStream.h>
#include <kova/text/Gk_RWString.h>

static_assert(sizeof(void*) != 4 || sizeof(Gk_ROString) == 8);
static_assert(sizeof(Gk_RWString) == sizeof(Gk_ROString));

namespace {

unsigned char lower(char c) {
    return static_cast<unsigned char>(std::tolower(static_cast<unsigned char>(c)));
}

/// Matches c against the class that begins behind the "[" at `at`; sets `end` behind its "]". False
/// with `end` 0 when no "]" closes the class.
bool matchClass(std::string_view pattern, std::size_t at, char c, std::size_t& end) {
    end = 0;
    bool const negated = at < pattern.size() && (pattern[at] == '!' || pattern[at] == '^');
    if (negated)
        ++at;
    unsigned char const wanted = static_cast<unsigned char>(c);
    bool member = false;
    for (std::size_t first = at; at < pattern.size(); ++at) {
        if (pattern[at] == ']' && at > first) {
            end = at + 1;
            return member != negated;
        }
        unsigned char const low = lower(pattern[at]);
        unsigned char high = low;
        if (at + 2 < pattern.size() && pattern[at + 1] == '-' && pattern[at + 2] != ']') {
            at += 2;
            high = lower(pattern[at]);
        }
        member = member || (low <= wanted && wanted <= high);
    }
    return false;
}

/// Matches one character of the path against the pattern's element at p; `next` is behind it.
bool matchOne(std::string_view pattern, std::size_t p, std::string_view path, std::size_t at, std::size_t& next) {
    char const c = path[at];
    next = p + 1;
    if (pattern[p] == '?') {
        bool const beginsComponent = at == 0 || path[at - 1] == '/';
        return c != '/' && !(c == '.' && beginsComponent);
    }
    if (pattern[p] == '[') {
        std::size_t end = 0;
        bool const member = matchClass(pattern, p + 1, c, end);
        if (end != 0) {
            next = end;
            return member && c != '/';
        }
    }
    return lower(pattern[p]) == static_cast<unsigned char>(c);
}

} // namespace

Gk_ROString::Gk_ROString(char const* text) {
    array_.append(text ? text : "", text ? static_cast<int>(std::strlen(text)) + 1 : 1);
}

Gk_ROString::Gk_ROString(char const* text, int n) {
    array_.append(text, n);
}

std::string_view Gk_ROString::characters() const {
    int const count = array_.size();
    int const begin = std::clamp(offset_, 0, count);
    return std::string_view(array_.getArray(), static_cast<std::size_t>(count)).substr(static_cast<std::size_t>(begin));
}

std::string_view Gk_ROString::text() const {
    std::string_view const all = characters();
    return all.substr(0, all.find('\0'));
}

Gk_ROString::operator char const*() const {
    return offset_ >= 0 && offset_ < array_.size() ? array_.getArray() + offset_ : "";
}

int Gk_ROString::find(char c) const {
    std::size_t const at = characters().find(c);
    return at == std::string_view::npos ? -1 : static_cast<int>(at);
}

int Gk_ROString::find(Gk_ROString const& t) const {
    std::string_view const own = text();
    std::size_t const at = own.find(t.text());
    if (at == std::string_view::npos)
        return len();
    // The two views may lie in different blocks, so the distance is taken of plain numbers.
    auto const match = reinterpret_cast<std::intptr_t>(own.data()) + static_cast<std::intptr_t>(at);
    return static_cast<int>(match - (reinterpret_cast<std::intptr_t>(t.array_.getArray()) + t.offset_));
}

int Gk_ROString::reverseFind(char c, int skip) const {
    if (len() < 2)
        return -1;
    long long const last = static_cast<long long>(len()) - skip - 1;
    for (int i = static_cast<int>(std::clamp<long long>(last, -1, array_.size() - 1)); i >= 0; --i) {
        if (array_[i] == c)
            return i;
    }
    return -1;
}

int Gk_ROString::matchPathString(Gk_ROString const& p) const {
    std::string_view const path = text();
    std::string_view const lead = p.text();
    bool const fromRoot = !path.empty() && path[0] == '/';
    if (!lead.empty() && lead[0] == '/')
        return fromRoot ? 1 : 0;
    if (fromRoot)
        return -1;
    std::size_t same = 0;
    while (same < lead.size() && same < path.size() && path[same] == lead[same])
        ++same;
    bool const atSeparator = same < path.size() && path[same] == '/';
    if (same < lead.size() || (same < path.size() && !atSeparator))
        return -1;
    return static_cast<int>(same) + (atSeparator ? 1 : 0);
}

bool Gk_ROString::matchPathPattern(Gk_ROString const& p) const {
    std::string_view const path = text();
    std::string_view const pattern = p.text();
    // Only the last "*" ever needs another try: what stands before it matched as little as it could,
    // and no "*" reaches across a "/".
    constexpr std::size_t kNone = std::string_view::npos;
    std::size_t star = kNone;
    std::size_t starEnd = 0;
    std::size_t at = 0;
    std::size_t in = 0;
    for (;;) {
        bool const pathDone = at == path.size() || path[at] == '/';
        std::size_t next = 0;
        if (in == pattern.size()) {
            if (pathDone)
                return true;
        } else if (pattern[in] == '*') {
            star = in++;
            starEnd = at;
            continue;
        } else if (at < path.size() && matchOne(pattern, in, path, at, next)) {
            ++at;
            in = next;
            continue;
        }
        if (star == kNone || starEnd == path.size() || path[starEnd] == '/')
            return false;
        at = ++starEnd;
        in = star + 1;
    }
}

void Gk_RWString::toLower() {
    for (int i = std::max(offset_, std::int32_t{0}), n = array_.size(); i < n; ++i)
        array_[i] = static_cast<char>(lower(array_[i]));
}

KOVAOutputStream& operator<<(KOVAOutputStream& out, Gk_ROString const& s) {
    std::string_view const text = s.text();
    out.write(text.data(), static_cast<int>(text.size()));
    return out;
}
