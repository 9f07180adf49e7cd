#include "support/test.h"

namespace {

/// Frees what the test leaves.
struct Array {
    KOVAArrayHeader* header;
    Array(int capacity, std::initializer_list<int> values) : header(kovaArrayAllocate(capacity, sizeof(int))) {
        for (int value : values) kovaArrayAdd(header, &value);
    }
    ~Array() { kovaArrayFree(header); }
    int* begin() const { return static_cast<int*>(header->data); }
    std::vector<int> values() const { return {begin(), begin() + kovaArrayCount(header)}; }
};

using Values = std::vector<int>;

TEST(Array, RefusesAbsurdSizes) {
    EXPECT_EQ(kovaArrayAllocate(0, 4), nullptr);
    EXPECT_EQ(kovaArrayAllocate(4, 0), nullptr);
    EXPECT_EQ(kovaArrayAllocate(-1, -1), nullptr);
    EXPECT_EQ(kovaArrayAllocate(std::numeric_limits<int>::max(), std::numeric_limits<int>::max()), nullptr);
}

TEST(Array, GrowsInKnownSteps) {
    Array a(1, {});
    for (int const capacity : {1, 2, 4, 7, 11, 17, 26, 40, 61}) {
        EXPECT_EQ(a.header->capacity, capacity);
        while (kovaArrayCount(a.header) < capacity) {
            int const value = kovaArrayCount(a.header);
            ASSERT_EQ(kovaArrayAdd(a.header, const_cast<int*>(&value)), 1);
        }
        ASSERT_EQ(kovaArrayRealloc(a.header), 1);
    }
    for (int i = 0; i < kovaArrayCount(a.header); ++i) EXPECT_EQ(a.begin()[i], i);
}

TEST(Array, InsertsWithASlotToSpare) {
    Array a(2, {10});
    int value = 20;
    ASSERT_EQ(kovaArrayInsertAt(a.header, 0, &value), 1);
    EXPECT_EQ(a.header->capacity, 4);
    EXPECT_EQ(a.values(), (Values{20, 10}));
    value = 30;
    EXPECT_EQ(kovaArrayInsertAt(a.header, 2, &value), 1); // behind the last
    value = 40;
    EXPECT_EQ(kovaArrayInsertAt(a.header, 99, &value), 1); // appends, without the spare slot
    EXPECT_EQ(a.values(), (Values{20, 10, 30, 40}));
    EXPECT_EQ(kovaArrayInsertAt(a.header, -1, &value), 0);
}

TEST(Array, TakesItsOwnElements) {
    for (int capacity : {3, 8}) { // with and without growth
        Array a(capacity, {1, 2, 3});
        EXPECT_EQ((Numbers{kovaArrayAdd(a.header, a.begin() + 1), kovaArrayInsertAt(a.header, 1, a.begin() + 2),
                           kovaArrayInsertAt(a.header, 3, a.begin())}),
                  (Numbers{1, 1, 1}));
        EXPECT_EQ(a.values(), (Values{1, 3, 2, 1, 3, 2})) << capacity;
    }
}

TEST(Array, SetsAndRemoves) {
    Array a(4, {1, 2, 3});
    int value = 9;
    EXPECT_TRUE(kovaArraySetAt(a.header, 2, &value) && !kovaArraySetAt(a.header, 3, &value));
    EXPECT_TRUE(kovaArrayRemoveAt(a.header, 0) && kovaArrayRemoveAt(a.header, 1) && !kovaArrayRemoveAt(a.header, 1));
    EXPECT_EQ(a.values(), Values{2});
    EXPECT_TRUE(kovaArrayClear(a.header) && kovaArrayCount(a.header) == 0 && a.header->capacity == 4);
}

TEST(Array, AppendRepeatsTheDestinationsOwnElements) {
    Array a(4, {1, 2, 3, 4});
    Array b(3, {7, 8, 9});
    EXPECT_EQ(kovaArrayAppend(a.header, b.header), 1);
    EXPECT_EQ(a.values(), (Values{1, 2, 3, 4, 1, 2, 3}));
    EXPECT_EQ(kovaArrayAppend(b.header, b.header), 1);
    EXPECT_EQ(b.values(), (Values{7, 8, 9, 7, 8, 9}));
    Array brief(2, {5});
    EXPECT_EQ(kovaArrayAppend(brief.header, b.header), 1); // more than it has
    EXPECT_EQ(kovaArrayCount(brief.header), 7);
    EXPECT_EQ(brief.begin()[1], 5);
    KOVAArrayHeader* bytes = kovaArrayAllocate(4, 1);
    EXPECT_EQ(kovaArrayAppend(a.header, bytes), 0);
    kovaArrayFree(bytes);
}

TEST(Array, SharesUntilTheLastHolderLetsGo) {
    KOVAArrayHeader* first = kovaArrayAllocate(1, 4);
    KOVAArrayHeader* second = kovaArrayCopy(first);
    kovaArrayFree(first);
    EXPECT_TRUE(first == second && kovaArrayCheck(second));
    kovaArrayFree(second);
    EXPECT_EQ(second, nullptr);
}

TEST(Array, RefusesInvalidHeaders) {
    KOVAArrayHeader* none = nullptr;
    Array a(1, {1});
    KOVAArrayHeader damaged = *a.header;
    damaged.guard = nullptr;
    KOVAArrayHeader* broken = &damaged;
    int value = 1;
    for (KOVAArrayHeader* header : {none, broken}) {
        KOVAArrayHeader* const before = header;
        EXPECT_EQ(kovaArrayCheck(header) + kovaArrayCount(header) + kovaArrayClear(header) +
                      kovaArraySetAt(header, 0, &value) + kovaArrayRemoveAt(header, 0) + kovaArrayAdd(header, &value) +
                      kovaArrayInsertAt(header, 0, &value) + kovaArrayRealloc(header) +
                      kovaArrayAppend(header, a.header) + kovaArrayAppend(a.header, header),
                  0);
        EXPECT_EQ(kovaArrayCopy(header), before);
        kovaArrayFree(header);
        EXPECT_EQ(header, before);
    }
}

} // namespace
