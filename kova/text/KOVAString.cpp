#include <kova/text/KOVAString.h>

#include <algorithm>
#include <atomic>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <cwctype>
#include <limits>
#include <new>
#include <string>
#include <vector>

#include <kova/diagnostics/KOVADebug.h>
#include <kova/platform/threads.h>
#include <kova/text/conversion.h>
#include <kova/text/fold.h>
#include <kova/text/numbers.h>

static_assert(sizeof(void*) != 4 || sizeof(KOVAString) == 12);

using kova::detail::LowerCase;
using kova::detail::UpperCase;

namespace {

using Unit = unsigned short;

/// What stands in front of the units.
struct BlockHead {
    std::atomic<std::uint32_t> references;
    std::int32_t length;
};

static_assert(sizeof(BlockHead) == 8);

BlockHead* head(Unit* units) noexcept {
    return reinterpret_cast<BlockHead*>(units) - 1;
}

std::size_t terminatedLength(Unit const* units) noexcept {
    std::size_t length = 0;
    while (units[length])
        ++length;
    return length;
}

/// The words of the two texts at index i are the same.
template <class Word> bool sameWord(Unit const* a, Unit const* b, std::size_t i) noexcept {
    Word wordA;
    Word wordB;
    std::memcpy(&wordA, a + i, sizeof wordA);
    std::memcpy(&wordB, b + i, sizeof wordB);
    return wordA == wordB;
}

/// Number of leading units that are the same; by words of four and two, then one by one.
std::size_t commonLength(Unit const* a, Unit const* b, std::size_t limit) noexcept {
    std::size_t i = 0;
    while (i + 4 <= limit && sameWord<std::uint64_t>(a, b, i))
        i += 4;
    if (i + 2 <= limit && sameWord<std::uint32_t>(a, b, i))
        i += 2;
    while (i < limit && a[i] == b[i])
        ++i;
    return i;
}

bool sameUnits(Unit const* a, Unit const* b, int count) noexcept {
    return std::memcmp(a, b, static_cast<std::size_t>(count) * sizeof(Unit)) == 0;
}

template <class Number> int order(Number a, Number b) noexcept {
    return (a > b) - (a < b);
}

int compareFolded(Unit const* a, int lengthA, Unit const* b, int lengthB) noexcept {
    LowerCase const lower;
    int const limit = std::min(lengthA, lengthB);
    for (int i = 0; i < limit; ++i) {
        if (a[i] == b[i])
            continue;
        Unit const lowerA = lower(a[i]);
        Unit const lowerB = lower(b[i]);
        if (lowerA != lowerB)
            return order(lowerA, lowerB);
    }
    return order(lengthA, lengthB);
}

bool isSpace(Unit unit) noexcept {
    return std::iswspace(unit) != 0;
}

// --- the shared block

/// malloc itself: operator new and delete are one more call each, which shows in short texts.
void* obtain(std::size_t bytes) {
    if (void* const memory = std::malloc(bytes))
        return memory;
    throw std::bad_alloc();
}

/// A new block with one reference.
Unit* allocate(std::size_t length) {
    if (length > static_cast<std::size_t>(std::numeric_limits<std::int32_t>::max()) / sizeof(Unit) - sizeof(BlockHead))
        throw std::bad_alloc();
    void* const memory = obtain(sizeof(BlockHead) + (length + 1) * sizeof(Unit));
    BlockHead* const block = new (memory) BlockHead{{1}, static_cast<std::int32_t>(length)};
    Unit* const units = reinterpret_cast<Unit*>(block + 1);
    units[length] = 0;
    return units;
}

Unit* share(Unit* units) noexcept {
    if (units) {
        std::atomic<std::uint32_t>& references = head(units)->references;
        if (kova::detail::singleThreaded())
            references.store(references.load(std::memory_order_relaxed) + 1, std::memory_order_relaxed);
        else
            references.fetch_add(1, std::memory_order_relaxed);
    }
    return units;
}

void release(Unit* units) noexcept {
    if (!units)
        return;
    std::atomic<std::uint32_t>& references = head(units)->references;
    std::uint32_t const count = references.load(std::memory_order_acquire);
    if (count != 1) {
        if (kova::detail::singleThreaded()) {
            references.store(count - 1, std::memory_order_relaxed);
            return;
        }
        if (references.fetch_sub(1, std::memory_order_acq_rel) != 1)
            return;
    }
    std::free(head(units));
}

Unit* copyOf(Unit const* units, std::size_t length) {
    Unit* const copy = allocate(length);
    std::memcpy(copy, units, length * sizeof(Unit));
    return copy;
}

Unit* convert(char const* text, std::size_t count) {
    if (kova::detail::isAscii(text, count)) {
        Unit* const units = allocate(count);
        kova::detail::widenAscii(text, count, units);
        return units;
    }
    std::vector<Unit> const units = kova::detail::decode(text, count);
    return copyOf(units.data(), units.size());
}

} // namespace

