#include <kova/text/Gk_Marker.h>

#include <cctype>
#include <cstring>

static_assert(sizeof(void*) != 4 || sizeof(Gk_Marker) == 4);

namespace {

int lower(char c) {
    return std::tolower(static_cast<unsigned char>(c));
}

/// Skips a run of "#". Each one is taken as the partner of an unmatched one in the other token, if
/// there is one, else it is unmatched itself.
char const* skipMarkers(char const* p, bool& own, bool& others) {
    for (; *p == '#'; ++p) {
        if (others)
            others = false;
        else
            own = true;
    }
    return p;
}

} // namespace

bool Gk_Marker::operator==(Gk_Marker const& other) const noexcept {
    if (!token_ || !other.token_)
        return token_ == other.token_;
    return std::strcmp(token_, other.token_) == 0;
}

bool Gk_Marker::operator<(Gk_Marker const& other) const noexcept {
    if (!token_ || !other.token_)
        return !token_ && other.token_;
    return std::strcmp(token_, other.token_) < 0;
}

int Gk_Marker::compare(Gk_Marker const& other) const noexcept {
    char const* a = token_ ? token_ : "";
    char const* b = other.token_ ? other.token_ : "";
    bool unmatchedA = false;
    bool unmatchedB = false;
    for (;; ++a, ++b) {
        a = skipMarkers(a, unmatchedA, unmatchedB);
        b = skipMarkers(b, unmatchedB, unmatchedA);
        if (!*a && !*b)
            return 0;
        if (!*a)
            return unmatchedA || unmatchedB ? 0 : 1;
        if (!*b)
            return unmatchedA ? 0 : -1;
        int const difference = lower(*a) - lower(*b);
        if (difference != 0)
            return difference < 0 ? -1 : 1;
    }
}
