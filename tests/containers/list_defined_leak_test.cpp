// A list releases only its first node, for good: callers may still reach the others. These tests leak by
// that definition, and the leak checker is told so by the name of this file.

#include <random>

#include "containers/letters.h"
#include "support/test.h"

namespace {

TEST(List, ClearReleasesOnlyTheFirstNode) {
    KOVAListNode::KOVAListIterator later;
    {
        KOVAList list;
        test::fill(list, "abc");
        later = ++list.Begin();
        list.Clear();
        EXPECT_TRUE(list.IsEmpty());
        EXPECT_EQ(list.GetBack(), nullptr);
    }
    EXPECT_EQ(test::text(later, KOVAListNode::KOVAListIterator()), "bc");
}

// Random work on three lists that copy each other. What it looks for is memory used after its release,
// or released twice; the sanitizers see it.
TEST(List, SharedListsUnderRandomWork) {
    std::mt19937 random(12);
    KOVAList lists[3];
    unsigned total = 0;
    for (int step = 0; step < 20000; ++step) {
        KOVAList& list = lists[random() % 3];
        void* const value = test::entry(static_cast<char>('a' + random() % 6));
        switch (random() % 9) {
        case 0:
        case 1: list.PushBack(value); break;
        case 2: list.PushFront(value); break;
        case 3: list.PopFront(); break;
        case 4: list.PopBack(); break;
        case 5: list.Remove(value); break;
        case 6: list.Unique(); break;
        case 7: list = lists[random() % 3]; break;
        default:
            if (random() % 20 == 0) list.Clear();
        }
        total += static_cast<unsigned>(test::forwards(list).size() + test::backwards(list).size());
    }
    EXPECT_GT(total, 20000U);
}

} // namespace