// --- construction and assignment

KOVAString::KOVAString(char const* text)
    : units_(text ? convert(text, std::strlen(text)) : nullptr), narrow_(nullptr) {}

KOVAString::KOVAString(Unit const* units)
    : units_(units ? copyOf(units, terminatedLength(units)) : nullptr), narrow_(nullptr) {}

KOVAString::KOVAString(Unit unit) : units_(copyOf(&unit, unit ? 1 : 0)), narrow_(nullptr) {}

KOVAString::KOVAString(int size, char const* format, ...) : KOVAString() {
    if (!format)
        return;
    std::size_t const room = size > 0 ? static_cast<std::size_t>(size) : 1;
    char small[1024] = {};
    std::vector<char> large;
    char* buffer = small;
    std::size_t capacity = std::min(room, sizeof small);
    std::va_list arguments;
    va_start(arguments, format);
    std::va_list again;
    va_copy(again, arguments);
    int written = std::vsnprintf(buffer, capacity, format, arguments);
    if (room > sizeof small && written >= static_cast<int>(sizeof small)) {
        capacity = std::min(room, static_cast<std::size_t>(written) + 1);
        large.resize(capacity);
        buffer = large.data();
        written = std::vsnprintf(buffer, capacity, format, again);
    }
    va_end(again);
    va_end(arguments);
    if (written < 0) // something could not be converted; what came before it counts
        buffer[capacity - 1] = 0;
    units_ = convert(buffer, std::strlen(buffer));
}

KOVAString::KOVAString(KOVAString const& other) noexcept : units_(share(other.units_)), narrow_(nullptr) {}

KOVAString::KOVAString(KOVAString&& other) noexcept : units_(other.units_), narrow_(other.narrow_) {
    other.units_ = nullptr;
    other.narrow_ = nullptr;
}

KOVAString& KOVAString::operator=(KOVAString const& other) {
    if (this == &other)
        return *this;
    char* copied = nullptr;
    if (narrow_ && other.narrow_) {
        std::size_t const size = std::strlen(other.narrow_) + 1;
        copied = static_cast<char*>(obtain(size));
        std::memcpy(copied, other.narrow_, size);
    }
    std::free(narrow_);
    narrow_ = copied;
    Unit* const former = units_;
    units_ = share(other.units_);
    release(former);
    return *this;
}

KOVAString& KOVAString::operator=(KOVAString&& other) noexcept {
    std::swap(units_, other.units_);
    std::swap(narrow_, other.narrow_);
    return *this;
}

KOVAString::~KOVAString() {
    if (narrow_)
        std::free(narrow_);
    release(units_);
}

// --- access

int KOVAString::GetLengthInChar() const {
    return units_ ? static_cast<int>(kova::detail::encodedLength(units_, static_cast<std::size_t>(length()))) : 0;
}

KOVAString::operator char const*() const {
    if (narrow_ || !units_)
        return narrow_;
    std::size_t const count = static_cast<std::size_t>(length());
    if (kova::detail::isAscii(units_, count)) {
        narrow_ = static_cast<char*>(obtain(count + 1));
        kova::detail::narrowAscii(units_, count, narrow_);
        narrow_[count] = 0;
    } else {
        int const bytes = GetLengthInChar();
        narrow_ = static_cast<char*>(obtain(static_cast<std::size_t>(bytes) + 1));
        getChars(0, bytes, narrow_, 0);
    }
    return narrow_;
}

Unit KOVAString::charAt(int i) const noexcept {
    return i >= 0 && i < length() ? units_[i] : Unit{0};
}

void KOVAString::getChars(int begin, int end, Unit* dst, int dstBegin) const {
    if (!dst || dstBegin < 0)
        return;
    dst += dstBegin;
    dst[0] = 0;
    int const last = std::min(end, length());
    if (begin < 0 || begin >= last)
        return;
    int const count = last - begin;
    std::memcpy(dst, units_ + begin, static_cast<std::size_t>(count) * sizeof(Unit));
    dst[count] = 0;
}

