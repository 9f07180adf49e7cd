#pragma once

#include <cstdint>

#include <kova/core/export.h>

/// Raw growable storage for plain elements of one fixed size, under every array-backed container.
/// Elements are copied byte for byte; nothing is constructed or destroyed.
///
///     KOVAArrayHeader* a = kovaArrayAllocate(4, sizeof(double));
///     double x = 1.5;
///     kovaArrayAdd(a, &x);
///     kovaArrayFree(a);                       // a is null again
///
/// A header is valid while it is not null and guard == data. Every function refuses anything else
/// (returns 0 or null and changes nothing); none throws or reports. The block may move on every
/// growth, so element pointers live until the next Add, InsertAt, Append or Realloc.
struct KOVAArrayHeader {
    void* guard;              ///< equals data while valid, null once released
    std::int32_t capacity;    ///< slots in the block
    std::int32_t count;       ///< slots in use
    std::int32_t elementSize; ///< bytes in one element, at least 1
    float growthFactor;       ///< always 1.5
    std::int32_t shareCount;  ///< holders besides the first
    void* data;               ///< capacity * elementSize bytes, zero-filled when obtained
};

/// A new array; null when an argument is below 1 or the memory cannot be had. Release it with
/// kovaArrayFree.
KOVA_API KOVAArrayHeader* kovaArrayAllocate(int capacity, int elementSize);

/// 1 for a valid header, else 0.
KOVA_API int kovaArrayCheck(KOVAArrayHeader*& header);

/// The last holder's call releases everything and sets the pointer to null; an earlier holder's call
/// only lowers shareCount and leaves the pointer as it is.
KOVA_API void kovaArrayFree(KOVAArrayHeader*& header);

/// Sets the count to 0; capacity and bytes stay.
KOVA_API int kovaArrayClear(KOVAArrayHeader*& header);

/// The count; 0 for a null or invalid header.
KOVA_API int kovaArrayCount(KOVAArrayHeader* header);

/// Overwrites the element at index, which must be below the count.
KOVA_API int kovaArraySetAt(KOVAArrayHeader*& header, int index, void* element);

/// Removes the element at index, which must be below the count; later ones move down. The vacated
/// slot keeps its stale bytes.
KOVA_API int kovaArrayRemoveAt(KOVAArrayHeader*& header, int index);

/// Copies nothing: adds a holder and returns the same header. Each holder calls kovaArrayFree once.
KOVA_API KOVAArrayHeader* kovaArrayCopy(KOVAArrayHeader* header);

/// Grows the capacity once, to the integer part of capacity * 1.5 + 1: 1, 2, 4, 7, 11, 17, 26 ...
KOVA_API int kovaArrayRealloc(KOVAArrayHeader*& header);

/// Appends an element; it may lie in this very array.
KOVA_API int kovaArrayAdd(KOVAArrayHeader*& header, void* element);

/// Appends count elements, growing as that many calls of kovaArrayAdd would; they must not lie in this
/// array. Nothing for a count below 1 or a null pointer.
KOVA_API int kovaArrayAddMany(KOVAArrayHeader*& header, void const* elements, int count);

/// Inserts before index; an index above the count appends. Grows one slot earlier than kovaArrayAdd:
/// an insertion always leaves a spare slot, and callers depend on the resulting capacities.
KOVA_API int kovaArrayInsertAt(KOVAArrayHeader*& header, int index, void* element);

/// Repeats the destination's own first source.count elements at its end. Callers depend on it: only
/// the source's count and element size are used, never its elements; to take over the elements of
/// another array, add them one by one. Refuses different element sizes.
KOVA_API int kovaArrayAppend(KOVAArrayHeader*& destination, KOVAArrayHeader* source);
