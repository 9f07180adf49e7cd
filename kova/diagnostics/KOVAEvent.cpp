#include <kova/diagnostics/KOVAEvent.h>

#include <cstring>
#include <functional>

#include <kova/diagnostics/report.h>
#include <kova/text/KOVAString.h>

static_assert(sizeof(void*) != 4 || sizeof(KOVAObject) == 8);
static_assert(sizeof(void*) != 4 || sizeof(KOVAEvent) == 28);

constexpr kova::detail::LibraryNames kova::detail::libraryNames;

using kova::detail::dropName;
using kova::detail::keepName;
using kova::detail::libraryNames;

namespace {

bool isBorrowed(void const* name) {
    void const* const begin = &libraryNames;
    void const* const end = &libraryNames + 1;
    return !std::less<>()(name, begin) && std::less<>()(name, end);
}

bool same(char const* a, char const* b) {
    return a && b && std::strcmp(a, b) == 0;
}

struct Keyword {
    char const* text;
    KOVAEventLevel level;
};

constexpr Keyword kKeywords[] = {
    {"ALL", KOVA_LEVEL_ALL},         {"ABORT", KOVA_LEVEL_ABORT}, {"DEBUG", KOVA_LEVEL_DEBUG},
    {"ERROR", KOVA_LEVEL_ERROR},     {"INFO", KOVA_LEVEL_INFO},   {"NONE", KOVA_LEVEL_NONE},
    {"VERBOSE", KOVA_LEVEL_VERBOSE},
};

} // namespace

char* kova::detail::keepName(char const* name) {
    if (isBorrowed(name))
        return const_cast<char*>(name);
    if (!name || !*name)
        return nullptr;
    std::size_t const size = std::strlen(name) + 1;
    char* const copy = new char[size];
    std::memcpy(copy, name, size);
    return copy;
}

void kova::detail::dropName(char* name) noexcept {
    if (!isBorrowed(name))
        delete[] name;
}

KOVAObject::KOVAObject(char const* typeName) : typeName_(keepName(typeName)) {}

bool KOVAObject::IsKindOf(char const* name) {
    return same(typeName_, name);
}

KOVAObject::~KOVAObject() {
    dropName(typeName_);
}

void DeleteKOVAObject(KOVAObject*& object) {
    delete object;
    object = nullptr;
}

KOVAEvent::KOVAEvent(char const* eventName, KOVAEventLevel level)
    : KOVAObject(libraryNames.event), eventName_(keepName(eventName)), level_(level), stamped_(0), time_(0), clock_(0) {
}

KOVAEvent::~KOVAEvent() {
    dropName(eventName_);
}

void KOVAEvent::GetFormattedDescription(KOVAOutputStream* /*out*/) {}

bool KOVAEvent::IsTimed() {
    return false;
}

bool KOVAEvent::IsA(char const* name) const {
    return same(eventName_, name);
}

KOVAEventLevel KOVAEvent::GetLevel(KOVAString const& keyword, KOVAEventLevel defaultLevel) {
    char const* const text = keyword;
    for (Keyword const& known : kKeywords) {
        if (same(text, known.text))
            return known.level;
    }
    return defaultLevel;
}

KOVIResult KOVAEvent::GetTime(long& out) const {
    out = time_;
    return stamped_ ? KOVIResult(0) : KOVIResult::E_FAIL_RESULT;
}

KOVIResult KOVAEvent::GetClock(long& out) const {
    out = clock_;
    return stamped_ ? KOVIResult(0) : KOVIResult::E_FAIL_RESULT;
}

KOVIResult KOVAEvent::SetTime(long const& value) {
    time_ = static_cast<std::int32_t>(value);
    stamped_ = 1;
    return 0;
}

KOVIResult KOVAEvent::SetClock(long const& value) {
    clock_ = static_cast<std::int32_t>(value);
    stamped_ = 1;
    return 0;
}
