#include <kova/core/KOVAArrayHeader.h>

#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <limits>
#include <new>

static_assert(sizeof(void*) != 4 || sizeof(KOVAArrayHeader) == 28);

namespace {

bool valid(KOVAArrayHeader const* header) {
    return header && header->guard == header->data;
}

std::size_t byteCount(KOVAArrayHeader const* header, int elements) {
    return static_cast<std::size_t>(elements) * static_cast<std::size_t>(header->elementSize);
}

char* slot(KOVAArrayHeader const* header, int index) {
    return static_cast<char*>(header->data) + byteCount(header, index);
}

/// Grows the block, once or until it has `spare` free slots. A block that the grown one replaces is
/// handed back in `replaced`, so that an element inside it can still be read; the caller frees it.
int grow(KOVAArrayHeader* header, int spare, void*& replaced) {
    int capacity = header->capacity;
    do {
        double const wanted = static_cast<double>(header->growthFactor) * capacity + 1.0;
        if (!(wanted < static_cast<double>(std::numeric_limits<std::int32_t>::max()) + 1.0))
            return 0;
        capacity = static_cast<int>(wanted);
    } while (capacity - header->count < spare);
    void* const block = std::calloc(static_cast<std::size_t>(capacity), static_cast<std::size_t>(header->elementSize));
    if (!block)
        return 0;
    std::memcpy(block, header->data, byteCount(header, header->capacity));
    replaced = header->data;
    header->data = block;
    header->guard = block;
    header->capacity = capacity;
    return 1;
}

/// Opens a slot at `index` and copies `element` into it, growing when fewer than `spare` slots would
/// be free.
int place(KOVAArrayHeader* header, int index, void const* element, int spare) {
    void* replaced = nullptr;
    if (header->capacity - header->count < spare && !grow(header, 1, replaced))
        return 0;
    char const* source = static_cast<char const*>(element);
    char* const target = slot(header, index);
    char* const end = slot(header, header->count);
    std::less<> const before;
    // Without growth an element of this array at or behind the slot moves up with its neighbours.
    if (!before(source, target) && before(source, end))
        source += header->elementSize;
    std::memmove(target + header->elementSize, target, static_cast<std::size_t>(end - target));
    std::memcpy(target, source, static_cast<std::size_t>(header->elementSize));
    ++header->count;
    std::free(replaced);
    return 1;
}

} // namespace

KOVAArrayHeader* kovaArrayAllocate(int capacity, int elementSize) {
    if (capacity < 1 || elementSize < 1)
        return nullptr;
    void* const block = std::calloc(static_cast<std::size_t>(capacity), static_cast<std::size_t>(elementSize));
    if (!block)
        return nullptr;
    KOVAArrayHeader* const header = new (std::nothrow) KOVAArrayHeader{block, capacity, 0, elementSize, 1.5F, 0, block};
    if (!header)
        std::free(block);
    return header;
}

int kovaArrayCheck(KOVAArrayHeader*& header) {
    return valid(header);
}

void kovaArrayFree(KOVAArrayHeader*& header) {
    if (!valid(header))
        return;
    if (header->shareCount > 0) {
        --header->shareCount;
        return;
    }
    header->guard = nullptr;
    std::free(header->data);
    delete header;
    header = nullptr;
}

int kovaArrayClear(KOVAArrayHeader*& header) {
    if (!valid(header))
        return 0;
    header->count = 0;
    return 1;
}

int kovaArrayCount(KOVAArrayHeader* header) {
    return valid(header) ? header->count : 0;
}

int kovaArraySetAt(KOVAArrayHeader*& header, int index, void* element) {
    if (!valid(header) || !element || index < 0 || index >= header->count)
        return 0;
    std::memmove(slot(header, index), element, byteCount(header, 1));
    return 1;
}

int kovaArrayRemoveAt(KOVAArrayHeader*& header, int index) {
    if (!valid(header) || index < 0 || index >= header->count)
        return 0;
    std::memmove(slot(header, index), slot(header, index + 1), byteCount(header, header->count - index - 1));
    --header->count;
    return 1;
}

KOVAArrayHeader* kovaArrayCopy(KOVAArrayHeader* header) {
    if (valid(header))
        ++header->shareCount;
    return header;
}

int kovaArrayRealloc(KOVAArrayHeader*& header) {
    void* replaced = nullptr;
    if (!valid(header) || !grow(header, 0, replaced))
        return 0;
    std::free(replaced);
    return 1;
}

int kovaArrayAdd(KOVAArrayHeader*& header, void* element) {
    if (!valid(header) || !element)
        return 0;
    return place(header, header->count, element, 1);
}

int kovaArrayAddMany(KOVAArrayHeader*& header, void const* elements, int count) {
    if (!valid(header) || !elements || count < 1)
        return 0;
    void* replaced = nullptr;
    if (header->capacity - header->count < count && !grow(header, count, replaced))
        return 0;
    std::free(replaced);
    std::memcpy(slot(header, header->count), elements, byteCount(header, count));
    header->count += count;
    return 1;
}

int kovaArrayInsertAt(KOVAArrayHeader*& header, int index, void* element) {
    if (!valid(header) || !element || index < 0)
        return 0;
    if (index > header->count)
        return kovaArrayAdd(header, element);
    return place(header, index, element, 2);
}

int kovaArrayAppend(KOVAArrayHeader*& destination, KOVAArrayHeader* source) {
    if (!valid(destination) || !valid(source) || destination->elementSize != source->elementSize)
        return 0;
    int const added = source->count;
    if (added > std::numeric_limits<std::int32_t>::max() - destination->count)
        return 0;
    while (destination->capacity < destination->count + added) {
        if (!kovaArrayRealloc(destination))
            return 0;
    }
    std::memmove(slot(destination, destination->count), destination->data, byteCount(destination, added));
    destination->count += added;
    return 1;
}
