#pragma once

#include <kova/containers/KOVADynamicArray.h>
#include <kova/containers/hash_index.h>
#include <kova/text/KOVAString.h>

namespace kova::detail {

/// Values by name, in order of first insertion. Names are told apart by case.
template <class Value> class StringMap {
public:
    StringMap() = default;
    StringMap(StringMap const& other)
        : names_(other.names_.copy()), values_(other.values_.copy()), index_(other.index_) {}
    StringMap& operator=(StringMap const& other) {
        names_ = other.names_.copy();
        values_ = other.values_.copy();
        index_ = other.index_;
        return *this;
    }
    ~StringMap() = default;

    int size() const { return values_.size(); }
    KOVAString const& name(int i) const { return names_[i]; }
    Value const& value(int i) const { return values_[i]; }
    Value& value(int i) { return values_[i]; }

    /// The position of the name, or -1.
    int find(KOVAString const& name) const {
        std::int32_t const* const position = index_.find(name);
        return position ? *position : -1;
    }

    /// The position of the name, which is added, with a default value, when it is not there; -1 when memory
    /// runs out.
    int findOrAdd(KOVAString const& name) {
        int const found = find(name);
        if (found >= 0)
            return found;
        int const position = size();
        names_.add(name);
        if (names_.size() > position)
            values_.add(Value());
        if (size() == position) {
            names_.resize(position);
            return -1;
        }
        index_.insert(name, position);
        return position;
    }

    /// Takes out the name at the position; those behind it move up.
    void remove(int i) {
        names_.removeAt(i);
        values_.removeAt(i);
        index_ = HashIndex<KOVAString>();
        for (int k = 0; k < size(); ++k)
            index_.insert(names_[k], k);
    }

private:
    KOVADynamicArray<KOVAString> names_;
    KOVADynamicArray<Value> values_;
    HashIndex<KOVAString> index_;
};

} // namespace kova::detail
