#include <kova/diagnostics/KOVAEvent.h>

#include <cstring>

#include <kova/text/KOVAString.h>

static_assert(sizeof(void*) != 4 || sizeof(KOVAObject) == 8);
static_assert(sizeof(void*) != 4 || sizeof(KOVAEvent) == 28);

namespace {

/// The names that this library gives to its own objects are literals here, and an object borrows
/// them: two allocations less for every message.
constexpr char const kEventTypeName[] = "KOVAEvent";

char* copyOf(char const* name) {
    if (!name || !*name)
        return nullptr;
    std::size_t const size = std::strlen(name) + 1;
    char* const copy = new char[size];
    std::memcpy(copy, name, size);
    return copy;
}

bool same(char const* a, char const* b) {
    return a && b && std::strcmp(a, b) == 0;
}

struct Keyword {
    char const* text;
    KOVAEventLevel level;
};

constexpr Keyword kKeywords[] = {
    {"ALL", KOVA_LEVEL_ALL},   {"ABORT", KOVA_LEVEL_ABORT}, {"DEBUG", KOVA_LEVEL_DEBUG},     {"ERROR", KOVA_LEVEL_ERROR},
    {"INFO", KOVA_LEVEL_INFO}, {"NONE", KOVA_LEVEL_NONE},   {"VERBOSE", KOVA_LEVEL_VERBOSE},
};

} // namespace

KOVAObject::KOVAObject(char const* typeName) : typeName_(copyOf(typeName)) {}

bool KOVAObject::IsKindOf(char const* name) {
    return same(typeName_, name);
}

KOVAObject::~KOVAObject() {
    delete[] typeName_;
}

void DeleteKOVAObject(KOVAObject*& object) {
    delete object;
    object = nullptr;
}

KOVAEvent::KOVAEvent(char const* eventName, KOVAEventLevel level)
    : KOVAObject(kEventTypeName), eventName_(copyOf(eventName)), level_(level), stamped_(0), time_(0), clock_(0) {}

KOVAEvent::~KOVAEvent() {
    delete[] eventName_;
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