void KOVAString::getChars(int begin, int end, char* dst, int dstBegin) const {
    if (!dst || dstBegin < 0)
        return;
    dst += dstBegin;
    dst[0] = 0;
    int const units = length();
    if (begin < 0 || begin >= end || begin > units || !units_)
        return;
    bool const ascii = kova::detail::isAscii(units_, static_cast<std::size_t>(units));
    int const last = std::min(end, ascii ? units : GetLengthInChar());
    if (begin >= last)
        return;
    std::size_t const bytes = static_cast<std::size_t>(last - begin);
    dst[bytes] = 0;
    if (ascii) {
        kova::detail::narrowAscii(units_ + begin, bytes, dst);
        return;
    }
    std::size_t const available = static_cast<std::size_t>(units - begin);
    std::size_t const written = kova::detail::encode(units_ + begin, available, dst, bytes);
    if (written != kova::detail::kUnconvertible) {
        dst[written] = 0;
        return;
    }
    for (std::size_t i = 0; i < bytes; ++i) {
        Unit const unit = charAt(static_cast<int>(i));
        dst[i] = unit > 0xFF ? '-' : static_cast<char>(unit);
    }
}

void KOVAString::dump() const {
    std::string text;
    for (int i = 0; i < length(); ++i) {
        char const low = static_cast<char>(units_[i] & 0xFF);
        // A percent sign is doubled because a message's text is formatted once more; a zero would end it.
        text.append(low == '%' ? 2 : low == 0 ? 0 : 1, low);
    }
    KOVADebug::Printf("string 0x%llx (0x%llx): \"%s\" (%d chars)\n",
                      static_cast<unsigned long long>(reinterpret_cast<std::uintptr_t>(this)),
                      static_cast<unsigned long long>(reinterpret_cast<std::uintptr_t>(units_)), text.c_str(),
                      length());
}

// --- comparison

int KOVAString::compareTo(KOVAString const& other) const noexcept {
    if (units_ == other.units_)
        return 0;
    if (!units_ || !other.units_)
        return units_ ? 1 : -1;
    // The units may be compared up to the shorter text's terminator, which differs from any unit.
    int const limit = std::min(length(), other.length());
    std::size_t const common = commonLength(units_, other.units_, static_cast<std::size_t>(limit));
    return order(units_[common], other.units_[common]);
}

bool KOVAString::equals(KOVAString const& other) const noexcept {
    if (units_ == other.units_)
        return true;
    return units_ && other.units_ && length() == other.length() && sameUnits(units_, other.units_, length());
}

int KOVAString::compareToIgnoreCase(KOVAString const& other) const noexcept {
    if (units_ == other.units_)
        return 0;
    if (!units_ || !other.units_)
        return units_ ? 1 : -1;
    return compareFolded(units_, length(), other.units_, other.length());
}

std::uint32_t KOVAString::hashCode() const noexcept {
    std::uint32_t hash = 0;
    for (int i = 0, n = length(); i < n; ++i)
        hash = hash * 33 + units_[i];
    return hash;
}

// --- searching

int KOVAString::indexOf(Unit unit, int from) const noexcept {
    int const n = length();
    if (from < 0 || from >= n)
        return -1;
    Unit const* const found = std::find(units_ + from, units_ + n, unit);
    return found == units_ + n ? -1 : static_cast<int>(found - units_);
}

int KOVAString::indexOf(KOVAString const& str, int from) const noexcept {
    int const n = str.length();
    if (n == 0 || from < 0)
        return -1;
    for (int p = from, last = length() - n; p <= last; ++p) {
        if (units_[p] == str.units_[0] && sameUnits(units_ + p, str.units_, n))
            return p;
    }
    return -1;
}

int KOVAString::lastIndexOf(Unit unit, int from) const noexcept {
    if (from >= length())
        return -1;
    while (from >= 0 && units_[from] != unit)
        --from;
    return from < 0 ? -1 : from;
}

int KOVAString::lastIndexOfAfter(Unit unit, int from) const noexcept {
    if (from < 0)
        return -1;
    int const found = lastIndexOf(unit, length() - 1);
    return found > from ? found : -1;
}

