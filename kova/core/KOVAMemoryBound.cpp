#include <kova/core/KOVAMemoryBound.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>

namespace {

constexpr std::uint32_t kGuard = 0xDEADBEEFU;

struct Front {
    std::uint32_t size;
    std::uint32_t count;
    std::uint32_t guard[2];
};

struct Rear {
    std::uint32_t guard[2];
    std::uint32_t count;
    std::uint32_t size;
};

static_assert(sizeof(Front) == 16 && sizeof(Rear) == 16);

std::uint32_t allocations = 0;
std::uint32_t currentBytes = 0;
std::uint32_t peakBytes = 0;

} // namespace

void* KOVAMemoryBoundAllocate(unsigned int n) {
    if (n > std::numeric_limits<std::uint32_t>::max() - (sizeof(Front) + sizeof(Rear)))
        return nullptr;
    char* const block = static_cast<char*>(std::malloc(sizeof(Front) + n + sizeof(Rear)));
    if (!block)
        return nullptr;
    ++allocations;
    Front const front{n, allocations, {kGuard, kGuard}};
    Rear const rear{{kGuard, kGuard}, allocations, n};
    std::memcpy(block, &front, sizeof front);
    std::memcpy(block + sizeof front + n, &rear, sizeof rear);
    currentBytes += n;
    if (currentBytes > peakBytes)
        peakBytes = currentBytes;
    return block + sizeof front;
}

void KOVAMemoryBoundFree(void* p) {
    if (!p)
        return;
    char* const block = static_cast<char*>(p) - sizeof(Front);
    Front front;
    Rear rear;
    std::memcpy(&front, block, sizeof front);
    std::memcpy(&rear, static_cast<char*>(p) + front.size, sizeof rear);
    bool const intact = front.size == rear.size && front.count == rear.count && front.guard[0] == kGuard &&
                        front.guard[1] == kGuard && rear.guard[0] == kGuard && rear.guard[1] == kGuard;
    if (!intact) {
        std::printf("*** Error memory boundary overwrite: szeF=%d, cntF=%d, db0=0x%x, db1=0x%x, db2=0x%x, db3=0x%x, "
                    "cntB=%d, szeB=%d\n",
                    static_cast<int>(front.size), static_cast<int>(front.count), front.guard[0], front.guard[1],
                    rear.guard[0], rear.guard[1], static_cast<int>(rear.count), static_cast<int>(rear.size));
    }
    currentBytes -= front.size;
    std::free(block);
}

unsigned int KOVAMemoryBoundCount() {
    return allocations;
}

unsigned int KOVAMemoryBoundCurrent() {
    return currentBytes;
}

unsigned int KOVAMemoryBoundPeak() {
    return peakBytes;
}
