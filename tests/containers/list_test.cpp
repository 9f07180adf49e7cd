#include <kova/containers/KOVAList.h>

#include <gtest/gtest.h>

#include "containers/letters.h"

namespace {

using test::backwards;
using test::empty;
using test::entry;
using test::fill;
using test::forwards;

TEST(List, LinksBothWays) {
    KOVAList list;
    fill(list, "ab");
    list.PushFront(entry('c'));
    EXPECT_EQ(forwards(list), "cab");
    EXPECT_EQ(backwards(list), "bac");
    EXPECT_EQ(list.GetSize(), 3U);
    list.Remove(entry('a'));
    EXPECT_EQ(backwards(list), "bc");
    list.PopFront();
    EXPECT_EQ(backwards(list), "b"); // the new head's backward link is null
    list.Pop();
    EXPECT_TRUE(list.IsEmpty());
    EXPECT_EQ(list.GetBack(), nullptr);
    list.PopFront();
    list.PopBack();
    list.Remove(entry('a'));
    EXPECT_EQ(list.GetSize(), 0U);
}

TEST(List, RemovesTheFirstMatchAndRuns) {
    KOVAList list;
    fill(list, "aba");
    list.Remove(entry('a'));
    EXPECT_EQ(forwards(list), "ba");
    EXPECT_TRUE(list.Find(entry('f')) == list.End());
    empty(list);
    fill(list, "aabaa");
    list.Unique();
    EXPECT_EQ(forwards(list), "aba");
    EXPECT_EQ(list.GetTop(), entry('a'));
    empty(list);
    list.Unique();
}

TEST(List, PushFrontIntoAnEmptyListSetsNoTail) {
    KOVAList list;
    list.PushFront(entry('a'));
    EXPECT_EQ(list.GetFront(), entry('a'));
    EXPECT_EQ(list.GetBack(), nullptr);
    list.PopBack(); // there is no tail to take
    EXPECT_EQ(list.GetSize(), 1U);
    list.PushBack(entry('b'));
    EXPECT_EQ(list.GetBack(), entry('b'));
    EXPECT_EQ(forwards(list), "a");
    EXPECT_EQ(list.GetSize(), 2U);
    list.PopBack();
    EXPECT_EQ(list.GetBack(), nullptr);
    EXPECT_EQ(list.GetSize(), 1U);
}

TEST(List, CopiesShareNodesAndReleaseThemOnce) {
    KOVAList first;
    fill(first, "abc");
    {
        KOVAList second(first);
        KOVAList third;
        third = second;
        first.Remove(entry('b'));
        EXPECT_EQ(forwards(second), "ac");
        first.PopFront();
        EXPECT_EQ(forwards(second), "ac"); // still its head
        second.PushBack(entry('d'));
        EXPECT_EQ(forwards(first), "cd");
        empty(second);
        empty(third);
    }
    EXPECT_EQ(forwards(first), "cd");
    empty(first);
}

} // namespace
