#pragma once

#include <cstdint>

#include <kova/containers/KOVADynamicArray.h>
#include <kova/containers/hash_index.h>
#include <kova/core/KOVAReferenceCount.h>
#include <kova/core/KOVIResult.h>
#include <kova/core/export.h>
#include <kova/options/KOVAValue.h>

/// Rows of values, in order of insertion, with a hash index on their first value, the key.
///
///     KOVATable layers;
///     KOVAValue name("walls"), colour(7);
///     layers.Set(&name, &colour, nullptr);
///     KOVAValue key("walls"), found;
///     if (layers.Get(&key, &found, nullptr).IsSuccess()) ...
///
/// Values are passed as a list of pointers that a null pointer ends. Hazard: nothing checks that it does;
/// write nullptr, not 0. Copies are deep, and start without holders.
class KOVA_API KOVATable : public KOVAReferenceCount {
public:
    KOVATable();
    KOVATable(KOVATable const& other);
    /// The holders stay.
    KOVATable& operator=(KOVATable const& other);
    ~KOVATable() override;

    /// Appends a row of copies. Its key finds it from now on; an older row with the same key stays, and is
    /// found by number only. Always Success.
    virtual KOVIResult Add(KOVAValue const* first, ...);
    /// Replaces the row that a valid key finds, else appends. Always Success.
    virtual KOVIResult Set(KOVAValue const* first, ...);
#if KOVA_OVERLOADS_REVERSED
    virtual KOVIResult Get(KOVAValue* key, ...);
    virtual KOVIResult Get(int row, KOVAValue* first, ...);
#else
    /// Copies the row's values into the listed ones, up to the end of either. Invalid Argument when there
    /// is no such row.
    virtual KOVIResult Get(int row, KOVAValue* first, ...);
    /// The same for the row that the first listed value finds; Failure when it finds none.
    virtual KOVIResult Get(KOVAValue* key, ...);
#endif
    virtual int GetRowsCount() const;

private:
    using Row = KOVADynamicArray<KOVAValue>;

    void append(Row const& row);

    KOVADynamicArray<Row> rows_;
    std::int32_t keyColumn_ = 0;
    kova::detail::HashIndex<KOVAValue> index_;
};
