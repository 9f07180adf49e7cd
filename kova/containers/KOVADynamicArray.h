#pragma once

#include <algorithm>
#include <cstddef>
#include <limits>
#include <new>
#include <type_traits>

#include <kova/core/KOVAArrayHeader.h>

/// A growable array of T over the raw array storage.
///
///     KOVADynamicArray<Layer> layers;
///     layers.add(Layer("walls"));
///     KOVADynamicArray<Layer> same = layers;          // shares the block
///     KOVADynamicArray<Layer> own = layers.copy();    // has its own
///
/// Copying and assigning share one block: a change through one holder is seen by all, and the last
/// holder destroys the elements. Elements are moved bitwise inside the block, so T must not point
/// into itself. Indexes are not checked. Pointers and references to elements live until the array
/// grows. Capacity is 10 at first, then 16, 25, 38, 58 ...
template <class T> class KOVADynamicArray {
    static_assert(sizeof(T) <= static_cast<std::size_t>(std::numeric_limits<int>::max()));
    static_assert(alignof(T) <= alignof(std::max_align_t), "the block is aligned for the standard types only");

public:
    KOVADynamicArray() : KOVADynamicArray(Capacity{kInitialCapacity}) {}

    /// n copies of the value; none when n is below 1.
    KOVADynamicArray(int n, T const& value) : KOVADynamicArray(Capacity{n < 1 ? kInitialCapacity : n}) {
        for (int i = 0; i < n && take(Relocatable(value)); ++i) {
        }
    }

    KOVADynamicArray(KOVADynamicArray const& other) : header_(kovaArrayCopy(other.header_)) {}

    KOVADynamicArray& operator=(KOVADynamicArray const& other) {
        if (this != &other) {
            KOVAArrayHeader* const shared = kovaArrayCopy(other.header_);
            release();
            header_ = shared;
        }
        return *this;
    }

    ~KOVADynamicArray() { release(); }

    int size() const { return header_ ? header_->count : 0; }

    T& operator[](int i) { return getArray()[i]; }
    T const& operator[](int i) const { return getArray()[i]; }

    /// The first element; one past the last is getArray() + size().
    T* getArray() { return header_ ? static_cast<T*>(header_->data) : nullptr; }
    T const* getArray() const { return header_ ? static_cast<T const*>(header_->data) : nullptr; }

    /// The identity of the shared block.
    std::size_t getHash() const { return reinterpret_cast<std::size_t>(header_); }
    /// Both hold the same block; elements are not compared.
    bool operator==(KOVADynamicArray const& other) const { return header_ == other.header_; }

    /// Appends a copy of x, which may be an element of this array.
    void add(T const& x) {
        if constexpr (std::is_trivially_copyable_v<T>) {
            if (header_ && header_->count < header_->capacity) {
                getArray()[header_->count] = x;
                ++header_->count;
                return;
            }
        }
        take(Relocatable(x));
    }

    /// Inserts a copy of x before element i; i must be in 0 .. size().
    void insert(int i, T const& x) {
        Relocatable element(x);
        if (kovaArrayInsertAt(header_, i, element.bytes()))
            element.forget();
    }

    /// Destroys and removes element i; true.
    bool removeAt(int i) {
        (*this)[i].~T();
        kovaArrayRemoveAt(header_, i);
        return true;
    }

    /// Destroys the elements, for every holder of the block; keeps the capacity.
    void clear() {
        destroyElements();
        kovaArrayClear(header_);
    }

    /// Leaves the block to its other holders and starts a fresh one of capacity 10.
    void purge() {
        release();
        header_ = kovaArrayAllocate(kInitialCapacity, kElementSize);
    }

    /// Reverses the order in place, moving elements bitwise (assignment of a T may keep fields).
    void reverse() {
        T* const elements = getArray();
        for (int low = 0, high = size() - 1; low < high; ++low, --high) {
            unsigned char* const bytes = reinterpret_cast<unsigned char*>(elements + low);
            std::swap_ranges(bytes, bytes + sizeof(T), reinterpret_cast<unsigned char*>(elements + high));
        }
    }

    /// Insert or append n default elements, fewer when memory runs out; none when n is below 1. Both
    /// return true.
    bool frontGrow(int n) {
        for (int i = 0, before = size(); i < n && size() == before + i; ++i)
            insert(0, T());
        return true;
    }
    bool endGrow(int n) {
        for (int i = 0; i < n && take(Relocatable(T())); ++i) {
        }
        return true;
    }

    /// Destroy and remove n elements; n must not exceed size(). Both return true.
    bool frontShrink(int n) {
        for (int i = 0; i < n; ++i)
            removeAt(0);
        return true;
    }
    bool endShrink(int n) {
        for (int i = 0; i < n; ++i)
            removeAt(size() - 1);
        return true;
    }

    /// Grows or shrinks at the end to n elements, none when n is below 0; true.
    bool resize(int n) { return n > size() ? endGrow(n - size()) : endShrink(size() - (n < 0 ? 0 : n)); }

    /// Adds a copy of each element of other, which may be this very array.
    void append(KOVADynamicArray const& other) {
        int const n = other.size();
        for (int i = 0; i < n; ++i)
            add(other[i]);
    }

    /// Adds copies of n elements, which must not lie in this array.
    void append(T const* elements, int n) {
        if constexpr (std::is_trivially_copyable_v<T>) {
            kovaArrayAddMany(header_, elements, n);
        } else {
            for (int i = 0; i < n; ++i)
                add(elements[i]);
        }
    }

    /// The deep copy.
    KOVADynamicArray copy() const {
        KOVADynamicArray result;
        result.append(getArray(), size());
        return result;
    }

private:
    friend class Gk_String;
    /// Takes over one of the holds on a block.
    explicit constexpr KOVADynamicArray(KOVAArrayHeader* held) noexcept : header_(held) {}

    static constexpr int kInitialCapacity = 10;
    static constexpr int kElementSize = static_cast<int>(sizeof(T));

    /// A copy of an element on the stack, ready to be moved bitwise into the block. Making it first
    /// lets x be an element of this array, and leaves the array alone when the copy throws.
    class Relocatable {
    public:
        explicit Relocatable(T const& x) { new (bytes_) T(x); }
        Relocatable(Relocatable const&) = delete;
        Relocatable& operator=(Relocatable const&) = delete;
        ~Relocatable() {
            if (live_)
                reinterpret_cast<T*>(bytes_)->~T();
        }
        void* bytes() { return bytes_; }
        void forget() { live_ = false; }

    private:
        alignas(T) unsigned char bytes_[sizeof(T)];
        bool live_ = true;
    };

    struct Capacity {
        int slots;
    };
    explicit KOVADynamicArray(Capacity capacity) : header_(kovaArrayAllocate(capacity.slots, kElementSize)) {}

    /// Appends a copy; false when memory runs out.
    bool take(Relocatable&& element) {
        bool const added = kovaArrayAdd(header_, element.bytes()) != 0;
        if (added)
            element.forget();
        return added;
    }

    void destroyElements() {
        T* const elements = getArray();
        for (int i = 0, n = size(); i < n; ++i)
            elements[i].~T();
    }

    void release() {
        if (header_ && header_->shareCount == 0)
            destroyElements();
        kovaArrayFree(header_);
        header_ = nullptr;
    }

    KOVAArrayHeader* header_;
};
