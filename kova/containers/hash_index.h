#pragma once

#include <cstdint>
#include <new>

#include <kova/containers/KOVADynamicArray.h>
#include <kova/text/KOVAString.h>

namespace kova::detail {

template <class Key> struct DefaultHash {
    static unsigned int of(Key const& key) { return key.GetHashCode(); }
};

template <> struct DefaultHash<KOVAString> {
    static unsigned int of(KOVAString const& key) { return key.hashCode(); }
};

template <class T> struct DefaultHash<T*> {
    static unsigned int of(T* key) {
        // The low bits of an address hardly differ.
        std::uint64_t const bits = static_cast<std::uint64_t>(reinterpret_cast<std::uintptr_t>(key));
        return static_cast<unsigned int>((bits * 0x9E3779B97F4A7C15U) >> 32);
    }
};

/// Finds the number that belongs to a key: open addressing with linear probing. Keys are never removed;
/// what they number (rows, records in order of insertion) lives with the owner.
///
/// A key that does not equal itself is never found.
template <class Key> class HashIndex {
public:
    using Hash = unsigned int (*)(Key const&);
    using Equal = bool (*)(Key const&, Key const&);

    /// Without functions, the key's own hash code and equality.
    explicit HashIndex(Hash hash = nullptr, Equal equal = nullptr)
        : keys_(17, Key()), numbers_(17, 0), used_(17, 0), hash_(hash), equal_(equal) {}
    HashIndex(HashIndex const& other)
        : keys_(other.keys_.copy()), numbers_(other.numbers_.copy()), used_(other.used_.copy()), hash_(other.hash_),
          equal_(other.equal_), loadFactor_(other.loadFactor_), count_(other.count_), lookups_(other.lookups_) {}
    HashIndex& operator=(HashIndex const& other) {
        takeOver(HashIndex(other));
        return *this;
    }
    ~HashIndex() = default;

    /// The key's number, to be read or changed; null when the key is not there. Lives until insert.
    std::int32_t* find(Key const& key) {
        return const_cast<std::int32_t*>(static_cast<HashIndex const*>(this)->find(key));
    }
    std::int32_t const* find(Key const& key) const {
        ++lookups_;
        int const slot = probe(key, true);
        return slot >= 0 && used_[slot] ? &numbers_[slot] : nullptr;
    }

    /// Adds a key that is not there yet.
    void insert(Key const& key, std::int32_t number) {
        if (slots() * static_cast<double>(loadFactor_) < count_ + 1)
            grow();
        place(key, number);
    }

    int slots() const { return used_.size(); }
    int count() const { return count_; }

private:
    /// The slot of the key, or the free slot that ends the search for it; -1 when there is neither.
    int probe(Key const& key, bool compare) const {
        int const n = slots();
        if (n == 0) // there was no memory for any
            return -1;
        unsigned int const hash = hash_ ? hash_(key) : DefaultHash<Key>::of(key);
        int const start = static_cast<int>(hash % static_cast<unsigned int>(n));
        for (int i = 0; i < n; ++i) {
            int const slot = start + i < n ? start + i : start + i - n;
            if (!used_[slot] || (compare && same(keys_[slot], key)))
                return slot;
        }
        return -1;
    }

    bool same(Key const& a, Key const& b) const { return equal_ ? equal_(a, b) : a == b; }

    void place(Key const& key, std::int32_t number) {
        int const slot = probe(key, false);
        if (slot < 0)
            throw std::bad_alloc();
        keys_[slot] = key;
        numbers_[slot] = number;
        used_[slot] = 1;
        ++count_;
    }

    void grow() {
        HashIndex larger(hash_, equal_);
        int const n = 2 * slots();
        larger.keys_.resize(n);
        larger.numbers_.resize(n);
        larger.used_.resize(n);
        if (larger.keys_.size() != n || larger.numbers_.size() != n || larger.used_.size() != n)
            throw std::bad_alloc();
        for (int slot = 0; slot < slots(); ++slot) {
            if (used_[slot])
                larger.place(keys_[slot], numbers_[slot]);
        }
        larger.lookups_ = lookups_;
        takeOver(larger);
    }

    /// The arrays share their blocks until `other` goes.
    void takeOver(HashIndex const& other) {
        keys_ = other.keys_;
        numbers_ = other.numbers_;
        used_ = other.used_;
        hash_ = other.hash_;
        equal_ = other.equal_;
        loadFactor_ = other.loadFactor_;
        count_ = other.count_;
        lookups_ = other.lookups_;
    }

    KOVADynamicArray<Key> keys_;
    KOVADynamicArray<std::int32_t> numbers_;
    KOVADynamicArray<unsigned char> used_;
    Hash hash_;
    Equal equal_;
    float loadFactor_ = 0.75F;
    std::int32_t count_ = 0;
    mutable std::uint32_t lookups_ = 0;
};

/// Keys, each once. They are never removed singly.
template <class Key> class HashSet {
public:
    bool contains(Key const& key) const { return index_.find(key) != nullptr; }

    /// False when the key is there already.
    bool add(Key const& key) {
        if (contains(key))
            return false;
        index_.insert(key, index_.count());
        return true;
    }

    void clear() { index_ = HashIndex<Key>(); }

private:
    HashIndex<Key> index_;
};

} // namespace kova::detail
