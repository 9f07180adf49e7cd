#include "containers/letters.h"
#include "support/test.h"

namespace {

TEST(List, LinksBothWays) {
    KOVAList list;
    test::fill(list, "ab");
    list.PushFront(test::entry('c'));
    EXPECT_EQ(test::forwards(list), "cab");
    EXPECT_EQ(test::backwards(list), "bac");
    EXPECT_EQ(list.GetSize(), 3U);
    list.Remove(test::entry('a'));
    EXPECT_EQ(test::backwards(list), "bc");
    list.PopFront();
    EXPECT_EQ(test::backwards(list), "b"); // the new head's backward link is null
    list.Pop();
    EXPECT_TRUE(list.IsEmpty() && list.GetBack() == nullptr);
    list.PopFront();
    list.PopBack();
    EXPECT_EQ(list.GetSize(), 0U);
}

TEST(List, RemovesTheFirstMatchAndRuns) {
    KOVAList list;
    test::fill(list, "aba");
    list.Remove(test::entry('a'));
    EXPECT_EQ(test::forwards(list), "ba");
    EXPECT_TRUE(list.Find(test::entry('f')) == list.End());
    test::empty(list);
    test::fill(list, "aabaa");
    list.Unique();
    EXPECT_EQ(test::forwards(list), "aba");
    EXPECT_EQ(list.GetTop(), test::entry('a'));
    test::empty(list);
    list.Unique();
}

TEST(List, PushFrontIntoAnEmptyListSetsNoTail) {
    KOVAList list;
    list.PushFront(test::entry('a'));
    EXPECT_TRUE(list.GetFront() == test::entry('a') && list.GetBack() == nullptr);
    list.PopBack(); // there is no tail to take
    EXPECT_EQ(list.GetSize(), 1U);
    list.PushBack(test::entry('b'));
    EXPECT_TRUE(list.GetBack() == test::entry('b') && test::forwards(list) == "a" && list.GetSize() == 2);
    list.PopBack();
    EXPECT_TRUE(list.GetBack() == nullptr && list.GetSize() == 1);
}

TEST(List, CopiesShareNodesAndReleaseThemOnce) {
    KOVAList first;
    test::fill(first, "abc");
    {
        KOVAList second(first);
        KOVAList third;
        third = second;
        first.Remove(test::entry('b'));
        EXPECT_EQ(test::forwards(second), "ac");
        first.PopFront();
        EXPECT_EQ(test::forwards(second), "ac"); // still its head
        second.PushBack(test::entry('d'));
        EXPECT_EQ(test::forwards(first), "cd");
        test::empty(second);
        test::empty(third);
    }
    EXPECT_EQ(test::forwards(first), "cd");
    test::empty(first);
}

} // namespace
