#include <kova/containers/KOVATable.h>

#include <cstdarg>

#include <kova/core/results.h>

static_assert(sizeof(void*) != 4 || sizeof(kova::detail::HashIndex<KOVAValue>) == 32);
static_assert(sizeof(void*) != 4 || sizeof(KOVATable) == 48);

using kova::detail::kFailure;
using kova::detail::kInvalidArgument;
using kova::detail::kSuccess;

namespace {

using Row = KOVADynamicArray<KOVAValue>;

/// Copies of the listed values.
Row rowOf(KOVAValue const* first, std::va_list& rest) {
    Row row;
    for (KOVAValue const* value = first; value; value = va_arg(rest, KOVAValue const*))
        row.add(*value);
    return row;
}

void copyRow(Row const& row, KOVAValue* first, std::va_list& rest) {
    int const n = row.size();
    KOVAValue* target = first;
    for (int i = 0; i < n && target; target = ++i < n ? va_arg(rest, KOVAValue*) : nullptr)
        *target = row[i];
}

} // namespace

KOVATable::KOVATable() : KOVAReferenceCount(0) {}

KOVATable::KOVATable(KOVATable const& other)
    : KOVAReferenceCount(other), keyColumn_(other.keyColumn_), index_(other.index_) {
    for (int i = 0; i < other.rows_.size(); ++i)
        rows_.add(other.rows_[i].copy());
}

KOVATable& KOVATable::operator=(KOVATable const& other) {
    KOVATable const copy(other);
    rows_ = copy.rows_;
    keyColumn_ = copy.keyColumn_;
    index_ = copy.index_;
    return *this;
}

KOVATable::~KOVATable() = default;

KOVIResult KOVATable::Add(KOVAValue const* first, ...) {
    std::va_list rest;
    va_start(rest, first);
    Row const row = rowOf(first, rest);
    va_end(rest);
    append(row);
    return kSuccess;
}

KOVIResult KOVATable::Set(KOVAValue const* first, ...) {
    std::va_list rest;
    va_start(rest, first);
    Row const row = rowOf(first, rest);
    va_end(rest);
    if (keyColumn_ < row.size()) {
        KOVAValue const& key = row[keyColumn_];
        if (std::int32_t const* const found = key.IsValid() ? index_.find(key) : nullptr) {
            rows_[*found] = row;
            return kSuccess;
        }
    }
    append(row);
    return kSuccess;
}

/// Appends a row, unless memory runs out, and has its key find it.
void KOVATable::append(Row const& row) {
    std::int32_t const number = rows_.size();
    rows_.add(row);
    if (rows_.size() == number || keyColumn_ >= row.size())
        return;
    if (std::int32_t* const older = index_.find(row[keyColumn_]))
        *older = number;
    else
        index_.insert(row[keyColumn_], number);
}

KOVIResult KOVATable::Get(int row, KOVAValue* first, ...) {
    if (row < 0 || row >= rows_.size())
        return kInvalidArgument;
    std::va_list rest;
    va_start(rest, first);
    copyRow(rows_[row], first, rest);
    va_end(rest);
    return kSuccess;
}

KOVIResult KOVATable::Get(KOVAValue* key, ...) {
    std::va_list rest;
    va_start(rest, key);
    KOVAValue const* sought = key;
    for (int column = 0; sought && column < keyColumn_; ++column)
        sought = va_arg(rest, KOVAValue*);
    va_end(rest);
    std::int32_t const* const row = sought ? index_.find(*sought) : nullptr;
    if (!row)
        return kFailure;
    va_start(rest, key);
    copyRow(rows_[*row], key, rest);
    va_end(rest);
    return kSuccess;
}

int KOVATable::GetRowsCount() const {
    return rows_.size();
}