int KOVAString::lastIndexOf(KOVAString const& str, int from) const noexcept {
    int const n = str.length();
    if (n == 0 || from < 0 || from >= length())
        return -1;
    for (int p = std::min(from, length() - n); p >= 0; --p) {
        if (units_[p] == str.units_[0] && sameUnits(units_ + p, str.units_, n))
            return p;
    }
    return -1;
}

bool KOVAString::startsWith(KOVAString const& str, int offset) const noexcept {
    int const n = str.length();
    if (n == 0 || offset < 0 || offset > length() - n)
        return false;
    return sameUnits(units_ + offset, str.units_, n);
}

bool KOVAString::endsWith(Unit unit) const noexcept {
    return length() > 0 && units_[length() - 1] == unit;
}

bool KOVAString::endsWith(KOVAString const& str) const noexcept {
    return startsWith(str, length() - str.length());
}

bool KOVAString::endsWithIgnoreCase(KOVAString const& str) const noexcept {
    int const n = str.length();
    if (n == 0 || n > length())
        return false;
    return compareFolded(units_ + length() - n, n, str.units_, n) == 0;
}

// --- derived strings

KOVAString KOVAString::substring(int begin, int end) const {
    int const n = length();
    if (begin < 0 || begin >= n || end > n || end <= begin)
        return KOVAString();
    if (begin == 0 && end == n)
        return *this;
    return adopt(copyOf(units_ + begin, static_cast<std::size_t>(end - begin)));
}

KOVAString KOVAString::concat(KOVAString const& other) const {
    if (length() == 0)
        return other.orNull();
    if (other.length() == 0)
        return *this;
    std::size_t const left = static_cast<std::size_t>(length());
    std::size_t const right = static_cast<std::size_t>(other.length());
    Unit* const joined = allocate(left + right);
    std::memcpy(joined, units_, left * sizeof(Unit));
    std::memcpy(joined + left, other.units_, right * sizeof(Unit));
    return adopt(joined);
}

/// The text with each unit replaced by its image; shares this block where nothing changes.
template <class Function> KOVAString KOVAString::mapped(Function const& function) const {
    int const n = length();
    int first = 0;
    while (first < n && function(units_[first]) == units_[first])
        ++first;
    if (first == n)
        return orNull();
    Unit* const result = copyOf(units_, static_cast<std::size_t>(n));
    std::transform(units_ + first, units_ + n, result + first, function);
    return adopt(result);
}

KOVAString KOVAString::replace(Unit oldUnit, Unit newUnit) const {
    if (newUnit == 0) {
        // A terminator in place of a unit ends the text there.
        int const end = indexOf(oldUnit);
        return end < 0 ? orNull() : substring(0, end);
    }
    return mapped([=](Unit unit) { return unit == oldUnit ? newUnit : unit; });
}

KOVAString KOVAString::toLowerCase() const {
    return mapped(LowerCase());
}

KOVAString KOVAString::toUpperCase() const {
    return mapped(UpperCase());
}

KOVAString KOVAString::trim() const {
    int const n = length();
    int start = 0;
    while (start < n && isSpace(units_[start]))
        ++start;
    int last = n - 1;
    while (last >= 0 && isSpace(units_[last]))
        --last;
    int const end = last < n - 1 ? last + 1 : last;
    return substring(start, end);
}

// --- values

KOVAString KOVAString::valueOf(double value) {
    char text[kova::detail::kLongestFixed + 1];
    *kova::detail::formatFixed(value, text) = '\0';
    return KOVAString(text);
}

KOVAString KOVAString::valueOf(float value) {
    return valueOf(static_cast<double>(value));
}

KOVAString KOVAString::valueOf(int value) {
    return valueOf(static_cast<long>(value));
}

KOVAString KOVAString::valueOf(long value) {
    return KOVAString(std::to_string(value).c_str());
}

KOVAString KOVAString::valueOf(bool value) {
    return KOVAString(value ? "true" : "false");
}

KOVAString KOVAString::valueOf(Unit unit) {
    return KOVAString(unit);
}

KOVAString KOVAString::valueOf(Unit const* units) {
    return KOVAString(units);
}

KOVAString KOVAString::valueOf(Unit const* data, int offset, int count) {
    if (!data || count <= 0)
        return KOVAString();
    Unit const* const begin = data + offset;
    Unit const* const end = std::find(begin, begin + count, Unit{0});
    if (begin == end)
        return KOVAString();
    return adopt(copyOf(begin, static_cast<std::size_t>(end - begin)));
}
