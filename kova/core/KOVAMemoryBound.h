#pragma once

#include <kova/core/export.h>

/// Allocation with guard words on both sides, for finding code that writes outside its block.
///
///     char* text = static_cast<char*>(KOVAMemoryBoundAllocate(10));
///     text[10] = 'x';                          // one byte too far
///     KOVAMemoryBoundFree(text);               // says so in one line on standard output
///
/// Blocks and counters are for one thread at a time.

/// A block of n bytes, uninitialised; null when the memory cannot be had or n is above
/// 4294967295 - 32.
KOVA_API void* KOVAMemoryBoundAllocate(unsigned int n);

/// Checks the guard words, reports damage in one line on standard output and releases the block
/// either way. Null is ignored. Hazard: the rear words are looked for where the size in front of the
/// block says, so a size that was overwritten leads the check to foreign memory.
KOVA_API void KOVAMemoryBoundFree(void* p);

/// Allocations made so far (never lowered), bytes in live blocks, and the highest sum of these.
KOVA_API unsigned int KOVAMemoryBoundCount();
KOVA_API unsigned int KOVAMemoryBoundCurrent();
KOVA_API unsigned int KOVAMemoryBoundPeak();
